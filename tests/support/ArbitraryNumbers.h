#pragma once

#include <rapidcheck.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <vector>

namespace ovrix
{
namespace test
{

/// The value of those bits.
inline double fromBits(std::uint64_t bits)
{
    double value;
    std::memcpy(&value, &bits, sizeof(value));
    return value;
}

/// Whether two sequences of numbers are the same to the bit.
inline bool haveSameBits(const double* pFirst, const double* pSecond, std::size_t count)
{
    return count == 0 || std::memcmp(pFirst, pSecond, count * sizeof(double)) == 0;
}

inline bool haveSameBits(const std::vector<double>& first, const std::vector<double>& second)
{
    return first.size() == second.size() && haveSameBits(first.data(), second.data(), first.size());
}

/// Real values of every kind: usual ones, any bits, and the ends of the format.
inline rc::Gen<double> anyReal()
{
    using Limits = std::numeric_limits<double>;
    return rc::gen::oneOf(rc::gen::arbitrary<double>(),
                          rc::gen::map(rc::gen::resize(1000, rc::gen::arbitrary<std::uint64_t>()),
                                       [](std::uint64_t bits) { return fromBits(bits); }),
                          rc::gen::map(rc::gen::inRange<std::uint64_t>(0, 1ull << 52), [](std::uint64_t bits)
                                       { return fromBits(bits | 0xFFF0ull << 48); }), // negative infinity and NaNs
                          rc::gen::element(0.0, -0.0, Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN(),
                                           Limits::max(), Limits::lowest(), Limits::min(), Limits::denorm_min(),
                                           -Limits::denorm_min()));
}

inline rc::Gen<std::vector<double>> anyReals()
{
    return rc::gen::container<std::vector<double>>(anyReal());
}

} // namespace test
} // namespace ovrix
