#pragma once

#include <type_traits>

/// @file
/// Sums, differences and products in the arithmetic of an element type: integers wrap around at the width of the type,
/// `float` and `double` are plain. Not part of the interface.

namespace ovrix
{
namespace math
{
namespace details
{

/// The unsigned type that wraps like T: that of the promoted T, so that 16-bit products do not overflow in `int`.
template <class T>
using Modular = std::make_unsigned_t<decltype(T() + T())>;

template <class T>
inline T wrappingAdd(T a, T b)
{
    if constexpr (std::is_floating_point<T>::value)
        return a + b;
    else
        return static_cast<T>(static_cast<Modular<T>>(a) + static_cast<Modular<T>>(b));
}

template <class T>
inline T wrappingSubtract(T a, T b)
{
    if constexpr (std::is_floating_point<T>::value)
        return a - b;
    else
        return static_cast<T>(static_cast<Modular<T>>(a) - static_cast<Modular<T>>(b));
}

template <class T>
inline T wrappingMultiply(T a, T b)
{
    if constexpr (std::is_floating_point<T>::value)
        return a * b;
    else
        return static_cast<T>(static_cast<Modular<T>>(a) * static_cast<Modular<T>>(b));
}

} // namespace details
} // namespace math
} // namespace ovrix
