#pragma once

#include <QHash>

#include <memory>
#include <optional>
#include <vector>

namespace Bench {

/// Tells a contestant's figures from each other by their index in the scene. Filled when it is first asked, so that
/// building a scene costs nothing more.
class FigureIndex
{
public:
    template <typename Figures>
    std::optional<int> of(const void *figure, const Figures &figures)
    {
        if (m_indices.isEmpty())
            fill(figures);
        const auto found = m_indices.constFind(figure);
        return found == m_indices.cend() ? std::nullopt : std::optional<int>(*found);
    }

    /// The indices of those of \a found that are figures of the scene.
    template <typename Found, typename Figures>
    std::vector<int> ofAll(const Found &found, const Figures &figures)
    {
        std::vector<int> indices;
        for (const auto *figure : found) {
            if (const std::optional<int> index = of(figure, figures))
                indices.push_back(*index);
        }
        return indices;
    }

private:
    template <typename Figures>
    void fill(const Figures &figures)
    {
        int index = 0;
        for (const auto &figure : figures)
            m_indices.insert(&*figure, index++);
    }

    QHash<const void *, int> m_indices;
};

} // namespace Bench
