// The examples of docs/guides/sequences.md, word for word, and what the guide tells of them.

#include <OVRIXMath/Statistics/BasicStatistics.h>
#include <OVRIXMath/Tools/GaussianSmoothing1D.h>
#include <OVRIXMath/Tools/Tophat1D.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <support/HeaderExample.h>
#include <vector>

namespace ovrix
{
namespace math
{

namespace
{

using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using Pixels = std::vector<unsigned char>;

double computeSampleVariance(const std::vector<double>& values)
{
    const auto n = static_cast<double>(values.size());
    const double sampleVariance = variance(values) * n / (n - 1.0);
    return sampleVariance;
}

double correlateWidened(const Pixels& first, const Pixels& second)
{
    const std::vector<double> wideFirst(first.begin(), first.end());
    const std::vector<double> wideSecond(second.begin(), second.end());
    const double coefficient = correlation(wideFirst, wideSecond);
    return coefficient;
}

template <class T>
std::vector<float> smoothFromBothEnds(const std::vector<T>& values, float sigma)
{
    const std::vector<float> forwards = gaussianSmoothing1D(values, sigma);
    std::vector<float> smooth = gaussianSmoothing1D(std::vector<T>(values.rbegin(), values.rend()), sigma);
    std::reverse(smooth.begin(), smooth.end());
    for (std::size_t i = 0; i < smooth.size(); ++i)
        smooth[i] = 0.5f * (smooth[i] + forwards[i]);
    return smooth;
}

std::vector<int> findScratches(const Pixels& line)
{
    std::vector<int> scratches; // middles of what is at most 6 pixels wide and more than 20 brighter
    tophatThreshold1D(line, false, eTHET_Middle, 3.0f, 1.0f, 20.0f, scratches);
    return scratches;
}

/// A line of grey 50 with a bright stretch.
Pixels brightStretch(std::size_t first, std::size_t length, unsigned char grey = 90)
{
    Pixels line(40, 50);
    std::fill_n(line.begin() + static_cast<std::ptrdiff_t>(first), length, grey);
    return line;
}

/// An impulse in the middle of zeros.
std::vector<float> impulse()
{
    std::vector<float> values(41, 0.0f);
    values[20] = 1.0f;
    return values;
}

/// The place of the centre of gravity.
double centreOf(const std::vector<float>& values)
{
    double sum = 0.0;
    double moment = 0.0;
    for (std::size_t i = 0; i < values.size(); ++i)
    {
        sum += values[i];
        moment += static_cast<double>(i) * values[i];
    }
    return moment / sum;
}

} // namespace

TEST(SequencesGuide, ItsExamplesCompile)
{
    const std::string code = test::readCode(__FILE__);
    for (const std::string& example : test::readGuideExamples("docs/guides/sequences.md"))
        EXPECT_THAT(code, HasSubstr(example));
}

TEST(SequencesGuide, TheVarianceOfASampleHasTheDivisorOfOneLess)
{
    EXPECT_EQ(computeSampleVariance({1.0, 3.0}), 2.0);
}

TEST(SequencesGuide, GreyValuesCorrelateWhenTheyAreWidened)
{
    const Pixels line = {16, 17, 18, 200};
    EXPECT_NEAR(correlateWidened(line, line), 1.0, 1e-12);
    EXPECT_EQ(correlateWidened(line, Pixels(4, 77)), 0.0);
}

TEST(SequencesGuide, SmoothingMovesToTheRightByUpToHalfAnElement)
{
    for (const float sigma : {0.75f, 1.0f, 1.24f, 1.74f, 2.0f, 2.74f, 5.0f})
    {
        const double shift = centreOf(gaussianSmoothing1D(impulse(), sigma)) - 20.0;
        EXPECT_GT(shift, 0.2) << sigma;
        EXPECT_LE(shift, 0.5) << sigma;
    }
}

TEST(SequencesGuide, SmoothingFromBothEndsMovesNothing)
{
    for (const float sigma : {0.75f, 1.0f, 2.0f, 5.0f})
    {
        const std::vector<float> smooth = smoothFromBothEnds(impulse(), sigma);
        for (std::size_t i = 0; i < smooth.size(); ++i)
            EXPECT_EQ(smooth[i], smooth[40 - i]) << sigma << ' ' << i;
        EXPECT_GT(smooth[21], 0.0f);
    }
}

TEST(SequencesGuide, SmallSigmasGiveZero)
{
    EXPECT_THAT(gaussianSmoothing1D(std::vector<int>(5, 9), 0.7499f), Each(0.0f));
    EXPECT_THAT(gaussianSmoothing1D(std::vector<int>(5, 9), 0.75f), Each(9.0f));
}

TEST(SequencesGuide, AScratchIsAtMostSixPixelsWide)
{
    EXPECT_THAT(findScratches(brightStretch(10, 1)), ElementsAre(10));
    EXPECT_THAT(findScratches(brightStretch(10, 6)), ElementsAre(12));
    EXPECT_THAT(findScratches(brightStretch(10, 7)), IsEmpty());
}

TEST(SequencesGuide, AScratchIsMoreThanTwentyBrighter)
{
    EXPECT_THAT(findScratches(brightStretch(10, 2, 70)), IsEmpty());
    EXPECT_THAT(findScratches(brightStretch(10, 2, 71)), ElementsAre(10));
}

TEST(SequencesGuide, AScratchAtTheStartIsAtMostThreePixelsWide)
{
    EXPECT_THAT(findScratches(brightStretch(0, 3)), ElementsAre(1));
    EXPECT_THAT(findScratches(brightStretch(0, 4)), IsEmpty());
    EXPECT_THAT(findScratches(brightStretch(1, 6)), ElementsAre(3));
}

TEST(SequencesGuide, AScratchAtTheEndIsNotReported)
{
    EXPECT_THAT(findScratches(brightStretch(38, 2)), IsEmpty());
    EXPECT_THAT(findScratches(brightStretch(33, 6)), ElementsAre(35));
}

} // namespace math
} // namespace ovrix
