#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <random>
#include <type_traits>

/// @file
/// What the tests of points and segments of the plane and of space share.

namespace ovrix
{
namespace test
{

/// The types of the inputs of pointSegmentDistance(), segmentsIntersects() and segmentsDistance().
using SegmentNumbers = ::testing::Types<int, unsigned int, float, double>;

/// Distance of a point to an end of a segment as each type computes it; the integers by their remainder modulo 2^32.
template <class T, std::size_t Size>
double distanceToEnd(const std::array<T, Size>& p, const std::array<T, Size>& end)
{
    if constexpr (std::is_integral<T>::value)
    {
        std::uint64_t sum = 0;
        for (std::size_t i = 0; i < Size; ++i)
        {
            const auto difference = static_cast<std::uint64_t>(std::int64_t(p[i]) - std::int64_t(end[i]));
            sum += difference * difference;
        }
        const auto rest = static_cast<std::int64_t>(sum % 4294967296u);
        return std::sqrt(double(std::is_signed<T>::value && rest >= 2147483648 ? rest - 4294967296 : rest));
    }
    else
    {
        T sum = 0;
        for (std::size_t i = 0; i < Size; ++i)
            sum += (p[i] - end[i]) * (p[i] - end[i]);
        return std::sqrt(sum);
    }
}

/// A point with integer coordinates from 0 to `highest`, so that touching and collinear segments are frequent.
template <class T, std::size_t Size>
std::array<T, Size> drawGridPoint(std::mt19937& generator, int highest)
{
    std::uniform_int_distribution<int> coordinate(0, highest);
    std::array<T, Size> point;
    for (T& value : point)
        value = static_cast<T>(coordinate(generator));
    return point;
}

/// The coordinates as `double`.
template <class T, std::size_t Size>
std::array<double, Size> widened(const std::array<T, Size>& point)
{
    std::array<double, Size> wide;
    for (std::size_t i = 0; i < Size; ++i)
        wide[i] = static_cast<double>(point[i]);
    return wide;
}

/// Distance of p to the segment ab, from the parameter of the projection limited to [0, 1].
template <class T, std::size_t Size>
double distanceToSegment(const std::array<T, Size>& p, const std::array<T, Size>& a, const std::array<T, Size>& b)
{
    double along = 0.0;
    double squaredLength = 0.0;
    for (std::size_t i = 0; i < Size; ++i)
    {
        along += (double(p[i]) - double(a[i])) * (double(b[i]) - double(a[i]));
        squaredLength += (double(b[i]) - double(a[i])) * (double(b[i]) - double(a[i]));
    }
    const double t = squaredLength == 0.0 ? 0.0 : std::min(1.0, std::max(0.0, along / squaredLength));
    double sum = 0.0;
    for (std::size_t i = 0; i < Size; ++i)
        sum += std::pow(double(a[i]) + t * (double(b[i]) - double(a[i])) - double(p[i]), 2);
    return std::sqrt(sum);
}

/// Whether segments with integer coordinates have a point in common when seen along z, by the turns of their ends.
template <class T, std::size_t Size>
bool haveCommonPoint(const std::array<T, Size>& a, const std::array<T, Size>& b, const std::array<T, Size>& c,
                     const std::array<T, Size>& d)
{
    using Point = std::array<T, Size>;
    const auto turn = [](const Point& from, const Point& to, const Point& p)
    {
        const double cross = (double(to[0]) - double(from[0])) * (double(p[1]) - double(from[1])) -
                             (double(to[1]) - double(from[1])) * (double(p[0]) - double(from[0]));
        return cross > 0.0 ? 1 : cross < 0.0 ? -1 : 0;
    };
    const auto isInBox = [](const Point& from, const Point& to, const Point& p)
    {
        return std::min(from[0], to[0]) <= p[0] && p[0] <= std::max(from[0], to[0]) && //
               std::min(from[1], to[1]) <= p[1] && p[1] <= std::max(from[1], to[1]);
    };
    const int turnOfC = turn(a, b, c);
    const int turnOfD = turn(a, b, d);
    const int turnOfA = turn(c, d, a);
    const int turnOfB = turn(c, d, b);
    return (turnOfC * turnOfD < 0 && turnOfA * turnOfB < 0) || (turnOfC == 0 && isInBox(a, b, c)) ||
           (turnOfD == 0 && isInBox(a, b, d)) || (turnOfA == 0 && isInBox(c, d, a)) ||
           (turnOfB == 0 && isInBox(c, d, b));
}

} // namespace test
} // namespace ovrix
