#pragma once

#include "ShownTree.h"

#include <vtlpictel/shapes/Polygon.h>
#include <vtlpictel/shapes/PolylineF.h>

#include <QSignalSpy>

/// Tells a test what differs between the two kinds of polylines.
template <typename Line>
struct LineTraits;

template <>
struct LineTraits<Vantrel::Pictel::Polyline>
{
    using Point = QPoint;
    static constexpr char name[] = "Polyline";
};

template <>
struct LineTraits<Vantrel::Pictel::PolylineF>
{
    using Point = QPointF;
    static constexpr char name[] = "PolylineF";
};

template <>
struct LineTraits<Vantrel::Pictel::Polygon> : LineTraits<Vantrel::Pictel::Polyline>
{ };

/// Opens what is protected, and can be given other points for its path than its own.
template <typename Line>
class LineProbe : public Line
{
public:
    using Point = typename LineTraits<Line>::Point;
    using Line::getPainterPath;
    using Line::Line;

    QList<Point> pathPoints;

    QList<Point> getLinePoints() const override { return pathPoints.isEmpty() ? Line::getLinePoints() : pathPoints; }
};

/// A line through (0, 0), (40, 0) and (40, 30) in a displayed tree, with nothing left to repaint.
template <typename Line>
class ShownLine
{
public:
    using Point = typename LineTraits<Line>::Point;

    ShownLine()
    {
        tree.show(line);
        setPoints({{0, 0}, {40, 0}, {40, 30}});
        QObject::connect(&line, &Line::pathChanged, &line, [this](const QRectF &bounds) { changes << bounds; });
    }

    void setPoints(const QList<Point> &points)
    {
        line.setLinePoints(points);
        tree.forget();
        changes.clear();
    }

    const QPainterPath &path() const { return line.getPainterPath(); }

    static QRect firstBounds() { return QRect(0, 0, 40, 30); }

    ShownTree tree;
    LineProbe<Line> line;
    /// The arguments of pathChanged().
    QList<QRectF> changes;
};

/// An open line as a path.
inline QPainterPath openPath(const QPolygonF &points)
{
    QPainterPath path;
    path.moveTo(points.first());
    for (const QPointF &point : points.mid(1))
        path.lineTo(point);
    return path;
}
