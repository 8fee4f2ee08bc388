#include "Workload.h"

#include <algorithm>
#include <cstdio>
#include <map>
#include <set>

namespace Bench {

namespace {

// From this many figures on, one destructive iteration per repetition has to do.
constexpr int ManyFigures = 100000;

bool hasFailed = false;

const Objection &proven(const Workload &workload, int count)
{
    static std::map<std::string, Objection> proofs;
    const std::string key = workload.name + '/' + std::to_string(count);
    const auto known = proofs.find(key);
    if (known != proofs.end())
        return known->second;
    const Objection &objection = proofs[key] = workload.prove(count);
    if (!objection.isEmpty())
        hasFailed = true;
    std::fprintf(stderr, "%s: %s\n", key.c_str(), objection.isEmpty() ? "proven" : qPrintable(objection));
    return objection;
}

void registerRow(const Workload &workload, int count, Contestant contestant)
{
    const std::string name = workload.name + '/' + std::to_string(count) + '/' + nameOf(contestant);
    auto *row = benchmark::RegisterBenchmark(name.c_str(), [workload, count, contestant](benchmark::State &state) {
        const Objection &objection = proven(workload, count);
        if (objection.isEmpty())
            workload.run(state, contestant, count);
        else
            state.SkipWithError(qPrintable(objection));
    });
    row->Unit(workload.unit);
    if (workload.timesItself)
        row->UseManualTime();
    if (workload.isDestructive && count >= ManyFigures)
        row->Iterations(1);
}

void registerSize(const std::vector<Workload> &workloads, int count)
{
    for (const Workload &workload : workloads) {
        if (std::find(workload.sizes.begin(), workload.sizes.end(), count) == workload.sizes.end())
            continue;
        for (const Contestant contestant : workload.contestants)
            registerRow(workload, count, contestant);
    }
}

} // namespace

const std::vector<Contestant> everybody(AllContestants.begin(), AllContestants.end());
const std::vector<Contestant> searchers
    = {Contestant::Library, Contestant::GraphicsViewBsp, Contestant::GraphicsViewNoIndex};

void registerWorkloads(const Sizes &sizes)
{
    std::vector<Workload> workloads;
    for (const auto family :
         {buildWorkloads, searchWorkloads, paintWorkloads, moveWorkloads, routingWorkloads, chipWorkloads}) {
        for (Workload &workload : family(sizes))
            workloads.push_back(std::move(workload));
    }
    std::set<int> counts;
    for (const Workload &workload : workloads)
        counts.insert(workload.sizes.begin(), workload.sizes.end());
    for (const int count : counts)
        registerSize(workloads, count);
}

bool anyObjection()
{
    return hasFailed;
}

} // namespace Bench
