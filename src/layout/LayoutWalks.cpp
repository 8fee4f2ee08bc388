// Going over the children of a Layout: to paint them, to find some, to visit them all.

#include <vtlpictel/layout/Layout.h>

#include "layout/ChildList_p.h"
#include "layout/Glance_p.h"
#include "support/LifeGuard.h"
#include "support/ReadAhead.h"

#include <vtlpictel/figure/Figure.h>

#include <QPainter>
#include <QStyleOptionViewItem>

namespace Vantrel::Pictel {

// Children that leave or die meanwhile are skipped, and the walk ends when the layout itself dies.
template <typename Glance, typename Visit>
void Layout::visitChildren(Glance glance, const Visit &visit) const
{
    const LifeGuard<Layout> self(this);
    const QList<Figure *> children = childFigures();
    ChildList &list = *m_children;
    const quint64 before = list.departures();
    for (qsizetype place = 0; place < children.size(); ++place) {
        if (list.isUnchanged(children))
            place = glance.next(list, place);
        Figure *child = children.value(place);
        if (!child || (list.departures() != before && !holds(child)))
            continue;
        readAhead(children, place + ReadAheadDistance);
        if (Glance::Learns && list.isUnchanged(children) && !list.noteAt(place).has(ChildNote::Known))
            list.setNote(place, noteOn(child));
        visit(child);
        if (!self.isAlive())
            return;
    }
}

void Layout::forEachChild(const std::function<void(Figure *)> &visit) const
{
    visitChildren(FullGlance(), [this, &visit](Figure *child) {
        recall(child);
        visit(child);
    });
}

void Layout::forEachRestlessChild(const std::function<void(Figure *)> &visit) const
{
    visitChildren(RestGlance(), [this, &visit](Figure *child) {
        recall(child);
        visit(child);
    });
}

void Layout::findDescendantFigures(QList<Figure *> &result, const QRect &area, const ITreeSearch &search,
                                   bool contained) const
{
    visitChildren(AreaGlance(ChildNote::Search, area), [&](Figure *child) {
        if (child->isVisible())
            child->findFigures(result, area, search, contained);
    });
}

Figure *Layout::findDescendantAtExcluding(int x, int y, const ITreeSearch &search) const
{
    const LifeGuard<Layout> self(this);
    const QList<Figure *> children = childFigures();
    const quint64 before = departures();
    const QPoint point(x, y);
    const AreaGlance glance(ChildNote::HitTest, QRect(point, point));
    for (qsizetype place = children.size() - 1; place >= 0 && self.isAlive(); --place) {
        if (m_children->isUnchanged(children))
            place = glance.previous(*m_children, place);
        const Figure *child = children.value(place);
        if (!child || (departures() != before && !holds(child)) || !child->isVisible())
            continue;
        readAhead(children, place - ReadAheadDistance);
        if (Figure *found = child->findFigureAt(x, y, search))
            return found;
    }
    return nullptr;
}

void Layout::render(QPainter *painter, const QStyleOptionViewItem &option)
{
    if (!painter || !m_figure)
        return;
    const LifeGuard<Layout> self(this);
    if (!isLaidOut() && (layout(m_figure), !self.isAlive() || !isLaidOut()))
        return;
    painter->save();
    if (isClipping())
        painter->setClipRect(option.rect, Qt::ReplaceClip);
    visitChildren(PaintGlance(m_figure, option.rect), [painter, &option](Figure *child) {
        if (child->isVisible())
            child->render(painter, option);
    });
    painter->restore();
}

unsigned int Layout::getHTotalStretch() const
{
    return totalStretch(&LayoutHelper::hStretch);
}

unsigned int Layout::getVTotalStretch() const
{
    return totalStretch(&LayoutHelper::vStretch);
}

unsigned int Layout::totalStretch(quint32 LayoutHelper::*stretch) const
{
    unsigned int total = 0;
    forEachChild([&](Figure *child) {
        const LayoutHelper *helper = child->isVisible() ? getHelper(child) : nullptr;
        total += helper ? helper->*stretch : 0;
    });
    return total;
}

// The first place from place on, in a copy of the children, whose child may have something to validate.
qsizetype Layout::firstRestless(const QList<Figure *> &children, qsizetype place) const
{
    return m_children->isUnchanged(children) ? m_children->firstRestless(place) : place;
}

// A child of which nothing is known stays so until it is painted for the first time: its class is certain then, whereas
// a child may have been added by the constructor of a base class.
void Layout::renote(Figure *child, int slot)
{
    const qsizetype place = m_children->placeOf(child, slot);
    if (place >= 0 && m_children->noteAt(place).has(ChildNote::Known))
        m_children->setNote(place, noteOn(child));
}

// Forgets what is known of a child until it is next painted.
void Layout::dropNote(Figure *child, int slot)
{
    const qsizetype place = m_children->placeOf(child, slot);
    if (place >= 0)
        m_children->setNote(place, ChildNote());
}

// A child that is at rest may not be any more; the next validation finds out.
void Layout::dropRest(Figure *child, int slot)
{
    const qsizetype place = m_children->placeOf(child, slot);
    if (place >= 0 && m_children->noteAt(place).has(ChildNote::Rest))
        m_children->setNote(place, m_children->noteAt(place).withoutRest());
}

// Most moves change nothing but the area.
void Layout::noteMove(Figure *child, int slot)
{
    const qsizetype place = m_children->placeOf(child, slot);
    if (place < 0 || !m_children->noteAt(place).hasArea() || !child->hasPlainArea()) {
        renote(child, slot);
        return;
    }
    ChildNote note = m_children->noteAt(place).withoutRest();
    note.area = child->m_bounds;
    m_children->setNote(place, note);
}

// Notes that the child at place, in a copy of the children, has come to rest, if it has.
void Layout::noteRest(const QList<Figure *> &children, qsizetype place) const
{
    if (place >= children.size() || !m_children->isUnchanged(children))
        return;
    const ChildNote &note = m_children->noteAt(place);
    if (note.has(ChildNote::Known) && !note.has(ChildNote::Rest))
        m_children->setNote(place, noteOn(children.at(place)));
}

ChildNote Layout::noteOn(Figure *child) const
{
    ChildNote note = child->noteUnder(m_figure);
    if (!note.has(ChildNote::Rest))
        return note;
    recall(child);
    const LayoutHelper *helper = getHelper(child);
    if (helper && helper->constraint.isValid() && !isFulfilled(helper->constraint, *child))
        note.topics &= ~ChildNote::Rest;
    return note;
}

bool Layout::isFulfilled(const QVariant &constraint, const Figure &child)
{
    return constraint.typeId() == QMetaType::QRect && child.staysAt(constraint.toRect());
}

} // namespace Vantrel::Pictel
