// Munkres beside dlib's max_cost_assignment, which works on integers: those of the table, or a million times the reals.

#include "AssignmentTables.h"

#include <dlib/optimization/max_cost_assignment.h>
#include <functional>

namespace ovrix
{
namespace bench
{

namespace
{

void compareWithDlib(benchmark::State& state, std::vector<double> (*makeTable)(std::size_t), double scale)
{
    const std::size_t n = static_cast<std::size_t>(state.range(0));
    const std::vector<double> weights = makeTable(n);
    const long size = static_cast<long>(n);
    dlib::matrix<long> table(size, size);
    for (long r = 0; r < size; ++r)
    {
        for (long c = 0; c < size; ++c)
            table(r, c) = std::lround(scale * weights[static_cast<std::size_t>(r * size + c)]);
    }
    MunkresTask task(weights, n);
    std::vector<long> assignment;
    compareWithPeer(state, std::ref(task), [&] { assignment = dlib::max_cost_assignment(table); });
    const double peerTotal = static_cast<double>(dlib::assignment_cost(table, assignment)) / scale;
    state.counters["total"] = task.getTotal();
    // Half a unit of rounding for each row of both assignments.
    if (std::abs(task.getTotal() - peerTotal) > static_cast<double>(n) / scale)
        state.SkipWithError("The totals differ");
}

void munkresRandomDlib(benchmark::State& state)
{
    compareWithDlib(state, makeRandomTable, 1e6);
}
BENCHMARK(munkresRandomDlib)->Arg(200)->Arg(1000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(munkresRandomDlib)->Arg(2000)->UseManualTime()->Iterations(1)->Unit(benchmark::kMillisecond);

void munkresDistancesDlib(benchmark::State& state)
{
    compareWithDlib(state, makeDistanceTable, 1e6);
}
BENCHMARK(munkresDistancesDlib)->Arg(200)->Arg(1000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(munkresDistancesDlib)->Arg(2000)->UseManualTime()->Iterations(1)->Unit(benchmark::kMillisecond);

void munkresProductsDlib(benchmark::State& state)
{
    compareWithDlib(state, makeProductTable, 1.0);
}
BENCHMARK(munkresProductsDlib)->Arg(200)->Arg(1000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(munkresProductsDlib)->Arg(2000)->UseManualTime()->Iterations(1)->Unit(benchmark::kMillisecond);

void munkresSmallIntegersDlib(benchmark::State& state)
{
    compareWithDlib(state, makeSmallIntegerTable, 1.0);
}
BENCHMARK(munkresSmallIntegersDlib)->Arg(200)->Arg(1000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(munkresSmallIntegersDlib)->Arg(2000)->UseManualTime()->Iterations(1)->Unit(benchmark::kMillisecond);

void munkresTiesDlib(benchmark::State& state)
{
    compareWithDlib(state, makeTiedTable, 1.0);
}
BENCHMARK(munkresTiesDlib)->Arg(200)->Arg(1000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(munkresTiesDlib)->Arg(2000)->UseManualTime()->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace bench
} // namespace ovrix
