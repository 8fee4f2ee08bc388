#include <vtlpictel/figure/Locator.h>

#include <vtlpictel/figure/Figure.h>
#include <vtlpictel/figure/GeometryUtils.h>

#include "support/LifeGuard.h"

namespace Vantrel::Pictel {

namespace {

// -1, 0 or 1; the low side wins when both are asked for.
int sideFactor(int position, int low, int high)
{
    if (position & low)
        return -1;
    return position & high ? 1 : 0;
}

} // namespace

Locator::Locator(QObject *parent)
    : QObject(parent)
{ }

Locator::~Locator() = default;

int Locator::getGap() const
{
    return m_gap;
}

int Locator::getRelativePosition() const
{
    return m_relativePosition;
}

void Locator::setGap(int gap)
{
    m_gap = gap;
}

void Locator::setRelativePosition(int position)
{
    m_relativePosition = position;
}

QRect Locator::getNewBounds(const QSize &size, const QPoint &center)
{
    const QPoint half(size.width() / 2, size.height() / 2);
    const int position = getRelativePosition();
    const int dx = (half.x() + getGap()) * sideFactor(position, POSITION_WEST, POSITION_EAST);
    const int dy = (half.y() + getGap()) * sideFactor(position, POSITION_NORTH, POSITION_SOUTH);
    return QRect(center - half + QPoint(dx, dy), size);
}

void Locator::relocate(Figure *target)
{
    if (!target || !target->isVisible())
        return;
    // Whoever is asked may delete the target or the locator.
    const LifeGuard<ILocator> self(this);
    const LifeGuard<Figure> guest(target);
    const auto areAlive = [&] { return self.isAlive() && guest.isAlive(); };
    const QSize size = target->getPreferredSize();
    QPoint center = areAlive() ? getReferencePoint() : QPoint();
    if (areAlive())
        target->translateToRelative(center);
    const QRect bounds = areAlive() ? getNewBounds(size, center) : QRect();
    if (areAlive())
        target->setBounds(bounds);
}

} // namespace Vantrel::Pictel
