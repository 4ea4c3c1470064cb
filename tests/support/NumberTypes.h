#pragma once

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <type_traits>

namespace ovrix
{
namespace test
{

/// The integer types that the library's templates are instantiated for.
using IntegerTypes =
    ::testing::Types<signed char, unsigned char, short, unsigned short, int, unsigned int, long, unsigned long>;

/// The same and the floating types.
using NumberTypes = ::testing::Types<signed char, unsigned char, short, unsigned short, int, unsigned int, long,
                                     unsigned long, float, double>;

/// Names the types in the names of typed tests.
struct TypeNames
{
    template <class T>
    static std::string GetName(int)
    {
        if (std::is_same<T, bool>::value)
            return "bool";
        if (std::is_floating_point<T>::value)
            return sizeof(T) == 4 ? "float" : "double";
        return (std::is_signed<T>::value ? "int" : "uint") + std::to_string(8 * sizeof(T));
    }
};

/// A random value of T. Half of the draws are any bit pattern, half are small or next to an end of the range; a tenth
/// of the floating ones are infinities, NaN or -0.
template <class T>
T anyValue(std::mt19937& generator)
{
    if (generator() % 2 == 0)
    {
        const unsigned long bits = (static_cast<unsigned long>(generator()) << 32) | generator();
        if constexpr (std::is_floating_point<T>::value)
        {
            std::conditional_t<sizeof(T) == 4, unsigned int, unsigned long> pattern =
                static_cast<decltype(pattern)>(bits);
            T value;
            std::memcpy(&value, &pattern, sizeof value);
            return value;
        }
        else
            return static_cast<T>(bits);
    }
    using Limits = std::numeric_limits<T>;
    if (Limits::has_infinity && generator() % 5 == 0)
    {
        const T special[] = {Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN(), static_cast<T>(-T(0))};
        return special[generator() % 4];
    }
    const T small = static_cast<T>(generator() % 4);
    switch (generator() % 6)
    {
    case 0:
        return Limits::max() - small;
    case 1:
        return Limits::lowest() + small;
    case 2:
        if (!Limits::is_signed)
            return small;
        return static_cast<T>(-static_cast<double>(small));
    default:
        return small;
    }
}

} // namespace test
} // namespace ovrix
