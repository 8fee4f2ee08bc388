#include "layout/ExtentIndex_p.h"

#include "layout/RectConstraint_p.h"
#include "support/LifeGuard.h"
#include "support/ReadAhead.h"

#include <vtlpictel/figure/Figure.h>
#include <vtlpictel/layout/FreeformLayout.h>

#include <QHash>

#include <algorithm>
#include <utility>

namespace Vantrel::Pictel {

namespace {

// One walk over the whole tree costs less than walks to the root from this part of the slots.
constexpr std::size_t ManyPart = 8;

} // namespace

ExtentIndex::ExtentIndex(FreeformLayout &layout)
    : m_layout(layout)
{ }

QRect ExtentIndex::extent()
{
    if ((!m_due.empty() || !m_unsteady.empty()) && !askAll())
        return QRect();
    const QRect whole = m_contributions.whole();
    return whole.isNull() ? lastNullContribution() : whole;
}

// Asks whoever is due; false when the layout died of it.
bool ExtentIndex::askAll()
{
    const LifeGuard<Layout> layout(&m_layout);
    const std::vector<Question> questions = takeQuestions();
    const bool areMany = questions.size() > m_children.size() / ManyPart;
    for (const Question &question : questions) {
        if (childAt(question.slot).figure == question.figure)
            ask(question, areMany ? &UnionTree::setOneOfMany : &UnionTree::set);
        if (!layout.isAlive())
            return false;
    }
    return true;
}

// Whoever becomes due from now on is asked the next time.
std::vector<ExtentIndex::Question> ExtentIndex::takeQuestions()
{
    std::vector<Question> questions = std::exchange(m_due, {});
    for (const Question &question : questions)
        childAt(question.slot).isDue = false;
    for (const Question &question : std::exchange(m_unsteady, {})) {
        if (std::exchange(childAt(question.slot).isUnsteady, false))
            questions.push_back(question);
    }
    return questions;
}

void ExtentIndex::childAdded(Figure *child, int slot)
{
    if (static_cast<std::size_t>(slot) >= m_children.size())
        m_children.resize(static_cast<std::size_t>(slot) + 1);
    m_contributions.provide(slot);
    childAt(slot).figure = child;
    childChanged(slot);
}

// A child that is taken out loses its constraint first, and so is the last to have become due.
void ExtentIndex::childRemoved(int slot)
{
    if (!m_due.empty() && m_due.back().slot == slot)
        m_due.pop_back();
    m_contributions.set(slot, QRect());
    childAt(slot) = Child();
}

void ExtentIndex::childChanged(int slot)
{
    if (!std::exchange(childAt(slot).isDue, true))
        m_due.push_back({childAt(slot).figure, slot});
}

void ExtentIndex::childDestroyed()
{
    m_layout.examineExtent();
}

void ExtentIndex::readSlot(int slot) const
{
    readSoon(m_children[static_cast<std::size_t>(slot)]);
    m_contributions.readSlot(slot);
}

// The child's answer may come from an override that takes children out, this one included, or deletes the layout. If it
// has the child asked again, under another constraint, that answer is the one that counts.
void ExtentIndex::ask(const Question &question, Store store)
{
    const LifeGuard<Layout> layout(&m_layout);
    const auto [child, slot] = question;
    childAt(slot).isBeingAsked = true;
    m_layout.recall(child);
    const QVariant constraint = m_layout.getConstraint(child);
    const bool counts = isRectConstraint(constraint) && child->isVisible();
    const QRect asked = counts ? toRect(constraint) : QRect();
    const QRect contribution = counts ? child->resolveBounds(asked) : QRect();
    if (!layout.isAlive() || !std::exchange(childAt(slot).isBeingAsked, false))
        return;
    (m_contributions.*store)(slot, contribution);
    const bool isUnsteady = counts && (!asked.isValid() || contribution != asked);
    if (isUnsteady && !std::exchange(childAt(slot).isUnsteady, true))
        m_unsteady.push_back(question);
}

// QRect::united() of null rectangles is the last one, which may have a place although it has no size. Only unsteady
// children contribute null rectangles.
QRect ExtentIndex::lastNullContribution() const
{
    QHash<Figure *, int> unsteadySlots;
    for (const Question &question : m_unsteady)
        unsteadySlots.insert(question.figure, question.slot);
    if (unsteadySlots.isEmpty())
        return QRect();
    const QList<Figure *> children = m_layout.childFigures();
    const auto last = std::find_if(children.crbegin(), children.crend(),
                                   [&unsteadySlots](Figure *child) { return unsteadySlots.contains(child); });
    return last == children.crend() ? QRect() : m_contributions.at(unsteadySlots.value(*last));
}

} // namespace Vantrel::Pictel
