#include "ArrowDecoration.h"

#include "DrawingFigures.h"

#include <QLineF>
#include <QTransform>

namespace GraphViewer {

using namespace Vantrel::Pictel;

ArrowDecoration::ArrowDecoration(const Arrow &arrow, QObject *parent)
    : Figure(parent, Qt::transparent)
    , m_arrow(arrow)
{
    update();
}

void ArrowDecoration::update()
{
    QTransform transform;
    transform.translate(m_tip.x(), m_tip.y());
    transform.rotate(-m_angle);
    m_placed.clear();
    for (const DrawItem &item : m_arrow.drawing)
        m_placed.push_back(transformed(item, transform));
    setBounds(drawingExtent(m_placed).toAlignedRect());
    repaint();
}

void ArrowDecoration::setColor(const QColor &color)
{
    m_color = color;
    repaint();
}

void ArrowDecoration::setLocation(const QPointF &point)
{
    m_tip = point;
    update();
}

void ArrowDecoration::setReferencePoint(const QPointF &point)
{
    m_angle = QLineF(point, m_tip).angle();
    update();
}

void ArrowDecoration::drawFigure(QPainter *painter, const QStyleOptionViewItem &) const
{
    QPointF origin;
    mutableSelf()->translateToAbsolute(origin);
    painter->save();
    for (const DrawItem &item : m_placed) {
        const auto *outline = std::get_if<Outline>(&item);
        if (!outline)
            continue;
        const OutlineStyle style = recolored(outline->style, m_color);
        painter->setPen(exactPen(style, painter->transform().m11()));
        painter->setBrush(style.fill);
        painter->drawPath(outline->path.translated(origin));
    }
    painter->restore();
}

} // namespace GraphViewer
