#include <vtlpictel/connections/ChopboxAnchor.h>

#include "support/LifeGuard.h"
#include "support/RectExtents.h"
#include "support/Rounding.h"
#include "support/WrappingArithmetic.h"

#include <QMessageLogger>

#include <algorithm>
#include <cmath>

namespace Vantrel::Pictel {

namespace {

// Chopping works in single precision, so the rounding of its results depends on it.
struct FloatPoint
{
    float x;
    float y;
};

FloatPoint centerOf(const QRect &box)
{
    return {static_cast<float>(box.x() + exactWidth(box) * 0.5), static_cast<float>(box.y() + exactHeight(box) * 0.5)};
}

QPoint truncated(const FloatPoint &point)
{
    return {truncateToInt(point.x), truncateToInt(point.y)};
}

FloatPoint difference(const QPoint &to, const FloatPoint &from)
{
    return {static_cast<float>(to.x()) - from.x, static_cast<float>(to.y()) - from.y};
}

// How far away from the centre, in units of the box's size, the farther coordinate lies; 0.5 is on the edge.
float relativeDistance(const QRect &box, const FloatPoint &offset)
{
    return std::max(std::abs(offset.y) / static_cast<float>(exactHeight(box)),
                    std::abs(offset.x) / static_cast<float>(exactWidth(box)));
}

} // namespace

ChopboxAnchor::ChopboxAnchor(QObject *parent)
    : AbstractConnectionAnchor(parent)
{ }

ChopboxAnchor::ChopboxAnchor(Figure *owner, QObject *parent)
    : AbstractConnectionAnchor(owner, parent)
{ }

ChopboxAnchor::~ChopboxAnchor() = default;

QRect ChopboxAnchor::getBox()
{
    Figure *owner = getOwner();
    return owner ? owner->getBounds() : QRect();
}

QPoint ChopboxAnchor::getLocation(const QPoint &reference) const
{
    if (!getOwner()) {
        QMessageLogger().warning("ChopboxAnchor::getLocation(): no owner present");
        return {};
    }
    const QRect chopBox = absoluteChopBox();
    const FloatPoint center = centerOf(chopBox);
    if (chopBox.isEmpty() || reference == truncated(center))
        return truncated(center);

    const FloatPoint offset = difference(reference, center);
    const float distance = relativeDistance(chopBox, offset);
    if (distance == 0.0F) // far out, where single precision no longer tells the reference from the centre
        return truncated(center);
    const auto factor = static_cast<float>(0.5 / static_cast<double>(distance));
    return {roundToInt(factor * offset.x + center.x), roundToInt(factor * offset.y + center.y)};
}

QPoint ChopboxAnchor::getReferencePoint() const
{
    Figure *owner = getOwner();
    if (!owner) {
        QMessageLogger().warning("ChopboxAnchor::getReferencePoint(): no owner present");
        return {};
    }
    const LifeGuard<Figure> ownerLife(owner);
    QPoint center = box().center();
    return ownerLife.isAlive() ? owner->translateToAbsolute(center) : center;
}

bool ChopboxAnchor::operator==(const ChopboxAnchor &other) const
{
    return getOwner() == other.getOwner() && box() == other.box();
}

// The bridge from the const queries to getBox(), which is not const so that subclasses may compute and cache in it.
QRect ChopboxAnchor::box() const
{
    return const_cast<ChopboxAnchor *>(this)->getBox();
}

// The pixel at the top and left makes up for the edge that a rectangle of pixels has at its right and bottom only.
QRect ChopboxAnchor::absoluteChopBox() const
{
    Figure *owner = getOwner();
    const LifeGuard<Figure> ownerLife(owner);
    QRect chopBox = box();
    chopBox.setTopLeft({wrappingSubtract(chopBox.left(), 1), wrappingSubtract(chopBox.top(), 1)});
    return owner && ownerLife.isAlive() ? owner->translateToAbsolute(chopBox) : chopBox;
}

} // namespace Vantrel::Pictel
