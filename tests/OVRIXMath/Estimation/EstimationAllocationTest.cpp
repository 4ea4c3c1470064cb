#include <OVRIXMath/Estimation/DataPartition/AdaptiveGridPartition.h>
#include <OVRIXMath/Estimation/LMSRobustEstimator.h>
#include <OVRIXMath/Estimation/MLESACRobustEstimator.h>
#include <OVRIXMath/Estimation/MSACRobustEstimator.h>
#include <OVRIXMath/Estimation/RANSACRobustEstimator.h>
#include <OVRIXMath/Tools/Polynomial2dSurfaceEstimator.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <gtest/gtest.h>

#include <support/AllocationCount.h>
#include <support/OpenScorer.h>

namespace ovrix
{
namespace math
{

namespace
{

using test::countSteadyAllocations;

template <class Scorer>
std::size_t countScoreAllocations(test::OpenScorer<Scorer>& scorer)
{
    test::RandomData random(1);
    const ResidualsSet residuals = test::anyResiduals(random, 501);
    double score = 0.0;
    return countSteadyAllocations([&] { score += scorer.computeScore(residuals); });
}

/// The surface model with its hooks open.
class OpenSurfaceEstimator : public Polynomial2dSurfaceEstimator
{
public:
    using Polynomial2dSurfaceEstimator::processEstimation;
    using Polynomial2dSurfaceEstimator::processResiduals;
};

DataSet makeSurfaceData(std::size_t nbData)
{
    test::RandomData random(2);
    DataSet dataSet(nbData, Vector(3, 0.0));
    for (Vector& datum : dataSet)
    {
        for (double& x : datum)
            x = random.real(-1.0, 1.0);
    }
    return dataSet;
}

} // namespace

TEST(EstimationAllocation, AScoreOfRANSACTakesNoMemory)
{
    test::OpenScorer<RANSACRobustEstimator> scorer;
    scorer.init(test::anyEstimator(), 1.0);
    EXPECT_EQ(countScoreAllocations(scorer), 0u);
}

TEST(EstimationAllocation, AScoreOfMSACTakesNoMemory)
{
    test::OpenScorer<MSACRobustEstimator> scorer;
    scorer.init(test::anyEstimator(), 1.0);
    EXPECT_EQ(countScoreAllocations(scorer), 0u);
}

TEST(EstimationAllocation, AScoreOfMLESACTakesNoMemory)
{
    test::OpenScorer<MLESACRobustEstimator> scorer;
    scorer.init(test::anyEstimator(), 1.0, 2.5, 50.0);
    EXPECT_EQ(countScoreAllocations(scorer), 0u);
}

TEST(EstimationAllocation, AScoreOfLMSUsesItsMemoryAgain)
{
    test::OpenScorer<LMSRobustEstimator> scorer;
    scorer.init(test::anyEstimator());
    EXPECT_EQ(countScoreAllocations(scorer), 0u);
}

TEST(EstimationAllocation, ADrawTakesMemoryOnlyToRememberTheSubSet)
{
    RandomUniformGenerator::getGen().seed(3);
    const DataSet dataSet = makeSurfaceData(2000);
    AdaptiveGridPartition partition;
    ASSERT_TRUE(partition.init(6, dataSet));
    DataSet subSet;
    // A node for each of the six indexes and one for their set.
    EXPECT_EQ(countSteadyAllocations([&] { ASSERT_TRUE(partition.createSubSet(dataSet, subSet)); }), 7u);
}

TEST(EstimationAllocation, AFitOfSixDataTakesNoMemoryOfItsOwn)
{
    const DataSet dataSet = makeSurfaceData(6);
    OpenSurfaceEstimator estimator;
    ParameterType params(6, 0.0);
    EXPECT_EQ(countSteadyAllocations([&] { ASSERT_TRUE(estimator.processEstimation(dataSet, params)); }), 0u);
}

TEST(EstimationAllocation, ResidualsTakeNoMemory)
{
    const DataSet dataSet = makeSurfaceData(501);
    OpenSurfaceEstimator estimator;
    const ParameterType params(6, 1.0);
    ResidualsSet residuals(501, 0.0);
    EXPECT_EQ(countSteadyAllocations([&] { ASSERT_TRUE(estimator.processResiduals(dataSet, params, residuals)); }), 0u);
}

} // namespace math
} // namespace ovrix
