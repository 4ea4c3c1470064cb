#pragma once

#include <OVRIXMath/Types.h>

#include <cmath>
#include <cstddef>

/// @file
/// Samples of the clustering tasks, by formulas that peers.py has too.

namespace ovrix
{
namespace bench
{

/// A number in [0, 1[ that looks random: the fraction of a multiple of an irrational one.
inline double scatter(std::size_t i, double irrational)
{
    const double multiple = static_cast<double>(i + 1) * irrational;
    return multiple - std::floor(multiple);
}

/// Samples in the unit cube of some dimension.
inline math::clustering::VectorColl makeCube(std::size_t nbSamples, std::size_t dimension)
{
    math::clustering::VectorColl samples(nbSamples, math::Vector(dimension));
    for (std::size_t i = 0; i < nbSamples; ++i)
    {
        for (std::size_t j = 0; j < dimension; ++j)
            samples[i][j] = scatter(i * dimension + j, 0.6180339887498949);
    }
    return samples;
}

/// Two rings about the origin, of radius 1 and 3.
inline math::clustering::VectorColl makeRings(std::size_t nbSamples)
{
    math::clustering::VectorColl samples(nbSamples, math::Vector(2));
    for (std::size_t i = 0; i < nbSamples; ++i)
    {
        const double radius = (i % 2 == 0 ? 1.0 : 3.0) + 0.3 * scatter(i, 0.4142135623730951);
        const double angle = 6.283185307179586 * scatter(i, 0.6180339887498949);
        samples[i][0] = radius * std::cos(angle);
        samples[i][1] = radius * std::sin(angle);
    }
    return samples;
}

} // namespace bench
} // namespace ovrix
