#include "SheetPane.h"

#include <QPainter>

namespace GraphViewer {

void SheetPane::setAntialiasing(bool on)
{
    m_antialiasing = on;
    repaint();
}

void SheetPane::setPaper(const QRect &paper, const QColor &color)
{
    m_paper = paper;
    m_paperColor = color;
}

void SheetPane::drawBackground(QPainter *painter, const QStyleOptionViewItem &option) const
{
    if (m_paper.isValid())
        painter->fillRect(m_paper, m_paperColor);
    FreeformLayeredPane::drawBackground(painter, option);
}

void SheetPane::render(QPainter *painter, const QStyleOptionViewItem &option)
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, m_antialiasing);
    painter->setRenderHint(QPainter::TextAntialiasing, m_antialiasing);
    painter->setRenderHint(QPainter::SmoothPixmapTransform, m_antialiasing);
    FreeformLayeredPane::render(painter, option);
    painter->restore();
}

} // namespace GraphViewer
