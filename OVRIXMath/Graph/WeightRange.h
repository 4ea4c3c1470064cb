#pragma once

#include <cstddef>

namespace ovrix
{
namespace math
{
namespace details
{

/// What the weights of an assignment tell about the rounding of sums of labels and weights.
///
/// Labels stay within three times the largest magnitude of a weight, and sums within eight times.
struct WeightRange
{
    WeightRange(const double* weights, std::size_t count);

    double magnitude; ///< largest magnitude of a weight; infinite if a weight is not a number
    bool bFinite;     ///< whether no sum can overflow
    bool bExact;      ///< whether no sum is rounded: all weights are multiples of one power of two, below 2^50 of it
};

} // namespace details
} // namespace math
} // namespace ovrix
