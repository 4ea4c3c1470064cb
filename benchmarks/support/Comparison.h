#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <vector>

namespace ovrix
{
namespace bench
{

/// Number of calls of `operator new` so far, in the whole program.
std::size_t getNbAllocations();

namespace details
{

template <class Task>
double timeOnce(Task& task, int nbRepetitions)
{
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < nbRepetitions; ++i)
        task();
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
    return elapsed.count() / nbRepetitions;
}

inline double median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

} // namespace details

/// Times a task and its peer in turns, so that both meet the same state of the machine.
///
/// The row's time is the task's mean; its counters give the medians of both, in seconds, the ratio of the medians, and
/// the allocations of one call of the task. The row is to be registered with `UseManualTime`.
///
/// @param nbRepetitions calls per measurement, so that the clock's own cost does not count
template <class Task, class Peer>
void compareWithPeer(benchmark::State& state, Task task, Peer peer, int nbRepetitions = 1)
{
    task();
    peer();
    std::vector<double> taskTimes;
    std::vector<double> peerTimes;
    std::size_t nbAllocations = 0;
    for (auto _ : state)
    {
        const std::size_t nbAllocationsBefore = getNbAllocations();
        const double seconds = details::timeOnce(task, nbRepetitions);
        nbAllocations = getNbAllocations() - nbAllocationsBefore;
        state.SetIterationTime(seconds);
        taskTimes.push_back(seconds);
        peerTimes.push_back(details::timeOnce(peer, nbRepetitions));
    }
    const double taskMedian = details::median(taskTimes);
    const double peerMedian = details::median(peerTimes);
    state.counters["median"] = taskMedian;
    state.counters["peer"] = peerMedian;
    state.counters["ratio"] = taskMedian / peerMedian;
    state.counters["allocs"] = static_cast<double>(nbAllocations) / nbRepetitions;
}

} // namespace bench
} // namespace ovrix
