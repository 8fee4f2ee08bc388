#include <vtlpictel/layout/FreeformStackLayout.h>

#include "support/LifeGuard.h"
#include "support/RectExtents.h"

#include <vtlpictel/figure/Figure.h>
#include <vtlpictel/layers/IFreeformFigure.h>

namespace Vantrel::Pictel {

namespace {

IFreeformFigure *visibleFreeform(Figure *child)
{
    return child->isVisible() ? qobject_cast<IFreeformFigure *>(child) : nullptr;
}

} // namespace

FreeformStackLayout::FreeformStackLayout(QObject *parent)
    : StackLayout(parent)
{
    setLaidOut(true);
}

FreeformStackLayout::~FreeformStackLayout() = default;

void FreeformStackLayout::examineExtent()
{
    const LifeGuard<Layout> self(this);
    const QRect extent = calculateFreeformExtent();
    if (!self.isAlive() || extent == m_extent)
        return;
    m_extent = extent;
    Q_EMIT extentChanged();
}

QRect FreeformStackLayout::getFreeformExtent()
{
    if (m_extent.isValid())
        return m_extent;
    const LifeGuard<Layout> self(this);
    const QRect extent = calculateFreeformExtent();
    if (self.isAlive())
        m_extent = extent;
    return extent;
}

void FreeformStackLayout::setFreeformBounds(const QRect &bounds)
{
    const LifeGuard<Layout> self(this);
    const QRect handedOn = bounds;
    forEachChild([&handedOn](Figure *child) {
        if (IFreeformFigure *freeform = visibleFreeform(child))
            freeform->setFreeformBounds(handedOn);
    });
    if (self.isAlive())
        m_currentChildBounds = handedOn;
}

QSize FreeformStackLayout::calculatePreferredSize()
{
    return getMinimumSize();
}

QSize FreeformStackLayout::calculateMinimumSize()
{
    return boundedSize(getFreeformExtent());
}

bool FreeformStackLayout::performLayout(const QRect &)
{
    const QRect bounds = m_currentChildBounds;
    if (!bounds.isValid())
        return true;
    forEachChild([&bounds](Figure *child) {
        IFreeformFigure *freeform = visibleFreeform(child);
        if (freeform && child->getBounds() != bounds)
            freeform->setFreeformBounds(bounds);
    });
    return true;
}

QRect FreeformStackLayout::calculateFreeformExtent() const
{
    QRect extent;
    if (!getFigure())
        return extent;
    forEachChild([&extent](Figure *child) {
        if (auto *freeform = qobject_cast<IFreeformFigure *>(child))
            extent |= freeform->getFreeformExtent();
    });
    return extent;
}

} // namespace Vantrel::Pictel
