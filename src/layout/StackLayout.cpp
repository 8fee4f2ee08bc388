#include <vtlpictel/layout/StackLayout.h>

#include "layout/LargestSize_p.h"

#include <vtlpictel/figure/Figure.h>

#include <functional>

namespace Vantrel::Pictel {

StackLayout::StackLayout(QObject *parent)
    : Layout(parent)
{ }

StackLayout::~StackLayout() = default;

bool StackLayout::isRelativeLayout() const
{
    return false;
}

QSize StackLayout::calculatePreferredSize()
{
    LargestSize largest(&Figure::getPreferredSize);
    forEachChild(std::ref(largest));
    return largest.value();
}

QSize StackLayout::calculateMinimumSize()
{
    LargestSize largest(&Figure::getMinimumSize);
    forEachChild(std::ref(largest));
    return largest.value();
}

bool StackLayout::performLayout(const QRect &clientArea)
{
    if (!clientArea.isValid())
        return false;
    forEachChild([area = clientArea](Figure *child) {
        if (child->isVisible())
            child->setBounds(area);
    });
    return true;
}

} // namespace Vantrel::Pictel
