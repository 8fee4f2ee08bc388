#pragma once

#include <vtlpictel/figure/Figure.h>
#include <vtlpictel/layout/Layout.h>

#include <QHash>

#include <memory>
#include <random>
#include <vector>

/// A layout that places nothing and only says whether children are relative to their container.
class PlainLayout : public Vantrel::Pictel::Layout
{
public:
    explicit PlainLayout(bool relative)
        : m_relative(relative)
    { }

    bool isRelativeLayout() const override { return m_relative; }

protected:
    QSize calculatePreferredSize() override { return {}; }
    QSize calculateMinimumSize() override { return {}; }
    bool performLayout(const QRect &) override { return true; }

private:
    bool m_relative;
};

/// Figures nested in relative and non-relative parents, with the offset of each from absolute coordinates
/// worked out apart from what the figures themselves say of it.
class FigureNest
{
public:
    using Figure = Vantrel::Pictel::Figure;

    ~FigureNest()
    {
        while (!m_figures.empty())
            m_figures.pop_back();
    }

    /// A container in \a parent (null: a root). Children are offset by its bounds and margin when \a relative.
    Figure *addContainer(Figure *parent, const QRect &bounds, bool relative, int margin = 0)
    {
        Figure *container = addFigure(parent, bounds);
        m_layouts.push_back(std::make_unique<PlainLayout>(relative));
        container->setLayoutManager(m_layouts.back().get());
        container->setMargin(margin);
        m_containers.push_back(container);
        if (relative)
            m_margins[container] = margin;
        return container;
    }

    /// A figure without children in \a parent.
    Figure *addFigure(Figure *parent, const QRect &bounds)
    {
        m_figures.push_back(std::make_unique<Figure>());
        Figure *figure = m_figures.back().get();
        figure->setBounds(bounds);
        put(figure, parent);
        return figure;
    }

    void put(Figure *figure, Figure *parent)
    {
        if (parent)
            parent->add(figure);
        m_parents[figure] = parent;
    }

    /// What has to be added to coordinates in the system of the figure's bounds to make them absolute.
    QPoint offsetOf(const Figure *figure) const
    {
        QPoint offset;
        for (Figure *parent = m_parents.value(figure); parent; parent = m_parents.value(parent)) {
            const int margin = m_margins.value(parent);
            if (m_margins.contains(parent))
                offset += parent->getBounds().topLeft() + QPoint(margin, margin);
        }
        return offset;
    }

    const std::vector<Figure *> &containers() const { return m_containers; }

private:
    std::vector<std::unique_ptr<PlainLayout>> m_layouts;
    std::vector<std::unique_ptr<Figure>> m_figures;
    std::vector<Figure *> m_containers;
    QHash<const Figure *, Figure *> m_parents;
    /// Of those containers whose children are relative to them.
    QHash<const Figure *, int> m_margins;
};

/// Seeded numbers; the seed is the data row of the test, so that a failure names it.
class Dice
{
public:
    explicit Dice(unsigned int seed)
        : m_engine(seed)
    { }

    int between(int low, int high) { return low + int(m_engine() % (unsigned(high - low) + 1U)); }
    bool coin() { return between(0, 1) == 1; }
    QPoint point(int reach) { return {between(-reach, reach), between(-reach, reach)}; }
    QRect rect(int reach, int largest)
    {
        const QPoint corner = point(reach);
        return {corner, QSize(between(1, largest), between(1, largest))};
    }

    /// Up to three containers inside each other, the innermost returned; null for none.
    Vantrel::Pictel::Figure *containers(FigureNest &nest)
    {
        Vantrel::Pictel::Figure *parent = nullptr;
        for (int depth = between(0, 3); depth > 0; --depth)
            parent = nest.addContainer(parent, rect(300, 400), coin(), between(0, 5));
        return parent;
    }

private:
    std::mt19937 m_engine;
};
