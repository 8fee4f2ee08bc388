#pragma once

#include <QPoint>
#include <QPointF>
#include <QRect>
#include <QRectF>

#include <limits>

namespace Vantrel::Pictel {

/// Drops the fraction; what no int can hold becomes the nearest one, not-a-number becomes 0.
constexpr int truncateToInt(double value)
{
    using Limits = std::numeric_limits<int>;
    if (value >= Limits::max())
        return Limits::max();
    if (value <= Limits::min())
        return Limits::min();
    return value == value ? static_cast<int>(value) : 0;
}

/// The sum, or the nearest number that an int can hold.
constexpr int boundedSum(int left, int right)
{
    return truncateToInt(static_cast<double>(left) + right);
}

/// Rounds half away from zero, within the limits of truncateToInt().
constexpr int roundToInt(double value)
{
    return truncateToInt(value < 0.0 ? value - 0.5 : value + 0.5);
}

/// Rounds each coordinate half away from zero.
constexpr QPoint roundedPoint(const QPointF &point)
{
    return QPoint(roundToInt(point.x()), roundToInt(point.y()));
}

constexpr double BoundedCoordinateLimit = 1 << 29;

/// \a value cut off beyond 2^29, so that what is made of it can still be moved and grown; not-a-number becomes 0.
constexpr double boundedCoordinate(double value)
{
    if (value > BoundedCoordinateLimit)
        return BoundedCoordinateLimit;
    if (value < -BoundedCoordinateLimit)
        return -BoundedCoordinateLimit;
    return value == value ? value : 0.0;
}

/// True when boundedCoordinate() leaves \a value as it is.
constexpr bool isBounded(double value)
{
    return value >= -BoundedCoordinateLimit && value <= BoundedCoordinateLimit;
}

/// \a rect with its four edges cut off as boundedCoordinate() does. Within bounds it keeps its exact size, which
/// right() - left() would not always give back.
constexpr QRectF boundedRect(const QRectF &rect)
{
    if (isBounded(rect.left()) && isBounded(rect.top()) && isBounded(rect.right()) && isBounded(rect.bottom()))
        return rect;
    return QRectF(QPointF(boundedCoordinate(rect.left()), boundedCoordinate(rect.top())),
                  QPointF(boundedCoordinate(rect.right()), boundedCoordinate(rect.bottom())));
}

/// Rounds as QRectF::toRect() does, after cutting the four edges off as boundedCoordinate() does.
constexpr QRect roundedRect(const QRectF &rect)
{
    return boundedRect(rect).toRect();
}

} // namespace Vantrel::Pictel
