#pragma once

#include <vtlpictel/shapes/Shape.h>

namespace Vantrel::Pictel {

/// An open line through floating-point points, given in the parent's coordinates.
///
/// Otherwise as Polyline, except that the bounds of a horizontal or vertical line have no area, so that such a line
/// is not painted on its own. Points that are not numbers, or infinite, are kept but left out of the line.
class VTLPICTEL_EXPORT PolylineF : public Shape
{
    Q_OBJECT

public:
    /// How far from the line contains() still answers true, in logical pixels, for all lines of this class (default 2).
    static int M_tolerance;

    explicit PolylineF(QObject *parent = nullptr);
    ~PolylineF() override;

    /// A copy of the points. A subclass may supply others for the path.
    virtual QList<QPointF> getLinePoints() const;
    /// Replaces all points.
    virtual void setLinePoints(const QList<QPointF> &points);

    // Single points

    int getPointCount() const { return static_cast<int>(m_points.size()); }
    /// The point at \a index, rounded half away from zero, or (0, 0) when there is none.
    QPoint getPoint(int index) const;
    /// The point at \a index, or (0, 0) when there is none.
    QPointF getPointF(int index) const;
    /// The first point, or (0, 0) without points.
    QPointF getStart() const;
    /// The last point, or (0, 0) without points.
    QPointF getEnd() const;
    /// Appends a point.
    void addPoint(const QPointF &point);
    /// Inserts a point before \a index, which is brought into range first.
    void insertPoint(const QPointF &point, int index);
    void setPoint(const QPointF &point, int index);
    void removePoint(int index);
    void removeAllPoints();
    /// Replaces the first point, or adds it when there is none.
    void setStart(const QPointF &point);
    /// Replaces the last of two or more points; otherwise appends, so that a start stays the start.
    void setEnd(const QPointF &point);
    /// setStart() and then setEnd().
    void setEndPoints(const QPointF &start, const QPointF &end);

    // Shape

    /// Repaints the old and the new area, too.
    void setLineWidth(int width) override;
    /// The box around the path, rounded.
    QRect getBounds() override;
    /// True when \a point (parent's coordinates) lies within M_tolerance of the line, or in a child.
    bool contains(const QPoint &point) const override;

protected Q_SLOTS:
    /// Draws the path through getLinePoints(); \a bounds do not matter.
    void regeneratePath(const QRectF &bounds) override;

private:
    QList<QPointF> m_points;
};

} // namespace Vantrel::Pictel
