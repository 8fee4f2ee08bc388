// Moving figures: W6 one with connections, W7 all, W13 all to new places under a monitored extent.

#include "Workload.h"

#include <QRandomGenerator>

namespace Bench {

namespace {

constexpr quint32 Seed = 1729;
constexpr QPoint DragStep(1, 0);
constexpr QPoint CommonStep(3, 2);
constexpr int FarthestMove = 15;

std::vector<QPoint> reversed(std::vector<QPoint> steps)
{
    for (QPoint &step : steps)
        step = -step;
    return steps;
}

std::vector<QPoint> commonSteps(const StageSet &set)
{
    return std::vector<QPoint>(set.scene().boxes.size(), CommonStep);
}

std::vector<QPoint> layoutSteps(const StageSet &set)
{
    QRandomGenerator random(Seed);
    std::vector<QPoint> steps(set.scene().boxes.size());
    for (QPoint &step : steps)
        step = QPoint(random.bounded(FarthestMove), random.bounded(FarthestMove));
    return steps;
}

Objection proveMoved(StageSet &set)
{
    const Objection objection = provePositions(set);
    return objection.isEmpty() ? provePicture(set, View()) : objection;
}

template <typename Steps>
Objection proveAllMoved(StageSet &set, Steps steps)
{
    const std::vector<QPoint> there = steps(set);
    for (const Contestant contestant : AllContestants)
        set.stage(contestant).moveAll(there);
    const Objection objection = proveMoved(set);
    for (const Contestant contestant : AllContestants)
        set.stage(contestant).moveAll(reversed(there));
    return objection;
}

// To and fro by turns, so that figures end where they began.
template <typename Steps>
void moveAll(benchmark::State &state, StageSet &set, Contestant contestant, Steps steps)
{
    const std::vector<QPoint> there = steps(set);
    const std::vector<QPoint> back = reversed(there);
    const View view = set.closeUp();
    Stage &stage = set.stage(contestant);
    show(stage, view);
    bool isAway = false;
    for (auto _ : state) {
        timed(state, [&] {
            stage.moveAll(isAway ? back : there);
            stage.paint();
        });
        isAway = !isAway;
    }
    if (isAway)
        stage.moveAll(back);
}

Objection proveCommonMove(int count)
{
    return proveAllMoved(StageSet::of(Show::Grid, count), commonSteps);
}

void moveInCommon(benchmark::State &state, Contestant contestant, int count)
{
    moveAll(state, StageSet::of(Show::Grid, count), contestant, commonSteps);
}

Objection proveLayout(int count)
{
    return proveAllMoved(StageSet::of(Show::MonitoredGrid, count), layoutSteps);
}

void applyLayout(benchmark::State &state, Contestant contestant, int count)
{
    moveAll(state, StageSet::of(Show::MonitoredGrid, count), contestant, layoutSteps);
}

Objection proveDrag(int count)
{
    StageSet &set = StageSet::of(Show::Dragged, count);
    const int dragged = draggedBox(set.scene());
    const View view = set.closeUp();
    for (const Contestant contestant : AllContestants) {
        Stage &stage = set.stage(contestant);
        show(stage, view);
        stage.moveFigure(dragged, DragStep);
        stage.paint();
    }
    const QImage expected = set.reference().picture();
    for (const Contestant contestant : AllContestants) {
        const Objection objection = comparePictures(expected, set.stage(contestant).picture(), contestant);
        if (!objection.isEmpty())
            return objection;
    }
    return provePositions(set);
}

void drag(benchmark::State &state, Contestant contestant, int count)
{
    StageSet &set = StageSet::of(Show::Dragged, count);
    const int dragged = draggedBox(set.scene());
    const View view = set.closeUp();
    Stage &stage = set.stage(contestant);
    show(stage, view);
    bool isAway = false;
    for (auto _ : state) {
        timed(state, [&] {
            stage.moveFigure(dragged, isAway ? -DragStep : DragStep);
            stage.paint();
        });
        isAway = !isAway;
    }
    if (isAway)
        stage.moveFigure(dragged, -DragStep);
}

} // namespace

std::vector<Workload> moveWorkloads(const Sizes &sizes)
{
    return {
        {"W7 move all", benchmark::kMillisecond, sizes.usual, everybody, proveCommonMove, moveInCommon},
        {"W6 drag", benchmark::kMicrosecond, sizes.usual, everybody, proveDrag, drag},
        {"W13 apply layout", benchmark::kMillisecond, sizes.usual, everybody, proveLayout, applyLayout},
    };
}

} // namespace Bench
