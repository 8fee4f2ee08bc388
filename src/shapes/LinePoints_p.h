#pragma once

#include <vtlpictel/shapes/Shape.h>

#include "support/LifeGuard.h"

#include <QMessageLogger>
#include <QPainterPathStroker>

#include <algorithm>

namespace Vantrel::Pictel {

// What Polyline and PolylineF have in common. They differ in the type of their points, in the rounding that follows
// from it and in their name; everything else is told here once.

/// The open line through \a points; empty for fewer than two. Points that no painter path can hold (not a number,
/// infinite) are left out.
template <typename Point>
QPainterPath pathThrough(const QList<Point> &points)
{
    QPainterPath path;
    if (points.size() < 2)
        return path;
    for (const Point &point : points) {
        // A refused point leaves the path without an element, so that the next one starts it.
        if (path.elementCount() == 0)
            path.moveTo(point);
        else
            path.lineTo(point);
    }
    return path;
}

/// Changes the points of a line and has its path rebuilt and its old and new area repainted.
template <typename Point>
class LinePointsEditor
{
public:
    LinePointsEditor(Shape &line, QList<Point> &points, const char *className)
        : m_line(line)
        , m_points(points)
        , m_className(className)
    { }

    void add(const Point &point)
    {
        m_points.append(point);
        rebuildAndRepaint();
    }

    void insert(const Point &point, int index)
    {
        m_points.insert(std::clamp(index, 0, count()), point);
        rebuildAndRepaint();
    }

    void set(const Point &point, int index)
    {
        if (!isInside(index, "setPoint"))
            return;
        m_line.erase();
        m_points[index] = point;
        rebuildAndRepaint();
    }

    void remove(int index)
    {
        if (!isInside(index, "removePoint"))
            return;
        m_line.erase();
        m_points.removeAt(index);
        rebuild();
    }

    void removeAll()
    {
        m_line.erase();
        m_points.clear();
        rebuild();
    }

    void setAll(const QList<Point> &points)
    {
        m_line.erase();
        m_points = points;
        rebuildAndRepaint();
    }

    void setStart(const Point &point) { count() == 0 ? add(point) : set(point, 0); }
    /// A line with one point keeps it as its start and gets an end.
    void setEnd(const Point &point) { count() < 2 ? add(point) : set(point, count() - 1); }

    void setEnds(const Point &start, const Point &end)
    {
        const LifeGuard<Figure> line(&m_line);
        setStart(start);
        if (line.isAlive())
            setEnd(end);
    }

private:
    int count() const { return static_cast<int>(m_points.size()); }

    bool isInside(int index, const char *operation) const
    {
        if (index >= 0 && index < count())
            return true;
        QMessageLogger().warning("%s::%s(): index out-of-bounds", m_className, operation);
        return false;
    }

    void rebuild() { Q_EMIT m_line.pathChanged(QRectF()); }

    void rebuildAndRepaint()
    {
        const LifeGuard<Figure> line(&m_line);
        rebuild();
        if (line.isAlive())
            m_line.repaint();
    }

    Shape &m_line;
    QList<Point> &m_points;
    const char *const m_className;
};

/// Gives \a line another width: its path may need another outline, so it is rebuilt.
inline void changeLineWidth(Shape &line, int width)
{
    if (width == line.getLineWidth())
        return;
    line.erase();
    line.Shape::setLineWidth(width);
    Q_EMIT line.pathChanged(QRectF());
}

/// True when \a point lies in \a rect grown by \a margin on every side.
inline bool isNear(const QRect &rect, qint64 margin, const QPoint &point)
{
    return point.x() >= rect.left() - margin && point.x() <= rect.right() + margin && point.y() >= rect.top() - margin
        && point.y() <= rect.bottom() + margin;
}

/// True when a pen of the given width, drawn along \a path, covers \a point.
inline bool isOnStroke(const QPainterPath &path, double width, const QPoint &point)
{
    QPainterPathStroker stroker;
    stroker.setWidth(width);
    return stroker.createStroke(path).contains(QPointF(point));
}

/// True when a child of \a figure contains \a point, given in the system of the figure's bounds.
inline bool isOnChild(Figure &figure, const QPoint &point)
{
    const QList<Figure *> children = figure.childFigures();
    return std::any_of(children.begin(), children.end(),
                       [&point](const Figure *child) { return child->contains(point); });
}

/// The hit test of an open line, drawn along \a path. The bounds refuse most points before the line is stroked.
template <typename Line>
bool isOnLine(Line &line, const QPainterPath &path, const QPoint &point)
{
    const qint64 margin = qint64(Line::M_tolerance) + line.getLineWidth() / 2;
    return isNear(line.getBounds(), margin, point)
        && (isOnStroke(path, 2.0 * Line::M_tolerance, point) || isOnChild(line, point));
}

} // namespace Vantrel::Pictel
