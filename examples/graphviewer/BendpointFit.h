#pragma once

#include <QPainterPath>

namespace GraphViewer {

class Bends;
class EdgeConnection;

/// The fewest bendpoints with which \a edge, whose ends are connected, runs along \a course.
///
/// A curve is divided again and again where it is farthest off; a course of straight lines gets one bendpoint at each
/// corner.
Bends fitBends(EdgeConnection &edge, const QPainterPath &course, bool angular);

/// An upright rectangle instead of the loop \a course, on that side of the figure with \a box where the loop is.
QPainterPath squareLoop(const QPainterPath &course, const QRectF &box);

} // namespace GraphViewer
