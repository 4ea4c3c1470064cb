#pragma once

#include <OVRIXMath/Export.h>

#include <cstddef>

/// @file
/// The sums over coordinates that kernels are functions of. For the library's own sources.
///
/// A sum starts from 0 and runs in the order of the coordinates.

namespace ovrix
{
namespace math
{
namespace clustering
{
namespace details
{

/// The terms of a scalar product. Exported, like those below, since the kernels' base has them as a template argument.
struct OVRIXMATH_EXPORT Product
{
    /// @tparam Number a number, or several side by side
    template <class Number>
    [[gnu::always_inline]] static inline void add(Number& sum, double factor, const Number& number)
    {
        sum += factor * number;
    }
};

/// The terms of a squared distance.
struct OVRIXMATH_EXPORT SquaredDifference
{
    /// @tparam Number a number, or several side by side
    template <class Number>
    [[gnu::always_inline]] static inline void add(Number& sum, double factor, const Number& number)
    {
        const Number difference = factor - number;
        sum += difference * difference;
    }
};

/// The sum of the terms of `a` and `b`.
template <class Term>
double sumTerms(const double* a, const double* b, std::size_t size)
{
    double sum = 0.0;
    for (std::size_t j = 0; j < size; ++j)
        Term::add(sum, a[j], b[j]);
    return sum;
}

} // namespace details
} // namespace clustering
} // namespace math
} // namespace ovrix
