#pragma once

#include <cstdint>
#include <cstring>
#include <vector>

namespace ovrix
{
namespace test
{

/// The bits of a number, for comparisons in which a NaN equals itself and 0 differs from -0.
inline std::uint64_t bitsOf(double value)
{
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

/// The bits of each element of a sequence of numbers.
template <class Sequence>
std::vector<std::uint64_t> bitsOf(const Sequence& sequence)
{
    std::vector<std::uint64_t> bits;
    for (const double value : sequence)
        bits.push_back(bitsOf(value));
    return bits;
}

} // namespace test
} // namespace ovrix
