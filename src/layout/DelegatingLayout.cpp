#include <vtlpictel/layout/DelegatingLayout.h>

#include "layout/LargestSize_p.h"
#include "layout/LocatorConstraint_p.h"

#include <vtlpictel/figure/Figure.h>

#include <functional>

namespace Vantrel::Pictel {

DelegatingLayout::DelegatingLayout(QObject *parent)
    : Layout(parent)
{ }

DelegatingLayout::~DelegatingLayout() = default;

bool DelegatingLayout::isRelativeLayout() const
{
    return false;
}

QSize DelegatingLayout::calculatePreferredSize()
{
    return getMinimumSize();
}

QSize DelegatingLayout::calculateMinimumSize()
{
    LargestSize largest(&Figure::getPreferredSize);
    if (getFigure())
        forEachChild(std::ref(largest));
    return largest.value();
}

bool DelegatingLayout::performLayout(const QRect &)
{
    forEachChild([this](Figure *child) {
        if (ILocator *locator = locatorOf(getConstraint(child)))
            locator->relocate(child);
    });
    return true;
}

bool DelegatingLayout::isClipping() const
{
    return false;
}

} // namespace Vantrel::Pictel
