#pragma once

#include "layout/ObjectConstraints_p.h"

#include <vtlpictel/layout/Layout.h>

#include <QHash>
#include <QList>

#include <deque>
#include <optional>
#include <vector>

namespace Vantrel::Pictel {

/// The children of one layout in z-order, with what the layout keeps about each.
///
/// Appending, looking up and removing take constant time on average in any order: a removed child leaves a hole in the
/// ordered list, and the holes are closed when the list is next asked for. Each child remembers its place; places that
/// an insertion in the middle or closed holes have shifted are put right when one is found to be wrong.
///
/// Every child has a slot, a small number that is its own as long as it stays and then goes to a later one. Figures
/// remember theirs, so that a living child is looked up without a search (recall()). Pointers to figures that may be
/// dead are searched for, and never followed.
class ChildList
{
public:
    bool contains(const Figure *child) const { return entryOf(child) != nullptr; }
    int count() const { return static_cast<int>(m_slots.size()); }
    /// How many children have left so far: unchanged means that all who were there still are.
    quint64 departures() const { return m_departures; }
    const QList<Figure *> &figures();

    /// Returns the slot.
    int insert(Figure *child, int index);
    /// Marks \a child until it is removed; false when it is unknown or marked already.
    bool startLeaving(const Figure *child);
    /// Returns the slot that \a child had, or -1.
    int remove(const Figure *child);
    QList<Figure *> takeAll();
    /// Tells that \a child has that slot: the next look-ups of it find it at once.
    void recall(const Figure *child, int slot) const;
    /// The slot of \a child, or -1.
    int slotOf(const Figure *child) const;

    void setHelper(const Figure *child, const Layout::LayoutHelper &helper);
    Layout::LayoutHelper *helper(const Figure *child);
    void dropHelper(const Figure *child);

    ObjectConstraints objectConstraints;

private:
    struct Entry
    {
        const Figure *child = nullptr;
        std::optional<Layout::LayoutHelper> helper;
        qsizetype place = 0;
    };

    const Entry *entryOf(const Figure *child) const;
    Entry *entryOf(const Figure *child) { return const_cast<Entry *>(std::as_const(*this).entryOf(child)); }
    const Entry &entryAt(int slot) const { return m_entries[static_cast<std::size_t>(slot)]; }
    Entry &entryAt(int slot) { return m_entries[static_cast<std::size_t>(slot)]; }
    int takeSlot();
    void renumber();
    void closeHoles();

    QList<Figure *> m_ordered;
    qsizetype m_holes = 0;
    quint64 m_departures = 0;
    // As many as calls of Layout::remove() are under way, one inside the other.
    QList<const Figure *> m_leaving;
    // By slot; the addresses of helpers must last.
    std::deque<Entry> m_entries;
    std::vector<int> m_freeSlots;
    QHash<const Figure *, int> m_slots;
    mutable int m_recentSlot = -1;
};

} // namespace Vantrel::Pictel
