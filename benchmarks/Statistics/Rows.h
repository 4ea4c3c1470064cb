#pragma once

#include <benchmark/benchmark.h>

#include <stdexcept>

/// @file
/// What the rows of long sequences share, beside the sequences themselves.

namespace ovrix
{
namespace bench
{

/// Makes a row of so many rounds, in each of which the task and its peer run once, see compareWithPeer().
template <int NbRounds>
void inRounds(benchmark::internal::Benchmark* row)
{
    row->Iterations(NbRounds)->UseManualTime()->Unit(benchmark::kMillisecond);
}

/// Both give the same, or the comparison means nothing.
template <class Result>
void checkSame(const Result& result, const Result& resultOfPeer)
{
    if (result != resultOfPeer)
        throw std::logic_error("the peer gives another result");
}

/// The same for a collection, whose size the row tells.
template <class Found>
void checkSameFound(benchmark::State& state, const Found& found, const Found& foundByPeer)
{
    checkSame(found, foundByPeer);
    state.counters["found"] = static_cast<double>(found.size());
}

} // namespace bench
} // namespace ovrix
