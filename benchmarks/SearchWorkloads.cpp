// Finding figures: W4 at a point, W5 in a rectangle.

#include "Workload.h"

#include <QRandomGenerator>

#include <algorithm>

namespace Bench {

namespace {

constexpr quint32 Seed = 4711;
constexpr std::size_t Places = 1024;
constexpr std::size_t ProvenPlaces = 64;
constexpr QSize AreaSize(200, 200);

std::vector<QPoint> randomPlaces(const Scene &scene)
{
    QRandomGenerator random(Seed);
    const QRect area = extent(scene);
    std::vector<QPoint> places(Places);
    for (QPoint &place : places)
        place = QPoint(random.bounded(area.width()), random.bounded(area.height()));
    return places;
}

std::vector<int> expectedIn(const Scene &scene, const QRect &area)
{
    std::vector<int> expected;
    for (std::size_t index = 0; index < scene.boxes.size(); ++index) {
        if (scene.boxes[index].rect.intersects(area))
            expected.push_back(int(index));
    }
    return expected;
}

template <typename Finds>
Objection proveSearch(int count, Finds finds)
{
    StageSet &set = StageSet::of(Show::Grid, count);
    const std::vector<QPoint> places = randomPlaces(set.scene());
    // The library's layers reach as far as their content from the first look at it on.
    set.closeUp();
    for (const Contestant contestant : searchers) {
        for (std::size_t place = 0; place < ProvenPlaces; ++place) {
            if (!finds(set, contestant, places[place]))
                return QStringLiteral("%1: finds other figures").arg(nameOf(contestant));
        }
    }
    return {};
}

Objection proveHit(int count)
{
    return proveSearch(count, [](StageSet &set, Contestant contestant, const QPoint &point) {
        const std::vector<int> expected = expectedIn(set.scene(), QRect(point, QSize(1, 1)));
        const std::optional<int> found = set.stage(contestant).figureAt(point);
        return found ? expected == std::vector<int> {*found} : expected.empty();
    });
}

Objection proveFind(int count)
{
    return proveSearch(count, [](StageSet &set, Contestant contestant, const QPoint &point) {
        std::vector<int> found = set.stage(contestant).figuresIn(QRect(point, AreaSize));
        std::sort(found.begin(), found.end());
        return found == expectedIn(set.scene(), QRect(point, AreaSize));
    });
}

template <typename Search>
void searchEverywhere(benchmark::State &state, Contestant contestant, int count, Search search)
{
    StageSet &set = StageSet::of(Show::Grid, count);
    const std::vector<QPoint> places = randomPlaces(set.scene());
    Stage &stage = set.stage(contestant);
    show(stage, set.closeUp());
    search(stage, places.front());
    std::size_t place = 0;
    for (auto _ : state) {
        search(stage, places[place]);
        place = (place + 1) % Places;
    }
}

void hit(benchmark::State &state, Contestant contestant, int count)
{
    searchEverywhere(state, contestant, count,
                     [](Stage &stage, const QPoint &place) { benchmark::DoNotOptimize(stage.figureAt(place)); });
}

void findInArea(benchmark::State &state, Contestant contestant, int count)
{
    searchEverywhere(state, contestant, count, [](Stage &stage, const QPoint &place) {
        benchmark::DoNotOptimize(stage.figuresIn(QRect(place, AreaSize)));
    });
}

} // namespace

std::vector<Workload> searchWorkloads(const Sizes &sizes)
{
    return {
        {"W4 hit test", benchmark::kNanosecond, sizes.extended, searchers, proveHit, hit, false},
        {"W5 find in area", benchmark::kMicrosecond, sizes.extended, searchers, proveFind, findInArea, false},
    };
}

} // namespace Bench
