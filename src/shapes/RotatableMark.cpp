#include "shapes/RotatableMark_p.h"

#include <cmath>

namespace Vantrel::Pictel {

namespace {

constexpr double defaultLength = 7.0;
constexpr double defaultHalfWidth = 3.0;

} // namespace

RotatableMark::RotatableMark()
    : m_transform(nullptr)
{
    m_transform.setScale(defaultLength, defaultHalfWidth);
}

void RotatableMark::setLocation(const QPointF &location)
{
    m_location = location;
    m_transform.setTranslation(location.x(), location.y());
}

void RotatableMark::setReferencePoint(const QPointF &reference)
{
    const QPointF way = m_location - reference;
    m_transform.setRotation(std::atan2(way.y(), way.x()));
}

QList<QPoint> RotatableMark::points() const
{
    QList<QPoint> points;
    points.reserve(m_template.size());
    for (const QPoint &point : m_template)
        points.append(m_transform.getTransformed(point));
    return points;
}

} // namespace Vantrel::Pictel
