// Coming and going: W1 build, W9 remove, W10 heap.

#include "BareObjects.h"
#include "HeapMeter.h"
#include "Workload.h"

namespace Bench {

namespace {

Objection proveBuilt(int count)
{
    StageSet &set = StageSet::of(Show::Grid, count);
    const Objection objection = provePositions(set);
    return objection.isEmpty() ? provePicture(set, View()) : objection;
}

Scene sceneOf(int count)
{
    return StageSet::of(Show::Grid, count).scene();
}

// The first one to build a large scene waits for the operating system to hand out and clear the memory, many times as
// long as for anything else. So each contestant builds one before it is timed; the memory stays with the program.
void provideMemory(Contestant contestant, const Scene &scene)
{
    const std::unique_ptr<Stage> stage = emptyStage(contestant);
    stage->build(scene);
    stage->paint();
}

void build(benchmark::State &state, Contestant contestant, int count)
{
    const Scene scene = sceneOf(count);
    provideMemory(contestant, scene);
    for (auto _ : state) {
        const std::unique_ptr<Stage> stage = emptyStage(contestant);
        timed(state, [&] {
            stage->build(scene);
            stage->paint();
        });
    }
}

void measureHeap(benchmark::State &state, Contestant contestant, int count)
{
    const Scene scene = sceneOf(count);
    double bytes = 0;
    for (auto _ : state) {
        const std::unique_ptr<Stage> stage = emptyStage(contestant);
        const double before = heapBytes();
        timed(state, [&] {
            stage->build(scene);
            stage->paint();
        });
        bytes = heapBytes() - before;
    }
    state.counters["bytes"] = bytes / count;
}

std::vector<int> half(int count)
{
    std::vector<int> indices = shuffledIndices(count);
    indices.resize(indices.size() / 2);
    return indices;
}

Objection proveRemoved(int count)
{
    StageSet &set = StageSet::of(Show::Grid, count);
    const std::vector<int> indices = half(count);
    for (const Contestant contestant : AllContestants)
        set.stage(contestant).removeFigures(indices);
    Objection objection = provePositions(set, indices);
    if (objection.isEmpty())
        objection = provePicture(set, View());
    StageSet::forget();
    return objection;
}

void removeHalf(benchmark::State &state, Contestant contestant, int count)
{
    const Scene scene = gridScene(count);
    const std::vector<int> indices = half(count);
    for (auto _ : state) {
        const std::unique_ptr<Stage> stage = emptyStage(contestant);
        stage->build(scene);
        stage->paint();
        timed(state, [&] {
            stage->removeFigures(indices);
            stage->paint();
        });
    }
}

// Not a contest but a limit.
void removeBareHalf(benchmark::State &state, Contestant, int count)
{
    const std::vector<int> indices = half(count);
    for (auto _ : state) {
        BareObjects objects(count);
        timed(state, [&] { objects.remove(indices); });
    }
}

Objection proveBareRemoved(int count)
{
    const std::vector<int> indices = half(count);
    BareObjects objects(count);
    objects.remove(indices);
    const int left = objects.connectedCount();
    return left == count - int(indices.size()) ? Objection() : QStringLiteral("%1 are left").arg(left);
}

} // namespace

std::vector<Workload> buildWorkloads(const Sizes &sizes)
{
    return {
        {"W9 remove half", benchmark::kMillisecond, sizes.usual, everybody, proveRemoved, removeHalf, true, true},
        {"W9 remove bare objects",
         benchmark::kMillisecond,
         sizes.usual,
         {Contestant::Painter},
         proveBareRemoved,
         removeBareHalf,
         true,
         true},
        {"W1 build", benchmark::kMillisecond, sizes.extended, everybody, proveBuilt, build, true, true},
        {"W10 heap per figure", benchmark::kMillisecond, sizes.usual, searchers, proveBuilt, measureHeap, true, true},
    };
}

} // namespace Bench
