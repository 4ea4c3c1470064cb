#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

/// @file
/// The sequences of all rows, by formulas that peers.py has too.

namespace ovrix
{
namespace bench
{

constexpr std::size_t g_nbElements = 10000000;

/// 64 bits that look random (G. L. Steele, D. Lea and C. H. Flood, "Fast Splittable Pseudorandom Number Generators",
/// 2014).
inline std::uint64_t scramble(std::uint64_t i)
{
    std::uint64_t bits = (i + 1) * 0x9e3779b97f4a7c15u;
    bits = (bits ^ bits >> 30) * 0xbf58476d1ce4e5b9u;
    bits = (bits ^ bits >> 27) * 0x94d049bb133111ebu;
    return bits ^ bits >> 31;
}

/// Numbers in [0, 1[ that have nothing to do with each other.
inline std::vector<double> makeNoise()
{
    std::vector<double> values(g_nbElements);
    for (std::size_t i = 0; i < g_nbElements; ++i)
        values[i] = std::ldexp(static_cast<double>(scramble(i) >> 11), -53);
    return values;
}

/// Two waves in [0, 1] of some hundred elements each.
inline std::vector<double> makeSmooth()
{
    std::vector<double> values(g_nbElements);
    for (std::size_t i = 0; i < g_nbElements; ++i)
        values[i] =
            0.5 + 0.3 * std::sin(static_cast<double>(i) / 100.0) + 0.2 * std::sin(static_cast<double>(i) / 37.0);
    return values;
}

/// Plateaus of any length, 8 elements on average, at 16 heights in [0, 1[.
inline std::vector<double> makePlateaus()
{
    std::vector<double> values(g_nbElements);
    double height = 0.0;
    for (std::size_t i = 0; i < g_nbElements; ++i)
    {
        if (scramble(i) % 8 == 0)
            height = static_cast<double>(scramble(i + g_nbElements) % 16) / 16.0;
        values[i] = height;
    }
    return values;
}

/// The numbers in [0, 1] of a sequence, times a factor, as another type.
template <class T>
std::vector<T> scaleTo(const std::vector<double>& values, double factor)
{
    std::vector<T> scaled(values.size());
    for (std::size_t i = 0; i < values.size(); ++i)
        scaled[i] = static_cast<T>(factor * values[i]);
    return scaled;
}

/// One of the functions above.
using MakeSequence = std::vector<double> (*)();

} // namespace bench
} // namespace ovrix
