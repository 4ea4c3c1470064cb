#pragma once

#include <OVRIXMath/Types.h>

#include <algorithm>
#include <cmath>
#include <cstddef>

/// @file
/// The preconditions of clusterings: samples from which their seeding returns.

namespace ovrix
{
namespace fuzz
{

/// Whether KMeansClustering can seed from the samples, however its draws fall: the sum of the squared distances of all
/// samples to any one of them is finite and above 0.
inline bool canSeedFrom(const math::clustering::VectorColl& data)
{
    return std::all_of(data.begin(), data.end(),
                       [&data](const math::Vector& seed)
                       {
                           double sum = 0.0;
                           for (const math::Vector& sample : data)
                           {
                               for (std::size_t j = 0; j < seed.size(); ++j)
                                   sum += (sample[j] - seed[j]) * (sample[j] - seed[j]);
                           }
                           return sum > 0.0 && std::isfinite(sum);
                       });
}

/// Whether KernelKMeansClustering can seed from the samples, however its draws fall: all distances in feature space are
/// finite, those of different samples are above 0, those of equal ones are 0, and at least `nbClusters` samples differ.
template <class KernelType>
bool canSeedFrom(const math::clustering::VectorColl& data, const KernelType& kernel, std::size_t nbClusters)
{
    constexpr double largest = 1e300; // sums of such distances are finite
    std::size_t nbDifferent = 0;
    for (std::size_t i = 0; i < data.size(); ++i)
    {
        bool bNew = true;
        for (std::size_t j = 0; j < data.size(); ++j)
        {
            const bool bEqual = std::equal(data[i].begin(), data[i].end(), data[j].begin());
            const double distance = kernel(data[i]) + kernel(data[j]) - 2 * kernel(data[i], data[j]);
            if (!(bEqual ? distance == 0.0 : distance > 0.0 && distance < largest))
                return false;
            bNew = bNew && !(bEqual && j < i);
        }
        nbDifferent += bNew ? 1 : 0;
    }
    return nbDifferent >= nbClusters;
}

} // namespace fuzz
} // namespace ovrix
