#include "layout/ChildList_p.h"

#include "support/ReadAhead.h"

#include <cstring>
#include <utility>

namespace Vantrel::Pictel {

namespace {

// What is left of so few children that went may stay.
constexpr qsizetype FewRemains = 64;

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
    if (!isOnTop && index > 0)
        closeHoles();
    insertAt(isOnTop ? m_ordered.size() : index, child, slot);
    return slot;
}

// The places above move up by one, which at the bottom is the same as all numbers starting one earlier.
void ChildList::insertAt(qsizetype place, Figure *child, int slot)
{
    if (place == 0) {
        --m_firstNumber;
        ++m_firstShifted;
    } else if (place < m_ordered.size()) {
        m_firstShifted = qMin(m_firstShifted, place);
    }
    setPlaceOfSlot(slot, place);
    m_ordered.insert(place, child);
    m_places.insert(place, {ChildNote(), slot});
    m_restless.insert(place, 1);
}

void ChildList::setPlaceOfSlot(int slot, qsizetype place)
{
    m_numbers[static_cast<std::size_t>(slot)] = m_firstNumber + static_cast<quint32>(place);
}

int ChildList::takeSlot()
{
    if (m_freeSlots.empty()) {
        m_entries.emplace_back();
        m_numbers.push_back(0);
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
    vacate(placeOf(child, slot));
    entryAt(slot) = Entry();
    m_freeSlots.push_back(slot);
    ++m_departures;
    clearUp();
    return slot;
}

void ChildList::vacate(qsizetype place)
{
    if (place == m_ordered.size() - 1) {
        m_ordered.removeLast();
        m_places.removeLast();
        m_restless.removeLast();
    } else if (place == 0) {
        m_ordered.removeFirst();
        m_places.removeFirst();
        m_restless.removeFirst();
        ++m_firstNumber;
        m_firstShifted = qMax(m_firstShifted - 1, qsizetype(0));
    } else {
        m_ordered[place] = nullptr;
        placeAt(place) = Place();
        ++m_holes;
    }
}

// Lets go of what children have left behind once there is more of it than of those that stay.
void ChildList::clearUp()
{
    const qsizetype most = 2 * qsizetype(count()) + FewRemains;
    if (m_ordered.size() > most)
        closeHoles();
    if (m_slots.size() > most)
        forgetAddresses();
}

Figure *ChildList::topmost()
{
    closeHoles();
    return m_ordered.value(m_ordered.size() - 1);
}

void ChildList::recall(const Figure *child, int slot) const
{
    Q_ASSERT(entryAt(slot).child == child);
    m_recentSlot = slot;
}

void ChildList::readSlot(int slot) const
{
    readSoon(entryAt(slot));
    const qsizetype place = placeOfSlot(slot);
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
    if (slot < 0 || static_cast<std::size_t>(slot) >= m_numbers.size())
        return -1;
    if (m_ordered.value(placeOfSlot(slot)) != child)
        renumber();
    const qsizetype place = placeOfSlot(slot);
    return m_ordered.value(place) == child ? place : -1;
}

void ChildList::renumber()
{
    for (qsizetype place = m_firstShifted; place < m_ordered.size(); ++place) {
        const int slot = m_places.at(place).slot;
        if (slot >= 0)
            setPlaceOfSlot(slot, place);
    }
    m_firstShifted = m_ordered.size();
}

void ChildList::closeHoles()
{
    if (m_holes == 0)
        return;
    qsizetype end = m_ordered.indexOf(nullptr);
    m_firstShifted = qMin(m_firstShifted, end);
    Figure **children = m_ordered.data();
    Place *places = m_places.data();
    char *restless = m_restless.data();
    for (qsizetype place = end; place < m_ordered.size(); ++place) {
        if (!children[place])
            continue;
        children[end] = children[place];
        places[end] = places[place];
        restless[end++] = restless[place];
    }
    m_ordered.resize(end);
    m_places.resize(end);
    m_restless.resize(end);
    m_holes = 0;
}

} // namespace Vantrel::Pictel
