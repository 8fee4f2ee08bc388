#include "layout/UnionTree_p.h"

namespace Vantrel::Pictel {

void UnionTree::provide(int slot)
{
    std::size_t needed = qMax<std::size_t>(capacity(), 1);
    while (needed <= static_cast<std::size_t>(slot))
        needed *= 2;
    if (needed > capacity())
        growTo(needed);
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

void UnionTree::growTo(std::size_t grown)
{
    const std::size_t old = capacity();
    std::vector<QRect> nodes(2 * grown);
    for (std::size_t slot = 0; slot < old; ++slot)
        nodes[grown + slot] = m_nodes[old + slot];
    m_nodes = std::move(nodes);
    for (std::size_t node = grown - 1; node > 0; --node)
        unite(node);
}

} // namespace Vantrel::Pictel
