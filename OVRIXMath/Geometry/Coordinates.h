#pragma once

#include <OVRIXMath/Types.h>

#include <array>
#include <cmath>
#include <cstddef>

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

/// a - b.
template <std::size_t Size>
Coordinates<ovReal64, Size> subtract(const Coordinates<ovReal64, Size>& a, const Coordinates<ovReal64, Size>& b)
{
    Coordinates<ovReal64, Size> difference;
    for (std::size_t i = 0; i < Size; ++i)
        difference[i] = a[i] - b[i];
    return difference;
}

/// a . b.
template <std::size_t Size>
ovReal64 dot(const Coordinates<ovReal64, Size>& a, const Coordinates<ovReal64, Size>& b)
{
    ovReal64 sum = a[0] * b[0];
    for (std::size_t i = 1; i < Size; ++i)
        sum += a[i] * b[i];
    return sum;
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
    Coordinates<ovReal64, Size> wide;
    for (std::size_t i = 0; i < Size; ++i)
        wide[i] = static_cast<ovReal64>(a[i]);
    return wide;
}

} // namespace details
} // namespace math
} // namespace ovrix
