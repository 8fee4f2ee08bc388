#include "layout/ChildList_p.h"

#include "support/ReadAhead.h"

#include <cstring>
#include <utility>

namespace Vantrel::Pictel {

namespace {

// Addresses of children that left, so few that they may stay noted.
constexpr qsizetype FewAddresses = 64;

} // namespace

const QList<Figure *> &ChildList::figures()
{
    closeHoles();
    return m_ordered;
}

int ChildList::insert(Figure *child, int index)
{
    const bool isOnTop = index < 0 || index >= count();
    const int slot = takeSlot();
    entryAt(slot).child = child;
    if (m_isSearchable)
        m_slots.insert(child, slot);
    m_recentSlot = slot;
    if (isOnTop) {
        placeOfSlot(slot) = static_cast<int>(m_ordered.size());
        m_ordered.append(child);
        m_places.append({ChildNote(), slot});
        m_restless.append(1);
        return slot;
    }
    closeHoles();
    placeOfSlot(slot) = index;
    m_ordered.insert(index, child);
    m_places.insert(index, {ChildNote(), slot});
    m_restless.insert(index, 1);
    m_firstShifted = qMin(m_firstShifted, qsizetype(index));
    return slot;
}

int ChildList::takeSlot()
{
    if (m_freeSlots.empty()) {
        m_entries.emplace_back();
        m_placeOfSlot.push_back(0);
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
    const qsizetype place = placeOf(child, slot);
    entryAt(slot) = Entry();
    m_freeSlots.push_back(slot);
    ++m_departures;
    if (place == m_ordered.size() - 1) {
        m_ordered.removeLast();
        m_places.removeLast();
        m_restless.removeLast();
    } else {
        m_ordered[place] = nullptr;
        placeAt(place) = Place();
        ++m_holes;
    }
    if (m_slots.size() > 2 * qsizetype(count()) + FewAddresses)
        forgetAddresses();
    return slot;
}

QList<Figure *> ChildList::takeAll()
{
    const QList<Figure *> all = figures();
    m_departures += static_cast<quint64>(all.size());
    m_recentSlot = -1;
    forgetAddresses();
    m_freeSlots.clear();
    m_entries.clear();
    m_placeOfSlot.clear();
    m_ordered.clear();
    m_places.clear();
    m_restless.clear();
    m_firstShifted = 0;
    m_leaving.clear();
    return all;
}

void ChildList::recall(const Figure *child, int slot) const
{
    Q_ASSERT(entryAt(slot).child == child);
    m_recentSlot = slot;
}

void ChildList::readSlot(int slot) const
{
    readSoon(entryAt(slot));
    const qsizetype place = m_placeOfSlot[static_cast<std::size_t>(slot)];
    if (place >= m_ordered.size())
        return;
    readSoon(m_ordered.at(place));
    readSoon(m_places.at(place));
    readSoon(m_restless.at(place));
}

int ChildList::slotOf(const Figure *child) const
{
    if (!child)
        return -1;
    if (m_recentSlot < 0 || entryAt(m_recentSlot).child != child)
        m_recentSlot = search(child);
    return m_recentSlot;
}

int ChildList::search(const Figure *child) const
{
    if (!m_isSearchable)
        noteAddresses();
    const int slot = m_slots.value(child, -1);
    return slot >= 0 && entryAt(slot).child == child ? slot : -1;
}

void ChildList::noteAddresses() const
{
    m_slots.reserve(count());
    for (const Place &place : m_places) {
        if (place.slot >= 0)
            m_slots.insert(entryAt(place.slot).child, place.slot);
    }
    m_isSearchable = true;
}

void ChildList::forgetAddresses()
{
    m_slots.clear();
    m_isSearchable = false;
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

void ChildList::setNote(qsizetype place, const ChildNote &note)
{
    placeAt(place).note = note;
    m_restless[place] = note.has(ChildNote::Rest) ? 0 : 1;
}

void ChildList::forgetNotes()
{
    for (Place &place : m_places)
        place.note = ChildNote();
    m_restless.fill(1);
}

qsizetype ChildList::firstRestless(qsizetype place) const
{
    const char *first = m_restless.constData();
    const char *last = first + m_restless.size();
    const void *found
        = place < placeCount() ? std::memchr(first + place, 1, std::size_t(last - first - place)) : nullptr;
    return found ? static_cast<const char *>(found) - first : placeCount();
}

qsizetype ChildList::placeOf(const Figure *child, int slot)
{
    if (slot < 0 || static_cast<std::size_t>(slot) >= m_placeOfSlot.size())
        return -1;
    if (m_ordered.value(placeOfSlot(slot)) != child)
        renumber();
    const int place = placeOfSlot(slot);
    return m_ordered.value(place) == child ? place : -1;
}

void ChildList::renumber()
{
    for (qsizetype place = m_firstShifted; place < m_ordered.size(); ++place) {
        const int slot = placeAt(place).slot;
        if (slot >= 0)
            placeOfSlot(slot) = static_cast<int>(place);
    }
    m_firstShifted = m_ordered.size();
}

void ChildList::closeHoles()
{
    if (m_holes == 0)
        return;
    qsizetype end = m_ordered.indexOf(nullptr);
    m_firstShifted = qMin(m_firstShifted, end);
    for (qsizetype place = end; place < m_ordered.size(); ++place) {
        if (m_ordered.at(place))
            movePlace(place, end++);
    }
    m_ordered.resize(end);
    m_places.resize(end);
    m_restless.resize(end);
    m_holes = 0;
}

void ChildList::movePlace(qsizetype from, qsizetype to)
{
    m_ordered[to] = m_ordered.at(from);
    placeAt(to) = placeAt(from);
    m_restless[to] = m_restless.at(from);
}

} // namespace Vantrel::Pictel
