#pragma once

#include <vtlpictel/shapes/Shape.h>

namespace Vantrel::Pictel {

/// An open line through integer points, given in the parent's coordinates. See PolylineF for floating-point ones.
///
/// The bounds follow the points: getBounds() is the box around the line while the line is in a displayed tree (see
/// Shape), and setBounds() does not move it. Every change of the points repaints the old and the new area.
///
/// A line is not filled unless setFill() says so. It needs two points to be seen.
///
/// Bad input: an index outside the points leaves a warning and changes nothing, or gives (0, 0) when reading.
class VTLPICTEL_EXPORT Polyline : public Shape
{
    Q_OBJECT

public:
    /// How far from the line contains() still answers true, in logical pixels, for all lines of this class (default 6).
    static int M_tolerance;

    explicit Polyline(QObject *parent = nullptr);
    ~Polyline() override;

    /// A copy of the points. A subclass may supply others for the path.
    virtual QList<QPoint> getLinePoints() const;
    /// Replaces all points.
    virtual void setLinePoints(const QList<QPoint> &points);

    // Single points

    int getPointCount() const { return static_cast<int>(m_points.size()); }
    /// The point at \a index, or (0, 0) when there is none.
    QPoint getPoint(int index) const;
    /// The first point, or (0, 0) without points.
    QPoint getStart() const;
    /// The last point, or (0, 0) without points.
    QPoint getEnd() const;
    /// Appends a point.
    void addPoint(const QPoint &point);
    /// Inserts a point before \a index, which is brought into range first.
    void insertPoint(const QPoint &point, int index);
    void setPoint(const QPoint &point, int index);
    void removePoint(int index);
    void removeAllPoints();
    /// Replaces the first point, or adds it when there is none.
    void setStart(const QPoint &point);
    /// Replaces the last of two or more points; otherwise appends, so that a start stays the start.
    void setEnd(const QPoint &point);
    /// setStart() and then setEnd().
    void setEndPoints(const QPoint &start, const QPoint &end);

    // Shape

    /// Repaints the old and the new area, too.
    void setLineWidth(int width) override;
    /// The box around the path; between exactly two points it is at least one pixel wide and high.
    QRect getBounds() override;
    /// \a bounds unchanged.
    QRect resolveBounds(const QRect &bounds) override;
    /// True when \a point (parent's coordinates) lies within M_tolerance of the line, or in a child.
    bool contains(const QPoint &point) const override;

protected Q_SLOTS:
    /// Draws the path through getLinePoints(); \a bounds do not matter.
    void regeneratePath(const QRectF &bounds) override;

private:
    QList<QPoint> m_points;
};

} // namespace Vantrel::Pictel
