#include "layout/UnionTree_p.h"

namespace Vantrel::Pictel {

int UnionTree::takeSlot()
{
    if (!m_freeSlots.empty()) {
        const int slot = m_freeSlots.back();
        m_freeSlots.pop_back();
        return slot;
    }
    if (static_cast<std::size_t>(m_slotCount) == capacity())
        grow();
    return m_slotCount++;
}

void UnionTree::giveBackSlot(int slot)
{
    set(slot, QRect());
    m_freeSlots.push_back(slot);
}

void UnionTree::set(int slot, const QRect &rect)
{
    std::size_t node = leaf(slot);
    m_nodes[node] = rect;
    do
        node /= 2;
    while (node > 0 && unite(node));
}

// Returns whether the node changed; if not, neither do those above it.
bool UnionTree::unite(std::size_t node)
{
    const QRect united = m_nodes[2 * node].united(m_nodes[2 * node + 1]);
    if (united == m_nodes[node])
        return false;
    m_nodes[node] = united;
    return true;
}

void UnionTree::grow()
{
    const std::size_t old = capacity();
    const std::size_t grown = old == 0 ? 1 : 2 * old;
    std::vector<QRect> nodes(2 * grown);
    for (std::size_t slot = 0; slot < old; ++slot)
        nodes[grown + slot] = m_nodes[old + slot];
    m_nodes = std::move(nodes);
    for (std::size_t node = grown - 1; node > 0; --node)
        unite(node);
}

} // namespace Vantrel::Pictel
