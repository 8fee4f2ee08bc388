#pragma once

#include <vtlpictel/figure/Transform.h>

#include <QList>
#include <QPoint>
#include <QPointF>

namespace Vantrel::Pictel {

/// The geometry of an end mark: a template of points in a unit frame, whose tip is the origin and whose axis points
/// along +x, that is scaled, turned and moved to its location.
class RotatableMark
{
public:
    RotatableMark();

    QPointF location() const { return m_location; }
    const Transform &transform() const { return m_transform; }
    void setLocation(const QPointF &location);
    /// Turns the mark so that it points from \a reference to its location.
    void setReferencePoint(const QPointF &reference);
    void setRotation(double radians) { m_transform.setRotation(radians); }
    void setScale(double x, double y) { m_transform.setScale(x, y); }
    void setTemplate(const QList<QPoint> &points) { m_template = points; }
    QList<QPoint> points() const;

private:
    QPointF m_location;
    QList<QPoint> m_template {QPoint(-1, 1), QPoint(0, 0), QPoint(-1, -1)};
    Transform m_transform;
};

} // namespace Vantrel::Pictel
