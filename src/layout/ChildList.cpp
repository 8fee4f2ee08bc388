#include "layout/ChildList_p.h"

#include <utility>

namespace Vantrel::Pictel {

const QList<Figure *> &ChildList::figures()
{
    closeHoles();
    return m_ordered;
}

int ChildList::insert(Figure *child, int index)
{
    const bool isOnTop = index < 0 || index >= count();
    const int slot = takeSlot();
    m_slots.insert(child, slot);
    Entry &entry = entryAt(slot);
    entry.child = child;
    m_recentSlot = slot;
    if (isOnTop) {
        entry.place = m_ordered.size();
        m_ordered.append(child);
        return slot;
    }
    closeHoles();
    entry.place = index;
    m_ordered.insert(index, child);
    return slot;
}

int ChildList::takeSlot()
{
    if (m_freeSlots.empty()) {
        m_entries.emplace_back();
        return static_cast<int>(m_entries.size()) - 1;
    }
    const int slot = m_freeSlots.back();
    m_freeSlots.pop_back();
    return slot;
}

bool ChildList::startLeaving(const Figure *child)
{
    if (!contains(child) || m_leaving.contains(child))
        return false;
    m_leaving.append(child);
    return true;
}

int ChildList::remove(const Figure *child)
{
    m_leaving.removeOne(child);
    const int slot = slotOf(child);
    if (slot < 0)
        return slot;
    if (m_ordered.value(entryAt(slot).place) != child)
        renumber();
    const qsizetype place = std::exchange(entryAt(slot), Entry()).place;
    m_slots.remove(child);
    m_freeSlots.push_back(slot);
    ++m_departures;
    if (place == m_ordered.size() - 1) {
        m_ordered.removeLast();
        return slot;
    }
    m_ordered[place] = nullptr;
    ++m_holes;
    return slot;
}

QList<Figure *> ChildList::takeAll()
{
    const QList<Figure *> all = figures();
    m_departures += static_cast<quint64>(all.size());
    m_recentSlot = -1;
    m_slots.clear();
    m_freeSlots.clear();
    m_entries.clear();
    m_ordered.clear();
    m_leaving.clear();
    return all;
}

void ChildList::recall(const Figure *child, int slot) const
{
    Q_ASSERT(m_slots.value(child, -1) == slot);
    m_recentSlot = slot;
}

int ChildList::slotOf(const Figure *child) const
{
    if (m_recentSlot < 0 || entryAt(m_recentSlot).child != child || !child)
        m_recentSlot = m_slots.value(child, -1);
    return m_recentSlot;
}

const ChildList::Entry *ChildList::entryOf(const Figure *child) const
{
    const int slot = slotOf(child);
    return slot < 0 ? nullptr : &entryAt(slot);
}

void ChildList::setHelper(const Figure *child, const Layout::LayoutHelper &helper)
{
    if (Entry *entry = entryOf(child))
        entry->helper = helper;
}

Layout::LayoutHelper *ChildList::helper(const Figure *child)
{
    Entry *entry = entryOf(child);
    return entry && entry->helper ? &*entry->helper : nullptr;
}

void ChildList::dropHelper(const Figure *child)
{
    if (Entry *entry = entryOf(child))
        entry->helper.reset();
}

void ChildList::renumber()
{
    for (qsizetype place = 0; place < m_ordered.size(); ++place) {
        if (const Figure *child = m_ordered.at(place))
            entryAt(m_slots.value(child)).place = place;
    }
}

void ChildList::closeHoles()
{
    if (m_holes == 0)
        return;
    m_ordered.removeAll(nullptr);
    m_holes = 0;
}

} // namespace Vantrel::Pictel
