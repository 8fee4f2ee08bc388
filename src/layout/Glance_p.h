#pragma once

#include "layout/ChildList_p.h"

#include <vtlpictel/figure/Figure.h>

#include <optional>

namespace Vantrel::Pictel {

// What a walk over the children of a layout sees in the notes on them. next() is the first place from a given one on
// whose child is to be visited; the notes must be those on the children that the walk goes over.

/// Sees nothing: every child is visited.
class FullGlance
{
public:
    static constexpr bool Learns = false;
    qsizetype next(const ChildList &, qsizetype place) const { return place; }
};

/// Passes by children that are at rest.
class RestGlance
{
public:
    static constexpr bool Learns = false;
    qsizetype next(const ChildList &list, qsizetype place) const { return list.firstRestless(place); }
};

/// Passes by children without a part in an area, which is in the system of their bounds.
class AreaGlance
{
public:
    static constexpr bool Learns = false;

    /// An invalid area lets no child be passed by.
    AreaGlance(ChildNote::Topic topic, const QRect &area)
        : m_topic(area.isValid() ? topic : ChildNote::Topic())
        , m_area(area)
    { }

    bool passesBy(const ChildNote &note) const { return note.has(m_topic) && !meets(note.area, m_area); }

    qsizetype next(const ChildList &list, qsizetype place) const
    {
        while (place < list.placeCount() && passesBy(list.noteAt(place)))
            ++place;
        return place;
    }

    /// As next(), on the way down to -1.
    qsizetype previous(const ChildList &list, qsizetype place) const
    {
        while (place >= 0 && passesBy(list.noteAt(place)))
            --place;
        return place;
    }

private:
    ChildNote::Topic m_topic;
    QRect m_area;
};

/// Passes by children that do not reach into the area to paint, which is absolute, and takes notes on the others.
///
/// Painting one child may move the container, and then the others lie elsewhere. So before children are passed by, the
/// area is found again.
class PaintGlance
{
public:
    static constexpr bool Learns = true;

    /// \a container stays the variable that the layout keeps it in: painting a child may give it another container.
    PaintGlance(const QPointer<Figure> &container, const QRect &area)
        : m_container(container)
        , m_area(area)
    { }

    qsizetype next(const ChildList &list, qsizetype place)
    {
        const bool mayPassBy = place < list.placeCount() && (!m_inner || m_inner->passesBy(list.noteAt(place)));
        if (!mayPassBy)
            return place;
        m_inner.emplace(ChildNote::Painting, m_container ? m_container->childAreaFor(m_area) : QRect());
        return m_inner->next(list, place);
    }

private:
    const QPointer<Figure> &m_container;
    QRect m_area;
    std::optional<AreaGlance> m_inner;
};

} // namespace Vantrel::Pictel
