#pragma once

#include <OVRIXMath/OVRIXMathException.h>
#include <OVRIXMath/Types.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <limits>
#include <type_traits>
#include <vector>

/// @file
/// What the fuzz targets of the mathematics share: arguments made of the bytes of an input, and checks. An
/// OVRIXMathException is what a refused argument ends in; anything else that is thrown ends the program, as does a
/// check that fails.

namespace ovrix
{
namespace fuzz
{

/// Whether a number is of the few whose arithmetic is free of surprises: a multiple of 1/8 between -16 and 16.
inline bool isTame(double value)
{
    return std::fabs(value) <= 16.0 && value * 8.0 == std::trunc(value * 8.0);
}

/// Reads numbers from the bytes of an input.
///
/// The first byte says what comes behind their end: zeros for 0, else the numbers of a small generator, so that short
/// inputs make data of any size that are not all alike. It also is the seed of the toolkit's own generator, so that the
/// input alone decides what follows.
class FuzzInput
{
public:
    FuzzInput(const std::uint8_t* pData, std::size_t size) : _pNext(pData), _pEnd(pData + size)
    {
        _filler = nextByte();
        RandomUniformGenerator::getGen().seed(_filler);
    }

    /// A value of any bits.
    template <class T>
    T bits()
    {
        static_assert(std::is_arithmetic<T>::value && !std::is_same<T, bool>::value, "any bits are a value");
        std::uint8_t bytes[sizeof(T)];
        std::generate(std::begin(bytes), std::end(bytes), [this] { return nextByte(); });
        T value;
        std::memcpy(&value, bytes, sizeof value);
        return value;
    }

    bool flag()
    {
        return bits<std::uint8_t>() % 2 != 0;
    }

    /// From `low` to `high`, both included; a single byte.
    unsigned int integer(unsigned int low, unsigned int high)
    {
        return low + bits<std::uint8_t>() % (high - low + 1);
    }

    /// One of `count` enumerators that count from 0, or a value outside of the enumeration.
    template <class Enumeration>
    Enumeration enumeration(int count)
    {
        return static_cast<Enumeration>(static_cast<int>(integer(0, static_cast<unsigned int>(count) + 1)) - 1);
    }

    /// A number of any kind: three of four are small, so that they often coincide, the others are an end of the range
    /// or any bits. Small ones are tame, and take a single byte.
    template <class T = double>
    T number()
    {
        using Limits = std::numeric_limits<T>;
        constexpr T ends[] = {Limits::max(),      Limits::lowest(),     Limits::min(),       Limits::epsilon(),
                              Limits::infinity(), Limits::denorm_min(), Limits::quiet_NaN(), T(1)};
        const auto kind = bits<std::uint8_t>();
        if (kind < 192 && std::is_floating_point<T>::value)
            return static_cast<T>((kind - 96) / 8.0);
        if (kind < 192)
            return static_cast<T>(kind % 12);
        if (kind >= 224)
            return bits<T>();
        const T end = ends[kind % 8];
        return std::is_floating_point<T>::value && kind % 16 >= 8 ? static_cast<T>(-end) : end;
    }

    template <class T>
    std::vector<T> numbers(std::size_t count)
    {
        std::vector<T> values(count);
        for (T& value : values)
            value = number<T>();
        return values;
    }

    math::Vector vector(std::size_t size)
    {
        math::Vector values(size);
        for (double& value : values)
            value = number();
        return values;
    }

    math::DataSet dataSet(std::size_t nbData, std::size_t size)
    {
        math::DataSet data(nbData);
        for (math::Vector& datum : data)
            datum = vector(size);
        return data;
    }

private:
    std::uint8_t nextByte()
    {
        if (_pNext != _pEnd)
            return *_pNext++;
        // A linear congruential generator, see D. E. Knuth, "The Art of Computer Programming", volume 2, 3.3.4.
        _filler = _filler == 0 ? 0 : _filler * 1664525u + 1013904223u;
        return static_cast<std::uint8_t>(_filler >> 24);
    }

    const std::uint8_t* _pNext;
    const std::uint8_t* const _pEnd;
    std::uint32_t _filler = 0;
};

/// Ends the program with a text unless the condition holds.
inline void require(bool bHolds, const char* what)
{
    if (bHolds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}

/// Makes a call that may refuse its arguments.
///
/// @return whether it did not
template <class Call>
bool attempt(const Call& call)
{
    try
    {
        call();
        return true;
    }
    catch (const math::OVRIXMathException&)
    {
        return false;
    }
}

/// Whether two numbers are equal, NaN being equal to NaN.
inline bool isSame(double a, double b)
{
    return a == b || (a != a && b != b);
}

/// Whether two sequences of numbers are equal, NaN being equal to NaN.
template <class First, class Second>
bool areSame(const First& first, const Second& second)
{
    return std::equal(first.begin(), first.end(), second.begin(), second.end(),
                      [](double a, double b) { return isSame(a, b); });
}

template <class Sequence>
bool areTame(const Sequence& values)
{
    return std::all_of(values.begin(), values.end(), isTame);
}

} // namespace fuzz
} // namespace ovrix
