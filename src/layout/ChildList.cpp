#include "layout/ChildList_p.h"

namespace Vantrel::Pictel {

const QList<Figure *> &ChildList::figures()
{
    closeHoles();
    return m_ordered;
}

void ChildList::insert(Figure *child, int index)
{
    Entry &entry = m_entries[child];
    if (index < 0 || index >= count() - 1) {
        entry.place = m_ordered.size();
        m_ordered.append(child);
        return;
    }
    closeHoles();
    entry.place = index;
    m_ordered.insert(index, child);
}

void ChildList::remove(const Figure *child)
{
    const auto found = m_entries.find(child);
    if (found == m_entries.end())
        return;
    if (m_ordered.value(found->second.place) != child)
        renumber();
    const qsizetype place = found->second.place;
    m_entries.erase(found);
    ++m_departures;
    if (place == m_ordered.size() - 1) {
        m_ordered.removeLast();
        return;
    }
    m_ordered[place] = nullptr;
    ++m_holes;
}

QList<Figure *> ChildList::takeAll()
{
    const QList<Figure *> all = figures();
    m_departures += static_cast<quint64>(all.size());
    m_entries.clear();
    m_ordered.clear();
    constraintObjects.clear();
    return all;
}

void ChildList::setHelper(const Figure *child, const Layout::LayoutHelper &helper)
{
    const auto found = m_entries.find(child);
    if (found != m_entries.end())
        found->second.helper = helper;
}

Layout::LayoutHelper *ChildList::helper(const Figure *child)
{
    const auto found = m_entries.find(child);
    if (found == m_entries.end() || !found->second.helper)
        return nullptr;
    return &*found->second.helper;
}

void ChildList::dropHelper(const Figure *child)
{
    const auto found = m_entries.find(child);
    if (found != m_entries.end())
        found->second.helper.reset();
}

void ChildList::renumber()
{
    for (qsizetype place = 0; place < m_ordered.size(); ++place) {
        if (m_ordered.at(place))
            m_entries[m_ordered.at(place)].place = place;
    }
}

void ChildList::closeHoles()
{
    if (m_holes == 0)
        return;
    m_ordered.removeAll(nullptr);
    m_holes = 0;
    renumber();
}

} // namespace Vantrel::Pictel
