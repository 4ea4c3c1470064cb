#include <OVRIXMath/Statistics/ExtremaSearch.h>
#include <OVRIXUtil/NumericLimits.h>

#include <limits>
#include <random>
#include <string>
#include <support/AllocationCount.h>
#include <support/ExpectFailure.h>
#include <support/LogCapture.h>
#include <support/NumberTypes.h>
#include <support/PlainExtrema.h>
#include <vector>

namespace ovrix
{
namespace math
{

namespace
{

using Indices = std::vector<unsigned int>;
using Ranges = ExtremaRangeColl;
using test::plainDilatedExtrema;
using test::plainExpansion;
using test::plainLocalExtrema;
using test::plainStrictExtrema;

const eExtremaBorderPolicy g_policies[] = {eEBP_Include, eEBP_Exclude, eEBP_Periodic};
const eExtremaType g_types[] = {eET_Minima, eET_Maxima};
const double g_nan = std::numeric_limits<double>::quiet_NaN();

template <class T, class I = unsigned int>
std::vector<I> findStrict(const std::vector<T>& values, eExtremaBorderPolicy policy, eExtremaType type)
{
    std::vector<I> extrema = {77};
    findLocalStrictExtrema<T, I>(values, policy, type, extrema);
    return extrema;
}

template <class T, class I = unsigned int>
std::vector<I> findPlateaus(const std::vector<T>& values, eExtremaBorderPolicy policy, eExtremaType type)
{
    std::vector<I> extrema = {77};
    findLocalExtrema<T, I>(values, policy, type, extrema);
    return extrema;
}

template <class T>
Ranges findDilated(const std::vector<T>& values, eExtremaBorderPolicy policy, eExtremaType type, T dilateFactor)
{
    Ranges ranges = {{77, 1}};
    findLocalDilatedExtrema<T>(values, policy, type, dilateFactor, ranges);
    return ranges;
}

/// Small numbers, with plateaus.
template <class T>
std::vector<T> plateaus(std::mt19937& generator, std::size_t maxSize)
{
    std::vector<T> values(generator() % maxSize);
    const unsigned int nbLevels = 1 + generator() % 4;
    for (T& value : values)
        value = static_cast<T>(generator() % nbLevels);
    return values;
}

/// Numbers of the whole range, its ends, infinities and NaN, some of them repeated.
template <class T>
std::vector<T> anyPlateaus(std::mt19937& generator, std::size_t maxSize)
{
    std::vector<T> values(generator() % maxSize);
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = i > 0 && generator() % 3 == 0 ? values[generator() % i] : test::anyValue<T>(generator);
    return values;
}

/// A sequence of plateaus whose mean length is given, of a few heights in the middle of T or of any values.
template <class T>
std::vector<T> longPlateaus(std::mt19937& generator, std::size_t size, unsigned int meanLength, bool bAny)
{
    std::vector<T> values(size);
    T height = 2;
    for (T& value : values)
    {
        if (generator() % meanLength == 0)
            height = bAny ? test::anyValue<T>(generator) : static_cast<T>(20 + generator() % 4);
        value = height;
    }
    return values;
}

/// Calls `check` with sequences around multiples of 64, the number of elements that a search takes at once.
template <class T, class Check>
void forLongSequences(unsigned int seed, const Check& check)
{
    std::mt19937 generator(seed);
    for (const std::size_t size : {62, 63, 64, 65, 66, 127, 128, 129, 130, 192, 200, 321})
        for (const unsigned int meanLength : {1, 3, 30, 150})
            for (const bool bAny : {false, true})
                check(longPlateaus<T>(generator, size, meanLength, bAny));
}

} // namespace

template <class T>
class ExtremaSearch : public ::testing::Test
{
};
TYPED_TEST_SUITE(ExtremaSearch, test::NumberTypes, test::TypeNames);

TYPED_TEST(ExtremaSearch, StrictExtremaAgreeWithAPlainSearch)
{
    std::mt19937 generator(51);
    for (int draw = 0; draw < 3000; ++draw)
    {
        const std::vector<TypeParam> values =
            draw % 2 == 0 ? plateaus<TypeParam>(generator, 12) : anyPlateaus<TypeParam>(generator, 12);
        for (const eExtremaBorderPolicy policy : g_policies)
            for (const eExtremaType type : g_types)
            {
                const Indices expected = plainStrictExtrema(values, policy, type);
                EXPECT_EQ(findStrict<TypeParam>(values, policy, type), expected);
                EXPECT_EQ((findStrict<TypeParam, unsigned long>(values, policy, type)),
                          std::vector<unsigned long>(expected.begin(), expected.end()));
            }
    }
}

TYPED_TEST(ExtremaSearch, StrictExtremaOfLongSequencesAgreeWithAPlainSearch)
{
    forLongSequences<TypeParam>(52,
                                [](const std::vector<TypeParam>& values)
                                {
                                    for (const eExtremaBorderPolicy policy : g_policies)
                                        for (const eExtremaType type : g_types)
                                            EXPECT_EQ(findStrict<TypeParam>(values, policy, type),
                                                      plainStrictExtrema(values, policy, type));
                                });
}

TYPED_TEST(ExtremaSearch, PlateausOfLongSequencesAgreeWithAPlainSearch)
{
    forLongSequences<TypeParam>(49,
                                [](const std::vector<TypeParam>& values)
                                {
                                    for (const eExtremaBorderPolicy policy : g_policies)
                                        for (const eExtremaType type : g_types)
                                        {
                                            const Ranges expected = plainLocalExtrema(values, policy, type);
                                            EXPECT_EQ(findDilated<TypeParam>(values, policy, type, 0), expected);
                                            EXPECT_EQ(findPlateaus<TypeParam>(values, policy, type),
                                                      (plainExpansion<unsigned int>(values, expected)));
                                        }
                                });
}

TYPED_TEST(ExtremaSearch, DilatedExtremaOfLongSequencesAgreeWithAPlainSearch)
{
    forLongSequences<TypeParam>(50,
                                [](const std::vector<TypeParam>& values)
                                {
                                    for (const eExtremaBorderPolicy policy : g_policies)
                                        for (const eExtremaType type : g_types)
                                            for (const TypeParam dilateFactor : {1, 2, 100})
                                                EXPECT_EQ(findDilated(values, policy, type, dilateFactor),
                                                          plainDilatedExtrema(values, policy, type, dilateFactor));
                                });
}

TYPED_TEST(ExtremaSearch, PlateausAgreeWithAPlainSearch)
{
    std::mt19937 generator(53);
    for (int draw = 0; draw < 3000; ++draw)
    {
        const std::vector<TypeParam> values =
            draw % 2 == 0 ? plateaus<TypeParam>(generator, 14) : anyPlateaus<TypeParam>(generator, 14);
        for (const eExtremaBorderPolicy policy : g_policies)
            for (const eExtremaType type : g_types)
            {
                const Ranges expected = plainLocalExtrema(values, policy, type);
                EXPECT_EQ(findDilated<TypeParam>(values, policy, type, 0), expected);
                EXPECT_EQ(findPlateaus<TypeParam>(values, policy, type),
                          (plainExpansion<unsigned int>(values, expected)));
                EXPECT_EQ((findPlateaus<TypeParam, unsigned long>(values, policy, type)),
                          (plainExpansion<unsigned long>(values, expected)));
            }
    }
}

TYPED_TEST(ExtremaSearch, DilatedExtremaAgreeWithAPlainSearch)
{
    std::mt19937 generator(54);
    for (int draw = 0; draw < 4000; ++draw)
    {
        std::vector<TypeParam> values(generator() % 16);
        for (TypeParam& value : values)
            value = static_cast<TypeParam>(generator() % 9);
        const TypeParam dilateFactor = static_cast<TypeParam>(1 + generator() % 5);
        for (const eExtremaBorderPolicy policy : g_policies)
            for (const eExtremaType type : g_types)
                EXPECT_EQ(findDilated<TypeParam>(values, policy, type, dilateFactor),
                          plainDilatedExtrema(values, policy, type, dilateFactor));
    }
}

TYPED_TEST(ExtremaSearch, DilatedExtremaOfValuesThatWrapAgreeWithAPlainSearch)
{
    std::mt19937 generator(55);
    for (int draw = 0; draw < 4000; ++draw)
    {
        const std::vector<TypeParam> values = anyPlateaus<TypeParam>(generator, 12);
        TypeParam dilateFactor = test::anyValue<TypeParam>(generator);
        if (dilateFactor < TypeParam(0))
            dilateFactor = TypeParam(3);
        for (const eExtremaBorderPolicy policy : g_policies)
            for (const eExtremaType type : g_types)
                EXPECT_EQ(findDilated<TypeParam>(values, policy, type, dilateFactor),
                          plainDilatedExtrema(values, policy, type, dilateFactor));
    }
}

TYPED_TEST(ExtremaSearch, AnEmptySequenceHasNoExtremum)
{
    for (const eExtremaBorderPolicy policy : g_policies)
        for (const eExtremaType type : g_types)
        {
            EXPECT_EQ(findStrict<TypeParam>({}, policy, type), Indices());
            EXPECT_EQ(findPlateaus<TypeParam>({}, policy, type), Indices());
            EXPECT_EQ(findDilated<TypeParam>({}, policy, type, 2), Ranges());
        }
}

TYPED_TEST(ExtremaSearch, ASingleElementIsAPlateauButNoStrictExtremum)
{
    for (const eExtremaType type : g_types)
    {
        for (const eExtremaBorderPolicy policy : g_policies)
            EXPECT_EQ(findStrict<TypeParam>({5}, policy, type), Indices());
        EXPECT_EQ(findPlateaus<TypeParam>({5}, eEBP_Include, type), Indices({0}));
        EXPECT_EQ(findPlateaus<TypeParam>({5}, eEBP_Periodic, type), Indices({0}));
        EXPECT_EQ(findPlateaus<TypeParam>({5}, eEBP_Exclude, type), Indices());
    }
}

TYPED_TEST(ExtremaSearch, TheElementBeforeTheLastIsNoStrictExtremum)
{
    EXPECT_EQ(findStrict<TypeParam>({3, 1, 3, 1, 3}, eEBP_Exclude, eET_Minima), Indices({1}));
}

TYPED_TEST(ExtremaSearch, TheLastElementIsAStrictExtremumTwiceIfItBeatsTheFirst)
{
    EXPECT_EQ(findStrict<TypeParam>({2, 1, 2, 1, 0}, eEBP_Include, eET_Minima), Indices({1, 4, 4}));
    EXPECT_EQ(findStrict<TypeParam>({0, 1, 2, 3, 1}, eEBP_Include, eET_Minima), Indices({0, 4}));
    EXPECT_EQ(findStrict<TypeParam>({1, 2}, eEBP_Include, eET_Maxima), Indices({1, 1}));
}

TYPED_TEST(ExtremaSearch, OnACircleOnlyTheFirstElementIsAStrictExtremum)
{
    EXPECT_EQ(findStrict<TypeParam>({0, 2, 3, 1}, eEBP_Periodic, eET_Minima), Indices({0}));
    EXPECT_EQ(findStrict<TypeParam>({1, 2, 3, 0}, eEBP_Periodic, eET_Minima), Indices());
}

TYPED_TEST(ExtremaSearch, AnUnknownTypeHasNoStrictExtremumButPlateausThatAreMaxima)
{
    const eExtremaType unknown = static_cast<eExtremaType>(2);
    const std::vector<TypeParam> values = {0, 6, 1, 2, 0};
    EXPECT_EQ(findStrict<TypeParam>(values, eEBP_Include, unknown), Indices());
    EXPECT_EQ(findPlateaus<TypeParam>(values, eEBP_Include, unknown), Indices({1, 3}));
    EXPECT_EQ(findDilated<TypeParam>(values, eEBP_Include, unknown, 2), Ranges({{1, 1}}));
}

TYPED_TEST(ExtremaSearch, AnUnknownPolicyExcludesTheEnds)
{
    const eExtremaBorderPolicy unknown = static_cast<eExtremaBorderPolicy>(3);
    const std::vector<TypeParam> values = {4, 1, 3, 1, 1, 5};
    EXPECT_EQ(findStrict<TypeParam>(values, unknown, eET_Maxima), Indices({2}));
    EXPECT_EQ(findPlateaus<TypeParam>(values, unknown, eET_Maxima), Indices({2}));
}

TYPED_TEST(ExtremaSearch, APlateauIsAnExtremumUnderEveryPolicy)
{
    for (const eExtremaBorderPolicy policy : g_policies)
        EXPECT_EQ(findPlateaus<TypeParam>({1, 2, 2, 1}, policy, eET_Maxima), Indices({1, 2}));
}

TYPED_TEST(ExtremaSearch, APlateauWithABetterSideIsNoExtremum)
{
    EXPECT_EQ(findPlateaus<TypeParam>({1, 2, 2, 2, 3, 1}, eEBP_Include, eET_Maxima), Indices({4}));
    EXPECT_EQ(findPlateaus<TypeParam>({1, 3, 2, 2, 2, 1}, eEBP_Include, eET_Maxima), Indices({1}));
}

TYPED_TEST(ExtremaSearch, AConstantSequenceIsOneRangeUnlessTheEndsAreExcluded)
{
    const std::vector<TypeParam> values(6, 3);
    for (const eExtremaType type : g_types)
    {
        EXPECT_EQ(findDilated<TypeParam>(values, eEBP_Include, type, 0), Ranges({{0, 6}}));
        EXPECT_EQ(findDilated<TypeParam>(values, eEBP_Periodic, type, 0), Ranges({{0, 6}}));
        EXPECT_EQ(findDilated<TypeParam>(values, eEBP_Exclude, type, 0), Ranges());
    }
}

TYPED_TEST(ExtremaSearch, AConstantSequenceOfTheLimitIsOneRangeThoughTheEndsAreExcluded)
{
    const TypeParam min = NumericLimits<TypeParam>::s_min;
    const TypeParam max = NumericLimits<TypeParam>::s_max;
    EXPECT_EQ(findDilated<TypeParam>({min, min}, eEBP_Exclude, eET_Minima, 0), Ranges({{0, 2}}));
    EXPECT_EQ(findDilated<TypeParam>({max, max}, eEBP_Exclude, eET_Maxima, 0), Ranges({{0, 2}}));
}

TYPED_TEST(ExtremaSearch, AConstantSequenceOfTheWorstValueHasNoRangeThoughTheEndsAreIncluded)
{
    const TypeParam max = NumericLimits<TypeParam>::s_max;
    EXPECT_EQ(findDilated<TypeParam>({max, max}, eEBP_Include, eET_Minima, 0), Ranges());
}

TYPED_TEST(ExtremaSearch, MinimaOnACircle)
{
    EXPECT_EQ(findPlateaus<TypeParam>({5, 1, 1, 5, 0, 5}, eEBP_Periodic, eET_Minima), Indices({1, 2, 4}));
    EXPECT_EQ(findDilated<TypeParam>({5, 1, 1, 5, 0, 5}, eEBP_Periodic, eET_Minima, 0), Ranges({{1, 2}, {4, 1}}));
}

TYPED_TEST(ExtremaSearch, ARangeAtTheStartIsJoinedToOneAtTheEndOfACircle)
{
    const std::vector<TypeParam> values = {0, 2, 0, 3, 0, 2, 0};
    EXPECT_EQ(findDilated<TypeParam>(values, eEBP_Periodic, eET_Minima, 0), Ranges({{2, 1}, {4, 1}, {6, 2}}));
    EXPECT_EQ(findPlateaus<TypeParam>(values, eEBP_Periodic, eET_Minima), Indices({2, 4, 6, 0}));
}

TYPED_TEST(ExtremaSearch, TwoRangesOfACircleAreLeftApart)
{
    EXPECT_EQ(findDilated<TypeParam>({0, 3, 3, 0}, eEBP_Periodic, eET_Minima, 0), Ranges({{0, 1}, {3, 1}}));
    EXPECT_EQ(findPlateaus<TypeParam>({0, 3, 3, 0}, eEBP_Periodic, eET_Minima), Indices({0, 3}));
}

TYPED_TEST(ExtremaSearch, APlateauAcrossTheEndsOfACircleIsEliminatedFromEitherSide)
{
    EXPECT_EQ(findPlateaus<TypeParam>({1, 1, 0, 5, 1, 1}, eEBP_Periodic, eET_Minima), Indices({2}));
    EXPECT_EQ(findPlateaus<TypeParam>({1, 1, 5, 0, 1, 1}, eEBP_Periodic, eET_Minima), Indices({3}));
}

TYPED_TEST(ExtremaSearch, TheDilateFactorCutsLowerPeaksOff)
{
    const std::vector<TypeParam> values = {0, 5, 4, 6, 0};
    EXPECT_EQ(findDilated<TypeParam>(values, eEBP_Include, eET_Maxima, 0), Ranges({{1, 1}, {3, 1}}));
    EXPECT_EQ(findDilated<TypeParam>(values, eEBP_Include, eET_Maxima, 2), Ranges({{1, 3}}));
}

TYPED_TEST(ExtremaSearch, TheReserveOfThePlateauSearchIsExact)
{
    std::vector<unsigned int> extrema;
    findLocalExtrema<TypeParam, unsigned int>({1, 2, 2, 2, 1, 3, 0}, eEBP_Include, eET_Maxima, extrema);
    EXPECT_EQ(extrema.size(), 4u);
    EXPECT_EQ(extrema.capacity(), 4u);
}

TYPED_TEST(ExtremaSearch, AllocationsDoNotGrowWithTheSequence)
{
    for (const std::size_t size : {1000, 100000})
    {
        std::mt19937 generator(48);
        const std::vector<TypeParam> values = longPlateaus<TypeParam>(generator, size, 3, false);
        std::vector<unsigned int> extrema;
        ExtremaRangeColl ranges;
        // Two tables of comparisons and one of extrema, and with a dilate factor the copy of the sequence.
        for (const eExtremaBorderPolicy policy : g_policies)
        {
            EXPECT_EQ(
                test::countSteadyAllocations([&] { findLocalStrictExtrema(values, policy, eET_Maxima, extrema); }), 3u);
            EXPECT_EQ(test::countSteadyAllocations([&] { findLocalExtrema(values, policy, eET_Minima, extrema); }), 3u);
            EXPECT_EQ(test::countSteadyAllocations(
                          [&] { findLocalDilatedExtrema(values, policy, eET_Maxima, TypeParam(0), ranges); }),
                      3u);
            EXPECT_EQ(test::countSteadyAllocations(
                          [&] { findLocalDilatedExtrema(values, policy, eET_Minima, TypeParam(1), ranges); }),
                      4u);
        }
    }
}

TYPED_TEST(ExtremaSearch, TheOutputIsAllocatedOnce)
{
    std::mt19937 generator(47);
    const std::vector<TypeParam> values = longPlateaus<TypeParam>(generator, 10000, 3, false);
    std::size_t nbBefore = test::getNbAllocations();
    std::vector<unsigned int> extrema;
    findLocalStrictExtrema(values, eEBP_Include, eET_Maxima, extrema);
    EXPECT_EQ(test::getNbAllocations() - nbBefore, 4u);
    nbBefore = test::getNbAllocations();
    ExtremaRangeColl ranges;
    findLocalDilatedExtrema(values, eEBP_Include, eET_Maxima, TypeParam(0), ranges);
    EXPECT_EQ(test::getNbAllocations() - nbBefore, 4u);
}

template <class T>
class SignedExtremaSearch : public ::testing::Test
{
};
using SignedTypes = ::testing::Types<signed char, short, int, long, float, double>;
TYPED_TEST_SUITE(SignedExtremaSearch, SignedTypes, test::TypeNames);

TYPED_TEST(SignedExtremaSearch, ANegativeDilateFactorRaisesAndLeavesTheRanges)
{
    const test::LogCapture log;
    Ranges ranges = {{77, 1}};
    test::expectMathRaises(
        "Dilate factor should be positive",
        [&ranges] {
            findLocalDilatedExtrema<TypeParam>({1, 2, 1}, eEBP_Include, eET_Maxima, TypeParam(-1), ranges);
        });
    EXPECT_EQ(ranges, Ranges({{77, 1}}));
    EXPECT_EQ(log.getTexts(), std::vector<std::string>({"Dilate factor should be positive"}));
}

template <class T>
class UnsignedExtremaSearch : public ::testing::Test
{
};
using UnsignedTypes = ::testing::Types<unsigned char, unsigned short, unsigned int, unsigned long>;
TYPED_TEST_SUITE(UnsignedExtremaSearch, UnsignedTypes, test::TypeNames);

TYPED_TEST(UnsignedExtremaSearch, ALargeDilateFactorLeavesOnePlateauOfMaxima)
{
    const TypeParam dilateFactor = static_cast<TypeParam>(-1);
    EXPECT_EQ(findDilated<TypeParam>({1, 9, 2, 9, 1}, eEBP_Periodic, eET_Maxima, dilateFactor), Ranges({{0, 5}}));
}

TYPED_TEST(UnsignedExtremaSearch, AMinimumThatIsShiftedBeyondTheRangeWrapsAroundAndStays)
{
    const TypeParam max = NumericLimits<TypeParam>::s_max;
    const std::vector<TypeParam> values = {max, static_cast<TypeParam>(max - 2), max, 0, max};
    // The first minimum wraps to 7, which the sequence lifts back to where it was; the other one rises by 9.
    EXPECT_EQ(findDilated<TypeParam>(values, eEBP_Include, eET_Minima, 9), Ranges({{1, 1}, {3, 1}}));
}

TEST(ExtremaSearch, AnElementThatIsNotANumberBoundsTheSearch)
{
    EXPECT_EQ(findDilated<double>({1, 2, g_nan, 3, 1}, eEBP_Include, eET_Maxima, 0), Ranges({{1, 3}}));
}

TEST(ExtremaSearch, ADilateFactorThatIsNotANumberCutsNothingOff)
{
    EXPECT_EQ(findDilated<double>({0, 5, 4, 6, 0}, eEBP_Include, eET_Maxima, g_nan), Ranges({{1, 1}, {3, 1}}));
}

} // namespace math
} // namespace ovrix
