#pragma once

#include <vtlpictel/vtlpictel_export.h>

class QPoint;
class QRect;

namespace Vantrel::Pictel {

// Where a point lies relative to another point or a rectangle; a vertical and a horizontal code may be combined.

/// Inside.
constexpr int POSITION_NONE = 0;
/// Above.
constexpr int POSITION_NORTH = 1;
/// Below.
constexpr int POSITION_SOUTH = 4;
/// To the left.
constexpr int POSITION_WEST = 8;
/// To the right.
constexpr int POSITION_EAST = 16;

/// Distances and relative positions of points. Both arguments of a function share one coordinate system; integer
/// arithmetic wraps silently.
class VTLPICTEL_EXPORT GeometryUtils
{
public:
    GeometryUtils() = delete;

    /// The length of the shortest way from \a first to \a second along horizontal and vertical lines.
    static int orthogonalDistance(const QPoint &first, const QPoint &second);
    /// The one direction in which \a point lies from \a reference: that of the larger distance, the vertical one on a
    /// tie, and POSITION_SOUTH for equal points.
    static int relativePosition(const QPoint &point, const QPoint &reference);
    /// POSITION_NONE when \a rect contains \a point, edges included; otherwise a horizontal code, a vertical one or
    /// both combined.
    static int relativePosition(const QPoint &point, const QRect &rect);
};

} // namespace Vantrel::Pictel
