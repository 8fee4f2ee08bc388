#include <vtlpictel/figure/Transposer.h>

#include <vtlpictel/figure/Insets.h>

#include <QPoint>
#include <QRect>
#include <QSize>

namespace Vantrel::Pictel {

Transposer::Transposer(QObject *parent)
    : QObject(parent)
{ }

Transposer::~Transposer() = default;

QPoint Transposer::t(const QPoint &point) const
{
    return m_enabled ? QPoint(point.y(), point.x()) : point;
}

QSize Transposer::t(const QSize &size) const
{
    return m_enabled ? size.transposed() : size;
}

QRect Transposer::t(const QRect &rect) const
{
    // Swapping the corners swaps the sizes too, and cannot overflow.
    return m_enabled ? QRect(t(rect.topLeft()), t(rect.bottomRight())) : rect;
}

Insets Transposer::t(const Insets &insets) const
{
    return m_enabled ? Insets(insets.left(), insets.top(), insets.right(), insets.bottom()) : insets;
}

} // namespace Vantrel::Pictel
