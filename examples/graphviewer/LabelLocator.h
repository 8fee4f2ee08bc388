#pragma once

#include <vtlpictel/figure/ConnectionLocator.h>

#include <QPainterPath>

#include <optional>

namespace GraphViewer {

class EdgeConnection;
class Track;

/// Keeps a label beside the line of its edge: at the same part of it, on the same side and equally far away, whatever
/// way the line takes.
class LabelLocator : public Vantrel::Pictel::ConnectionLocator
{
public:
    /// \a label is where Graphviz put it beside the course of \a edge, in the coordinates of both.
    LabelLocator(EdgeConnection &edge, const QRectF &label);

    /// Keeps the place that the label has in the file beside \a course. With an empty one, a label that does not belong
    /// to an end stands close to the line, where it hides least: if it can, at that part, 0 to 1, of the longest
    /// segment.
    void setPlace(const QPainterPath &course, double fraction);

protected:
    QRect getNewBounds(const QSize &size, const QPoint &center) override;
    QPoint getLocation(QList<QPoint> points) override;

private:
    struct Place
    {
        double distance; // along the line
        double side;
        double gap;
    };

    double extentAlong(const QPointF &direction) const;
    void takePlace(const Track &course);
    bool isAtEnd() const { return m_fraction < 0.2 || m_fraction > 0.8; }
    QPointF centerAt(const Place &place) const;
    int harmOf(const Place &place) const;
    QList<Place> freePlaces(const QList<QPoint> &points) const;
    Place placeBeside(const QList<QPoint> &points) const;

    const EdgeConnection &m_edge;
    QRectF m_label;
    std::optional<double> m_freePlace;
    double m_fraction = 0.5; // its place in the file: 0 is the start of the line, 1 its end
    double m_side = 1.0; // 1 is the right of the direction, -1 the left
    double m_gap = 0.0;
    double m_along = 0.0; // forward of its place; not 0 only beyond the ends
};

} // namespace GraphViewer
