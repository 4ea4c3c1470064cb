#include <OVRIXMath/Estimation/RANSACRobustEstimator.h>

#include <gtest/gtest.h>

#include <cmath>
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
    for (const double r : residuals)
    {
        if (r * r >= threshold * threshold)
            ++count;
    }
    return residuals.size() * outlierRatio >= count ? count : NumericLimits<double>::s_max;
}

class RANSACScore : public testing::Test
{
protected:
    RANSACScore()
    {
        _scorer.init(anyEstimator(), 2.0);
    }

    test::OpenScorer<RANSACRobustEstimator> _scorer;
};

} // namespace

TEST_F(RANSACScore, IsTheNumberOfOutliers)
{
    EXPECT_EQ(_scorer.computeScore(makeVector({3, -3, 9, 0, 0, 0, 0, 0, 0, -9})), 4.0);
}

TEST_F(RANSACScore, RejectsMoreOutliersThanExpected)
{
    EXPECT_EQ(_scorer.computeScore(makeVector({3, -3, 9, 0, 0, 0, 0, 0, 9, -9})), NumericLimits<double>::s_max);
}

TEST_F(RANSACScore, AResidualOfTheThresholdIsAnOutlier)
{
    EXPECT_EQ(_scorer.computeScore(makeVector({2, -2, std::nextafter(2.0, 0.0), 0, 0})), 2.0);
}

TEST_F(RANSACScore, ComparesSquares)
{
    // The threshold's square vanishes, and every square reaches 0.
    _scorer.init(anyEstimator(), 1e-180);
    EXPECT_EQ(_scorer.computeScore(makeVector({0, 0, 0})), NumericLimits<double>::s_max);
}

TEST_F(RANSACScore, OfRandomResiduals)
{
    test::RandomData random(41);
    for (int trial = 0; trial < 1000; ++trial)
    {
        const double threshold = trial % 3 == 0 ? 1.0 : random.real(0.0, 10.0);
        const double ratio = random.real(0.0, 1.0);
        const ResidualsSet residuals = test::anyResidualsWithOddities(random, random.integer(1, 40));
        _scorer.init(anyEstimator(), threshold);
        _scorer.setExpectedOutlierRatio(ratio);
        ASSERT_EQ(_scorer.computeScore(residuals), restatedScore(residuals, threshold, ratio));
    }
}

} // namespace math
} // namespace ovrix
