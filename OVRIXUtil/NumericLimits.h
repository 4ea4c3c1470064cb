#pragma once

#include <limits>
#include <type_traits>

namespace ovrix
{

/// Range of an arithmetic type, as constants.
///
/// For a floating type `s_min` is the most negative finite value, not the smallest positive one, so that a search for a
/// maximum can start from it.
template <class T, bool = std::is_floating_point<T>::value>
struct NumericLimits
{
    static constexpr T s_min = std::numeric_limits<T>::lowest(); ///< Smallest value.
    static constexpr T s_max = std::numeric_limits<T>::max();    ///< Largest value.
};

/// NumericLimits of a floating type.
template <class T>
struct NumericLimits<T, true>
{
    static_assert(sizeof(T) <= sizeof(double), "s_sqrt_eps is given for float and double");

    static constexpr T s_min = std::numeric_limits<T>::lowest(); ///< Most negative finite value.
    static constexpr T s_max = std::numeric_limits<T>::max();    ///< Largest finite value.

    /// Machine epsilon: the distance from 1 to the next larger value.
    static constexpr T s_eps = std::numeric_limits<T>::epsilon();

    /// Square root of machine epsilon, the common tolerance of the toolkit.
    static constexpr T s_sqrt_eps = sizeof(T) == sizeof(float) ? T(0x1.6a09e6p-12) : T(0x1p-26);
};

} // namespace ovrix
