// The look-up of directions beside a plain copy of the same bytes, and random directions beside their draws alone.

#include <OVRIXMath/Geometry/3d/UniformOrientations3d.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <boost/random/uniform_real_distribution.hpp>

#include <support/Comparison.h>
#include <vector>

namespace ovrix
{
namespace math
{

namespace
{

using bench::compareWithPeer;

/// Beside a new vector that is filled with the same directions, without a lock.
void lookUpDirections(benchmark::State& state)
{
    const auto nbDirections = static_cast<unsigned long>(state.range(0));
    const std::vector<PhiTheta> directions = solveThomsonProblem(nbDirections);
    compareWithPeer(
        state, [&] { benchmark::DoNotOptimize(computeUniformlyDistOrientations3d(nbDirections).data()); },
        [&] { benchmark::DoNotOptimize(std::vector<PhiTheta>(directions.begin(), directions.end()).data()); }, 1000);
}
BENCHMARK(lookUpDirections)
    ->Arg(10)
    ->Arg(100)
    ->Arg(400)
    ->UseManualTime()
    ->Iterations(2000)
    ->Unit(benchmark::kNanosecond);

/// Beside the two draws of each direction, into a new vector of as many numbers; what is left is the arccosine.
void drawDirections(benchmark::State& state)
{
    const auto nbDirections = static_cast<unsigned long>(state.range(0));
    compareWithPeer(
        state, [&] { benchmark::DoNotOptimize(computeUniformlyDistOrientations3d(nbDirections).data()); },
        [&]
        {
            std::vector<double> draws(2 * nbDirections);
            const boost::random::uniform_real_distribution<double> unit(0.0, 1.0);
            boost::random::mt19937& generator = RandomUniformGenerator::getGen();
            for (double& draw : draws)
                draw = unit(generator);
            benchmark::DoNotOptimize(draws.data());
        },
        10);
}
BENCHMARK(drawDirections)->Arg(401)->Arg(10000)->UseManualTime()->Iterations(500)->Unit(benchmark::kMicrosecond);

} // namespace

} // namespace math
} // namespace ovrix
