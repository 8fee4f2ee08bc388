#pragma once

#include "figure/ChildNote_p.h"
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
/// Adding at either end, looking up and removing take constant time on average in any order: a removed child leaves a
/// hole in the ordered list, and the holes are closed when the list is next asked for, or when most of it is holes.
/// Each child remembers its place by a number; numbers that an insertion in the middle or closed holes have made wrong
/// are put right when one is found to be so.
/// Beside each child, in the order in which walks over the children come by, stands a note on it.
///
/// Every child has a slot, a small number that is its own as long as it stays and then goes to a later one. Figures
/// remember theirs, so that a living child is looked up without a search (recall()). Pointers to figures that may be
/// dead are searched for, and never followed; the addresses are noted when that first happens.
class ChildList
{
public:
    bool contains(const Figure *child) const { return entryOf(child) != nullptr; }
    int count() const { return static_cast<int>(m_ordered.size() - m_holes); }
    /// How many children have left so far: unchanged means that all who were there still are.
    quint64 departures() const { return m_departures; }
    const QList<Figure *> &figures();

    /// Returns the slot.
    int insert(Figure *child, int index);
    /// Marks \a child until it is removed; false when it is unknown or marked already.
    bool startLeaving(const Figure *child);
    /// Returns the slot that \a child had, or -1.
    int remove(const Figure *child);
    /// The child on top, or null.
    Figure *topmost();
    /// Tells that \a child has that slot: the next look-ups of it find it at once.
    void recall(const Figure *child, int slot) const;
    /// Asks the memory for what is kept about the child with that slot.
    void readSlot(int slot) const;
    /// The slot of \a child, or -1. Searched for, unless it was the last that was recalled or inserted.
    int slotOf(const Figure *child) const;

    void setHelper(const Figure *child, const Layout::LayoutHelper &helper);
    Layout::LayoutHelper *helper(const Figure *child);
    void dropHelper(const Figure *child);

    // Notes. A walk goes over a copy of figures(); places in it count as long as no child came or went since.

    bool isUnchanged(const QList<Figure *> &copy) const { return copy.constData() == m_ordered.constData(); }
    qsizetype placeCount() const { return m_ordered.size(); }
    const ChildNote &noteAt(qsizetype place) const { return m_places.at(place).note; }
    void setNote(qsizetype place, const ChildNote &note);
    void forgetNotes();
    /// The place of \a child if it has that slot; otherwise -1.
    qsizetype placeOf(const Figure *child, int slot);
    /// The first place from \a place on whose child may not be at rest, or the number of places.
    qsizetype firstRestless(qsizetype place) const;

    ObjectConstraints objectConstraints;

private:
    struct Entry
    {
        const Figure *child = nullptr;
        std::optional<Layout::LayoutHelper> helper;
    };

    /// Stands beside the child in the ordered list.
    struct Place
    {
        ChildNote note;
        int slot = -1;
    };

    const Entry *entryOf(const Figure *child) const;
    Entry *entryOf(const Figure *child) { return const_cast<Entry *>(std::as_const(*this).entryOf(child)); }
    const Entry &entryAt(int slot) const { return m_entries[static_cast<std::size_t>(slot)]; }
    Entry &entryAt(int slot) { return m_entries[static_cast<std::size_t>(slot)]; }
    int takeSlot();
    int search(const Figure *child) const;
    void noteAddresses() const;
    void forgetAddresses();
    void clearUp();
    Place &placeAt(qsizetype place) { return m_places[place]; }
    qsizetype placeOfSlot(int slot) const { return m_numbers[static_cast<std::size_t>(slot)] - m_firstNumber; }
    void setPlaceOfSlot(int slot, qsizetype place);
    void insertAt(qsizetype place, Figure *child, int slot);
    void vacate(qsizetype place);
    void renumber();
    void closeHoles();

    QList<Figure *> m_ordered;
    QList<Place> m_places;
    // By place: 1 unless the note says that the child is at rest, in bytes, which are searched fastest.
    QList<char> m_restless;
    // By slot: the place, counted from m_firstNumber, so that nobody's changes when others come or go below. Out of
    // date for children from place m_firstShifted on.
    std::vector<quint32> m_numbers;
    quint32 m_firstNumber = 0;
    qsizetype m_firstShifted = 0;
    qsizetype m_holes = 0;
    quint64 m_departures = 0;
    // As many as calls of Layout::remove() are under way, one inside the other.
    QList<const Figure *> m_leaving;
    // By slot; the addresses of helpers must last.
    std::deque<Entry> m_entries;
    std::vector<int> m_freeSlots;
    mutable int m_recentSlot = -1;
    // Slots by address, noted when a search first needs them. Some are of children that left: a slot belongs to whom
    // its entry says.
    mutable QHash<const Figure *, int> m_slots;
    mutable bool m_isSearchable = false;
};

} // namespace Vantrel::Pictel
