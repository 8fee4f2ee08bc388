#pragma once

#include <array>
#include <iterator>
#include <map>

namespace Vantrel::Pictel {

/// Rows or columns in use. Neighbours are two apart, so even and odd lines never meet.
///
/// Runs of neighbours are kept as such, so that the free line beside a run is found without a look at each line in it.
class LineSet
{
    /// The last line of each run by its first one.
    using Runs = std::map<int, int>;

    Runs &runsOf(int line) { return m_runs[line % 2 != 0]; }
    const Runs &runsOf(int line) const { return m_runs[line % 2 != 0]; }

    /// The last run that begins at or below \a line; the end when there is none.
    template <typename AnyRuns>
    static auto runBelow(AnyRuns &runs, int line)
    {
        const auto next = runs.upper_bound(line);
        return next == runs.begin() ? runs.end() : std::prev(next);
    }

public:
    bool contains(int line) const { return firstFreeFrom(line) != line; }

    void insert(int line)
    {
        if (contains(line))
            return;
        Runs &runs = runsOf(line);
        const auto above = runs.find(line + 2);
        const int last = above == runs.end() ? line : above->second;
        if (above != runs.end())
            runs.erase(above);
        const auto below = runBelow(runs, line);
        if (below != runs.end() && below->second == line - 2)
            below->second = last;
        else
            runs.emplace(line, last);
    }

    void remove(int line)
    {
        Runs &runs = runsOf(line);
        const auto run = runBelow(runs, line);
        if (run == runs.end() || run->second < line)
            return;
        const int last = run->second;
        if (run->first == line)
            runs.erase(run);
        else
            run->second = line - 2;
        if (last != line)
            runs.emplace(line + 2, last);
    }

    /// The first line that is not in use: \a line itself, or the one above its run.
    long long firstFreeFrom(int line) const
    {
        const auto run = runBelow(runsOf(line), line);
        const bool isUsed = run != runsOf(line).end() && run->second >= line;
        return isUsed ? run->second + 2LL : line;
    }

    /// The same downwards.
    long long lastFreeUpTo(int line) const
    {
        const auto run = runBelow(runsOf(line), line);
        const bool isUsed = run != runsOf(line).end() && run->second >= line;
        return isUsed ? run->first - 2LL : line;
    }

private:
    std::array<Runs, 2> m_runs;
};

} // namespace Vantrel::Pictel
