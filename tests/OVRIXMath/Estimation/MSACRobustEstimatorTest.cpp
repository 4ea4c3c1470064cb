#include <OVRIXMath/Estimation/MSACRobustEstimator.h>

#include <gtest/gtest.h>

#include <support/Bits.h>
#include <support/Builders.h>
#include <support/OpenScorer.h>

namespace ovrix
{
namespace math
{

namespace
{

using test::anyEstimator;
using test::makeVector;

/// The score, restated.
double restatedScore(const ResidualsSet& residuals, double threshold, double outlierRatio)
{
    unsigned int count = 0;
    double sum = 0.0;
    for (const double r : residuals)
    {
        if (r * r < threshold * threshold)
            sum += r * r;
        if (r * r >= threshold * threshold)
        {
            sum += threshold * threshold;
            ++count;
        }
    }
    return residuals.size() * outlierRatio >= count ? sum : NumericLimits<double>::s_max;
}

class MSACScore : public testing::Test
{
protected:
    MSACScore()
    {
        _scorer.init(anyEstimator(), 2.0);
    }

    test::OpenScorer<MSACRobustEstimator> _scorer;
};

} // namespace

TEST_F(MSACScore, IsTheSumOfTheTruncatedSquares)
{
    EXPECT_EQ(_scorer.computeScore(makeVector({1, -1.5, 9, 0, -9})), 1 + 2.25 + 4 + 0 + 4);
}

TEST_F(MSACScore, IsZeroForResidualsOfZero)
{
    EXPECT_EQ(_scorer.computeScore(makeVector({0, 0, 0, 0})), 0.0);
}

TEST_F(MSACScore, AResidualOfTheThresholdAddsItsSquareAndCountsAsAnOutlier)
{
    EXPECT_EQ(_scorer.computeScore(makeVector({2, -2, 0, 0, 0})), 8.0);
    EXPECT_EQ(_scorer.computeScore(makeVector({2, -2, 2, 0, 0})), NumericLimits<double>::s_max);
}

TEST_F(MSACScore, RejectsMoreOutliersThanExpected)
{
    EXPECT_EQ(_scorer.computeScore(makeVector({3, -3, 9, 0, 0, 0, 0, 0, 9, -9})), NumericLimits<double>::s_max);
}

TEST_F(MSACScore, SumsInTheOrderOfTheResiduals)
{
    // 2^26 squared and 1 squared: 2^52 + 1 is exact, and 2^53 + 1 is not.
    _scorer.init(anyEstimator(), 1e10);
    const double large = 67108864.0;
    EXPECT_EQ(_scorer.computeScore(makeVector({large, large, 1})), 9007199254740992.0);
    EXPECT_EQ(_scorer.computeScore(makeVector({1, 1, large, large})), 9007199254740994.0);
}

TEST_F(MSACScore, OfRandomResidualsBitByBit)
{
    test::RandomData random(42);
    for (int trial = 0; trial < 1000; ++trial)
    {
        const double threshold = trial % 3 == 0 ? 1.0 : random.real(0.0, 10.0);
        const double ratio = random.real(0.0, 1.0);
        const ResidualsSet residuals = test::anyResidualsWithOddities(random, random.integer(1, 40));
        _scorer.init(anyEstimator(), threshold);
        _scorer.setExpectedOutlierRatio(ratio);
        ASSERT_EQ(test::bitsOf(_scorer.computeScore(residuals)),
                  test::bitsOf(restatedScore(residuals, threshold, ratio)));
    }
}

} // namespace math
} // namespace ovrix
