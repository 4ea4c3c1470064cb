#pragma once

#include "PlainTransforms.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <memory>
#include <random>
#include <string>
#include <support/Comparison.h>
#include <type_traits>
#include <vector>

/// @file
/// What the comparisons of apply() share: the points and the loops over them.

namespace ovrix
{
namespace bench
{

constexpr std::size_t g_nbPoints = 1000000;

template <class Transform>
constexpr bool g_bPlanar = std::is_base_of<math::transform::BaseGeometricTransform2d, Transform>::value;

/// Coordinates of g_nbPoints points, one after the other.
inline std::vector<double> drawPoints(std::size_t dimension)
{
    std::mt19937 generator(1);
    std::uniform_real_distribution<double> coordinate(-1.0, 1.0);
    std::vector<double> points(dimension * g_nbPoints);
    for (double& value : points)
        value = coordinate(generator);
    return points;
}

/// Takes all points of the plane in place; `Transform` has an apply() for one.
template <class Transform>
[[gnu::noinline]] void applyToPlane(const Transform& transform, std::vector<double>& points)
{
    double* const coordinates = points.data();
    for (std::size_t i = 0; i < 2 * g_nbPoints; i += 2)
        transform.apply(coordinates[i], coordinates[i + 1]);
    benchmark::DoNotOptimize(coordinates);
}

/// Takes all points of space in place; `Transform` has an apply() for one.
template <class Transform>
[[gnu::noinline]] void applyToSpace(const Transform& transform, std::vector<double>& points)
{
    double* const coordinates = points.data();
    for (std::size_t i = 0; i < 3 * g_nbPoints; i += 3)
        transform.apply(coordinates[i], coordinates[i + 1], coordinates[i + 2]);
    benchmark::DoNotOptimize(coordinates);
}

/// The transform as a caller has it who knows its base alone.
template <class Base>
const Base& hideType(const Base& base)
{
    const Base* pBase = &base;
    benchmark::DoNotOptimize(pBase);
    return *pBase;
}

/// Times apply() of a transform on all points beside a peer.
///
/// Both have the parameters of the default state, so that points stay where they are however often they pass.
///
/// @param peer transforms the points in place
template <class Transform, class Peer>
void compareApply(benchmark::State& state, Peer peer)
{
    const Transform transform;
    std::vector<double> points = drawPoints(g_bPlanar<Transform> ? 2 : 3);
    const auto task = [&]
    {
        if constexpr (g_bPlanar<Transform>)
            applyToPlane(hideType<math::transform::BaseGeometricTransform2d>(transform), points);
        else
            applyToSpace(hideType<math::transform::BaseGeometricTransform3d>(transform), points);
    };
    compareWithPeer(state, task, [&] { peer(points); });
}

/// Registers a row "apply/class/peer".
template <class Function>
void registerApply(const char* className, const char* peerName, Function function)
{
    benchmark::RegisterBenchmark((std::string("apply/") + className + "/" + peerName).c_str(), function)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
}

} // namespace bench
} // namespace ovrix
