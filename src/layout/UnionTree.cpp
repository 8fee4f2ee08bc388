#include "layout/UnionTree_p.h"

#include "support/ReadAhead.h"

namespace Vantrel::Pictel {

namespace {

// From the leaves up. The nodes above are so few, and looked at so often, that the cache has them.
constexpr int ColdLevels = 6;

// QRect::united(), without a call for rectangles that are as they should be.
QRect unionOf(const QRect &first, const QRect &second)
{
    if (!first.isValid() || !second.isValid())
        return first.united(second);
    QRect all;
    all.setCoords(qMin(first.left(), second.left()), qMin(first.top(), second.top()),
                  qMax(first.right(), second.right()), qMax(first.bottom(), second.bottom()));
    return all;
}

} // namespace

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
    if (m_isOutdated)
        return;
    do
        node /= 2;
    while (node > 0 && unite(node));
}

void UnionTree::setOneOfMany(int slot, const QRect &rect)
{
    m_nodes[leaf(slot)] = rect;
    m_isOutdated = true;
}

void UnionTree::readSlot(int slot) const
{
    std::size_t node = leaf(slot);
    for (int level = 0; level < ColdLevels; ++level, node /= 2)
        readSoon(m_nodes[node]);
}

QRect UnionTree::whole()
{
    if (m_isOutdated)
        uniteAll();
    return m_nodes.empty() ? QRect() : m_nodes[1];
}

// Returns whether the node changed; if not, neither do those above it.
bool UnionTree::unite(std::size_t node)
{
    const QRect united = unionOf(m_nodes[2 * node], m_nodes[2 * node + 1]);
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
    uniteAll();
}

void UnionTree::uniteAll()
{
    for (std::size_t node = capacity() - 1; node > 0; --node)
        unite(node);
    m_isOutdated = false;
}

} // namespace Vantrel::Pictel
