#include "viewer/DirtyArea_p.h"

#include <QWidget>

namespace Vantrel::Pictel {

namespace {

constexpr int MostExactRects = 64;

QRect visiblePart(const QWidget &widget)
{
    const QWidget *parent = widget.isWindow() ? nullptr : widget.parentWidget();
    return parent ? parent->rect().translated(-widget.pos()) & widget.rect() : widget.rect();
}

} // namespace

void DirtyArea::add(QWidget &widget, const QRect &rect)
{
    if (!widget.isVisible() || !widget.updatesEnabled())
        return;
    const QRect visible = rect & visiblePart(widget);
    if (visible.isEmpty() || (m_count > MostExactRects && m_around.contains(visible)))
        return;
    m_around |= visible;
    widget.update(++m_count > MostExactRects ? m_around : visible);
}

} // namespace Vantrel::Pictel
