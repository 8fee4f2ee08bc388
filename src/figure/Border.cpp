#include <vtlpictel/figure/Border.h>

#include <QPen>
#include <QRect>

namespace Vantrel::Pictel {

Border::Border(QObject *parent)
    : QObject(parent)
{ }

Border::~Border() = default;

const Insets &Border::getInsets() const
{
    return m_insets;
}

void Border::setInsets(const Insets &insets)
{
    m_insets = insets;
}

QPen Border::createPen()
{
    return QPen(m_color, 1.0, m_penStyle, m_penCapStyle, m_penJoinStyle);
}

QRect Border::toBorderRect(const QRect &rect)
{
    if (!rect.isValid())
        return QRect();
    const Insets &insets = getInsets();
    const QPoint topLeft(rect.left() + insets.left() / 2, rect.top() + insets.top() / 2);
    const QPoint bottomRight(rect.right() - (insets.right() - 1) / 2, rect.bottom() - (insets.bottom() - 1) / 2);
    return QRect(topLeft, bottomRight);
}

QPen Border::pen() const
{
    return mutableSelf()->createPen();
}

QRect Border::borderRect(const QRect &rect) const
{
    return mutableSelf()->toBorderRect(rect);
}

} // namespace Vantrel::Pictel
