#include <OVRIXMath/Estimation/MSACRobustEstimator.h>
#include <OVRIXMath/Estimation/RANSACRobustEstimator.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
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
using test::expectMathRaises;
using test::makeVector;
using test::OpenScorer;

/// What RANSAC and MSAC have in common.
template <class Scorer>
class ThresholdRobustEstimatorFamily : public testing::Test
{
protected:
    OpenScorer<Scorer> _scorer;
};

using Scorers = testing::Types<RANSACRobustEstimator, MSACRobustEstimator>;
TYPED_TEST_SUITE(ThresholdRobustEstimatorFamily, Scorers);

} // namespace

TYPED_TEST(ThresholdRobustEstimatorFamily, InitSetsTheModel)
{
    const EstimatorPtr pEstimator = anyEstimator();
    this->_scorer.init(pEstimator, 2.0);
    EXPECT_EQ(&this->_scorer.getEstimator(), pEstimator.get());
    EXPECT_EQ(this->_scorer.getNbNeededRuns(), 10u);
}

TYPED_TEST(ThresholdRobustEstimatorFamily, InitRefusesANullModel)
{
    expectMathRaises("Estimator shared pointer should not be null for robust estimator initialization",
                     [this] { this->_scorer.init(EstimatorPtr(), 2.0); });
    expectMathRaises("Robust estimator has not been initialized", [this] { this->_scorer.getEstimator(); });
}

TYPED_TEST(ThresholdRobustEstimatorFamily, InitStoresTheThresholdAlsoWithANullModel)
{
    this->_scorer.init(anyEstimator(), 2.0);
    EXPECT_THROW(this->_scorer.init(EstimatorPtr(), 3.0), OVRIXMathException);
    EXPECT_EQ(this->_scorer.computeOutlierThreshold(0.0, 10, 2), 3.0);
}

TYPED_TEST(ThresholdRobustEstimatorFamily, InitAcceptsAnyThreshold)
{
    for (const double threshold : {0.0, -3.0, std::numeric_limits<double>::infinity()})
    {
        this->_scorer.init(anyEstimator(), threshold);
        EXPECT_EQ(this->_scorer.computeOutlierThreshold(0.0, 10, 2), threshold);
    }
    this->_scorer.init(anyEstimator(), std::numeric_limits<double>::quiet_NaN());
    EXPECT_TRUE(std::isnan(this->_scorer.computeOutlierThreshold(0.0, 10, 2)));
}

TYPED_TEST(ThresholdRobustEstimatorFamily, TheThresholdIsTheGivenOneWhateverTheScore)
{
    this->_scorer.init(anyEstimator(), 2.5);
    EXPECT_EQ(this->_scorer.computeOutlierThreshold(0.0, 10, 2), 2.5);
    EXPECT_EQ(this->_scorer.computeOutlierThreshold(1e10, 0, 0), 2.5);
    EXPECT_EQ(this->_scorer.computeOutlierThreshold(std::numeric_limits<double>::quiet_NaN(), 3, 9), 2.5);
}

TYPED_TEST(ThresholdRobustEstimatorFamily, TheOutlierRatioIsBoundedByOne)
{
    EXPECT_EQ(this->_scorer.getMaxOutlierRatio(), 1.0);
    this->_scorer.init(anyEstimator(), 2.0);
    this->_scorer.setExpectedOutlierRatio(0.5);
    expectMathRaises("Invalid expected outlier ratio value 1.000000, should be in [0, 1[",
                     [this] { this->_scorer.setExpectedOutlierRatio(1.0); });
}

TYPED_TEST(ThresholdRobustEstimatorFamily, AsManyOutliersAsExpectedAreAccepted)
{
    this->_scorer.init(anyEstimator(), 2.0);
    EXPECT_NE(this->_scorer.computeScore(makeVector({9, 9, 9, 9, 0, 0, 0, 0, 0, 0})), NumericLimits<double>::s_max);
}

TYPED_TEST(ThresholdRobustEstimatorFamily, MoreOutliersThanExpectedAreRejected)
{
    this->_scorer.init(anyEstimator(), 2.0);
    EXPECT_EQ(this->_scorer.computeScore(makeVector({9, 9, 9, 9, 9, 0, 0, 0, 0, 0})), NumericLimits<double>::s_max);
}

TYPED_TEST(ThresholdRobustEstimatorFamily, NoOutlierIsAcceptedWithoutExpectedOnes)
{
    this->_scorer.init(anyEstimator(), 2.0);
    this->_scorer.setExpectedOutlierRatio(0.0);
    EXPECT_EQ(this->_scorer.computeScore(makeVector({9, 0, 0, 0, 0})), NumericLimits<double>::s_max);
    EXPECT_EQ(this->_scorer.computeScore(makeVector({0, 0, 0, 0, 0})), 0.0);
}

TYPED_TEST(ThresholdRobustEstimatorFamily, AThresholdOfZeroMakesEveryResidualAnOutlier)
{
    this->_scorer.init(anyEstimator(), 0.0);
    EXPECT_EQ(this->_scorer.computeScore(makeVector({0, 0, 0})), NumericLimits<double>::s_max);
}

TYPED_TEST(ThresholdRobustEstimatorFamily, AnInfiniteResidualIsAnOutlier)
{
    const double infinity = std::numeric_limits<double>::infinity();
    this->_scorer.init(anyEstimator(), 2.0);
    this->_scorer.setExpectedOutlierRatio(0.5);
    EXPECT_EQ(this->_scorer.computeScore(makeVector({infinity, 0})), this->_scorer.computeScore(makeVector({9, 0})));
    EXPECT_EQ(this->_scorer.computeScore(makeVector({infinity, -infinity, 0})), NumericLimits<double>::s_max);
}

TYPED_TEST(ThresholdRobustEstimatorFamily, AResidualThatIsNotANumberIsNoOutlierAndAddsNothing)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    this->_scorer.init(anyEstimator(), 2.0);
    this->_scorer.setExpectedOutlierRatio(0.0);
    EXPECT_EQ(this->_scorer.computeScore(makeVector({nan, nan, 0})), 0.0);
}

TYPED_TEST(ThresholdRobustEstimatorFamily, WithoutResidualsTheScoreIsZero)
{
    this->_scorer.init(anyEstimator(), 2.0);
    EXPECT_EQ(this->_scorer.computeScore(ResidualsSet()), 0.0);
}

} // namespace math
} // namespace ovrix
