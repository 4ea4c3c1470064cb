// Munkres on square tables of several kinds. DlibPeer.cpp sets it beside dlib; peers.py measures the same tables in
// SciPy.

#include "AssignmentTables.h"

namespace ovrix
{
namespace bench
{

namespace
{

using MakeTable = std::vector<double> (*)(std::size_t);

template <MakeTable makeTable>
void munkres(benchmark::State& state)
{
    const std::size_t n = static_cast<std::size_t>(state.range(0));
    MunkresTask task(makeTable(n), n);
    for (auto _ : state)
        task();
    const std::size_t nbAllocations = getNbAllocations();
    task();
    state.counters["allocs"] = static_cast<double>(getNbAllocations() - nbAllocations);
    state.counters["total"] = task.getTotal();
}

void munkresRandom(benchmark::State& state)
{
    munkres<makeRandomTable>(state);
}
BENCHMARK(munkresRandom)->Arg(200)->Arg(1000)->Arg(2000)->Unit(benchmark::kMillisecond);

void munkresDistances(benchmark::State& state)
{
    munkres<makeDistanceTable>(state);
}
BENCHMARK(munkresDistances)->Arg(200)->Arg(1000)->Arg(2000)->Unit(benchmark::kMillisecond);

void munkresProducts(benchmark::State& state)
{
    munkres<makeProductTable>(state);
}
BENCHMARK(munkresProducts)->Arg(200)->Arg(1000)->Arg(2000)->Unit(benchmark::kMillisecond);

void munkresSmallIntegers(benchmark::State& state)
{
    munkres<makeSmallIntegerTable>(state);
}
BENCHMARK(munkresSmallIntegers)->Arg(200)->Arg(1000)->Arg(2000)->Unit(benchmark::kMillisecond);

void munkresTies(benchmark::State& state)
{
    munkres<makeTiedTable>(state);
}
BENCHMARK(munkresTies)->Arg(200)->Arg(1000)->Arg(2000)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace bench
} // namespace ovrix
