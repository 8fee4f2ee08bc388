#pragma once

#include "Proof.h"

#include <benchmark/benchmark.h>

#include <ctime>
#include <functional>
#include <string>
#include <vector>

namespace Bench {

/// How many figures the workloads are run with.
struct Sizes
{
    std::vector<int> usual;
    /// For the workloads that make sense with a million.
    std::vector<int> extended;
    std::vector<int> chips;
    std::vector<int> links;
};

/// One row of the report for each of its sizes.
struct Workload
{
    std::string name;
    benchmark::TimeUnit unit;
    std::vector<int> sizes;
    std::vector<Contestant> contestants;
    /// Run once before the contestants are timed.
    std::function<Objection(int count)> prove;
    /// Times the contestant with \a count figures; calls SetIterationTime() when \c timesItself.
    std::function<void(benchmark::State &state, Contestant contestant, int count)> run;
    bool timesItself = true;
    /// Preparing one iteration takes as long as timing it.
    bool isDestructive = false;
};

extern const std::vector<Contestant> everybody;
/// Those who know what lies where.
extern const std::vector<Contestant> searchers;

// The families

std::vector<Workload> buildWorkloads(const Sizes &sizes);
std::vector<Workload> paintWorkloads(const Sizes &sizes);
std::vector<Workload> chipWorkloads(const Sizes &sizes);
std::vector<Workload> searchWorkloads(const Sizes &sizes);
std::vector<Workload> moveWorkloads(const Sizes &sizes);
std::vector<Workload> routingWorkloads(const Sizes &sizes);

/// Registers all workloads, smaller sizes first, so that scenes of one size are shared.
void registerWorkloads(const Sizes &sizes);
/// True when a proof failed.
bool anyObjection();

/// The processor time that this program, which has one thread, has used. What else runs on the machine does not count.
inline double processorSeconds()
{
    timespec now {};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return double(now.tv_sec) + double(now.tv_nsec) * 1e-9;
}

/// Reports the time that \a work takes as that of one iteration.
template <typename Work>
void timed(benchmark::State &state, Work work)
{
    const double start = processorSeconds();
    work();
    state.SetIterationTime(processorSeconds() - start);
}

} // namespace Bench
