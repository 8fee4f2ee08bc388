#include <vtlpictel/shapes/PolygonDecoration.h>

#include "shapes/RotatableMark_p.h"

namespace Vantrel::Pictel {

PolygonDecoration::PolygonDecoration(QObject *parent)
    : Polygon(parent)
    , m_mark(std::make_unique<RotatableMark>())
{
    setFill(true);
    setEnabledBGColor(Qt::black);
    setDisabledBGColor(Qt::black);
    recalculatePoints();
}

PolygonDecoration::~PolygonDecoration() = default;

void PolygonDecoration::setLocation(const QPointF &location)
{
    m_mark->setLocation(location);
    recalculatePoints();
}

void PolygonDecoration::setLocation(const QPoint &location)
{
    setLocation(QPointF(location));
}

void PolygonDecoration::setReferencePoint(const QPointF &reference)
{
    m_mark->setReferencePoint(reference);
    recalculatePoints();
}

void PolygonDecoration::setReferencePoint(const QPoint &reference)
{
    setReferencePoint(QPointF(reference));
}

void PolygonDecoration::setRotation(double radians)
{
    m_mark->setRotation(radians);
    recalculatePoints();
}

void PolygonDecoration::setScale(double x, double y)
{
    m_mark->setScale(x, y);
    recalculatePoints();
}

void PolygonDecoration::setTemplate(const QList<QPoint> &points)
{
    m_mark->setTemplate(points);
    recalculatePoints();
}

const Transform &PolygonDecoration::getTransform() const
{
    return m_mark->transform();
}

void PolygonDecoration::recalculatePoints()
{
    setLinePoints(m_mark->points());
}

} // namespace Vantrel::Pictel
