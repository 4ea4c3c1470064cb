#pragma once

#include <OVRIXMath/Types.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <random>

namespace ovrix
{
namespace test
{

/// Samples around two circles about the origin: of radius 1 at even places, of radius 3 at odd ones.
inline math::clustering::VectorColl makeRings(std::size_t nbSamples, unsigned int seed)
{
    std::mt19937 generator(seed);
    std::uniform_real_distribution<double> angle(0.0, 6.283185307179586);
    std::normal_distribution<double> noise(0.0, 0.1);
    math::clustering::VectorColl samples(nbSamples, math::Vector(2));
    for (std::size_t i = 0; i < nbSamples; ++i)
    {
        const double radius = i % 2 == 0 ? 1.0 : 3.0;
        const double phi = angle(generator);
        samples[i][0] = radius * std::cos(phi) + noise(generator);
        samples[i][1] = radius * std::sin(phi) + noise(generator);
    }
    return samples;
}

/// Samples along two half circles of radius 1 that reach into each other: of the upper one, about (0, 0), at even
/// places, of the lower one, about (1, 0.5), at odd ones.
inline math::clustering::VectorColl makeMoons(std::size_t nbSamples, unsigned int seed)
{
    std::mt19937 generator(seed);
    std::uniform_real_distribution<double> angle(0.0, 3.141592653589793);
    std::normal_distribution<double> noise(0.0, 0.05);
    math::clustering::VectorColl samples(nbSamples, math::Vector(2));
    for (std::size_t i = 0; i < nbSamples; ++i)
    {
        const double phi = angle(generator);
        const double x = std::cos(phi);
        const double y = std::sin(phi);
        samples[i][0] = (i % 2 == 0 ? x : 1.0 - x) + noise(generator);
        samples[i][1] = (i % 2 == 0 ? y : 0.5 - y) + noise(generator);
    }
    return samples;
}

/// How many of the labels 0 and 1 tell even from odd places, whichever has which label.
inline std::size_t countAlternateLabels(const math::clustering::UInt32Vector& labels)
{
    std::size_t nbEqual = 0;
    for (std::size_t i = 0; i < labels.size(); ++i)
        nbEqual += labels[i] == i % 2 ? 1 : 0;
    return std::max(nbEqual, labels.size() - nbEqual);
}

} // namespace test
} // namespace ovrix
