// Finding the ways of connections: W12, straight and along horizontal and vertical segments.

#include "Workload.h"

namespace Bench {

namespace {

constexpr QPoint Step(1, 0);
/// How far from its box a link may start: anchors stand on the pixel beside the edge.
constexpr int EdgeTolerance = 1;

bool isRectilinear(const QPolygon &route)
{
    for (qsizetype point = 1; point < route.size(); ++point) {
        if (route[point].x() != route[point - 1].x() && route[point].y() != route[point - 1].y())
            return false;
    }
    return true;
}

bool isAttached(const QPoint &end, const QRect &box)
{
    return box.adjusted(-EdgeTolerance, -EdgeTolerance, EdgeTolerance, EdgeTolerance).contains(end);
}

bool joins(const QPolygon &route, const Link &link, Stage &stage)
{
    return route.size() >= 2 && isAttached(route.first(), stage.bounds(link.source))
        && isAttached(route.last(), stage.bounds(link.target));
}

// What lies between the ends is each contestant's own: only the library keeps the lines apart.
Objection proveRoutes(StageSet &set, bool areElbows)
{
    const std::vector<Link> links = neighbourLinks(set.scene(), int(set.scene().boxes.size()));
    for (const Contestant contestant : searchers) {
        Stage &stage = set.stage(contestant);
        stage.moveFigure(links.front().source, Step);
        stage.routePending();
        const std::vector<QPolygon> routes = stage.routes();
        for (std::size_t index = 0; index < links.size(); ++index) {
            const QPolygon &route = routes.at(index);
            if (!joins(route, links[index], stage) || (areElbows && !isRectilinear(route)))
                return QStringLiteral("%1: link %2 is astray").arg(nameOf(contestant)).arg(index);
        }
        stage.moveFigure(links.front().source, -Step);
        stage.routePending();
    }
    return {};
}

Workload allRoutes(const Sizes &sizes, const char *name, Show show)
{
    const auto run = [show](benchmark::State &state, Contestant contestant, int count) {
        Stage &stage = StageSet::of(show, count).stage(contestant);
        for (auto _ : state)
            timed(state, [&] { stage.routeAll(); });
    };
    const auto prove = [show](int count) { return proveRoutes(StageSet::of(show, count), show == Show::ElbowLinks); };
    return {name, benchmark::kMillisecond, sizes.links, searchers, prove, run};
}

Workload routesOfOne(const Sizes &sizes, const char *name, Show show)
{
    const auto run = [show](benchmark::State &state, Contestant contestant, int count) {
        StageSet &set = StageSet::of(show, count);
        Stage &stage = set.stage(contestant);
        const int moved = neighbourLinks(set.scene(), 1).front().source;
        bool isAway = false;
        for (auto _ : state) {
            timed(state, [&] {
                stage.moveFigure(moved, isAway ? -Step : Step);
                stage.routePending();
            });
            isAway = !isAway;
        }
    };
    const auto prove = [show](int count) { return proveRoutes(StageSet::of(show, count), show == Show::ElbowLinks); };
    return {name, benchmark::kMicrosecond, sizes.links, searchers, prove, run};
}

} // namespace

std::vector<Workload> routingWorkloads(const Sizes &sizes)
{
    return {
        allRoutes(sizes, "W12 route all elbows", Show::ElbowLinks),
        routesOfOne(sizes, "W12 re-route elbows of one", Show::ElbowLinks),
        allRoutes(sizes, "W12 route all straight", Show::StraightLinks),
        routesOfOne(sizes, "W12 re-route straight of one", Show::StraightLinks),
    };
}

} // namespace Bench
