#include <OVRIXMath/Estimation/LMSRobustEstimator.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <support/Bits.h>
#include <support/Builders.h>
#include <support/ExpectFailure.h>
#include <support/OpenScorer.h>
#include <vector>

namespace ovrix
{
namespace math
{

namespace
{

using test::anyEstimator;
using test::bitsOf;
using test::expectMathRaises;
using test::makeVector;

const double g_nan = std::numeric_limits<double>::quiet_NaN();
const double g_infinity = std::numeric_limits<double>::infinity();

/// The score, restated.
double restatedScore(const ResidualsSet& residuals)
{
    std::vector<double> squares;
    for (const double r : residuals)
        squares.push_back(r * r);
    const std::size_t medianIndex = squares.size() / 2;
    const auto isSmaller = [](double a, double b) { return std::isnan(b) ? !std::isnan(a) : a < b; };
    std::partial_sort(squares.begin(), squares.begin() + medianIndex + 1, squares.end(), isSmaller);
    if (squares.size() % 2 == 1)
        return squares[medianIndex];
    return (squares[medianIndex] + squares[medianIndex - 1]) * 0.5;
}

/// The threshold, restated.
double restatedThreshold(double score, unsigned int nbData, unsigned int nbMin)
{
    const double sigma = 1.4826 * (1.0 + 5.0 / (nbData - nbMin)) * std::sqrt(score);
    return std::sqrt(std::max(std::sqrt(std::numeric_limits<double>::epsilon()), sigma * (6.25 * sigma)));
}

class LMSScorer : public testing::Test
{
protected:
    LMSScorer()
    {
        _scorer.init(anyEstimator());
    }

    test::OpenScorer<LMSRobustEstimator> _scorer;
};

} // namespace

TEST_F(LMSScorer, InitSetsTheModel)
{
    const EstimatorPtr pEstimator = anyEstimator();
    _scorer.init(pEstimator);
    EXPECT_EQ(&_scorer.getEstimator(), pEstimator.get());
}

TEST_F(LMSScorer, InitRefusesANullModel)
{
    expectMathRaises("Estimator shared pointer should not be null for robust estimator initialization",
                     [this] { _scorer.init(EstimatorPtr()); });
}

TEST_F(LMSScorer, TheOutlierRatioIsBoundedByAHalf)
{
    EXPECT_EQ(_scorer.getMaxOutlierRatio(), 0.5);
    expectMathRaises("Invalid expected outlier ratio value 0.500000, should be in [0, 0.5[",
                     [this] { _scorer.setExpectedOutlierRatio(0.5); });
    _scorer.setExpectedOutlierRatio(std::nextafter(0.5, 0.0));
}

TEST_F(LMSScorer, TheScoreOfAnEvenNumberIsTheMeanOfTheTwoMiddleSquares)
{
    EXPECT_EQ(_scorer.computeScore(makeVector({1, 2, 3, 4})), 6.5);
    EXPECT_EQ(_scorer.computeScore(makeVector({-4, 2, 1, -3})), 6.5);
}

TEST_F(LMSScorer, TheScoreOfAnOddNumberIsTheMiddleSquare)
{
    EXPECT_EQ(_scorer.computeScore(makeVector({1, 2, 3, 4, 5})), 9.0);
    EXPECT_EQ(_scorer.computeScore(makeVector({5, -1, 4, -3, 2})), 9.0);
}

TEST_F(LMSScorer, TheScoreOfOneResidualIsItsSquare)
{
    EXPECT_EQ(_scorer.computeScore(makeVector({-3})), 9.0);
}

TEST_F(LMSScorer, TheScoreOfTwoResidualsIsTheMeanOfTheirSquares)
{
    EXPECT_EQ(_scorer.computeScore(makeVector({-3, 1})), 5.0);
}

TEST_F(LMSScorer, NoFitIsRejected)
{
    _scorer.setExpectedOutlierRatio(0.0);
    EXPECT_EQ(_scorer.computeScore(makeVector({1e100, 1e100, 1e100})), 1e100 * 1e100);
}

TEST_F(LMSScorer, InfiniteResidualsBeyondTheMedianPlayNoPart)
{
    EXPECT_EQ(_scorer.computeScore(makeVector({g_infinity, 1, -g_infinity, 2, 3})), 9.0);
}

TEST_F(LMSScorer, AnInfiniteMedianGivesAnInfiniteScore)
{
    EXPECT_EQ(_scorer.computeScore(makeVector({g_infinity, 1, -g_infinity, 2})), g_infinity);
}

TEST_F(LMSScorer, ResidualsOfAnotherNumberCanFollow)
{
    EXPECT_EQ(_scorer.computeScore(makeVector({1, 2, 3, 4, 5})), 9.0);
    EXPECT_EQ(_scorer.computeScore(makeVector({1, 2})), 2.5);
    EXPECT_EQ(_scorer.computeScore(makeVector({1, 2, 3, 4, 5, 6, 7})), 16.0);
}

TEST_F(LMSScorer, TheResidualsStayAsTheyAre)
{
    const ResidualsSet residuals = makeVector({5, -1, 4, -3, 2});
    _scorer.computeScore(residuals);
    EXPECT_EQ(test::toStd(residuals), (std::vector<double>{5, -1, 4, -3, 2}));
}

TEST_F(LMSScorer, TheScoreOfRandomResidualsBitByBit)
{
    test::RandomData random(43);
    for (int trial = 0; trial < 2000; ++trial)
    {
        ResidualsSet residuals = test::anyResiduals(random, random.integer(1, 60));
        if (trial % 4 == 0)
            residuals(random.integer(0, static_cast<unsigned int>(residuals.size()) - 1)) = g_infinity;
        ASSERT_EQ(bitsOf(_scorer.computeScore(residuals)), bitsOf(restatedScore(residuals)));
    }
}

TEST_F(LMSScorer, ResidualsThatAreNotNumbersComeLast)
{
    test::RandomData random(44);
    for (int trial = 0; trial < 2000; ++trial)
    {
        const ResidualsSet residuals = test::anyResidualsWithOddities(random, random.integer(1, 60));
        const double score = _scorer.computeScore(residuals);
        const double restated = restatedScore(residuals);
        ASSERT_TRUE(bitsOf(score) == bitsOf(restated) || (std::isnan(score) && std::isnan(restated)));
    }
}

TEST_F(LMSScorer, ResidualsThatAreAllNotNumbersGiveNoNumber)
{
    EXPECT_TRUE(std::isnan(_scorer.computeScore(ResidualsSet(9, g_nan))));
    EXPECT_TRUE(std::isnan(_scorer.computeScore(ResidualsSet(10, g_nan))));
}

TEST_F(LMSScorer, TheThresholdOfAPerfectFitIsTheFourthRootOfEpsilon)
{
    EXPECT_EQ(_scorer.computeOutlierThreshold(0.0, 20, 2), std::sqrt(NumericLimits<double>::s_sqrt_eps));
}

TEST_F(LMSScorer, TheThresholdIsTwoAndAHalfRobustStandardDeviations)
{
    // sigma = 1.4826 * (1 + 5 / 10) * 2; rounding of a few operations.
    EXPECT_NEAR(_scorer.computeOutlierThreshold(4.0, 12, 2), 2.5 * 1.4826 * 1.5 * 2.0, 1e-14);
}

TEST_F(LMSScorer, TheThresholdOfRandomScoresBitByBit)
{
    test::RandomData random(45);
    for (int trial = 0; trial < 2000; ++trial)
    {
        const double score = std::pow(10.0, random.real(-12.0, 12.0));
        const unsigned int nbMin = random.integer(1, 10);
        const unsigned int nbData = nbMin + random.integer(1, 100);
        ASSERT_EQ(bitsOf(_scorer.computeOutlierThreshold(score, nbData, nbMin)),
                  bitsOf(restatedThreshold(score, nbData, nbMin)));
    }
}

TEST_F(LMSScorer, TheNumbersOfDataAreSubtractedWithoutSign)
{
    EXPECT_EQ(_scorer.computeOutlierThreshold(4.0, 2, 3), restatedThreshold(4.0, 2, 3));
    EXPECT_EQ(_scorer.computeOutlierThreshold(4.0, 4294967295u, 0), _scorer.computeOutlierThreshold(4.0, 2, 3));
}

TEST_F(LMSScorer, TheThresholdOfAnInfiniteScoreIsInfinite)
{
    EXPECT_EQ(_scorer.computeOutlierThreshold(g_infinity, 20, 2), g_infinity);
}

} // namespace math
} // namespace ovrix
