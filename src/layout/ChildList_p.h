#pragma once

#include <vtlpictel/layout/Layout.h>

#include <QList>
#include <QMultiHash>

#include <optional>
#include <unordered_map>

namespace Vantrel::Pictel {

/// The children of one layout in z-order, with what the layout keeps about each.
///
/// Appending, looking up and removing take constant time on average in any order: a removed child leaves a hole in the
/// ordered list, and the holes are closed when the list is next asked for. Each child remembers its place; places that
/// an insertion in the middle has shifted are put right when one is found to be wrong.
class ChildList
{
public:
    bool contains(const Figure *child) const { return m_entries.find(child) != m_entries.end(); }
    int count() const { return static_cast<int>(m_entries.size()); }
    /// How many children have left so far: unchanged means that all who were there still are.
    quint64 departures() const { return m_departures; }
    const QList<Figure *> &figures();

    void insert(Figure *child, int index);
    void remove(const Figure *child);
    QList<Figure *> takeAll();

    void setHelper(const Figure *child, const Layout::LayoutHelper &helper);
    Layout::LayoutHelper *helper(const Figure *child);
    void dropHelper(const Figure *child);

    /// The children that have a QObject as constraint, by that object.
    QMultiHash<QObject *, Figure *> constraintObjects;

private:
    struct Entry
    {
        std::optional<Layout::LayoutHelper> helper;
        qsizetype place = 0;
    };

    void renumber();
    void closeHoles();

    QList<Figure *> m_ordered;
    qsizetype m_holes = 0;
    quint64 m_departures = 0;
    std::unordered_map<const Figure *, Entry> m_entries;
};

} // namespace Vantrel::Pictel
