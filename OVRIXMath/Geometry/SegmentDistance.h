#pragma once

#include <OVRIXMath/Geometry/Coordinates.h>
#include <OVRIXUtil/Types.h>

#include <cmath>
#include <cstddef>
#include <type_traits>

/// @file
/// The parts that pointSegmentDistance() and segmentsDistance() of the plane and of space share.

namespace ovrix
{
namespace math
{
namespace details
{

/// Distance of two points in the arithmetic of T: single precision for `float`; for the 32-bit integers differences,
/// squares and their sum wrap around, and a sum that comes out negative as `int` gives NaN.
template <class T, std::size_t Size>
ovReal64 pointsDistance(const Coordinates<T, Size>& p, const Coordinates<T, Size>& q)
{
    // Unsigned arithmetic wraps by definition, with the bits of the signed one.
    using Arithmetic = std::conditional_t<std::is_integral<T>::value, unsigned int, T>;
    const auto square = [&](std::size_t axis)
    {
        const Arithmetic difference = static_cast<Arithmetic>(p[axis]) - static_cast<Arithmetic>(q[axis]);
        return difference * difference;
    };
    const Arithmetic sum = forEachAxis<Size>([&](auto... axes) { return (... + square(axes)); });
    if constexpr (std::is_integral<T>::value)
        return std::sqrt(static_cast<ovReal64>(static_cast<T>(sum)));
    else
        return std::sqrt(sum);
}

/// Distance of p to the segment ab.
///
/// @param q becomes the closest point
/// @param project for a p that projects between the ends: takes p, u = b - a and w = p - a as ovReal64, sets q and
/// returns the distance
template <class T, std::size_t Size, class Project>
ovReal64 pointSegmentDistance(const Coordinates<T, Size>& p, const Coordinates<T, Size>& a,
                              const Coordinates<T, Size>& b, Coordinates<ovReal64, Size>& q, Project project)
{
    const Coordinates<ovReal64, Size> point = widen(p);
    const Coordinates<ovReal64, Size> u = subtract(widen(b), widen(a));
    const Coordinates<ovReal64, Size> w = subtract(point, widen(a));
    if (dot(u, w) <= 0.0)
    {
        q = widen(a);
        return pointsDistance(p, a);
    }
    if (!(dot(subtract(point, widen(b)), u) > 0.0))
        return project(point, u, w, q);
    q = widen(b);
    return pointsDistance(p, b);
}

/// Distance of the segments ab and cd: 0 at a common point, otherwise the smallest distance of an end of one to the
/// other; on ties the earlier of a, b, c, d.
///
/// @param onFirst becomes the closest point on ab
/// @param onSecond becomes the closest point on cd
/// @param findCommonPoint takes the four ends as ovReal64 and returns an optional point
/// @param distance takes a point, the ends of a segment and the closest point that is to be set, and returns the
/// distance
template <class T, std::size_t Size, class FindCommonPoint, class Distance>
ovReal64 segmentsDistance(const Coordinates<T, Size>& a, const Coordinates<T, Size>& b, const Coordinates<T, Size>& c,
                          const Coordinates<T, Size>& d, Coordinates<ovReal64, Size>& onFirst,
                          Coordinates<ovReal64, Size>& onSecond, FindCommonPoint findCommonPoint, Distance distance)
{
    if (const auto common = findCommonPoint(widen(a), widen(b), widen(c), widen(d)))
    {
        onFirst = onSecond = *common;
        return 0.0;
    }

    onFirst = widen(a);
    ovReal64 best = distance(a, c, d, onSecond);

    // `onEnd` gets the end, `onSegment` its closest point on the other segment.
    const auto challenge =
        [&best, &distance](const auto& end, const auto& from, const auto& to, auto& onEnd, auto& onSegment)
    {
        Coordinates<ovReal64, Size> closest;
        const ovReal64 candidate = distance(end, from, to, closest);
        if (!(best > candidate))
            return;
        best = candidate;
        onEnd = widen(end);
        onSegment = closest;
    };
    challenge(b, c, d, onFirst, onSecond);
    challenge(c, a, b, onSecond, onFirst);
    challenge(d, a, b, onSecond, onFirst);
    return best;
}

} // namespace details
} // namespace math
} // namespace ovrix
