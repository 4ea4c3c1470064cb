#pragma once

#include <OVRIXMath/Types.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <type_traits>

/// @file
/// Points and directions as arrays of coordinates, for the bodies of the primitives. Sums run in the order of the axes.

namespace ovrix
{
namespace math
{
namespace details
{

/// Coordinates of a point or a direction.
template <class T, std::size_t Size>
using Coordinates = std::array<T, Size>;

/// Calls a function with the indexes of the axes, each a constant. A loop would be unrolled too late for the compiler
/// to keep the coordinates in registers.
template <std::size_t Size, class Function>
auto forEachAxis(Function function)
{
    if constexpr (Size == 2)
        return function(std::integral_constant<std::size_t, 0>(), std::integral_constant<std::size_t, 1>());
    else
        return function(std::integral_constant<std::size_t, 0>(), std::integral_constant<std::size_t, 1>(),
                        std::integral_constant<std::size_t, 2>());
}

/// a - b.
template <std::size_t Size>
Coordinates<ovReal64, Size> subtract(const Coordinates<ovReal64, Size>& a, const Coordinates<ovReal64, Size>& b)
{
    return forEachAxis<Size>([&](auto... axes) { return Coordinates<ovReal64, Size>{a[axes] - b[axes]...}; });
}

/// a . b.
template <std::size_t Size>
ovReal64 dot(const Coordinates<ovReal64, Size>& a, const Coordinates<ovReal64, Size>& b)
{
    return forEachAxis<Size>([&](auto... axes) { return (... + (a[axes] * b[axes])); });
}

/// |a|.
template <std::size_t Size>
ovReal64 norm(const Coordinates<ovReal64, Size>& a)
{
    return std::sqrt(dot(a, a));
}

/// The coordinates as ovReal64.
template <class T, std::size_t Size>
Coordinates<ovReal64, Size> widen(const Coordinates<T, Size>& a)
{
    return forEachAxis<Size>([&](auto... axes)
                             { return Coordinates<ovReal64, Size>{static_cast<ovReal64>(a[axes])...}; });
}

} // namespace details
} // namespace math
} // namespace ovrix
