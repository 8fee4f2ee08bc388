#pragma once

#include <QRect>

#include <limits>

namespace Vantrel::Pictel {

/// What a layout knows about one of its children without asking it.
///
/// Most children of a large scene have nothing to do with what is painted, searched or validated, and finding that out
/// by asking each of them means fetching each of them from memory. A note says it from 20 bytes. It holds only what
/// follows from the child's stored state, for operations that the child's class leaves as they are in Figure; whoever
/// overrides one of them is asked each time. A note is never wrong: every change of that state writes it anew.
struct ChildNote
{
    enum Topic : unsigned char {
        /// The note was written. It says nothing about topics that are not listed besides.
        Known = 0x1,
        /// render() does nothing outside of the area.
        Painting = 0x2,
        /// findFigures() finds nothing outside of the area.
        Search = 0x4,
        /// findFigureAt() finds nothing outside of the area.
        HitTest = 0x8,
        /// The child is valid, and where its rectangle constraint, if it has a constraint at all, wants it to be.
        Rest = 0x10,
    };

    bool has(Topic topic) const { return (topics & topic) != 0; }
    bool hasArea() const { return (topics & (Painting | Search | HitTest)) != 0; }
    ChildNote withoutRest() const { return {area, static_cast<unsigned char>(topics & ~Rest)}; }

    /// In the system of the child's bounds; nowhere() for a hidden child. Its edges are bounded as boundedRect() does.
    QRect area;
    unsigned char topics = 0;
};

/// The area of a child that is nowhere to be seen.
inline QRect nowhere()
{
    using Limits = std::numeric_limits<int>;
    return QRect(QPoint(Limits::max(), Limits::max()), QPoint(Limits::min(), Limits::min()));
}

/// True when two areas share a pixel.
inline bool meets(const QRect &first, const QRect &second)
{
    return first.left() <= second.right() && second.left() <= first.right() && first.top() <= second.bottom()
        && second.top() <= first.bottom();
}

} // namespace Vantrel::Pictel
