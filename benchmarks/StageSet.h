#pragma once

#include "Stage.h"

#include <array>
#include <memory>

namespace Bench {

enum class Contestant { Library, GraphicsViewBsp, GraphicsViewNoIndex, Painter };

constexpr std::array<Contestant, 4> AllContestants
    = {Contestant::Library, Contestant::GraphicsViewBsp, Contestant::GraphicsViewNoIndex, Contestant::Painter};

/// The name in the report.
const char *nameOf(Contestant contestant);

/// An empty stage. \a monitored: a library layer that follows every move with its extent; the others know no other.
std::unique_ptr<Stage> emptyStage(Contestant contestant, bool monitored = false);

/// The scenes that workloads share.
enum class Show {
    Grid, ///< gridScene()
    MonitoredGrid, ///< gridScene() with the library following the extent
    Dragged, ///< gridScene() with four straight links of draggedBox()
    StraightLinks, ///< gridScene() with as many straight links as boxes
    ElbowLinks, ///< gridScene() with as many links of horizontal and vertical segments as boxes
    Chips, ///< chipScene()
};

/// One show with all contestants, each built when it is first asked for. Only the show last asked for is kept.
class StageSet
{
public:
    static StageSet &of(Show show, int count);
    /// Drops the show that is kept, after work that cannot be undone.
    static void forget();

    const Scene &scene() const { return m_scene; }
    Stage &stage(Contestant contestant);
    Stage &reference() { return stage(Contestant::Library); }

    /// What all contestants show when \a view is asked for: the library places views at whole pixels of its own.
    View agreedView(const View &view);
    /// The top-left part at 1:1.
    View closeUp() { return agreedView(View()); }
    /// All of the scene.
    View overview() { return agreedView(centered(overviewScale())); }
    double overviewScale() const;
    /// The middle of the scene.
    View centered(double scale) const;

private:
    static std::unique_ptr<StageSet> s_current;

    StageSet(Show show, int count);

    const Show m_show;
    const int m_count;
    Scene m_scene;
    std::array<std::unique_ptr<Stage>, AllContestants.size()> m_stages;
};

/// Shows \a view and has all of it painted.
void show(Stage &stage, const View &view);

} // namespace Bench
