#include "viewer/DirtyArea_p.h"

#include <QWidget>

#include <algorithm>

namespace Vantrel::Pictel {

namespace {

QRect visiblePart(const QWidget &widget)
{
    const QWidget *parent = widget.isWindow() ? nullptr : widget.parentWidget();
    return parent ? parent->rect().translated(-widget.pos()) & widget.rect() : widget.rect();
}

qint64 pixelsOf(const QRect &rect)
{
    return qint64(rect.width()) * rect.height();
}

bool touches(const QRect &first, const QRect &second)
{
    return first.adjusted(-1, -1, 1, 1).intersects(second);
}

} // namespace

void DirtyArea::add(QWidget &widget, const QRect &rect)
{
    if (!widget.isVisible() || !widget.updatesEnabled())
        return;
    const QRect visible = rect & visiblePart(widget);
    if (visible.isEmpty())
        return;
    m_around |= visible;
    widget.update(isQueued(visible) ? visible : join(visible));
}

void DirtyArea::clear()
{
    m_around = QRect();
    m_hasTooMany = false;
    m_patches.clear();
}

bool DirtyArea::isQueued(const QRect &rect) const
{
    return std::any_of(m_patches.begin(), m_patches.end(),
                       [&rect](const Patch &patch) { return patch.rect.contains(rect); });
}

// The rectangle to paint for this one and all that it could be joined with.
QRect DirtyArea::join(const QRect &rect)
{
    Patch patch {rect, pixelsOf(rect)};
    auto *const end = std::remove_if(m_patches.begin(), m_patches.end(),
                                     [&patch](const Patch &other) { return absorb(patch, other); });
    m_patches.erase(end, m_patches.end());
    m_hasTooMany = m_hasTooMany || m_patches.size() == MostPatches;
    if (m_hasTooMany) {
        m_patches.clear();
        patch.rect = m_around;
    }
    m_patches.append(patch);
    return patch.rect;
}

bool DirtyArea::absorb(Patch &patch, const Patch &other)
{
    const QRect around = patch.rect | other.rect;
    const qint64 pixels = patch.pixels + other.pixels;
    if (!touches(patch.rect, other.rect) || pixelsOf(around) > 2 * pixels)
        return false;
    patch = {around, qMin(pixels, pixelsOf(around))};
    return true;
}

} // namespace Vantrel::Pictel
