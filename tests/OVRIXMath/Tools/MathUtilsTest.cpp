#include <OVRIXMath/Tools/MathUtils.h>
#include <OVRIXUtil/NumericLimits.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <random>
#include <support/NumberTypes.h>
#include <type_traits>
#include <utility>
#include <vector>

namespace ovrix
{
namespace math
{

namespace
{

using test::anyValue;
using test::IntegerTypes;
using test::NumberTypes;

const double g_nan = std::numeric_limits<double>::quiet_NaN();
const double g_infinity = std::numeric_limits<double>::infinity();
const float g_nanFloat = std::numeric_limits<float>::quiet_NaN();

/// Wide enough for every difference of 64-bit values.
__extension__ typedef __int128 Exact;

const Exact g_two32 = Exact(1) << 32;
const Exact g_two63 = Exact(1) << 63;
const Exact g_two64 = Exact(1) << 64;

/// The integer part of a value, its magnitude cut to 2^100.
Exact integerPart(double value)
{
    const double limit = std::ldexp(1.0, 100);
    return static_cast<Exact>(std::max(-limit, std::min(limit, value)));
}

/// What an integer that keeps the low 64 bits of a value reads as.
Exact wrapTo64(Exact value)
{
    Exact low = value % g_two64;
    if (low >= g_two63)
        low -= g_two64;
    return low < -g_two63 ? low + g_two64 : low;
}

/// round() in exact arithmetic, for an integer T.
template <class T, class U>
T exactRound(U v)
{
    if (std::isnan(v))
        return 0;
    const U sum = v >= 0 ? v + static_cast<U>(0.5) : v - static_cast<U>(0.5);
    const Exact truncated = integerPart(sum);
    if (std::is_same<T, unsigned int>::value && truncated >= -g_two63 && truncated < g_two63)
        return static_cast<T>(((truncated % g_two32) + g_two32) % g_two32);
    return static_cast<T>(
        std::max<Exact>(NumericLimits<T>::s_min, std::min<Exact>(NumericLimits<T>::s_max, truncated)));
}

/// Values where roundings turn: halves around small numbers and around every power of two, whole and of either sign.
template <class U>
std::vector<U> turningPoints()
{
    std::vector<U> points = {0, std::numeric_limits<U>::quiet_NaN(), std::numeric_limits<U>::infinity(),
                             std::numeric_limits<U>::max(), std::numeric_limits<U>::denorm_min()};
    for (int exponent = -2; exponent <= 66; ++exponent)
        for (const U offset : {-2.0, -1.5, -1.0, -0.75, -0.5, -0.25, 0.0, 0.25, 0.5, 0.75, 1.0, 1.5, 2.0})
        {
            const U value = std::ldexp(U(1), exponent) + offset;
            points.push_back(value);
            points.push_back(std::nextafter(value, -std::numeric_limits<U>::infinity()));
            points.push_back(std::nextafter(value, std::numeric_limits<U>::infinity()));
        }
    const std::size_t nbPositive = points.size();
    for (std::size_t i = 0; i < nbPositive; ++i)
        points.push_back(-points[i]);
    return points;
}

template <class T, class U>
void expectExactRounding()
{
    T (*const function)(U) = &round<T, U>;
    for (const U v : turningPoints<U>())
        EXPECT_EQ(function(v), (exactRound<T, U>(v))) << v;
    std::mt19937 generator(11);
    for (int draw = 0; draw < 20000; ++draw)
    {
        const U v = anyValue<U>(generator);
        EXPECT_EQ(function(v), (exactRound<T, U>(v))) << v;
    }
}

template <class T, class U>
void expectSaturation()
{
    T (*const function)(U) = &saturatedRound<T, U>;
    for (const U v : turningPoints<U>())
    {
        if (v > static_cast<U>(NumericLimits<T>::s_max))
            EXPECT_EQ(function(v), NumericLimits<T>::s_max) << v;
        else if (static_cast<U>(NumericLimits<T>::s_min) > v)
            EXPECT_EQ(function(v), NumericLimits<T>::s_min) << v;
        else
            EXPECT_EQ(function(v), (round<T, U>(v))) << v;
    }
}

/// compare() for integers, in exact arithmetic but for the wrap of the 64-bit types.
template <class T>
bool exactCompare(T a, T b, T tol)
{
    const Exact difference = static_cast<Exact>(a) - static_cast<Exact>(b);
    if (sizeof(T) < 8)
        return std::max(difference, -difference) <= static_cast<Exact>(tol);
    return std::max(wrapTo64(difference), wrapTo64(-difference)) <= wrapTo64(tol);
}

template <class T>
Exact exactMagnitude(T value)
{
    const Exact exact = static_cast<Exact>(value);
    return sizeof(T) < 8 ? std::max(exact, -exact) : std::max(wrapTo64(exact), wrapTo64(-exact));
}

template <class T>
bool exactCompareRelative(T a, T b, T tol)
{
    const Exact exactTol = sizeof(T) < 8 ? static_cast<Exact>(tol) : wrapTo64(tol);
    if (!(exactMagnitude(b) > exactTol))
        return exactTol >= exactMagnitude(a);
    const Exact difference = static_cast<Exact>(a) - static_cast<Exact>(b);
    const Exact magnitude =
        sizeof(T) < 8 ? std::max(difference, -difference) : std::max(wrapTo64(difference), wrapTo64(-difference));
    return exactTol >= magnitude / exactMagnitude(b);
}

template <class T>
bool isDivisionByZero(T b, T tol)
{
    return b == 0 && (sizeof(T) < 8 ? static_cast<Exact>(tol) : wrapTo64(tol)) < 0;
}

} // namespace

template <class T>
class Round : public ::testing::Test
{
};
TYPED_TEST_SUITE(Round, IntegerTypes, test::TypeNames);

TYPED_TEST(Round, AgreesWithExactArithmeticForDouble)
{
    expectExactRounding<TypeParam, double>();
}

TYPED_TEST(Round, AgreesWithExactArithmeticForFloat)
{
    expectExactRounding<TypeParam, float>();
}

TYPED_TEST(Round, NotANumberGivesZero)
{
    EXPECT_EQ((round<TypeParam, double>(g_nan)), TypeParam(0));
    EXPECT_EQ((round<TypeParam, float>(g_nanFloat)), TypeParam(0));
}

TYPED_TEST(Round, InfinitiesGiveTheEndsOfTheRange)
{
    EXPECT_EQ((round<TypeParam, double>(g_infinity)), NumericLimits<TypeParam>::s_max);
    EXPECT_EQ((round<TypeParam, double>(-g_infinity)), NumericLimits<TypeParam>::s_min);
}

TEST(Round, IsHalfAwayFromZero)
{
    EXPECT_EQ((round<int, double>(2.5)), 3);
    EXPECT_EQ((round<int, double>(-2.5)), -3);
    EXPECT_EQ((round<int, double>(0.5)), 1);
    EXPECT_EQ((round<int, double>(-0.5)), -1);
    EXPECT_EQ((round<int, double>(0.49)), 0);
    EXPECT_EQ((round<int, double>(-0.49)), 0);
}

TEST(Round, TheSumIsRoundedBeforeItIsTruncated)
{
    EXPECT_EQ((round<int, double>(std::nextafter(0.5, 0.0))), 1);
    EXPECT_EQ((round<int, float>(std::nextafter(0.5f, 0.0f))), 1);
    EXPECT_EQ((round<int, float>(8388609.0f)), 8388610); // 2^23 + 1.5 is halfway between two floats
}

TEST(Round, AFloatingTargetIsNotRounded)
{
    EXPECT_EQ((round<float, double>(2.5)), 2.5f);
    EXPECT_EQ((round<double, double>(-0.3)), -0.3);
    EXPECT_EQ((round<float, float>(0.7f)), 0.7f);
    EXPECT_EQ((round<double, float>(0.1f)), static_cast<double>(0.1f));
    EXPECT_EQ((round<float, double>(0.1)), 0.1f);
    EXPECT_TRUE(std::isnan(round<float, double>(g_nan)));
}

TEST(Round, AValueBeyondTheRangeOfFloatIsInfinite)
{
    EXPECT_EQ((round<float, double>(1e300)), std::numeric_limits<float>::infinity());
    EXPECT_EQ((round<float, double>(-1e300)), -std::numeric_limits<float>::infinity());
}

TEST(Round, UnsignedIntKeepsTheLow32Bits)
{
    EXPECT_EQ((round<unsigned int, double>(-1.0)), 4294967295u);
    EXPECT_EQ((round<unsigned int, double>(4294967296.0)), 0u);
    EXPECT_EQ((round<unsigned int, double>(4294967298.4)), 2u);
    EXPECT_EQ((round<unsigned int, double>(-4294967297.0)), 4294967295u);
    EXPECT_EQ((round<unsigned int, double>(9.3e18)), 4294967295u);
    EXPECT_EQ((round<unsigned int, double>(-9.3e18)), 0u);
}

TEST(Round, UnsignedLongReachesTwoToThe64)
{
    EXPECT_EQ((round<unsigned long, double>(9223372036854775808.0)), 9223372036854775808ul);
    EXPECT_EQ((round<unsigned long, double>(18446744073709549568.0)), 18446744073709549568ul);
    EXPECT_EQ((round<unsigned long, double>(18446744073709551616.0)), 18446744073709551615ul);
    EXPECT_EQ((round<unsigned long, double>(-0.5)), 0ul);
    EXPECT_EQ((round<unsigned long, double>(-1.0)), 0ul);
}

template <class T>
class SaturatedRound : public ::testing::Test
{
};
TYPED_TEST_SUITE(SaturatedRound, IntegerTypes, test::TypeNames);

TYPED_TEST(SaturatedRound, LimitsADoubleAndRoundsWithin)
{
    expectSaturation<TypeParam, double>();
}

TYPED_TEST(SaturatedRound, LimitsAFloatAndRoundsWithin)
{
    expectSaturation<TypeParam, float>();
}

TYPED_TEST(SaturatedRound, NotANumberGivesZero)
{
    EXPECT_EQ((saturatedRound<TypeParam, double>(g_nan)), TypeParam(0));
}

TEST(SaturatedRound, StopsAtTheEndsOfTheRange)
{
    EXPECT_EQ((saturatedRound<unsigned char, double>(300.0)), 255);
    EXPECT_EQ((saturatedRound<unsigned char, double>(-1.0)), 0);
    EXPECT_EQ((saturatedRound<unsigned char, double>(255.4)), 255);
    EXPECT_EQ((saturatedRound<unsigned int, double>(-1.0)), 0u);
    EXPECT_EQ((saturatedRound<unsigned int, double>(4294967296.0)), 4294967295u);
}

TEST(SaturatedRound, AFloatOfTwoToThe32PassesTheLimitAndWraps)
{
    EXPECT_EQ((saturatedRound<unsigned int, float>(4294967296.0f)), 0u);
    EXPECT_EQ((saturatedRound<unsigned int, float>(std::nextafter(4294967296.0f, 1e10f))), 4294967295u);
}

TEST(SaturatedRound, AFloatingTargetIsLimitedToItsFiniteRange)
{
    EXPECT_EQ((saturatedRound<float, double>(1e300)), NumericLimits<float>::s_max);
    EXPECT_EQ((saturatedRound<float, double>(-1e300)), NumericLimits<float>::s_min);
    EXPECT_EQ((saturatedRound<double, double>(g_infinity)), NumericLimits<double>::s_max);
    EXPECT_EQ((saturatedRound<float, float>(-std::numeric_limits<float>::infinity())), NumericLimits<float>::s_min);
    EXPECT_EQ((saturatedRound<float, double>(2.5)), 2.5f);
    EXPECT_TRUE(std::isnan(saturatedRound<float, double>(g_nan)));
}

TEST(SaturatedRound, AnInfiniteFloatStaysInfiniteAsDouble)
{
    EXPECT_EQ((saturatedRound<double, float>(std::numeric_limits<float>::infinity())), g_infinity);
    EXPECT_EQ((saturatedRound<double, float>(-std::numeric_limits<float>::infinity())), -g_infinity);
}

template <class T>
class SortThree : public ::testing::Test
{
};
using SortTypes = ::testing::Types<double, int, unsigned int>;
TYPED_TEST_SUITE(SortThree, SortTypes, test::TypeNames);

TYPED_TEST(SortThree, EveryOrderComesOutAscending)
{
    for (int code = 0; code < 27; ++code)
    {
        const std::array<TypeParam, 3> values = {TypeParam(code % 3), TypeParam(code / 3 % 3), TypeParam(code / 9)};
        std::array<TypeParam, 3> sorted = {9, 9, 9};
        sort<TypeParam>(values[0], values[1], values[2], sorted[0], sorted[1], sorted[2]);
        std::array<TypeParam, 3> expected = values;
        std::sort(expected.begin(), expected.end());
        EXPECT_EQ(sorted, expected);
    }
}

template <class T>
class IntegerCompare : public ::testing::Test
{
};
using ComparedIntegers =
    ::testing::Types<bool, signed char, unsigned char, short, unsigned short, int, unsigned int, long, unsigned long>;
TYPED_TEST_SUITE(IntegerCompare, ComparedIntegers, test::TypeNames);

TYPED_TEST(IntegerCompare, AgreesWithExactArithmetic)
{
    std::mt19937 generator(12);
    for (int draw = 0; draw < 50000; ++draw)
    {
        const TypeParam a = anyValue<TypeParam>(generator);
        const TypeParam b = anyValue<TypeParam>(generator);
        const TypeParam tol = anyValue<TypeParam>(generator);
        EXPECT_EQ(compare<TypeParam>(a, b, tol), exactCompare(a, b, tol)) << +a << ' ' << +b << ' ' << +tol;
        if (isDivisionByZero(b, tol))
            continue;
        EXPECT_EQ(compareRelative<TypeParam>(a, b, tol), exactCompareRelative(a, b, tol))
            << +a << ' ' << +b << ' ' << +tol;
    }
}

TYPED_TEST(IntegerCompare, ADifferenceOfTheToleranceIsWithin)
{
    EXPECT_TRUE(compare<TypeParam>(1, 0, 1));
    EXPECT_TRUE(compare<TypeParam>(0, 1, 1));
    EXPECT_FALSE(compare<TypeParam>(0, 1, 0));
}

template <class T>
class FloatingCompare : public ::testing::Test
{
};
using FloatingTypes = ::testing::Types<float, double>;
TYPED_TEST_SUITE(FloatingCompare, FloatingTypes, test::TypeNames);

TYPED_TEST(FloatingCompare, IsComputedInDouble)
{
    std::mt19937 generator(13);
    for (int draw = 0; draw < 50000; ++draw)
    {
        const TypeParam a = anyValue<TypeParam>(generator);
        const TypeParam b = anyValue<TypeParam>(generator);
        const TypeParam tol = anyValue<TypeParam>(generator);
        const double difference = std::fabs(static_cast<double>(a) - static_cast<double>(b));
        EXPECT_EQ(compare<TypeParam>(a, b, tol), tol >= difference) << a << ' ' << b << ' ' << tol;
        const double magnitude = std::fabs(static_cast<double>(b));
        const bool bExpected = magnitude > tol ? tol >= difference / magnitude : tol >= std::fabs(a);
        EXPECT_EQ(compareRelative<TypeParam>(a, b, tol), bExpected) << a << ' ' << b << ' ' << tol;
    }
}

TYPED_TEST(FloatingCompare, ADifferenceOfTheToleranceIsWithin)
{
    EXPECT_TRUE(compare<TypeParam>(1.5, 1.0, 0.5));
    EXPECT_TRUE(compare<TypeParam>(1.0, 1.5, 0.5));
    EXPECT_FALSE(compare<TypeParam>(1.0, 1.5, 0.25));
}

TYPED_TEST(FloatingCompare, NotANumberIsNeverWithin)
{
    const TypeParam nan = std::numeric_limits<TypeParam>::quiet_NaN();
    EXPECT_FALSE(compare<TypeParam>(nan, 1, 1));
    EXPECT_FALSE(compare<TypeParam>(1, nan, 1));
    EXPECT_FALSE(compare<TypeParam>(1, 1, nan));
    EXPECT_FALSE(compareRelative<TypeParam>(nan, 1, 1));
    EXPECT_FALSE(compareRelative<TypeParam>(1, 1, nan));
}

TYPED_TEST(FloatingCompare, ASecondValueThatIsNotANumberMakesTheRelativeTestAbsolute)
{
    const TypeParam nan = std::numeric_limits<TypeParam>::quiet_NaN();
    EXPECT_TRUE(compareRelative<TypeParam>(1, nan, 1));
    EXPECT_FALSE(compareRelative<TypeParam>(2, nan, 1));
}

TYPED_TEST(FloatingCompare, TheRelativeTestIsRelativeToTheSecondValue)
{
    EXPECT_TRUE(compareRelative<TypeParam>(3, 2, 0.5));
    EXPECT_TRUE(compareRelative<TypeParam>(2, 3, 0.5));
    EXPECT_FALSE(compareRelative<TypeParam>(4, 2, 0.5));
    EXPECT_TRUE(compareRelative<TypeParam>(2, 4, 0.5));
}

TYPED_TEST(FloatingCompare, ASmallSecondValueMakesTheRelativeTestAbsolute)
{
    EXPECT_TRUE(compareRelative<TypeParam>(0.5, 0.5, 0.5));
    EXPECT_FALSE(compareRelative<TypeParam>(0.75, 0.5, 0.5));
    EXPECT_TRUE(compareRelative<TypeParam>(-0.5, 0, 0.5));
}

TEST(FloatingCompare, FloatsAreWidenedBeforeTheDifference)
{
    // In float the difference would round to 1 and pass.
    EXPECT_FALSE(compare<float>(1.0f, -1e-9f, 1.0f));
    EXPECT_TRUE(compare<float>(1.0f, 1e-9f, 1.0f));
}

TEST(CompareRelative, AnIntegerRatioIsTruncated)
{
    EXPECT_TRUE(compareRelative<int>(19, 10, 0));
    EXPECT_FALSE(compareRelative<int>(20, 10, 0));
    EXPECT_TRUE(compareRelative<int>(29, 10, 1));
}

TEST(Compare, SixtyFourBitDifferencesWrapAround)
{
    const long min = NumericLimits<long>::s_min;
    const long max = NumericLimits<long>::s_max;
    EXPECT_TRUE(compare<long>(min, 0, 0));
    EXPECT_TRUE(compare<long>(min, max, 1));
    EXPECT_FALSE(compare<long>(min, max, 0));
    EXPECT_FALSE(compare<unsigned long>(1, 1, NumericLimits<unsigned long>::s_max));
}

TEST(Compare, ThirtyTwoBitDifferencesDoNotWrapAround)
{
    EXPECT_FALSE(compare<int>(NumericLimits<int>::s_min, NumericLimits<int>::s_max, NumericLimits<int>::s_max));
    EXPECT_TRUE(compare<unsigned int>(0, NumericLimits<unsigned int>::s_max, NumericLimits<unsigned int>::s_max));
}

template <class T>
class VectorCompare : public ::testing::Test
{
};
using ComparedTypes = ::testing::Types<bool, signed char, unsigned char, short, unsigned short, int, unsigned int, long,
                                       unsigned long, float, double>;
TYPED_TEST_SUITE(VectorCompare, ComparedTypes, test::TypeNames);

TYPED_TEST(VectorCompare, DifferentSizesAreDifferentWhateverTheTolerance)
{
    const TypeParam tol = NumericLimits<TypeParam>::s_max;
    EXPECT_FALSE(compare<TypeParam>(std::vector<TypeParam>(2), std::vector<TypeParam>(3), tol));
    EXPECT_FALSE(compare<TypeParam>(std::vector<TypeParam>(3), std::vector<TypeParam>(2), tol));
    EXPECT_FALSE(compareRelative<TypeParam>(std::vector<TypeParam>(), std::vector<TypeParam>(1), tol));
}

TYPED_TEST(VectorCompare, EmptyVectorsAreTheSame)
{
    EXPECT_TRUE(compare<TypeParam>(std::vector<TypeParam>(), std::vector<TypeParam>(), 0));
    EXPECT_TRUE(compareRelative<TypeParam>(std::vector<TypeParam>(), std::vector<TypeParam>(), 0));
}

TYPED_TEST(VectorCompare, EveryPairHasToPass)
{
    std::mt19937 generator(14);
    for (int draw = 0; draw < 3000; ++draw)
    {
        const std::size_t size = 1 + generator() % 70; // several words of packed bits
        std::vector<TypeParam> a(size);
        std::vector<TypeParam> b(size);
        for (std::size_t i = 0; i < size; ++i)
        {
            a[i] = anyValue<TypeParam>(generator);
            b[i] = generator() % 16 == 0 ? anyValue<TypeParam>(generator) : TypeParam(a[i]);
        }
        const TypeParam tol = static_cast<TypeParam>(generator() % 3);
        bool bAll = true;
        bool bAllRelative = true;
        for (std::size_t i = 0; i < size; ++i)
        {
            bAll = bAll && compare<TypeParam>(TypeParam(a[i]), TypeParam(b[i]), tol);
            bAllRelative = bAllRelative && compareRelative<TypeParam>(TypeParam(a[i]), TypeParam(b[i]), tol);
        }
        EXPECT_EQ(compare<TypeParam>(a, b, tol), bAll);
        EXPECT_EQ(compareRelative<TypeParam>(a, b, tol), bAllRelative);
    }
}

TEST(VectorCompare, StopsAtTheFirstPairThatFails)
{
    // The second pair would divide by zero.
    EXPECT_FALSE(compareRelative<int>({1, 1}, {1, 0}, -1));
}

} // namespace math
} // namespace ovrix
