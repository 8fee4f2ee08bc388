#pragma once

#include "support/RecordingPaintDevice.h"

#include <vtlpictel/figure/Figure.h>
#include <vtlpictel/figure/ITreeSearch.h>
#include <vtlpictel/layout/FreeformLayout.h>
#include <vtlpictel/layout/XYLayout.h>

#include <QPainter>
#include <QStyleOptionViewItem>

#include <functional>
#include <memory>
#include <utility>

using Figures = QList<Vantrel::Pictel::Figure *>;
using Rects = QList<QRect>;

/// Two places for a child, far from each other.
inline constexpr QRect here(10, 10, 20, 20);
inline constexpr QRect there(500, 500, 20, 20);

/// Accepts all figures but one and enters every figure, and calls back for each that it is asked about.
class WatchingSearch : public Vantrel::Pictel::ITreeSearch
{
public:
    std::function<void(const Vantrel::Pictel::Figure *)> onPrune;
    const Vantrel::Pictel::Figure *refused = nullptr;

    bool accept(const Vantrel::Pictel::Figure *figure) const override { return figure != refused; }
    bool prune(const Vantrel::Pictel::Figure *figure) const override
    {
        if (onPrune)
            onPrune(figure);
        return false;
    }
};

/// Has \a painted, a figure or a layout, paint in \a area (absolute) and returns what it filled, in absolute
/// coordinates.
template <typename Painted>
QList<QRect> fillsOf(Painted &painted, const QRect &area)
{
    RecordingPaintDevice device;
    QPainter painter(&device);
    QStyleOptionViewItem option;
    option.rect = area;
    painted.render(&painter, option);
    painter.end();
    QList<QRect> fills;
    for (const QRectF &fill : device.fills())
        fills << fill.toRect();
    return fills;
}

/// A figure that acts, once, when it is drawn or laid out.
class ActingFigure : public Vantrel::Pictel::Figure
{
public:
    using Action = std::function<void()>;
    using Figure::Figure;
    using Figure::setFlag;
    using Figure::setValid;

    mutable Action onDraw;
    mutable Action onLayout;
    int layouts = 0;

protected:
    void drawFigure(QPainter *, const QStyleOptionViewItem &) const override { run(onDraw); }
    void layout() override
    {
        ++layouts;
        Figure::layout();
        run(onLayout);
    }

private:
    static void run(Action &action)
    {
        if (const Action current = std::exchange(action, nullptr))
            current();
    }
};

/// A root that paints nothing itself, with children that have been painted and validated at least once: the layout has
/// had every occasion to learn what it may rely on later.
///
/// The root covers (0, 0, 1000, 1000), so that its children's coordinates are absolute whatever its layout.
class NotedScene
{
public:
    using Figure = Vantrel::Pictel::Figure;
    using Layout = Vantrel::Pictel::Layout;

    explicit NotedScene(Layout *layoutManager)
        : root(new ActingFigure(nullptr, QColor(Qt::transparent)))
        , layout(layoutManager)
    {
        root->setLayoutManager(layoutManager);
        root->setBounds(QRect(0, 0, 1000, 1000));
    }
    /// With an XYLayout or a FreeformLayout.
    explicit NotedScene(bool isRelative = true)
        : NotedScene(isRelative ? new Vantrel::Pictel::XYLayout : new Vantrel::Pictel::FreeformLayout(nullptr, false))
    { }
    ~NotedScene()
    {
        delete root;
        delete layout;
        qDeleteAll(m_children);
    }
    NotedScene(const NotedScene &) = delete;
    NotedScene &operator=(const NotedScene &) = delete;

    template <typename Child = Figure>
    Child *add(const QRect &bounds, int index = -1)
    {
        auto *child = new Child;
        m_children << child;
        if (!bounds.isNull())
            child->setBounds(bounds);
        layout->add(child, QVariant(), index);
        return child;
    }
    template <typename Child = Figure>
    Child *addNoted(const QRect &bounds, int index = -1)
    {
        auto *child = add<Child>(bounds, index);
        takeNotes();
        return child;
    }

    /// Paints and validates everything.
    void takeNotes()
    {
        painted(QRect(0, 0, 1000, 1000));
        root->validate();
    }

    void validateAll()
    {
        root->setValid(false);
        root->validate();
    }
    void layOut()
    {
        layout->invalidate();
        layout->layout(root);
    }

    QList<QRect> painted(const QRect &area) { return fillsOf(*root, area); }
    QList<QRect> painted() { return painted(root->getBounds()); }
    Figure *hit(int x, int y) const
    {
        Figure *found = root->findFigureAt(x, y);
        return found == root ? nullptr : found;
    }
    /// The children that meet \a area.
    QList<Figure *> found(const QRect &area) const
    {
        QList<Figure *> all = root->findFigures(area);
        all.removeAll(root);
        return all;
    }

    QPointer<ActingFigure> root;
    QPointer<Layout> layout;

private:
    QList<QPointer<Figure>> m_children;
};
