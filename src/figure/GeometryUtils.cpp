#include <vtlpictel/figure/GeometryUtils.h>

#include "support/WrappingArithmetic.h"

#include <QPoint>
#include <QRect>

namespace Vantrel::Pictel {

namespace {

/// Where \a value lies from the range that starts at \a first and stops before \a end, on one axis.
int positionOnAxis(int value, int first, int end, int before, int behind)
{
    if (value < first)
        return before;
    return value >= end ? behind : POSITION_NONE;
}

} // namespace

int GeometryUtils::orthogonalDistance(const QPoint &first, const QPoint &second)
{
    return wrappingAdd(wrappingAbsolute(wrappingSubtract(first.x(), second.x())),
                       wrappingAbsolute(wrappingSubtract(first.y(), second.y())));
}

int GeometryUtils::relativePosition(const QPoint &point, const QPoint &reference)
{
    const int dx = wrappingSubtract(point.x(), reference.x());
    const int dy = wrappingSubtract(point.y(), reference.y());
    if (wrappingAbsolute(dx) <= wrappingAbsolute(dy))
        return dy < 0 ? POSITION_NORTH : POSITION_SOUTH;
    return dx < 0 ? POSITION_WEST : POSITION_EAST;
}

int GeometryUtils::relativePosition(const QPoint &point, const QRect &rect)
{
    if (rect.contains(point))
        return POSITION_NONE;
    const int endX = wrappingAdd(rect.right(), 1);
    const int endY = wrappingAdd(rect.bottom(), 1);
    return positionOnAxis(point.x(), rect.left(), endX, POSITION_WEST, POSITION_EAST)
        | positionOnAxis(point.y(), rect.top(), endY, POSITION_NORTH, POSITION_SOUTH);
}

} // namespace Vantrel::Pictel
