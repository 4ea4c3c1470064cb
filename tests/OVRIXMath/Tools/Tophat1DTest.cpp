#include <OVRIXMath/Tools/Tophat1D.h>

#include <limits>
#include <random>
#include <support/AllocationCount.h>
#include <support/NumberTypes.h>
#include <support/PlainTophat.h>
#include <vector>

namespace ovrix
{
namespace math
{

namespace
{

using Indices = std::vector<int>;
using test::findPlainly;

template <class T>
Indices findPeaks(const std::vector<T>& input, eTopHat1DExtremumType type, float width, float threshold)
{
    Indices indices = {-5};
    const ovUInt32 nbRuns = tophatThreshold1D<T>(input, false, type, width, 1.0f, threshold, indices);
    EXPECT_EQ(nbRuns, indices.size());
    return indices;
}

template <class T>
Indices findValleys(const std::vector<T>& input, eTopHat1DExtremumType type, float width, float threshold)
{
    Indices indices = {-5};
    const ovUInt32 nbRuns = tophatThreshold1D<T>(input, true, type, width, 1.0f, threshold, indices);
    EXPECT_EQ(nbRuns, indices.size());
    return indices;
}

} // namespace

template <class T>
class Tophat1D : public ::testing::Test
{
};
using TophatTypes = ::testing::Types<unsigned int, unsigned char, signed char, float, int, unsigned short, short>;
TYPED_TEST_SUITE(Tophat1D, TophatTypes, test::TypeNames);

TYPED_TEST(Tophat1D, AgreesWithAPlainSearchOnSequencesWithPlateaus)
{
    std::mt19937 generator(21);
    for (int draw = 0; draw < 4000; ++draw)
    {
        std::vector<TypeParam> input(generator() % 60);
        for (TypeParam& value : input)
            value = static_cast<TypeParam>(generator() % 5);
        const bool bValleys = generator() % 2 == 0;
        const int type = static_cast<int>(generator() % 5);
        const int r = static_cast<int>(generator() % 8);
        const float threshold = static_cast<float>(generator() % 3);
        Indices indices;
        const ovUInt32 nbRuns = tophatThreshold1D<TypeParam>(input, bValleys, static_cast<eTopHat1DExtremumType>(type),
                                                             static_cast<float>(r), 1.0f, threshold, indices);
        EXPECT_EQ(indices, findPlainly(input, bValleys, type, r, threshold));
        EXPECT_EQ(nbRuns, indices.size());
    }
}

TYPED_TEST(Tophat1D, AgreesWithAPlainSearchOnValuesOfTheWholeRange)
{
    std::mt19937 generator(22);
    for (int draw = 0; draw < 4000; ++draw)
    {
        std::vector<TypeParam> input(generator() % 200); // up to a group of windows of any type, and a rest
        for (TypeParam& value : input)
            value = test::anyValue<TypeParam>(generator);
        const bool bValleys = generator() % 2 == 0;
        const int r = static_cast<int>(generator() % 5);
        const float threshold = test::anyValue<float>(generator);
        Indices indices;
        tophatThreshold1D<TypeParam>(input, bValleys, eTHET_Extremum, static_cast<float>(r), 1.0f, threshold, indices);
        EXPECT_EQ(indices, findPlainly(input, bValleys, 3, r, threshold));
    }
}

TYPED_TEST(Tophat1D, AgreesWithAPlainSearchOnLongSequences)
{
    std::mt19937 generator(23);
    std::vector<TypeParam> input(10000); // many groups of windows that are scanned side by side, and a rest
    for (TypeParam& value : input)
        value = static_cast<TypeParam>(generator() % 100);
    for (const int r : {1, 7, 300})
    {
        EXPECT_EQ(findPeaks(input, eTHET_Extremum, static_cast<float>(r), 60.0f),
                  findPlainly(input, false, 3, r, 60.0f));
        EXPECT_EQ(findValleys(input, eTHET_Extremum, static_cast<float>(r), 60.0f),
                  findPlainly(input, true, 3, r, 60.0f));
    }
}

TYPED_TEST(Tophat1D, AFlatSequenceHasNoRun)
{
    const std::vector<TypeParam> input(20, 7);
    EXPECT_EQ(findPeaks(input, eTHET_Middle, 3.0f, 0.0f), Indices());
    EXPECT_EQ(findValleys(input, eTHET_Middle, 3.0f, 0.0f), Indices());
}

TYPED_TEST(Tophat1D, AnEmptySequenceHasNoRun)
{
    EXPECT_EQ(findPeaks(std::vector<TypeParam>(), eTHET_Middle, 3.0f, -1.0f), Indices());
}

TYPED_TEST(Tophat1D, APeakAtTheLastElementIsNotReported)
{
    const std::vector<TypeParam> input = {0, 0, 9, 0, 0, 9};
    EXPECT_EQ(findPeaks(input, eTHET_Middle, 2.0f, 1.0f), Indices({2}));
}

TYPED_TEST(Tophat1D, APeakAtTheFirstElementIsReported)
{
    const std::vector<TypeParam> input = {9, 0, 0, 0};
    EXPECT_EQ(findPeaks(input, eTHET_Middle, 2.0f, 1.0f), Indices({0}));
}

TYPED_TEST(Tophat1D, AHeightOfTheThresholdIsBelow)
{
    const std::vector<TypeParam> input = {0, 0, 9, 0, 0};
    EXPECT_EQ(findPeaks(input, eTHET_Middle, 2.0f, 9.0f), Indices());
    EXPECT_EQ(findPeaks(input, eTHET_Middle, 2.0f, 8.5f), Indices({2}));
}

TYPED_TEST(Tophat1D, APeakWiderThanTheWindowIsNoPeak)
{
    const std::vector<TypeParam> input = {0, 0, 9, 9, 9, 0, 0, 9, 9, 0, 0};
    EXPECT_EQ(findPeaks(input, eTHET_First, 1.0f, 1.0f), Indices({7}));
    EXPECT_EQ(findPeaks(input, eTHET_First, 2.0f, 1.0f), Indices({2, 7}));
}

TYPED_TEST(Tophat1D, TheTypeChoosesTheReportedPoint)
{
    const std::vector<TypeParam> peaks = {0, 0, 0, 0, 0, 4, 5, 9, 9, 0, 0, 0, 0, 0};
    EXPECT_EQ(findPeaks(peaks, eTHET_Middle, 4.0f, 1.0f), Indices({6}));
    EXPECT_EQ(findPeaks(peaks, eTHET_First, 4.0f, 1.0f), Indices({5}));
    EXPECT_EQ(findPeaks(peaks, eTHET_Last, 4.0f, 1.0f), Indices({8}));
    EXPECT_EQ(findPeaks(peaks, eTHET_Extremum, 4.0f, 1.0f), Indices({7}));
    const std::vector<TypeParam> valleys = {9, 9, 9, 9, 9, 4, 5, 0, 0, 9, 9, 9, 9, 9};
    EXPECT_EQ(findValleys(valleys, eTHET_Extremum, 4.0f, 1.0f), Indices({7}));
}

TYPED_TEST(Tophat1D, AnUnknownTypeReportsTheMiddleOfTheFirstRunForEveryRun)
{
    const std::vector<TypeParam> input = {0, 0, 0, 9, 9, 9, 0, 0, 0, 9, 0, 0, 0, 9, 9, 0, 0, 0};
    EXPECT_EQ(findPeaks(input, static_cast<eTopHat1DExtremumType>(4), 3.0f, 1.0f), Indices({4, 4, 4}));
    EXPECT_EQ(findPeaks(input, static_cast<eTopHat1DExtremumType>(-1), 3.0f, 1.0f), Indices({4, 4, 4}));
}

TYPED_TEST(Tophat1D, TheWindowReachesTheQuotientOfWidthAndStepTruncated)
{
    const std::vector<TypeParam> input = {0, 0, 0, 9, 9, 9, 0, 0, 0};
    Indices indices;
    EXPECT_EQ(tophatThreshold1D<TypeParam>(input, false, eTHET_First, 1.0f, 0.5f, 1.0f, indices), 1u);
    EXPECT_EQ(tophatThreshold1D<TypeParam>(input, false, eTHET_First, 0.99f, 0.5f, 1.0f, indices), 0u);
}

TYPED_TEST(Tophat1D, AWindowLargerThanTheSequenceIsCut)
{
    const std::vector<TypeParam> input = {1, 5, 2};
    for (const float width : {3.0f, 1e9f, 1e30f, std::numeric_limits<float>::infinity()})
        EXPECT_EQ(findPeaks(input, eTHET_First, width, 2.0f), Indices({1})) << width;
}

TYPED_TEST(Tophat1D, AWindowWithoutAMeaningfulWidthLeavesNoHeight)
{
    const std::vector<TypeParam> input = {0, 9, 0, 9, 0};
    for (const float width : {0.0f, -1.0f, -1e30f, std::numeric_limits<float>::quiet_NaN()})
        EXPECT_EQ(findPeaks(input, eTHET_First, width, 0.0f), Indices()) << width;
    Indices indices;
    EXPECT_EQ(tophatThreshold1D<TypeParam>(input, false, eTHET_First, 0.0f, 0.0f, 0.0f, indices), 0u);
}

TYPED_TEST(Tophat1D, AThresholdThatIsNotANumberOpensNoRun)
{
    const std::vector<TypeParam> input = {0, 9, 0};
    EXPECT_EQ(findPeaks(input, eTHET_First, 1.0f, std::numeric_limits<float>::quiet_NaN()), Indices());
}

TYPED_TEST(Tophat1D, AllocationsDoNotGrowWithTheSequence)
{
    for (const std::size_t size : {1000, 50000})
    {
        std::mt19937 generator(24);
        std::vector<TypeParam> input(size);
        for (TypeParam& value : input)
            value = static_cast<TypeParam>(generator() % 100);
        Indices indices;
        for (const bool bValleys : {false, true})
        {
            // The sequence and what the first filter made of it, with copies of their ends, and the profile.
            EXPECT_EQ(test::countSteadyAllocations(
                          [&] { tophatThreshold1D(input, bValleys, eTHET_Extremum, 5.0f, 1.0f, 40.0f, indices); }),
                      3u);
            EXPECT_GT(indices.size(), 10u);
        }
    }
}

TEST(Tophat1D, ADifferenceThatTheElementTypeCannotHoldWrapsAround)
{
    // 127 - (-128) is -1 in eight bits.
    EXPECT_EQ(findPeaks<signed char>({-128, 127, -128}, eTHET_First, 1.0f, 0.0f), Indices());
    EXPECT_EQ(findPeaks<short>({-128, 127, -128}, eTHET_First, 1.0f, 254.0f), Indices({1}));
}

TEST(Tophat1D, TheHeightIsComparedInFloat)
{
    // 2^24 + 1 is no float and rounds to the threshold.
    EXPECT_EQ(findPeaks<int>({0, 16777217, 0}, eTHET_First, 1.0f, 16777216.0f), Indices());
    EXPECT_EQ(findPeaks<int>({0, 16777218, 0}, eTHET_First, 1.0f, 16777216.0f), Indices({1}));
}

} // namespace math
} // namespace ovrix
