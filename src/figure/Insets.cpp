#include <vtlpictel/figure/Insets.h>

#include "support/WrappingArithmetic.h"

#include <QRect>
#include <QRectF>
#include <QSize>

namespace Vantrel::Pictel {

Insets::Insets(int top, int left, int bottom, int right)
    : m_top(top)
    , m_bottom(bottom)
    , m_right(right)
    , m_left(left)
{ }

Insets::~Insets() = default;

bool Insets::isNull() const
{
    return *this == Insets();
}

bool Insets::operator==(const Insets &other) const
{
    return m_top == other.m_top && m_bottom == other.m_bottom && m_right == other.m_right && m_left == other.m_left;
}

QSize &Insets::addTo(QSize &size) const
{
    size.setWidth(wrappingAdd(size.width(), wrappingAdd(m_left, m_right)));
    size.setHeight(wrappingAdd(size.height(), wrappingAdd(m_top, m_bottom)));
    return size;
}

QSize &Insets::removeFrom(QSize &size) const
{
    size.setWidth(wrappingSubtract(size.width(), wrappingAdd(m_left, m_right)));
    size.setHeight(wrappingSubtract(size.height(), wrappingAdd(m_top, m_bottom)));
    return size;
}

QRect &Insets::applyTo(QRect &rect) const
{
    rect.setCoords(wrappingAdd(rect.left(), m_right), wrappingAdd(rect.top(), m_top),
                   wrappingSubtract(rect.right(), m_left), wrappingSubtract(rect.bottom(), m_bottom));
    return rect;
}

QRectF &Insets::applyTo(QRectF &rect) const
{
    rect.adjust(double(m_right), double(m_top), -double(m_left), -double(m_bottom));
    return rect;
}

QRect &Insets::stripFrom(QRect &rect) const
{
    rect.setCoords(wrappingSubtract(rect.left(), m_right), wrappingSubtract(rect.top(), m_top),
                   wrappingAdd(rect.right(), m_left), wrappingAdd(rect.bottom(), m_bottom));
    return rect;
}

QRectF &Insets::stripFrom(QRectF &rect) const
{
    rect.adjust(-double(m_right), -double(m_top), double(m_left), double(m_bottom));
    return rect;
}

} // namespace Vantrel::Pictel
