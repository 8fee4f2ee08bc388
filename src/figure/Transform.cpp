#include <vtlpictel/figure/Transform.h>

#include "support/Rounding.h"

#include <cmath>

namespace Vantrel::Pictel {

Transform::Transform(QObject *parent)
    : QObject(parent)
{ }

Transform::~Transform() = default;

void Transform::setScale(double scale)
{
    setScale(scale, scale);
}

void Transform::setScale(double scaleX, double scaleY)
{
    m_scaleX = scaleX;
    m_scaleY = scaleY;
}

void Transform::setTranslation(double dx, double dy)
{
    m_dx = dx;
    m_dy = dy;
}

void Transform::setRotation(double angle)
{
    m_cos = std::cos(angle);
    m_sin = std::sin(angle);
}

QPoint Transform::getTransformed(const QPoint &point) const
{
    const double scaledX = point.x() * m_scaleX;
    const double scaledY = point.y() * m_scaleY;
    const double x = m_cos * scaledX - m_sin * scaledY + m_dx;
    const double y = m_sin * scaledX + m_cos * scaledY + m_dy;
    return QPoint(roundToInt(x), roundToInt(y));
}

} // namespace Vantrel::Pictel
