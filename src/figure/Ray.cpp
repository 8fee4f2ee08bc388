#include <vtlpictel/figure/Ray.h>

#include "support/WrappingArithmetic.h"

#include <QPoint>

#include <cmath>

namespace Vantrel::Pictel {

Ray::Ray(QObject *parent)
    : QObject(parent)
{ }

Ray::Ray(int x, int y, QObject *parent)
    : QObject(parent)
    , m_x(x)
    , m_y(y)
{ }

Ray::Ray(const QPoint &point, QObject *parent)
    : Ray(point.x(), point.y(), parent)
{ }

Ray::Ray(const QPoint &from, const QPoint &to, QObject *parent)
    : Ray(wrappingSubtract(to.x(), from.x()), wrappingSubtract(to.y(), from.y()), parent)
{ }

Ray::Ray(const Ray &from, const Ray &to, QObject *parent)
    : Ray(QPoint(from.m_x, from.m_y), QPoint(to.m_x, to.m_y), parent)
{ }

Ray::Ray(const Ray &other)
    : Ray(other.m_x, other.m_y, other.parent())
{ }

Ray::~Ray() = default;

Ray &Ray::operator=(const Ray &other)
{
    m_x = other.m_x;
    m_y = other.m_y;
    return *this;
}

int Ray::dotProduct(const Ray &other) const
{
    return wrappingAdd(wrappingMultiply(m_x, other.m_x), wrappingMultiply(m_y, other.m_y));
}

int Ray::similarity(const Ray &other) const
{
    return wrappingAbsolute(dotProduct(other));
}

int Ray::assimilarity(const Ray &other) const
{
    return wrappingAbsolute(wrappingSubtract(wrappingMultiply(m_x, other.m_y), wrappingMultiply(m_y, other.m_x)));
}

Ray Ray::getAdded(const Ray &other) const
{
    return Ray(wrappingAdd(m_x, other.m_x), wrappingAdd(m_y, other.m_y));
}

Ray Ray::getAveraged(const Ray &other) const
{
    const Ray sum = getAdded(other);
    return Ray(sum.m_x / 2, sum.m_y / 2);
}

Ray Ray::getScaled(int factor) const
{
    return Ray(wrappingMultiply(factor, m_x), wrappingMultiply(factor, m_y));
}

double Ray::length() const
{
    return std::sqrt(double(dotProduct(*this)));
}

bool Ray::operator==(const Ray &other) const
{
    return m_x == other.m_x && m_y == other.m_y;
}

} // namespace Vantrel::Pictel
