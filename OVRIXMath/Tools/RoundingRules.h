#pragma once

#include <OVRIXUtil/NumericLimits.h>

#include <limits>
#include <type_traits>

/// @file
/// The arithmetic behind round() and saturatedRound() of MathUtils.h, inline for the library's own loops over points
/// and pixels. Not part of the interface.

namespace ovrix
{
namespace math
{
namespace details
{

/// `w` truncated toward zero to the integer type T. A value outside of the range of T gives the nearest end of the
/// range, NaN gives 0.
template <class T, class U>
inline T truncateTo(U w)
{
    // The values between the two ends truncate to a T. Where `s_min - 1` is no U, `lower` is `s_min` itself, which
    // gives the same result.
    constexpr U lower = static_cast<U>(NumericLimits<T>::s_min) - 1;
    constexpr U upper = static_cast<U>(NumericLimits<T>::s_max / 2 + 1) * 2;
    if (w > lower && w < upper)
        return static_cast<T>(w);
    if (w >= upper)
        return NumericLimits<T>::s_max;
    return w <= lower ? NumericLimits<T>::s_min : T(0);
}

/// round() of MathUtils.h.
template <class T, class U>
inline T roundTo(U v)
{
    static_assert(std::numeric_limits<U>::is_iec559, "a floating value that is too large for T converts to infinity");
    if constexpr (std::is_floating_point<T>::value)
        return static_cast<T>(v);
    else
    {
        const U w = v + (v >= 0 ? U(0.5) : U(-0.5));
        if constexpr (std::is_same<T, unsigned int>::value)
            return static_cast<unsigned int>(truncateTo<long>(w)); // keeps the low 32 bits
        else
            return truncateTo<T>(w);
    }
}

/// saturatedRound() of MathUtils.h.
template <class T, class U>
inline T saturatedRoundTo(U v)
{
    // Every float lies in the range of double.
    constexpr bool bAlwaysInRange = std::is_same<T, double>::value && std::is_same<U, float>::value;
    if constexpr (!bAlwaysInRange)
    {
        if (v > static_cast<U>(NumericLimits<T>::s_max))
            return NumericLimits<T>::s_max;
        if (static_cast<U>(NumericLimits<T>::s_min) > v)
            return NumericLimits<T>::s_min;
    }
    return roundTo<T>(v);
}

} // namespace details
} // namespace math
} // namespace ovrix
