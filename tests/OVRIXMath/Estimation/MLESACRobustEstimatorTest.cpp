#include <OVRIXMath/Estimation/MLESACRobustEstimator.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <support/Bits.h>
#include <support/Builders.h>
#include <support/ExpectFailure.h>
#include <support/OpenScorer.h>

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
const double g_rejected = NumericLimits<double>::s_max;

/// Half away from zero; what is not a number gives 0.
unsigned int restatedRound(double value)
{
    return std::isnan(value) ? 0 : static_cast<unsigned int>(value + 0.5);
}

/// The score, restated, for a largest number of rounds of the mixture; counts the rounds.
double restatedScore(const ResidualsSet& residuals, double sigma, double rangeFactor, double e, int nbMaxRounds,
                     int& nbRounds)
{
    const double twoPi = 6.283185307179586;
    const double outlierRange = sigma * rangeFactor;
    const auto n = static_cast<unsigned int>(residuals.size());
    unsigned int nbInliers = restatedRound((1.0 - e) * n);
    unsigned int previous = n + 1;
    for (nbRounds = 0; nbInliers != previous && nbRounds < nbMaxRounds; ++nbRounds)
    {
        const double a = (double(nbInliers) / n) / std::sqrt(twoPi * sigma);
        const double b = (double(n - nbInliers) / n) / outlierRange;
        double sum = 0.0;
        for (const double r : residuals)
        {
            const double g = std::exp(r * r / (-2.0 * sigma * sigma));
            sum += a * g / (b + a * g);
        }
        previous = nbInliers;
        nbInliers = restatedRound(sum);
    }
    if (n - nbInliers > n * e)
        return g_rejected;
    if (n == 0)
        return 0.0;
    const double a = (double(nbInliers) / n) / std::sqrt(twoPi * sigma);
    const double b = (double(n - nbInliers) / n) / outlierRange;
    double score = 0.0;
    for (const double r : residuals)
        score -= std::log(a * std::exp(r * r / (-2.0 * sigma * sigma)) + b);
    return score;
}

class MLESACScorer : public testing::Test
{
protected:
    MLESACScorer()
    {
        _scorer.init(anyEstimator(), 1.0, 2.5, 20.0);
    }

    test::OpenScorer<MLESACRobustEstimator> _scorer;
};

} // namespace

TEST_F(MLESACScorer, InitSetsTheModel)
{
    const EstimatorPtr pEstimator = anyEstimator();
    _scorer.init(pEstimator, 1.0, 2.0, 3.0);
    EXPECT_EQ(&_scorer.getEstimator(), pEstimator.get());
}

TEST_F(MLESACScorer, InitRefusesASigmaThatIsNotPositive)
{
    expectMathRaises("Input gaussian sigma value {0.000000} should be strictly positive",
                     [this] { _scorer.init(anyEstimator(), 0.0, 2.0, 3.0); });
    expectMathRaises("Input gaussian sigma value {-1.500000} should be strictly positive",
                     [this] { _scorer.init(anyEstimator(), -1.5, 2.0, 3.0); });
    expectMathRaises("Input gaussian sigma value {nan} should be strictly positive",
                     [this] { _scorer.init(anyEstimator(), g_nan, 2.0, 3.0); });
}

TEST_F(MLESACScorer, InitRefusesAThresholdFactorThatIsNotPositive)
{
    expectMathRaises("Input outlier threshold factor value {0.000000} should be strictly positive",
                     [this] { _scorer.init(anyEstimator(), 1.0, 0.0, 3.0); });
    expectMathRaises("Input outlier threshold factor value {nan} should be strictly positive",
                     [this] { _scorer.init(anyEstimator(), 1.0, g_nan, 3.0); });
}

TEST_F(MLESACScorer, InitRefusesARangeFactorThatIsNotAboveTheThresholdFactor)
{
    expectMathRaises("Input outlier range factor value {2.000000} should be strictly greater than outlier threshold "
                     "factor {2.000000}",
                     [this] { _scorer.init(anyEstimator(), 1.0, 2.0, 2.0); });
    expectMathRaises("Input outlier range factor value {nan} should be strictly greater than outlier threshold factor "
                     "{2.000000}",
                     [this] { _scorer.init(anyEstimator(), 1.0, 2.0, g_nan); });
}

TEST_F(MLESACScorer, InitChecksSigmaThenTheThresholdFactorThenTheRangeFactorThenTheModel)
{
    expectMathRaises("Input gaussian sigma value {-1.000000} should be strictly positive",
                     [this] { _scorer.init(EstimatorPtr(), -1.0, -2.0, -3.0); });
    expectMathRaises("Input outlier threshold factor value {-2.000000} should be strictly positive",
                     [this] { _scorer.init(EstimatorPtr(), 1.0, -2.0, -3.0); });
    expectMathRaises("Input outlier range factor value {-3.000000} should be strictly greater than outlier threshold "
                     "factor {2.000000}",
                     [this] { _scorer.init(EstimatorPtr(), 1.0, 2.0, -3.0); });
    expectMathRaises("Estimator shared pointer should not be null for robust estimator initialization",
                     [this] { _scorer.init(EstimatorPtr(), 1.0, 2.0, 3.0); });
}

TEST_F(MLESACScorer, ARefusedInitChangesNothing)
{
    const BaseEstimator* const pEstimator = &_scorer.getEstimator();
    EXPECT_THROW(_scorer.init(anyEstimator(), 7.0, 9.0, 9.0), OVRIXMathException);
    EXPECT_EQ(&_scorer.getEstimator(), pEstimator);
    EXPECT_EQ(_scorer.computeOutlierThreshold(0.0, 10, 2), 2.5);
}

TEST_F(MLESACScorer, TheThresholdIsTheFactorTimesSigmaWhateverTheScore)
{
    _scorer.init(anyEstimator(), 0.1, 3.0, 6.0);
    EXPECT_EQ(_scorer.computeOutlierThreshold(0.0, 10, 2), 3.0 * 0.1);
    EXPECT_EQ(_scorer.computeOutlierThreshold(1e10, 0, 5), 3.0 * 0.1);
}

TEST_F(MLESACScorer, TheOutlierRatioIsBoundedByOne)
{
    EXPECT_EQ(_scorer.getMaxOutlierRatio(), 1.0);
    _scorer.setExpectedOutlierRatio(0.5);
}

TEST_F(MLESACScorer, TheGaussianIsNormalisedByTheRootOfSigma)
{
    // One residual of 0 and no outliers: minus the logarithm of the Gaussian's height.
    _scorer.init(anyEstimator(), 4.0, 2.5, 20.0);
    _scorer.setExpectedOutlierRatio(0.0);
    EXPECT_EQ(_scorer.computeScore(makeVector({0})), -std::log(1.0 / std::sqrt(6.283185307179586 * 4.0)));
}

TEST_F(MLESACScorer, WithoutResidualsTheScoreIsZero)
{
    EXPECT_EQ(_scorer.computeScore(ResidualsSet()), 0.0);
}

TEST_F(MLESACScorer, ALikelierFitHasALowerScore)
{
    EXPECT_LT(_scorer.computeScore(makeVector({0.1, -0.2, 0, 0.3, 15})),
              _scorer.computeScore(makeVector({1.1, -1.2, 1, 1.3, 15})));
}

TEST_F(MLESACScorer, MoreOutliersThanExpectedAreRejected)
{
    EXPECT_NE(_scorer.computeScore(makeVector({0, 0, 0, 0, 0, 0, 15, 15, 15, 15})), g_rejected);
    EXPECT_EQ(_scorer.computeScore(makeVector({0, 0, 0, 0, 0, 15, 15, 15, 15, 15})), g_rejected);
}

TEST_F(MLESACScorer, WithoutExpectedOutliersAllDataStartAndStayAsInliers)
{
    // No uniform part: each share is 1, the rounds stop after the first, the score is that of the Gaussian alone.
    _scorer.setExpectedOutlierRatio(0.0);
    const double height = 1.0 / std::sqrt(6.283185307179586);
    EXPECT_EQ(_scorer.computeScore(makeVector({2})), -std::log(height * std::exp(-2.0)));
}

TEST_F(MLESACScorer, WithoutExpectedOutliersADatumLeftOutRejects)
{
    // The Gaussian vanishes at the last residual, whose share is then no number, and no inlier is left.
    _scorer.setExpectedOutlierRatio(0.0);
    EXPECT_EQ(_scorer.computeScore(makeVector({0, 0, 0, 100})), g_rejected);
}

TEST_F(MLESACScorer, AResidualThatIsNotANumberRejects)
{
    EXPECT_EQ(_scorer.computeScore(makeVector({0, 0, 0, 0, 0, 0, 0, 0, 0, g_nan})), g_rejected);
}

TEST_F(MLESACScorer, AnInfiniteResidualIsAnOutlier)
{
    const double score = _scorer.computeScore(makeVector({0, 0, 0, 0, g_infinity}));
    EXPECT_EQ(score, _scorer.computeScore(makeVector({0, 0, 0, 0, -g_infinity})));
    // exp(-5000) is 0 as well.
    EXPECT_EQ(score, _scorer.computeScore(makeVector({0, 0, 0, 0, 100})));
    EXPECT_TRUE(std::isfinite(score));
}

TEST_F(MLESACScorer, TheScoreOfRandomResidualsBitByBit)
{
    test::RandomData random(46);
    int nbAccepted = 0;
    int nbOfSeveralRounds = 0;
    for (int trial = 0; trial < 2000; ++trial)
    {
        const double sigma = random.real(0.2, 3.0);
        const double rangeFactor = random.real(3.0, 60.0);
        const double e = trial % 10 == 0 ? 0.0 : random.real(0.0, 1.0);
        ResidualsSet residuals = test::anyResiduals(random, random.integer(1, 60));
        if (trial % 5 == 0)
            residuals(0) = trial % 2 == 0 ? g_nan : g_infinity;
        _scorer.init(anyEstimator(), sigma, 2.5, rangeFactor);
        _scorer.setExpectedOutlierRatio(e);
        int nbRounds = 0;
        const double restated = restatedScore(residuals, sigma, rangeFactor, e, 10, nbRounds);
        ASSERT_EQ(bitsOf(_scorer.computeScore(residuals)), bitsOf(restated));
        nbAccepted += restated != g_rejected;
        nbOfSeveralRounds += nbRounds > 2;
    }
    // The comparison sees both outcomes and the iteration at work.
    EXPECT_GT(nbAccepted, 300);
    EXPECT_LT(nbAccepted, 1700);
    EXPECT_GT(nbOfSeveralRounds, 300);
}

TEST_F(MLESACScorer, TheMixtureIsIteratedTenTimesAtMost)
{
    // Residuals that suit both densities about equally: the number of inliers is still moving after ten rounds.
    ResidualsSet residuals(2000);
    for (unsigned int i = 0; i < residuals.size(); ++i)
        residuals(i) = 1.5 * i / 2000.0;
    _scorer.init(anyEstimator(), 1.0, 2.5, 4.0);
    _scorer.setExpectedOutlierRatio(0.9);
    int nbRounds = 0;
    const double afterTen = restatedScore(residuals, 1.0, 4.0, 0.9, 10, nbRounds);
    ASSERT_NE(restatedScore(residuals, 1.0, 4.0, 0.9, 11, nbRounds), afterTen);
    EXPECT_EQ(bitsOf(_scorer.computeScore(residuals)), bitsOf(afterTen));
}

} // namespace math
} // namespace ovrix
