#pragma once

#include <QLineF>
#include <QList>
#include <QPainterPath>
#include <QPolygonF>

namespace GraphViewer {

/// The points of the first part of \a path, close enough to its curves to stay smooth at every zoom.
QPolygonF sampled(const QPainterPath &path);
/// A smooth curve through \a points: at each inner point it runs in the direction from the one before to the one after.
QPainterPath smoothPath(const QList<QPointF> &points);
/// \a points without those on a straight line between their neighbours; the ends stay.
QList<QPointF> cornersOf(const QList<QPointF> &points);
/// Straight lines through \a points.
QPainterPath straightPath(const QList<QPointF> &points);

/// The course of a line as a dense row of points, for everything that asks how far along it something is.
///
/// A plain value. Distances run along the line from its start and are clamped to its length; points and distances are
/// in the unit of the path. An empty track has length 0 and lies at the origin.
class Track
{
public:
    struct Nearest
    {
        double distance = 0.0; ///< Along the track.
        double gap = 0.0; ///< From the track to the point.
    };

    Track() = default;
    explicit Track(const QPainterPath &path);

    bool isEmpty() const { return m_points.isEmpty(); }
    double length() const { return m_distances.isEmpty() ? 0.0 : m_distances.last(); }
    QPointF at(double distance) const;
    /// The unit vector of the direction in which the track runs there; null on a track without length.
    QPointF directionAt(double distance) const;
    Nearest nearestTo(const QPointF &point) const;
    /// Whether some of the track lies in \a area.
    bool crosses(const QRectF &area) const;
    /// The part from one distance to another; empty when there is nothing between them.
    QPolygonF piece(double from, double to) const;
    /// Likewise, moved sideways by \a offset: to the right of the direction, seen with y growing downwards.
    QPolygonF piece(double from, double to, double offset) const;

private:
    qsizetype segmentAt(double distance) const;
    QLineF segment(qsizetype index) const { return {m_points.at(index), m_points.at(index + 1)}; }

    QPolygonF m_points;
    QList<double> m_distances; ///< One for each point.
};

/// \a vector turned by 90 degrees: its right-hand side, seen with y growing downwards.
inline QPointF rightOf(const QPointF &vector)
{
    return {-vector.y(), vector.x()};
}

/// The vector of length 1 in the direction of \a vector; null for null.
QPointF unitVector(const QPointF &vector);

} // namespace GraphViewer
