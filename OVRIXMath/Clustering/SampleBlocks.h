#pragma once

#include <OVRIXMath/VectorPack.h>

#include <algorithm>
#include <cstddef>

/// @file
/// Squared distances of several samples at once. For the library's own sources.
///
/// Each distance is the sum of the squared differences in the order of the coordinates; what the processor does at the
/// same time are the sums of several samples.

namespace ovrix
{
namespace math
{
namespace clustering
{
namespace details
{

/// Number of samples of a block. The coordinates of a block stand side by side: the first of all its samples, then the
/// second of all, and so on.
constexpr std::size_t g_blockSize = 16;

/// Packs of samples whose sums run at the same time, so that no addition waits for the one before it.
constexpr std::size_t g_nbPacksAtOnce = 4;

/// Lays out samples as a block.
///
/// @param nbSamples in [1, g_blockSize]; the places of further ones repeat the last
/// @param sampleOf gives the coordinates of the sample at a place
template <class SampleOf>
void fillBlock(double* block, std::size_t nbSamples, std::size_t dimension, const SampleOf& sampleOf)
{
    for (std::size_t s = 0; s < g_blockSize; ++s)
    {
        const double* const sample = sampleOf(std::min(s, nbSamples - 1));
        for (std::size_t j = 0; j < dimension; ++j)
            block[j * g_blockSize + s] = sample[j];
    }
}

/// Adds the squared differences to a point, coordinate by coordinate, to the sums of some samples of a block.
///
/// @param samples first coordinate of the first of `g_nbPacksAtOnce * Lanes` samples
template <int Lanes>
[[gnu::always_inline]] inline void addSquaredDifferences(typename math::details::Pack<Lanes>::Reals* sums,
                                                         const double* samples, const double* point,
                                                         std::size_t dimension)
{
    using Reals = typename math::details::Pack<Lanes>::Reals;
    Reals sum0 = sums[0];
    Reals sum1 = sums[1];
    Reals sum2 = sums[2];
    Reals sum3 = sums[3];
    for (std::size_t j = 0; j < dimension; ++j, samples += g_blockSize)
    {
        Reals difference0;
        Reals difference1;
        Reals difference2;
        Reals difference3;
        math::details::loadPack(difference0, samples);
        math::details::loadPack(difference1, samples + Lanes);
        math::details::loadPack(difference2, samples + 2 * Lanes);
        math::details::loadPack(difference3, samples + 3 * Lanes);
        difference0 = point[j] - difference0;
        difference1 = point[j] - difference1;
        difference2 = point[j] - difference2;
        difference3 = point[j] - difference3;
        sum0 += difference0 * difference0;
        sum1 += difference1 * difference1;
        sum2 += difference2 * difference2;
        sum3 += difference3 * difference3;
    }
    sums[0] = sum0;
    sums[1] = sum1;
    sums[2] = sum2;
    sums[3] = sum3;
}

} // namespace details
} // namespace clustering
} // namespace math
} // namespace ovrix
