#pragma once

#include "support/Rounding.h"

#include <QRect>

namespace Vantrel::Pictel {

// Integer rectangles with their edges cut off as boundedCoordinate() does: sums of such coordinates fit an int.

/// The point (\a x, \a y), cut off.
constexpr QPoint boundedPoint(double x, double y)
{
    return QPoint(truncateToInt(boundedCoordinate(x)), truncateToInt(boundedCoordinate(y)));
}

/// The rectangle between these edges, the right and bottom ones included, cut off.
constexpr QRect boundedRect(double left, double top, double right, double bottom)
{
    return QRect(boundedPoint(left, top), boundedPoint(right, bottom));
}

constexpr QRect boundedRect(const QRect &rect)
{
    return boundedRect(rect.left(), rect.top(), rect.right(), rect.bottom());
}

/// \a rect grown by \a dx to the left and right and by \a dy upwards and downwards, cut off.
constexpr QRect grownRect(const QRect &rect, double dx, double dy)
{
    return boundedRect(rect.left() - dx, rect.top() - dy, rect.right() + dx, rect.bottom() + dy);
}

/// A rectangle of the size of \a rect at \a topLeft, cut off.
constexpr QRect rectMovedTo(const QRect &rect, const QPoint &topLeft)
{
    const double dx = double(topLeft.x()) - rect.left();
    const double dy = double(topLeft.y()) - rect.top();
    return boundedRect(rect.left() + dx, rect.top() + dy, rect.right() + dx, rect.bottom() + dy);
}

} // namespace Vantrel::Pictel
