#include <OVRIXMath/Statistics/ExtremaUtils.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <random>
#include <support/AllocationCount.h>
#include <support/NumberTypes.h>
#include <type_traits>
#include <vector>

namespace ovrix
{
namespace math
{

namespace
{

using Indices = std::vector<unsigned int>;
using Ranges = ExtremaRangeColl;

const double g_nan = std::numeric_limits<double>::quiet_NaN();
const double g_infinity = std::numeric_limits<double>::infinity();

/// What filterExtrema() calls for an index into a list of coordinates and one of values.
template <class C, class T>
ExtremumCoords<C, T> coordsOf(const std::vector<ovReal64>& coords, const std::vector<T>& values)
{
    return [&coords, &values](const C& extremum, ovReal64& coord, T& value)
    {
        std::size_t index;
        if constexpr (std::is_same<C, ExtremaRange>::value)
            index = extremum.second;
        else
            index = extremum;
        coord = coords[index];
        value = values[index];
    };
}

/// A description of the extremum with that index. Ranges are made to sort in another order than their indices.
template <class C>
C describe(std::size_t index)
{
    if constexpr (std::is_same<C, ExtremaRange>::value)
        return ExtremaRange(index * 7 % 5, index);
    else
        return static_cast<C>(index);
}

/// The indices that remain; no two values are equal.
template <class T>
std::vector<std::size_t> plainFilter(eExtremaType type, double minDistance, T threshold,
                                     const std::vector<ovReal64>& coords, const std::vector<T>& values)
{
    std::vector<std::size_t> order(values.size());
    std::iota(order.begin(), order.end(), 0);
    const auto stronger = [&](std::size_t a, std::size_t b)
    {
        if (values[b] != values[b])
            return values[a] == values[a];
        return type == eET_Maxima ? values[a] > values[b] : values[a] < values[b];
    };
    if (type == eET_Maxima || type == eET_Minima)
        std::sort(order.begin(), order.end(), stronger);
    std::vector<std::size_t> kept;
    for (const std::size_t candidate : order)
    {
        bool bDrop = (type == eET_Maxima && threshold >= values[candidate]) ||
                     (type == eET_Minima && values[candidate] >= threshold);
        for (const std::size_t other : kept)
            if (minDistance > 0.0 && minDistance >= std::fabs(coords[other] - coords[candidate]))
                bDrop = true;
        if (!bDrop)
            kept.push_back(candidate);
    }
    return kept;
}

template <class C, class T>
void expectPlainFilter(unsigned int seed)
{
    std::mt19937 generator(seed);
    for (int draw = 0; draw < 1500; ++draw)
    {
        const std::size_t size = generator() % 40;
        std::vector<T> values(size);
        std::iota(values.begin(), values.end(), T(20));
        std::shuffle(values.begin(), values.end(), generator);
        std::vector<ovReal64> coords(size);
        for (ovReal64& coord : coords)
            coord = 0.5 * static_cast<double>(generator() % 100);
        if (draw % 3 == 0 && size > 4)
        {
            coords[0] = g_infinity;
            coords[1] = -g_infinity;
            coords[2] = g_nan;
            coords[3] = coords[generator() % 3];
        }
        if (std::is_floating_point<T>::value && draw % 5 == 0 && size > 0)
            values[generator() % size] = std::numeric_limits<T>::quiet_NaN();

        const double distances[] = {0.0, 0.5, 3.0, 10.0, 1000.0, -1.0, g_infinity, g_nan};
        const double minDistance = distances[generator() % 8];
        const eExtremaType type = static_cast<eExtremaType>(generator() % 3);
        const T threshold = static_cast<T>(15 + generator() % 50);

        std::vector<C> extrema;
        for (std::size_t i = 0; i < size; ++i)
            extrema.push_back(describe<C>(i));
        std::vector<C> expected;
        for (const std::size_t index : plainFilter(type, minDistance, threshold, coords, values))
            expected.push_back(describe<C>(index));
        std::sort(expected.begin(), expected.end());
        filterExtrema<C, T>(type, minDistance, threshold, coordsOf<C, T>(coords, values), extrema);
        EXPECT_EQ(extrema, expected);
    }
}

} // namespace

template <class T>
class FilterExtrema : public ::testing::Test
{
};
TYPED_TEST_SUITE(FilterExtrema, test::NumberTypes, test::TypeNames);

TYPED_TEST(FilterExtrema, FilteredIndicesAgreeWithAPlainSelection)
{
    expectPlainFilter<unsigned int, TypeParam>(56);
    expectPlainFilter<unsigned long, TypeParam>(57);
}

TYPED_TEST(FilterExtrema, FilteredRangesAgreeWithAPlainSelection)
{
    expectPlainFilter<ExtremaRange, TypeParam>(58);
}

TEST(FilterExtrema, AValueOfTheThresholdIsDropped)
{
    const std::vector<ovReal64> coords = {0, 1, 2};
    const std::vector<int> values = {4, 5, 6};
    Indices maxima = {0, 1, 2};
    filterExtrema<unsigned int, int>(eET_Maxima, 0.0, 5, coordsOf<unsigned int>(coords, values), maxima);
    EXPECT_EQ(maxima, Indices({2}));
    Indices minima = {0, 1, 2};
    filterExtrema<unsigned int, int>(eET_Minima, 0.0, 5, coordsOf<unsigned int>(coords, values), minima);
    EXPECT_EQ(minima, Indices({0}));
}

TEST(FilterExtrema, TheStrongestSuppressesThoseWithinTheDistance)
{
    const std::vector<ovReal64> coords = {0, 3, 6, 9};
    const std::vector<int> values = {5, 6, 7, 4};
    Indices maxima = {0, 1, 2, 3};
    filterExtrema<unsigned int, int>(eET_Maxima, 3.0, 0, coordsOf<unsigned int>(coords, values), maxima);
    EXPECT_EQ(maxima, Indices({0, 2}));
}

TEST(FilterExtrema, OneOfTwoEquallyStrongExtremaRemains)
{
    const std::vector<ovReal64> coords = {0, 1};
    const std::vector<int> values = {5, 5};
    Indices maxima = {0, 1};
    filterExtrema<unsigned int, int>(eET_Maxima, 2.0, 0, coordsOf<unsigned int>(coords, values), maxima);
    EXPECT_EQ(maxima.size(), 1u);
}

TEST(FilterExtrema, WhatIsKeptComesBackAscending)
{
    const std::vector<ovReal64> coords = {0, 10, 20};
    const std::vector<int> values = {5, 9, 7};
    Indices maxima = {2, 0, 1};
    filterExtrema<unsigned int, int>(eET_Maxima, 2.0, 0, coordsOf<unsigned int>(coords, values), maxima);
    EXPECT_EQ(maxima, Indices({0, 1, 2}));
}

TEST(FilterExtrema, MemoryIsTakenForTheCandidatesAndForEachCoordinateKept)
{
    for (const std::size_t size : {100, 10000})
    {
        std::vector<ovReal64> coords(size);
        std::iota(coords.begin(), coords.end(), 0.0);
        const std::vector<int> values(size, 5);
        const ExtremumCoords<unsigned int, int> getCoords = coordsOf<unsigned int>(coords, values);
        Indices extrema(size);
        const auto filter = [&](ovReal64 minDistance)
        {
            extrema.resize(size);
            std::iota(extrema.begin(), extrema.end(), 0);
            filterExtrema<unsigned int, int>(eET_Maxima, minDistance, 0, getCoords, extrema);
        };
        EXPECT_EQ(test::countSteadyAllocations([&] { filter(0.0); }), 1u);
        EXPECT_EQ(test::countSteadyAllocations([&] { filter(0.5); }), 1u + size);
    }
}

TEST(FilterExtrema, AnEmptyFunctionRaisesAndLeavesTheExtrema)
{
    Indices extrema = {1, 2};
    try
    {
        filterExtrema<unsigned int, int>(eET_Maxima, 0.0, 0, ExtremumCoords<unsigned int, int>(), extrema);
        ADD_FAILURE() << "Nothing was raised";
    }
    catch (const boost::bad_function_call& error)
    {
        EXPECT_STREQ(error.what(), "call to empty boost::function");
    }
    EXPECT_EQ(extrema, Indices({1, 2}));
}

TEST(FilterExtrema, AnEmptyFunctionIsNotCalledForNoExtremum)
{
    Indices extrema;
    filterExtrema<unsigned int, int>(eET_Maxima, 0.0, 0, ExtremumCoords<unsigned int, int>(), extrema);
    EXPECT_EQ(extrema, Indices());
}

TEST(FilterExtrema, RangesAreFilteredByTheirBasicCoordinates)
{
    const std::vector<int> profile = {0, 30, 30, 0, 25, 25, 0, 0, 0, 0, 0, 22, 0, 0, 8, 8, 0, 0, 0, 12, 11, 12, 0};
    ExtremaRangeColl peaks;
    findLocalDilatedExtrema<int>(profile, eEBP_Include, eET_Maxima, 5, peaks);
    EXPECT_EQ(peaks, Ranges({{1, 2}, {4, 2}, {11, 1}, {14, 2}, {19, 3}}));
    const auto getCoords = [&profile](const ExtremaRange& range, ovReal64& coord, int& value)
    { extractBasicExtremaCoords<int>(profile, range, coord, value); };
    filterExtrema<ExtremaRange, int>(eET_Maxima, 4.0, 10, getCoords, peaks);
    EXPECT_EQ(peaks, Ranges({{1, 2}, {11, 1}, {19, 3}}));
}

template <class T>
class ExtractBasicExtremaCoords : public ::testing::Test
{
};
TYPED_TEST_SUITE(ExtractBasicExtremaCoords, test::NumberTypes, test::TypeNames);

TYPED_TEST(ExtractBasicExtremaCoords, ARangeOfLengthOneReachesToTheNextElement)
{
    ovReal64 coord = 0.0;
    TypeParam value = 0;
    extractBasicExtremaCoords<TypeParam>({10, 20, 40}, ExtremaRange(1, 1), coord, value);
    EXPECT_EQ(coord, 1.5);
    EXPECT_EQ(value, TypeParam(30));
}

TYPED_TEST(ExtractBasicExtremaCoords, ARangeAtTheVeryEndReachesToTheFirstElement)
{
    ovReal64 coord = 0.0;
    TypeParam value = 0;
    extractBasicExtremaCoords<TypeParam>({10, 20, 40}, ExtremaRange(2, 1), coord, value);
    EXPECT_EQ(coord, 2.5);
    EXPECT_EQ(value, TypeParam(25));
}

TYPED_TEST(ExtractBasicExtremaCoords, ARangeOfEvenLengthIsRepresentedByTheElementBehindItsMiddle)
{
    ovReal64 coord = 0.0;
    TypeParam value = 0;
    extractBasicExtremaCoords<TypeParam>({10, 20, 40, 60}, ExtremaRange(0, 4), coord, value);
    EXPECT_EQ(coord, 2.0);
    EXPECT_EQ(value, TypeParam(40));
}

TYPED_TEST(ExtractBasicExtremaCoords, ARangeAcrossTheEndIsReducedByTheSize)
{
    ovReal64 coord = 0.0;
    TypeParam value = 0;
    extractBasicExtremaCoords<TypeParam>({10, 20, 40, 60}, ExtremaRange(3, 3), coord, value);
    EXPECT_EQ(coord, 0.5);
    EXPECT_EQ(value, TypeParam(15));
    extractBasicExtremaCoords<TypeParam>({10, 20, 40, 60}, ExtremaRange(3, 2), coord, value);
    EXPECT_EQ(coord, 0.0);
    EXPECT_EQ(value, TypeParam(10));
}

TEST(ExtractBasicExtremaCoords, TheMeanOfSignedValuesIsDividedTowardZero)
{
    ovReal64 coord = 0.0;
    int value = 0;
    extractBasicExtremaCoords<int>({-3, -2}, ExtremaRange(0, 1), coord, value);
    EXPECT_EQ(value, -2);
    signed char byte = 0;
    extractBasicExtremaCoords<signed char>({-128, -127}, ExtremaRange(0, 1), coord, byte);
    EXPECT_EQ(byte, -127);
}

TEST(ExtractBasicExtremaCoords, TheSumOfTwoValuesWrapsInItsPromotedType)
{
    ovReal64 coord = 0.0;
    unsigned char byte = 0;
    extractBasicExtremaCoords<unsigned char>({255, 253}, ExtremaRange(0, 1), coord, byte);
    EXPECT_EQ(byte, 254);
    unsigned int word = 0;
    extractBasicExtremaCoords<unsigned int>({4294967295u, 3u}, ExtremaRange(0, 1), coord, word);
    EXPECT_EQ(word, 1u);
    int number = 0;
    extractBasicExtremaCoords<int>({2147483647, 2147483647}, ExtremaRange(0, 1), coord, number);
    EXPECT_EQ(number, -1);
}

} // namespace math
} // namespace ovrix
