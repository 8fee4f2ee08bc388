#include <vtlpictel/figure/ScaledBorder.h>

#include "figure/BorderPainting_p.h"

#include <QLineF>
#include <QPen>
#include <QStyleOptionViewItem>

namespace Vantrel::Pictel {

namespace {

/// Draws single sides of a frame, each with a pen of its own width.
class SidePainter
{
public:
    SidePainter(QPainter *painter, const QPen &pen)
        : m_painter(painter)
        , m_pen(pen)
    { }

    /// Draws \a line, moved by half of \a width right and down at the ends whose coordinates ask for it.
    void draw(int width, const QPointF &from, const QPointF &fromShift, const QPointF &to, const QPointF &toShift)
    {
        if (width <= 0)
            return;
        m_pen.setWidth(width);
        m_painter->setPen(m_pen);
        const double half = width / 2.0;
        m_painter->drawLine(QLineF(from + fromShift * half, to + toShift * half));
    }

private:
    QPainter *m_painter;
    QPen m_pen;
};

} // namespace

ScaledBorder::ScaledBorder(QObject *parent, int width)
    : Border(parent)
{
    Border::setInsets(uniformInsets(width));
}

ScaledBorder::~ScaledBorder() = default;

void ScaledBorder::render(QPainter *painter, const QStyleOptionViewItem &option) const
{
    if (!canPaintBorder(painter, option.rect) || getInsets().isNull())
        return;
    QRect frame = borderRect(option.rect);
    drawBorderRect(painter, frame, getInsets());
    if (m_innerMarginBorder <= 0)
        return;
    frame.adjust(m_innerMarginBorder, m_innerMarginBorder, -m_innerMarginBorder, -m_innerMarginBorder);
    drawBorderRect(painter, frame, getInsets());
}

void ScaledBorder::drawBorderRect(QPainter *painter, const QRect &rect, const Insets &insets) const
{
    if (!canPaintBorder(painter, rect))
        return;
    const QPointF right(1.0, 0.0);
    const QPointF down(0.0, 1.0);
    const QPointF both(1.0, 1.0);
    painter->save();
    SidePainter sides(painter, pen());
    sides.draw(insets.top(), rect.topLeft(), both, rect.topRight(), down);
    sides.draw(insets.right(), rect.topRight(), both, rect.bottomRight(), right);
    sides.draw(insets.bottom(), rect.bottomRight(), down, rect.bottomLeft(), both);
    sides.draw(insets.left(), rect.bottomLeft(), right, rect.topLeft(), both);
    painter->restore();
}

} // namespace Vantrel::Pictel
