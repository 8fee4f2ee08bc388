#pragma once

#include <vtlpictel/figure/IRotatableDecoration.h>
#include <vtlpictel/shapes/Polygon.h>

#include <memory>

namespace Vantrel::Pictel {

class RotatableMark;
class Transform;

/// A closed, filled end mark of a connection: by default a black arrow head.
///
/// The mark is a template of points in a unit frame whose tip is the origin and whose axis points along +x. It is
/// scaled (by default 7 long and 3 to either side), turned and moved; every change sets the line points anew and
/// repaints. Location and reference point are in the coordinates of the decoration's bounds.
class VTLPICTEL_EXPORT PolygonDecoration : public Polygon, public IRotatableDecoration
{
    Q_OBJECT
    Q_INTERFACES(Vantrel::Pictel::IRotatableDecoration)

public:
    explicit PolygonDecoration(QObject *parent = nullptr);
    ~PolygonDecoration() override;

    /// Moves the tip.
    void setLocation(const QPointF &location) override;
    void setLocation(const QPoint &location) override;
    /// Turns the mark so that it points from \a reference to its location.
    void setReferencePoint(const QPointF &reference) override;
    void setReferencePoint(const QPoint &reference) override;
    /// Turns the +x axis of the template by \a radians towards +y.
    void setRotation(double radians);
    void setScale(double x, double y);
    /// Replaces the template, by default (-1, 1), (0, 0), (-1, -1).
    void setTemplate(const QList<QPoint> &points);

protected:
    const Transform &getTransform() const;

private:
    void recalculatePoints();

    std::unique_ptr<RotatableMark> m_mark;
};

} // namespace Vantrel::Pictel
