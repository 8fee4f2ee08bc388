#pragma once

#include <QPoint>
#include <QPointF>

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

} // namespace Vantrel::Pictel
