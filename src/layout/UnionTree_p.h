#pragma once

#include <QRect>

#include <vector>

namespace Vantrel::Pictel {

/// Rectangles in numbered slots, and the union of all of them.
///
/// The slots are the leaves of a complete binary tree whose inner nodes hold the union of their two children, so that
/// a changed leaf costs one walk to the root. The union is QRect::united(): null rectangles do not take part.
/// Slots that were given back are used again; the tree doubles when it is full and never shrinks.
class UnionTree
{
public:
    /// A slot that holds a null rectangle.
    int takeSlot();
    /// Empties the slot and keeps it for the next takeSlot().
    void giveBackSlot(int slot);

    void set(int slot, const QRect &rect);
    QRect at(int slot) const { return m_nodes[leaf(slot)]; }
    /// The union of all slots; null when none holds a rectangle that is not.
    QRect whole() const { return m_nodes.empty() ? QRect() : m_nodes[1]; }

private:
    std::size_t capacity() const { return m_nodes.size() / 2; }
    std::size_t leaf(int slot) const { return capacity() + static_cast<std::size_t>(slot); }
    bool unite(std::size_t node);
    void grow();

    // The root is at 1, the children of a node at twice its index and the one after.
    std::vector<QRect> m_nodes;
    std::vector<int> m_freeSlots;
    int m_slotCount = 0;
};

} // namespace Vantrel::Pictel
