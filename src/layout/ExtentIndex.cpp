#include "layout/ExtentIndex_p.h"

#include "layout/RectConstraint_p.h"

#include <vtlpictel/figure/Figure.h>
#include <vtlpictel/layout/FreeformLayout.h>

#include <algorithm>
#include <utility>

namespace Vantrel::Pictel {

ExtentIndex::ExtentIndex(FreeformLayout &layout)
    : m_layout(layout)
{ }

QRect ExtentIndex::extent()
{
    const QSet<Figure *> due = std::exchange(m_due, {}).unite(std::exchange(m_unsteady, {}));
    for (Figure *child : due) {
        if (m_slots.contains(child))
            ask(child);
    }
    const QRect whole = m_contributions.whole();
    return whole.isNull() ? lastNullContribution() : whole;
}

void ExtentIndex::childAdded(Figure *child)
{
    m_slots.insert(child, m_contributions.takeSlot());
    m_due.insert(child);
}

void ExtentIndex::childRemoved(Figure *child)
{
    m_contributions.giveBackSlot(m_slots.take(child));
}

void ExtentIndex::childChanged(Figure *child)
{
    m_due.insert(child);
}

void ExtentIndex::childDestroyed()
{
    m_layout.examineExtent();
}

// The child's answer may come from an override that takes children out, this one included.
void ExtentIndex::ask(Figure *child)
{
    const QVariant constraint = m_layout.getConstraint(child);
    const bool counts = isRectConstraint(constraint) && child->isVisible();
    const QRect asked = counts ? toRect(constraint) : QRect();
    const QRect contribution = counts ? child->resolveBounds(asked) : QRect();
    const auto slot = m_slots.constFind(child);
    if (slot == m_slots.cend())
        return;
    m_contributions.set(*slot, contribution);
    if (counts && (!asked.isValid() || contribution != asked))
        m_unsteady.insert(child);
}

// QRect::united() of null rectangles is the last one, which may have a place although it has no size. Only unsteady
// children contribute null rectangles.
QRect ExtentIndex::lastNullContribution() const
{
    if (m_unsteady.isEmpty())
        return QRect();
    const QList<Figure *> children = m_layout.childFigures();
    const auto last = std::find_if(children.crbegin(), children.crend(),
                                   [this](Figure *child) { return m_unsteady.contains(child); });
    return last == children.crend() ? QRect() : m_contributions.at(m_slots.value(*last));
}

} // namespace Vantrel::Pictel
