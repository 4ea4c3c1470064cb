#pragma once

#include <OVRIXMath/Clustering/ClusteringUtils.h>
#include <OVRIXMath/Types.h>

#include <benchmark/benchmark.h>

#include <cstddef>
#include <support/Comparison.h>
#include <support/RandomNumbers.h>
#include <utility>

/// @file
/// The tasks of k-means, by formulas that peers.py has too.

namespace ovrix
{
namespace bench
{

constexpr std::size_t g_nbKMeansSamples = 100000;
constexpr std::size_t g_kMeansDimension = 16;
constexpr std::size_t g_nbKMeansClusters = 64;

/// Samples all over the unit cube.
inline math::clustering::VectorColl makeUniform(std::size_t nbSamples, std::size_t dimension)
{
    RandomNumbers numbers(1);
    math::clustering::VectorColl samples(nbSamples, math::Vector(dimension));
    for (math::Vector& sample : samples)
    {
        for (double& coordinate : sample)
            coordinate = numbers.uniform();
    }
    return samples;
}

/// Samples around 64 points of the unit cube, in turns, about 0.1 off in each coordinate.
inline math::clustering::VectorColl makeBlobs(std::size_t nbSamples, std::size_t dimension)
{
    const math::clustering::VectorColl middles = makeUniform(g_nbKMeansClusters, dimension);
    math::clustering::VectorColl samples = makeUniform(nbSamples, dimension);
    for (std::size_t i = 0; i < nbSamples; ++i)
    {
        for (std::size_t j = 0; j < dimension; ++j)
            samples[i][j] = middles[i % g_nbKMeansClusters][j] + 0.4 * (samples[i][j] - 0.5);
    }
    return samples;
}

/// Every other one of the first samples: in the blobs, two for one half of them and none for the other.
inline math::clustering::VectorColl makeFirstCenters(const math::clustering::VectorColl& data)
{
    math::clustering::VectorColl centers;
    for (std::size_t k = 0; k < g_nbKMeansClusters; ++k)
        centers.push_back(data[2 * k]);
    return centers;
}

/// Times iterations beside a peer, and tells the time of one.
///
/// @param peer called with the samples, the centres and the number of iterations
template <class Peer>
void compareKMeans(benchmark::State& state, const math::clustering::VectorColl& data, const Peer& peer)
{
    const ovUInt32 nbMaxIteration = static_cast<ovUInt32>(state.range(0));
    const math::clustering::VectorColl firstCenters = makeFirstCenters(data);
    ovUInt32 nbIteration = 0;
    compareWithPeer(
        state,
        [&]
        {
            math::clustering::VectorColl centers = firstCenters;
            math::clustering::UInt32Vector assignments;
            nbIteration = math::clustering::computeKMeansAttempt(data, nbMaxIteration, centers, assignments);
            benchmark::DoNotOptimize(assignments.data());
        },
        [&] { peer(data, firstCenters, nbMaxIteration); });
    state.counters["iterations"] = nbIteration;
    state.counters["perIteration"] = state.counters["median"] / nbIteration;
}

template <class Peer>
void compareKMeansOnUniform(benchmark::State& state, const Peer& peer)
{
    compareKMeans(state, makeUniform(g_nbKMeansSamples, g_kMeansDimension), peer);
}

template <class Peer>
void compareKMeansOnBlobs(benchmark::State& state, const Peer& peer)
{
    compareKMeans(state, makeBlobs(g_nbKMeansSamples, g_kMeansDimension), peer);
}

} // namespace bench
} // namespace ovrix
