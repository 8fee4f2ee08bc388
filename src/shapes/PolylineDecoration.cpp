#include <vtlpictel/shapes/PolylineDecoration.h>

#include "shapes/RotatableMark_p.h"
#include "support/Rounding.h"

namespace Vantrel::Pictel {

PolylineDecoration::PolylineDecoration(QObject *parent)
    : Polyline(parent)
    , m_mark(std::make_unique<RotatableMark>())
{
    PolylineDecoration::recalculatePoints();
}

PolylineDecoration::~PolylineDecoration() = default;

void PolylineDecoration::setLocation(const QPointF &location)
{
    m_mark->setLocation(location);
    recalculatePoints();
}

void PolylineDecoration::setLocation(const QPoint &location)
{
    setLocation(QPointF(location));
}

void PolylineDecoration::setReferencePoint(const QPointF &reference)
{
    m_mark->setReferencePoint(reference);
    recalculatePoints();
}

void PolylineDecoration::setReferencePoint(const QPoint &reference)
{
    setReferencePoint(QPointF(reference));
}

void PolylineDecoration::setRotation(double radians)
{
    m_mark->setRotation(radians);
    recalculatePoints();
}

void PolylineDecoration::setScale(double x, double y)
{
    m_mark->setScale(x, y);
    recalculatePoints();
}

void PolylineDecoration::setTemplate(const QList<QPoint> &points)
{
    m_mark->setTemplate(points);
    recalculatePoints();
}

QPoint PolylineDecoration::getLocation() const
{
    return roundedPoint(m_mark->location());
}

const Transform &PolylineDecoration::getTransform() const
{
    return m_mark->transform();
}

void PolylineDecoration::recalculatePoints()
{
    setLinePoints(m_mark->points());
}

} // namespace Vantrel::Pictel
