// Painting what does not change: W2 full repaint, W3 small repaint, W8 zoom, W11 chips.

#include "Workload.h"

#include <cmath>

namespace Bench {

namespace {

constexpr QRect Everything(QPoint(0, 0), ViewportSize);
constexpr QRect SmallArea(580, 380, 40, 40);
constexpr int ZoomSteps = 10;

void repaint(benchmark::State &state, Stage &stage, const View &view, const QRect &area)
{
    show(stage, view);
    for (auto _ : state) {
        timed(state, [&] {
            stage.update(area);
            stage.paint();
        });
    }
}

Objection proveOverview(int count)
{
    StageSet &set = StageSet::of(Show::Grid, count);
    return provePicture(set, set.centered(set.overviewScale()));
}

void repaintOverview(benchmark::State &state, Contestant contestant, int count)
{
    StageSet &set = StageSet::of(Show::Grid, count);
    repaint(state, set.stage(contestant), set.overview(), Everything);
}

Objection proveCloseUp(int count)
{
    return provePicture(StageSet::of(Show::Grid, count), View());
}

void repaintSmallArea(benchmark::State &state, Contestant contestant, int count)
{
    StageSet &set = StageSet::of(Show::Grid, count);
    repaint(state, set.stage(contestant), set.closeUp(), SmallArea);
}

// From 1.0 down to 0.1 and up again, without the view that it starts from.
std::vector<double> zoomScales()
{
    std::vector<double> scales;
    for (int step = 1; step <= 2 * ZoomSteps; ++step)
        scales.push_back(std::pow(0.1, double(step <= ZoomSteps ? step : 2 * ZoomSteps - step) / ZoomSteps));
    return scales;
}

Objection proveZoom(int count)
{
    StageSet &set = StageSet::of(Show::Grid, count);
    for (const double scale : zoomScales()) {
        const Objection objection = provePicture(set, set.centered(scale));
        if (!objection.isEmpty())
            return QStringLiteral("scale %1, ").arg(scale) + objection;
    }
    return {};
}

void zoom(benchmark::State &state, Contestant contestant, int count)
{
    StageSet &set = StageSet::of(Show::Grid, count);
    std::vector<View> views;
    for (const double scale : zoomScales())
        views.push_back(set.agreedView(set.centered(scale)));
    Stage &stage = set.stage(contestant);
    show(stage, views.back());
    std::size_t step = 0;
    for (auto _ : state) {
        timed(state, [&] {
            stage.look(views[step]);
            stage.paint();
        });
        step = (step + 1) % views.size();
    }
}

// \a scale 0 stands for the one that fits.
View chipView(const StageSet &set, double scale)
{
    return set.centered(scale == 0 ? set.overviewScale() : scale);
}

Workload chipWorkload(const Sizes &sizes, const char *name, double scale)
{
    const auto prove = [scale](int count) {
        StageSet &set = StageSet::of(Show::Chips, count);
        return provePicture(set, chipView(set, scale));
    };
    const auto run = [scale](benchmark::State &state, Contestant contestant, int count) {
        StageSet &set = StageSet::of(Show::Chips, count);
        repaint(state, set.stage(contestant), set.agreedView(chipView(set, scale)), Everything);
    };
    return {name, benchmark::kMillisecond, sizes.chips, everybody, prove, run};
}

} // namespace

std::vector<Workload> paintWorkloads(const Sizes &sizes)
{
    return {
        {"W2 full repaint", benchmark::kMillisecond, sizes.usual, everybody, proveOverview, repaintOverview},
        {"W3 small repaint", benchmark::kMicrosecond, sizes.extended, everybody, proveCloseUp, repaintSmallArea},
        {"W8 zoom step", benchmark::kMillisecond, sizes.usual, everybody, proveZoom, zoom},
    };
}

std::vector<Workload> chipWorkloads(const Sizes &sizes)
{
    return {
        chipWorkload(sizes, "W11 chips fitted", 0),
        chipWorkload(sizes, "W11 chips at 0.3", 0.3),
        chipWorkload(sizes, "W11 chips at 1", 1),
        chipWorkload(sizes, "W11 chips at 4", 4),
    };
}

} // namespace Bench
