#include <OVRIXMath/Estimation/BaseRobustEstimator.h>
#include <OVRIXMath/Estimation/DataPartition/AdaptiveGridPartition.h>
#include <OVRIXMath/Estimation/RANSACRobustEstimator.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <boost/make_shared.hpp>
#include <boost/noncopyable.hpp>
#include <gmock/gmock.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <support/Builders.h>
#include <support/DataSets.h>
#include <support/ExpectFailure.h>
#include <support/HeaderExample.h>
#include <support/LineEstimator.h>
#include <support/MeanRobustEstimator.h>
#include <support/MockEstimators.h>
#include <support/RandomData.h>
#include <support/RunPartition.h>
#include <type_traits>

namespace ovrix
{
namespace math
{

namespace
{

using test::expectMathRaises;
using test::expectSuccess;
using test::makeVector;
using test::MockEstimator;
using test::MockPartition;
using test::MockScorer;
using test::numberedData;
using testing::_;
using testing::Mock;
using testing::NiceMock;
using testing::Return;

const char* const g_notInitText = "Robust estimator has not been initialized";
const char* const g_notDoneText = "Robust estimation has not been proceeded, can't retrieve results";

boost::shared_ptr<NiceMock<MockEstimator>> createEstimator(ovUInt32 nbMinRequestedData, ovUInt32 nbEstimParams = 1)
{
    return boost::make_shared<NiceMock<MockEstimator>>(nbMinRequestedData, nbEstimParams, 1u);
}

/// Runs needed for sub-sets of m data, an expected outlier ratio e and a success ratio p.
ovUInt32 nbNeededRuns(ovReal64 e, ovReal64 p, ovUInt32 m)
{
    NiceMock<MockScorer> robust;
    robust.init(createEstimator(m));
    robust.setExpectedOutlierRatio(e);
    robust.setSuccessRatio(p);
    return robust.getNbNeededRuns();
}

/// Least number of data, as above.
ovUInt32 nbMinData(ovReal64 e, ovReal64 p, ovUInt32 m)
{
    NiceMock<MockScorer> robust;
    robust.init(createEstimator(m));
    robust.setExpectedOutlierRatio(e);
    robust.setSuccessRatio(p);
    return robust.getNbMinDataForRobustEstimation();
}

/// The number of runs, restated.
ovUInt32 restatedNbNeededRuns(double e, double p, ovUInt32 m)
{
    if (e == 0.0)
        return 1;
    const double runs = std::log10(1.0 - p) / std::log10(1.0 - std::pow(1.0 - e, m)) + 0.5;
    if (std::isnan(runs) || std::isinf(runs) || runs >= 4294967296.0)
        return std::numeric_limits<ovUInt32>::max();
    return static_cast<ovUInt32>(runs);
}

/// The least number of data, restated.
ovUInt32 restatedNbMinData(ovUInt32 nbRuns, ovUInt32 m)
{
    const std::uint32_t discriminant = 8u * nbRuns + 1u;
    const double forRuns = std::ceil(0.5 * (std::sqrt(static_cast<double>(discriminant)) + 1.0));
    return forRuns > 2.0 * m + 1.0 ? static_cast<ovUInt32>(forRuns) : 2 * m + 1;
}

/// A robust estimation that has succeeded once: every state is there that a setter could forget.
class DoneRobustEstimator : public testing::Test
{
protected:
    DoneRobustEstimator()
    {
        _robust.setDataPartition(_pPartition);
        _robust.init(_pEstimator);
        ON_CALL(_robust, computeOutlierThreshold).WillByDefault(Return(42.0));
        expectSuccess(_robust.computeEstimation(numberedData(30)));
        Mock::VerifyAndClearExpectations(_pPartition.get());
        Mock::VerifyAndClearExpectations(&_robust);
    }

    void expectStanding() const
    {
        EXPECT_TRUE(_robust.isEstimationDone());
        EXPECT_EQ(test::toStd(_robust.getEstimParams()), (std::vector<double>{11, 11}));
        EXPECT_EQ(_robust.getOutlierFlags(), OutlierFlags(30, false));
        EXPECT_EQ(_robust.getEstimOutlierThreshold(), 42.0);
    }

    /// Zeroed parameters of the same size, no flags, a threshold of 0.
    void expectCleared() const
    {
        EXPECT_TRUE(_robust.isEstimationDone());
        EXPECT_EQ(test::toStd(_robust.getEstimParams()), (std::vector<double>{0, 0}));
        EXPECT_EQ(_robust.getOutlierFlags(), OutlierFlags());
        EXPECT_EQ(_robust.getEstimOutlierThreshold(), 0.0);
    }

    boost::shared_ptr<NiceMock<MockEstimator>> _pEstimator = createEstimator(2, 2);
    boost::shared_ptr<NiceMock<MockPartition>> _pPartition = boost::make_shared<NiceMock<MockPartition>>();
    NiceMock<MockScorer> _robust;
};

} // namespace

TEST(BaseRobustEstimator, CannotBeCopied)
{
    EXPECT_FALSE(std::is_copy_constructible<MeanRobustEstimator>::value);
    EXPECT_FALSE(std::is_copy_assignable<MeanRobustEstimator>::value);
    EXPECT_TRUE((std::is_base_of<boost::noncopyable_::noncopyable, BaseRobustEstimator>::value));
}

TEST(BaseRobustEstimator, EveryGetterRaisesWithoutAnEstimator)
{
    const MeanRobustEstimator robust;
    expectMathRaises(g_notInitText, [&] { robust.getEstimator(); });
    expectMathRaises(g_notInitText, [&] { robust.getNbMinDataForRobustEstimation(); });
    expectMathRaises(g_notInitText, [&] { robust.getNbNeededRuns(); });
    expectMathRaises(g_notInitText, [&] { robust.isEstimationDone(); });
    expectMathRaises(g_notInitText, [&] { robust.getEstimParams(); });
    expectMathRaises(g_notInitText, [&] { robust.getOutlierFlags(); });
    expectMathRaises(g_notInitText, [&] { robust.getEstimOutlierThreshold(); });
}

TEST(BaseRobustEstimator, ComputeEstimationRaisesWithoutAnEstimator)
{
    MeanRobustEstimator robust;
    expectMathRaises(g_notInitText, [&] { robust.computeEstimation(numberedData(30)); });
}

TEST(BaseRobustEstimator, TheResultsRaiseBeforeTheFirstEstimation)
{
    MeanRobustEstimator robust;
    robust.init(createEstimator(2));
    EXPECT_FALSE(robust.isEstimationDone());
    expectMathRaises(g_notDoneText, [&] { robust.getEstimParams(); });
    expectMathRaises(g_notDoneText, [&] { robust.getOutlierFlags(); });
    expectMathRaises(g_notDoneText, [&] { robust.getEstimOutlierThreshold(); });
}

TEST(BaseRobustEstimator, GetEstimatorGivesTheModel)
{
    MeanRobustEstimator robust;
    const auto pEstimator = createEstimator(2);
    robust.init(pEstimator);
    EXPECT_EQ(&robust.getEstimator(), pEstimator.get());
}

TEST(BaseRobustEstimator, SharesTheModelWithItsCaller)
{
    const auto pEstimator = createEstimator(2);
    {
        MeanRobustEstimator robust;
        robust.init(pEstimator);
        EXPECT_EQ(pEstimator.use_count(), 2);
    }
    EXPECT_EQ(pEstimator.use_count(), 1);
}

TEST(BaseRobustEstimator, InitRefusesANullEstimator)
{
    MeanRobustEstimator robust;
    expectMathRaises("Estimator shared pointer should not be null for robust estimator initialization",
                     [&] { robust.init(EstimatorPtr()); });
    expectMathRaises(g_notInitText, [&] { robust.getEstimator(); });
}

TEST(BaseRobustEstimator, TheExpectedOutlierRatioIsFourTenthsByDefault)
{
    const MockScorer robust;
    EXPECT_EQ(robust.getExpectedOutlierRatio(), 0.4);
}

TEST(BaseRobustEstimator, TheSuccessRatioIsNinetyNineHundredthsByDefault)
{
    NiceMock<MockScorer> robust;
    robust.init(createEstimator(4));
    EXPECT_EQ(robust.getNbNeededRuns(), restatedNbNeededRuns(0.4, 0.99, 4));
}

TEST(BaseRobustEstimator, ThePartitionIsAnAdaptiveGridByDefault)
{
    const DataSet data = test::RandomData(5).dataSet(40, 2, -1.0, 1.0);
    RANSACRobustEstimator byDefault;
    byDefault.init(boost::make_shared<LineEstimator>(), 0.5);
    RandomUniformGenerator::getGen().seed(11);
    byDefault.computeEstimation(data);
    const boost::random::mt19937 stateByDefault = RandomUniformGenerator::getGen();

    RANSACRobustEstimator adaptive;
    adaptive.init(boost::make_shared<LineEstimator>(), 0.5);
    adaptive.setDataPartition(boost::make_shared<AdaptiveGridPartition>());
    RandomUniformGenerator::getGen().seed(11);
    adaptive.computeEstimation(data);
    EXPECT_EQ(RandomUniformGenerator::getGen(), stateByDefault);
    EXPECT_EQ(test::toStd(adaptive.getEstimParams()), test::toStd(byDefault.getEstimParams()));
}

TEST(BaseRobustEstimator, TheExpectedOutlierRatioLiesFromZeroToBelowOne)
{
    NiceMock<MockScorer> robust;
    robust.setExpectedOutlierRatio(0.0);
    EXPECT_EQ(robust.getExpectedOutlierRatio(), 0.0);
    robust.setExpectedOutlierRatio(std::nextafter(1.0, 0.0));
    EXPECT_EQ(robust.getExpectedOutlierRatio(), std::nextafter(1.0, 0.0));
}

TEST(BaseRobustEstimator, AnExpectedOutlierRatioOutOfRangeRaises)
{
    NiceMock<MockScorer> robust;
    expectMathRaises("Invalid expected outlier ratio value 1.000000, should be in [0, 1[",
                     [&] { robust.setExpectedOutlierRatio(1.0); });
    expectMathRaises("Invalid expected outlier ratio value -0.250000, should be in [0, 1[",
                     [&] { robust.setExpectedOutlierRatio(-0.25); });
    expectMathRaises("Invalid expected outlier ratio value nan, should be in [0, 1[",
                     [&] { robust.setExpectedOutlierRatio(std::numeric_limits<double>::quiet_NaN()); });
    EXPECT_EQ(robust.getExpectedOutlierRatio(), 0.4);
}

TEST(BaseRobustEstimator, TheBoundOfTheExpectedOutlierRatioIsThatOfTheSubclass)
{
    NiceMock<MockScorer> robust;
    ON_CALL(robust, getMaxOutlierRatio).WillByDefault(Return(0.25));
    expectMathRaises("Invalid expected outlier ratio value 0.250000, should be in [0, 0.25[",
                     [&] { robust.setExpectedOutlierRatio(0.25); });
    robust.setExpectedOutlierRatio(0.125);
    EXPECT_EQ(robust.getExpectedOutlierRatio(), 0.125);
}

TEST(BaseRobustEstimator, ASuccessRatioOutOfRangeRaises)
{
    MeanRobustEstimator robust;
    expectMathRaises("Invalid success ratio value 0.000000, should be in ]0, 1[", [&] { robust.setSuccessRatio(0.0); });
    expectMathRaises("Invalid success ratio value 1.000000, should be in ]0, 1[", [&] { robust.setSuccessRatio(1.0); });
    expectMathRaises("Invalid success ratio value -1.500000, should be in ]0, 1[",
                     [&] { robust.setSuccessRatio(-1.5); });
    expectMathRaises("Invalid success ratio value nan, should be in ]0, 1[",
                     [&] { robust.setSuccessRatio(std::numeric_limits<double>::quiet_NaN()); });
}

TEST(BaseRobustEstimator, TheSuccessRatioLiesStrictlyBetweenZeroAndOne)
{
    // Both ends but for one step: no run is needed, and as many as 16 decimal digits of certainty cost.
    EXPECT_EQ(nbNeededRuns(0.4, std::numeric_limits<double>::denorm_min(), 2), 0u);
    EXPECT_EQ(nbNeededRuns(0.4, std::nextafter(1.0, 0.0), 2), restatedNbNeededRuns(0.4, std::nextafter(1.0, 0.0), 2));
}

TEST(BaseRobustEstimator, RatiosCanBeSetBeforeTheModel)
{
    NiceMock<MockScorer> robust;
    robust.setExpectedOutlierRatio(0.25);
    robust.setSuccessRatio(0.875);
    robust.init(createEstimator(3));
    EXPECT_EQ(robust.getNbNeededRuns(), restatedNbNeededRuns(0.25, 0.875, 3));
}

TEST(BaseRobustEstimator, ANewModelKeepsTheRatios)
{
    NiceMock<MockScorer> robust;
    robust.init(createEstimator(2));
    robust.setExpectedOutlierRatio(0.25);
    robust.setSuccessRatio(0.875);
    robust.init(createEstimator(5));
    EXPECT_EQ(robust.getNbNeededRuns(), restatedNbNeededRuns(0.25, 0.875, 5));
}

TEST(BaseRobustEstimator, NeededRunsOfTheDefaultRatios)
{
    EXPECT_EQ(nbNeededRuns(0.4, 0.99, 2), 10u);
    EXPECT_EQ(nbNeededRuns(0.4, 0.99, 3), 19u);
    EXPECT_EQ(nbNeededRuns(0.4, 0.99, 4), 33u);
    EXPECT_EQ(nbNeededRuns(0.4, 0.99, 6), 96u);
}

TEST(BaseRobustEstimator, NeededRunsCanRoundToNone)
{
    EXPECT_EQ(nbNeededRuns(0.1, 0.5, 1), 0u);
}

TEST(BaseRobustEstimator, OneRunIsNeededWithoutExpectedOutliers)
{
    EXPECT_EQ(nbNeededRuns(0.0, 0.99, 6), 1u);
    EXPECT_EQ(nbNeededRuns(0.0, 0.001, 1), 1u);
    EXPECT_EQ(nbNeededRuns(-0.0, 0.99, 6), 1u);
}

TEST(BaseRobustEstimator, NeededRunsOfRandomRatios)
{
    test::RandomData random(31);
    for (int trial = 0; trial < 2000; ++trial)
    {
        const double e = random.real(0.0, 1.0);
        const double p = random.real(0.0001, 1.0);
        const ovUInt32 m = random.integer(1, 12);
        ASSERT_EQ(nbNeededRuns(e, p, m), restatedNbNeededRuns(e, p, m)) << e << ", " << p << ", " << m;
    }
}

TEST(BaseRobustEstimator, AnInfiniteQuotientNeedsTheLargestNumberOfRuns)
{
    // 0.1^20 vanishes against 1, the logarithm below the line is 0.
    EXPECT_EQ(nbNeededRuns(0.9, 0.99, 20), 4294967295u);
}

TEST(BaseRobustEstimator, AQuotientThatIsNotANumberNeedsTheLargestNumberOfRuns)
{
    // Both logarithms are 0.
    EXPECT_EQ(nbNeededRuns(0.9, 1e-20, 20), 4294967295u);
}

TEST(BaseRobustEstimator, AQuotientAboveThirtyTwoBitsNeedsTheLargestNumberOfRuns)
{
    // About 4.6e12 runs.
    EXPECT_EQ(nbNeededRuns(0.9, 0.99, 12), 4294967295u);
}

TEST(BaseRobustEstimator, NoRunIsNeededWhenARatioVanishesAgainstOne)
{
    // log10(0) is minus infinity below the line.
    EXPECT_EQ(nbNeededRuns(1e-20, 0.99, 2), 0u);
    // log10(1) is 0 above the line.
    EXPECT_EQ(nbNeededRuns(0.4, 1e-20, 2), 0u);
}

TEST(BaseRobustEstimator, MinimumOfDataOfTheDefaultRatios)
{
    EXPECT_EQ(nbMinData(0.4, 0.99, 2), 5u);
    EXPECT_EQ(nbMinData(0.4, 0.99, 4), 9u);
    EXPECT_EQ(nbMinData(0.4, 0.99, 6), 15u);
}

TEST(BaseRobustEstimator, MinimumOfDataWithoutExpectedOutliers)
{
    EXPECT_EQ(nbMinData(0.0, 0.99, 3), 7u);
}

TEST(BaseRobustEstimator, MinimumOfDataWithoutNeededRuns)
{
    EXPECT_EQ(nbMinData(0.1, 0.5, 1), 3u);
}

TEST(BaseRobustEstimator, TheMinimumOfDataHasAPairForEachRun)
{
    // 11 runs need 6 data (15 pairs) where 10 runs do with 5 (10 pairs).
    ASSERT_EQ(nbNeededRuns(0.4, 0.992, 2), 11u);
    EXPECT_EQ(nbMinData(0.4, 0.992, 2), 6u);
}

TEST(BaseRobustEstimator, MinimumOfDataOfRandomRatios)
{
    test::RandomData random(32);
    for (int trial = 0; trial < 2000; ++trial)
    {
        const double e = random.real(0.0, 1.0);
        const double p = random.real(0.0001, 1.0);
        const ovUInt32 m = random.integer(1, 12);
        ASSERT_EQ(nbMinData(e, p, m), restatedNbMinData(restatedNbNeededRuns(e, p, m), m))
            << e << ", " << p << ", " << m;
    }
}

TEST(BaseRobustEstimator, TheMinimumOfDataIsComputedInThirtyTwoBits)
{
    // 8 * 4294967295 + 1 wraps to 4294967289, whose root is 65535.99...
    EXPECT_EQ(nbMinData(0.9, 0.99, 20), 32769u);
}

TEST_F(DoneRobustEstimator, HoldsItsResults)
{
    expectStanding();
}

TEST_F(DoneRobustEstimator, ANewModelForgetsTheResults)
{
    _robust.init(createEstimator(2, 2));
    expectCleared();
}

TEST_F(DoneRobustEstimator, ANewModelClearsThePartitionAndTheSubclass)
{
    EXPECT_CALL(*_pPartition, clearDerived).Times(1);
    EXPECT_CALL(_robust, clearDerived).Times(1);
    _robust.init(createEstimator(2, 2));
}

TEST_F(DoneRobustEstimator, ANullModelChangesNothing)
{
    EXPECT_CALL(*_pPartition, clearDerived).Times(0);
    EXPECT_CALL(_robust, clearDerived).Times(0);
    EXPECT_THROW(_robust.init(EstimatorPtr()), OVRIXMathException);
    EXPECT_EQ(&_robust.getEstimator(), _pEstimator.get());
    expectStanding();
}

TEST_F(DoneRobustEstimator, AnExpectedOutlierRatioForgetsTheResults)
{
    _robust.setExpectedOutlierRatio(0.0);
    expectCleared();
    EXPECT_EQ(_robust.getNbNeededRuns(), 1u);
}

TEST_F(DoneRobustEstimator, AnExpectedOutlierRatioClearsThePartitionAndTheSubclass)
{
    EXPECT_CALL(*_pPartition, clearDerived).Times(1);
    EXPECT_CALL(_robust, clearDerived).Times(1);
    _robust.setExpectedOutlierRatio(0.0);
}

TEST_F(DoneRobustEstimator, ARefusedOutlierRatioChangesNothing)
{
    EXPECT_CALL(*_pPartition, clearDerived).Times(0);
    EXPECT_CALL(_robust, clearDerived).Times(0);
    EXPECT_THROW(_robust.setExpectedOutlierRatio(1.0), OVRIXMathException);
    EXPECT_EQ(_robust.getNbNeededRuns(), 10u);
    expectStanding();
}

TEST_F(DoneRobustEstimator, ASuccessRatioForgetsTheResults)
{
    _robust.setSuccessRatio(0.992);
    expectCleared();
    EXPECT_EQ(_robust.getNbNeededRuns(), 11u);
}

TEST_F(DoneRobustEstimator, ASuccessRatioClearsThePartitionAndTheSubclass)
{
    EXPECT_CALL(*_pPartition, clearDerived).Times(1);
    EXPECT_CALL(_robust, clearDerived).Times(1);
    _robust.setSuccessRatio(0.5);
}

TEST_F(DoneRobustEstimator, ARefusedSuccessRatioChangesNothing)
{
    EXPECT_CALL(*_pPartition, clearDerived).Times(0);
    EXPECT_CALL(_robust, clearDerived).Times(0);
    EXPECT_THROW(_robust.setSuccessRatio(1.0), OVRIXMathException);
    EXPECT_EQ(_robust.getNbNeededRuns(), 10u);
    expectStanding();
}

TEST_F(DoneRobustEstimator, ANewPartitionForgetsTheResults)
{
    _robust.setDataPartition(boost::make_shared<NiceMock<MockPartition>>());
    expectCleared();
}

TEST_F(DoneRobustEstimator, ANewPartitionIsStoredAfterTheOldOneIsCleared)
{
    const auto pNew = boost::make_shared<NiceMock<MockPartition>>();
    EXPECT_CALL(*_pPartition, clearDerived).Times(1);
    EXPECT_CALL(*pNew, clearDerived).Times(0);
    EXPECT_CALL(_robust, clearDerived).Times(1);
    _robust.setDataPartition(pNew);
    Mock::VerifyAndClearExpectations(pNew.get());

    EXPECT_CALL(*pNew, randomSubSet(2)).Times(10);
    EXPECT_CALL(*_pPartition, randomSubSet).Times(0);
    expectSuccess(_robust.computeEstimation(numberedData(30)));
}

TEST_F(DoneRobustEstimator, ANewPartitionIsShared)
{
    const auto pNew = boost::make_shared<NiceMock<MockPartition>>();
    _robust.setDataPartition(pNew);
    EXPECT_EQ(pNew.use_count(), 2);
    EXPECT_EQ(_pPartition.use_count(), 1);
}

TEST_F(DoneRobustEstimator, ANullPartitionRaisesWithTheResultsForgotten)
{
    expectMathRaises("Data partition shared pointer should not be null",
                     [&] { _robust.setDataPartition(DataPartitionPtr()); });
    expectCleared();
}

TEST_F(DoneRobustEstimator, ANullPartitionLeavesTheOldOneCleared)
{
    EXPECT_CALL(*_pPartition, clearDerived).Times(1);
    EXPECT_THROW(_robust.setDataPartition(DataPartitionPtr()), OVRIXMathException);
    Mock::VerifyAndClearExpectations(_pPartition.get());

    EXPECT_CALL(*_pPartition, randomSubSet(2)).Times(10);
    expectSuccess(_robust.computeEstimation(numberedData(30)));
}

TEST(BaseRobustEstimatorExample, IsTheCodeThatTheseTestsCompile)
{
    EXPECT_THAT(test::readCode("tests/support/MeanRobustEstimator.h"),
                testing::HasSubstr(test::readExample("OVRIXMath/Estimation/BaseRobustEstimator.h")));
}

TEST(BaseRobustEstimatorExample, LeavesOutAnOutlier)
{
    // y = x but for the last datum; neighbours alone are drawn.
    DataSet data;
    for (int i = 0; i < 20; ++i)
        data.push_back(makeVector({static_cast<double>(i), i == 19 ? 500.0 : static_cast<double>(i)}));
    MeanRobustEstimator robust;
    robust.init(boost::make_shared<LineEstimator>());
    robust.setDataPartition(boost::make_shared<RunPartition>());
    RandomUniformGenerator::getGen().seed(7);
    expectSuccess(robust.computeEstimation(data));

    OutlierFlags expected(20, false);
    expected[19] = true;
    EXPECT_EQ(robust.getOutlierFlags(), expected);
    // The mean residual is that of the outlier alone, 481 / 20.
    EXPECT_NEAR(robust.getEstimOutlierThreshold(), 3.0 * 481.0 / 20.0, 1e-9);
    EXPECT_NEAR(robust.getEstimParams()(0), 1.0, 1e-12);
    EXPECT_NEAR(robust.getEstimParams()(1), 0.0, 1e-12);
}

} // namespace math
} // namespace ovrix
