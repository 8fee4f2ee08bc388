#pragma once

#include "Scene.h"

#include <QImage>
#include <QPolygon>

#include <optional>
#include <vector>

namespace Bench {

constexpr QSize ViewportSize(1200, 800);

/// Which part of the content the viewport shows: pixel = content * scale + offset.
struct View
{
    double scale = 1.0;
    QPointF offset;
};

enum class LinkStyle { Straight, Elbow };

/// One contestant with its viewport on show: each operation in the way an application of that contestant does it.
/// Figures are named by their index in the scene; a removed one is never named again.
class Stage
{
public:
    virtual ~Stage() = default;

    // Content: not painted before paint()

    /// Creates and shows all figures of the scene.
    virtual void build(const Scene &scene) = 0;
    virtual void addLinks(const std::vector<Link> &links, LinkStyle style) = 0;
    virtual void moveFigure(int index, const QPoint &step) = 0;
    virtual void moveAll(const std::vector<QPoint> &steps);
    virtual void removeFigures(const std::vector<int> &indices) = 0;

    // Links

    /// Finds the ways of all links anew.
    virtual void routeAll() = 0;
    /// Finds the ways of the links whose figures moved since the last time, unless moving did it already.
    virtual void routePending() = 0;
    /// The points of all links, in the order they were added.
    virtual std::vector<QPolygon> routes() = 0;

    // Painting

    /// Shows that part, or one that differs by rounding only, and returns what it shows.
    virtual View look(const View &view) = 0;
    /// Asks for \a area of the viewport to be painted anew.
    virtual void update(const QRect &area) = 0;
    /// Handles what is pending until the viewport has been painted.
    virtual void paint() = 0;

    // Search, in content coordinates

    /// The topmost figure at \a point; nothing when there is none.
    virtual std::optional<int> figureAt(const QPoint &point) = 0;
    virtual std::vector<int> figuresIn(const QRect &area) = 0;
    virtual bool canSearch() const { return true; }

    // What the proofs compare

    virtual QRect bounds(int index) = 0;
    /// What stands on the screen.
    virtual QImage picture() = 0;
};

} // namespace Bench
