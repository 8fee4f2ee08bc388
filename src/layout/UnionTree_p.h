#pragma once

#include <QRect>

#include <vector>

namespace Vantrel::Pictel {

/// Rectangles in numbered slots, and the union of all of them.
///
/// The slots are the leaves of a complete binary tree whose inner nodes hold the union of their two children, so that
/// a changed leaf costs one walk to the root. The union is QRect::united(): null rectangles do not take part.
/// The tree doubles when it is full and never shrinks.
class UnionTree
{
public:
    /// Makes room for \a slot and all below; new ones hold null rectangles.
    void provide(int slot);

    void set(int slot, const QRect &rect);
    /// As set(), for many slots in a row: the inner nodes are put right together when the union is next asked for.
    void setOneOfMany(int slot, const QRect &rect);
    QRect at(int slot) const { return m_nodes[leaf(slot)]; }
    /// Asks the memory for the nodes that set() is going to look at.
    void readSlot(int slot) const;
    /// The union of all slots; null when none holds a rectangle that is not.
    QRect whole();

private:
    std::size_t capacity() const { return m_nodes.size() / 2; }
    std::size_t leaf(int slot) const { return capacity() + static_cast<std::size_t>(slot); }
    bool unite(std::size_t node);
    void uniteAll();
    void growTo(std::size_t capacity);

    // The root is at 1, the children of a node at twice its index and the one after.
    std::vector<QRect> m_nodes;
    bool m_isOutdated = false;
};

} // namespace Vantrel::Pictel
