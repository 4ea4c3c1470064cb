#include <OVRIXMath/Estimation/BaseRobustEstimator.h>
#include <OVRIXMath/Estimation/DataPartition/AdaptiveGridPartition.h>
#include <OVRIXMath/Estimation/DataPartition/RegularGridPartition.h>

#include <boost/make_shared.hpp>
#include <gmock/gmock.h>
#include <log4cplus/loglevel.h>

#include <cmath>
#include <limits>
#include <support/Builders.h>
#include <support/DataSets.h>
#include <support/ExpectFailure.h>
#include <support/LogCapture.h>
#include <support/MockEstimators.h>

namespace ovrix
{
namespace math
{

namespace
{

using test::expectFailure;
using test::expectMathRaises;
using test::expectSuccess;
using test::makeDataSet;
using test::makeVector;
using test::MockEstimator;
using test::MockPartition;
using test::MockScorer;
using test::numberedData;
using test::toStd;
using testing::_;
using testing::AtLeast;
using testing::Expectation;
using testing::InSequence;
using testing::Invoke;
using testing::Mock;
using testing::NiceMock;
using testing::Ref;
using testing::Return;
using testing::SizeIs;

const double g_nan = std::numeric_limits<double>::quiet_NaN();
const double g_infinity = std::numeric_limits<double>::infinity();
const double g_rejected = NumericLimits<double>::s_max;

const char* const g_noSubSetText = "Failed to generate a sub set of data using data partition";
const char* const g_noScoreText =
    "Robust estimation failed, no valid estimation score computed, outlier threshold may be to high";

/// The values of data of one element.
std::vector<double> valuesOf(const DataSet& dataSet)
{
    std::vector<double> values;
    for (const Vector& datum : dataSet)
        values.push_back(datum(0));
    return values;
}

const BoolResult g_noFit(false, "No fit");
const BoolResult g_noResiduals(false, "No residuals");

/// A mocked model of sub-sets of two data and one parameter, a mocked scorer and a mocked partition: ten successful
/// runs are needed, twenty are made at most, and five data are the least.
class RobustLoop : public testing::Test
{
protected:
    RobustLoop()
    {
        _robust.setDataPartition(_pPartition);
        _robust.init(_pEstimator);
    }

    MockEstimator& estimator()
    {
        return *_pEstimator;
    }

    MockPartition& partition()
    {
        return *_pPartition;
    }

    /// The partition has been prepared once, each time from a clear state, and cleared at the end or not.
    void expectPartitionCalls(int nbDraws, bool bClearedAtTheEnd)
    {
        EXPECT_CALL(partition(), initDerived).Times(1);
        EXPECT_CALL(partition(), randomSubSet(2)).Times(nbDraws);
        EXPECT_CALL(partition(), clearDerived).Times(bClearedAtTheEnd ? 2 : 1);
    }

    /// The partition is initialised until it is cleared.
    void expectPartitionInitialised() const
    {
        EXPECT_EQ(_pPartition->getSubSetRequestedSize(), 2u);
    }

    void expectPartitionCleared() const
    {
        expectMathRaises("Data partition has not been initialized", [this] { _pPartition->getSubSetRequestedSize(); });
    }

    /// The residuals of each fit, in the order of the fits.
    void setResidualsOfFits(const std::vector<Vector>& residualsOfFits)
    {
        ON_CALL(estimator(), processResiduals)
            .WillByDefault(
                [residualsOfFits](const DataSet&, const ParameterType& params, ResidualsSet& residuals)
                {
                    residuals = residualsOfFits.at(static_cast<std::size_t>(params(0)) - 1);
                    return BoolResult(true);
                });
    }

    boost::shared_ptr<NiceMock<MockEstimator>> _pEstimator = boost::make_shared<NiceMock<MockEstimator>>(2u, 1u, 1u);
    boost::shared_ptr<NiceMock<MockPartition>> _pPartition = boost::make_shared<NiceMock<MockPartition>>();
    NiceMock<MockScorer> _robust;
    const DataSet _data = numberedData(30);
};

/// As above with one needed run, from which the flags are made.
class OneRun : public RobustLoop
{
protected:
    OneRun()
    {
        _robust.setExpectedOutlierRatio(0.0);
    }

    /// The flags that residuals get under a threshold.
    OutlierFlags flagsOf(const Vector& residuals, double threshold)
    {
        setResidualsOfFits({residuals});
        ON_CALL(_robust, computeScore).WillByDefault(Return(0.0));
        ON_CALL(_robust, computeOutlierThreshold).WillByDefault(Return(threshold));
        expectSuccess(_robust.computeEstimation(numberedData(static_cast<ovUInt32>(residuals.size()))));
        return _robust.getOutlierFlags();
    }
};

} // namespace

TEST_F(RobustLoop, GoesThroughItsStepsInOrder)
{
    _robust.setExpectedOutlierRatio(0.0);
    InSequence inSequence;
    EXPECT_CALL(partition(), clearDerived);
    EXPECT_CALL(partition(), initDerived(Ref(_data), 2));
    EXPECT_CALL(partition(), randomSubSet(2));
    EXPECT_CALL(estimator(), processEstimation);
    EXPECT_CALL(estimator(), processResiduals);
    EXPECT_CALL(_robust, computeScore);
    EXPECT_CALL(partition(), clearDerived);
    EXPECT_CALL(_robust, computeOutlierThreshold);
    EXPECT_CALL(estimator(), processEstimation);
    expectSuccess(_robust.computeEstimation(_data));
}

TEST_F(RobustLoop, StopsAtTheNeededSuccessfulRuns)
{
    expectPartitionCalls(10, true);
    EXPECT_CALL(estimator(), processEstimation).Times(11);
    EXPECT_CALL(estimator(), processResiduals).Times(10);
    EXPECT_CALL(_robust, computeScore).Times(10);
    EXPECT_CALL(_robust, computeOutlierThreshold).Times(1);
    expectSuccess(_robust.computeEstimation(_data));
}

TEST_F(RobustLoop, FitsEachRunToTheSubSetThatWasDrawn)
{
    std::vector<std::vector<double>> fitted;
    ON_CALL(partition(), randomSubSet)
        .WillByDefault(
            [&fitted](ovUInt32)
            {
                const auto run = static_cast<ovUInt32>(fitted.size());
                return std::set<ovUInt32>{29 - run, run};
            });
    ON_CALL(estimator(), processEstimation)
        .WillByDefault(
            [&fitted](const DataSet& subSet, ParameterType&)
            {
                fitted.push_back(valuesOf(subSet));
                return BoolResult(true);
            });
    expectSuccess(_robust.computeEstimation(_data));
    ASSERT_EQ(fitted.size(), 11u);
    for (int run = 0; run < 10; ++run)
        EXPECT_EQ(fitted[run], (std::vector<double>{double(run), double(29 - run)}));
}

TEST_F(RobustLoop, ComputesResidualsOfEachFitOnAllData)
{
    std::vector<double> params;
    ON_CALL(estimator(), processResiduals)
        .WillByDefault(
            [&](const DataSet& dataSet, const ParameterType& estimParams, ResidualsSet& residuals)
            {
                EXPECT_EQ(&dataSet, &_data);
                EXPECT_EQ(residuals.size(), 30u);
                params.push_back(estimParams(0));
                return BoolResult(true);
            });
    expectSuccess(_robust.computeEstimation(_data));
    EXPECT_EQ(params, (std::vector<double>{1, 2, 3, 4, 5, 6, 7, 8, 9, 10}));
}

TEST_F(RobustLoop, ScoresTheResidualsOfEachFit)
{
    std::vector<std::vector<double>> scored;
    ON_CALL(_robust, computeScore)
        .WillByDefault(
            [&scored](const ResidualsSet& residuals)
            {
                scored.push_back(toStd(residuals));
                return 0.0;
            });
    expectSuccess(_robust.computeEstimation(_data));
    ASSERT_EQ(scored.size(), 10u);
    for (int run = 0; run < 10; ++run)
        EXPECT_EQ(scored[run], std::vector<double>(30, run + 1));
}

TEST_F(RobustLoop, AsksForTheThresholdOfTheBestScoreAndTheCounts)
{
    ON_CALL(_robust, computeScore).WillByDefault([](const ResidualsSet& r) { return std::abs(r(0) - 4.0) - 7.5; });
    EXPECT_CALL(_robust, computeOutlierThreshold(-7.5, 30, 2)).WillOnce(Return(17.25));
    expectSuccess(_robust.computeEstimation(_data));
    EXPECT_EQ(_robust.getEstimOutlierThreshold(), 17.25);
}

TEST_F(RobustLoop, TheLowestScoreGivesTheFlags)
{
    std::vector<Vector> residuals(10, Vector(30, 9.0));
    residuals[6](3) = 0.5;
    setResidualsOfFits(residuals);
    ON_CALL(_robust, computeScore).WillByDefault([](const ResidualsSet& r) { return r(3); });
    ON_CALL(_robust, computeOutlierThreshold).WillByDefault(Return(1.0));
    expectSuccess(_robust.computeEstimation(_data));

    OutlierFlags expected(30, true);
    expected[3] = false;
    EXPECT_EQ(_robust.getOutlierFlags(), expected);
}

TEST_F(RobustLoop, OnATieTheEarlierRunStays)
{
    std::vector<Vector> residuals;
    for (int run = 0; run < 10; ++run)
    {
        residuals.push_back(Vector(30, 9.0));
        residuals.back()(run) = 0.0;
    }
    setResidualsOfFits(residuals);
    int nbScores = 0;
    ON_CALL(_robust, computeScore)
        .WillByDefault([&nbScores](const ResidualsSet&) { return ++nbScores < 4 ? 2.0 : 1.0; });
    ON_CALL(_robust, computeOutlierThreshold).WillByDefault(Return(1.0));
    expectSuccess(_robust.computeEstimation(_data));

    OutlierFlags expected(30, true);
    expected[3] = false;
    EXPECT_EQ(_robust.getOutlierFlags(), expected);
}

TEST_F(RobustLoop, AScoreMayBeMinusInfinity)
{
    ON_CALL(_robust, computeScore).WillByDefault(Return(-g_infinity));
    EXPECT_CALL(_robust, computeOutlierThreshold(-g_infinity, 30, 2));
    expectSuccess(_robust.computeEstimation(_data));
}

TEST_F(RobustLoop, AScoreThatIsNotANumberNeverWins)
{
    ON_CALL(_robust, computeScore).WillByDefault([](const ResidualsSet& r) { return r(0) == 2.0 ? 5.0 : g_nan; });
    EXPECT_CALL(_robust, computeOutlierThreshold(5.0, 30, 2));
    EXPECT_CALL(_robust, computeScore).Times(10);
    expectSuccess(_robust.computeEstimation(_data));
}

TEST_F(RobustLoop, FitsOnceMoreToTheInliersInTheirOrder)
{
    setResidualsOfFits(std::vector<Vector>(10, makeVector({1, 9, 1, 9, 9, 1, 9})));
    ON_CALL(_robust, computeOutlierThreshold).WillByDefault(Return(5.0));
    std::vector<double> lastFitted;
    ON_CALL(estimator(), processEstimation)
        .WillByDefault(
            [&lastFitted, nbFits = 0.0](const DataSet& dataSet, ParameterType& estimParams) mutable
            {
                lastFitted = valuesOf(dataSet);
                estimParams(0) = ++nbFits;
                return BoolResult(true);
            });
    expectSuccess(_robust.computeEstimation(numberedData(7)));
    EXPECT_EQ(lastFitted, (std::vector<double>{0, 2, 5}));
}

TEST_F(RobustLoop, TheParametersAreThoseOfTheFitToTheInliers)
{
    expectSuccess(_robust.computeEstimation(_data));
    EXPECT_EQ(toStd(_robust.getEstimParams()), (std::vector<double>{11}));
}

TEST_F(RobustLoop, TheFlagsAreNotMadeAgainFromTheFinalParameters)
{
    // No residuals are asked for after the fit to the inliers.
    Expectation residuals = EXPECT_CALL(estimator(), processResiduals).Times(10);
    EXPECT_CALL(_robust, computeOutlierThreshold).After(residuals);
    expectSuccess(_robust.computeEstimation(_data));
}

TEST_F(RobustLoop, TheFitToTheInliersIsMadeWithoutChecks)
{
    setResidualsOfFits(std::vector<Vector>(10, Vector(30, 1.0)));
    ON_CALL(_robust, computeOutlierThreshold).WillByDefault(Return(1.0));
    EXPECT_CALL(estimator(), processEstimation(SizeIs(2), _)).Times(10);
    EXPECT_CALL(estimator(), processEstimation(SizeIs(0), _)).WillOnce(Return(BoolResult(true)));
    expectSuccess(_robust.computeEstimation(_data));
}

TEST_F(RobustLoop, AFailedFitToTheInliersFailsWithItsReason)
{
    EXPECT_CALL(estimator(), processEstimation(SizeIs(2), _)).Times(10);
    EXPECT_CALL(estimator(), processEstimation(SizeIs(30), _)).WillOnce(Return(g_noFit));
    expectPartitionCalls(10, true);
    expectFailure("Robust estimation final estimation failed\nNo fit", _robust.computeEstimation(_data));
    expectPartitionCleared();
}

TEST_F(RobustLoop, AFailedFitToTheInliersComesAfterThresholdAndFlags)
{
    setResidualsOfFits(std::vector<Vector>(10, makeVector({1, 9, 1, 9, 9, 1, 9})));
    ON_CALL(_robust, computeOutlierThreshold).WillByDefault(Return(5.0));
    EXPECT_CALL(estimator(), processEstimation(SizeIs(2), _)).Times(10);
    EXPECT_CALL(estimator(), processEstimation(SizeIs(3), _)).WillOnce(Return(g_noFit));
    expectFailure("Robust estimation final estimation failed\nNo fit", _robust.computeEstimation(numberedData(7)));
    EXPECT_EQ(_robust.getEstimOutlierThreshold(), 5.0);
    EXPECT_EQ(_robust.getOutlierFlags(), (OutlierFlags{false, true, false, true, true, false, true}));
}

TEST_F(RobustLoop, ARunWhoseFitFailsIsLostSilently)
{
    const test::LogCapture log;
    ON_CALL(estimator(), processEstimation)
        .WillByDefault(
            [nbFits = 0](const DataSet&, ParameterType& estimParams) mutable
            {
                estimParams(0) = ++nbFits;
                return nbFits % 2 == 0 ? BoolResult(true) : g_noFit;
            });
    expectPartitionCalls(20, true);
    // The twenty-first fit is that to the inliers, which fails in its turn.
    EXPECT_CALL(estimator(), processEstimation).Times(21);
    EXPECT_CALL(estimator(), processResiduals).Times(10);
    expectFailure("Robust estimation final estimation failed\nNo fit", _robust.computeEstimation(_data));
    EXPECT_EQ(log.getTexts(), std::vector<std::string>());
}

TEST_F(RobustLoop, FailsWhenEveryFitFails)
{
    ON_CALL(estimator(), processEstimation).WillByDefault(Return(g_noFit));
    expectPartitionCalls(20, true);
    EXPECT_CALL(estimator(), processEstimation).Times(20);
    EXPECT_CALL(estimator(), processResiduals).Times(0);
    EXPECT_CALL(_robust, computeScore).Times(0);
    EXPECT_CALL(_robust, computeOutlierThreshold).Times(0);
    expectFailure("Robust estimation failed after 20 runs (with 0 successful runs), while expecting 10 successful runs",
                  _robust.computeEstimation(_data));
    expectPartitionCleared();
}

TEST_F(RobustLoop, FailsWithOneSuccessfulRunTooFew)
{
    ON_CALL(estimator(), processEstimation)
        .WillByDefault([nbFits = 0](const DataSet&, ParameterType&) mutable
                       { return ++nbFits > 11 ? BoolResult(true) : g_noFit; });
    expectPartitionCalls(20, true);
    expectFailure("Robust estimation failed after 20 runs (with 9 successful runs), while expecting 10 successful runs",
                  _robust.computeEstimation(_data));
}

TEST_F(RobustLoop, SucceedsWhenTheLastRunsAreTheSuccessfulOnes)
{
    ON_CALL(estimator(), processEstimation)
        .WillByDefault([nbFits = 0](const DataSet&, ParameterType&) mutable
                       { return ++nbFits > 10 ? BoolResult(true) : g_noFit; });
    expectPartitionCalls(20, true);
    expectSuccess(_robust.computeEstimation(_data));
}

TEST_F(RobustLoop, TooFewRunsAreReportedBeforeRejectedScores)
{
    ON_CALL(estimator(), processEstimation)
        .WillByDefault([nbFits = 0](const DataSet&, ParameterType&) mutable
                       { return ++nbFits > 11 ? BoolResult(true) : g_noFit; });
    ON_CALL(_robust, computeScore).WillByDefault(Return(g_rejected));
    expectFailure("Robust estimation failed after 20 runs (with 9 successful runs), while expecting 10 successful runs",
                  _robust.computeEstimation(_data));
}

TEST_F(RobustLoop, ARejectedRunCountsAsSuccessful)
{
    ON_CALL(_robust, computeScore).WillByDefault(Return(g_rejected));
    expectPartitionCalls(10, true);
    EXPECT_CALL(estimator(), processEstimation).Times(10);
    EXPECT_CALL(_robust, computeScore).Times(10);
    EXPECT_CALL(_robust, computeOutlierThreshold).Times(0);
    expectFailure(g_noScoreText, _robust.computeEstimation(_data));
    expectPartitionCleared();
}

TEST_F(RobustLoop, OneAcceptedRunIsEnough)
{
    ON_CALL(_robust, computeScore).WillByDefault([](const ResidualsSet& r) { return r(0) == 10.0 ? 3.0 : g_rejected; });
    EXPECT_CALL(_robust, computeOutlierThreshold(3.0, 30, 2));
    expectSuccess(_robust.computeEstimation(_data));
}

TEST_F(RobustLoop, FailsWhenNoScoreIsANumber)
{
    ON_CALL(_robust, computeScore).WillByDefault(Return(g_nan));
    expectPartitionCalls(10, true);
    expectFailure(g_noScoreText, _robust.computeEstimation(_data));
}

TEST_F(RobustLoop, FailsWhenEveryScoreIsInfinite)
{
    ON_CALL(_robust, computeScore).WillByDefault(Return(g_infinity));
    expectPartitionCalls(10, true);
    expectFailure(g_noScoreText, _robust.computeEstimation(_data));
}

TEST_F(RobustLoop, WarnsWhenResidualsFail)
{
    const test::LogCapture log;
    ON_CALL(estimator(), processResiduals)
        .WillByDefault([nbCalls = 0](const DataSet&, const ParameterType&, ResidualsSet&) mutable
                       { return ++nbCalls == 3 ? g_noResiduals : BoolResult(true); });
    expectSuccess(_robust.computeEstimation(_data));

    const auto lines = log.getLines();
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].text, "Residuals computation failed while estimation was successful\nNo residuals");
    EXPECT_EQ(lines[0].level, log4cplus::WARN_LOG_LEVEL);
    EXPECT_EQ(lines[0].logger, "OVRIX.OVRIXMath");
    EXPECT_EQ(lines[0].file, "OVRIXMath/Estimation/BaseRobustEstimator.cpp");
}

TEST_F(RobustLoop, ARunWhoseResidualsFailIsLost)
{
    ON_CALL(estimator(), processResiduals)
        .WillByDefault([nbCalls = 0](const DataSet&, const ParameterType&, ResidualsSet&) mutable
                       { return ++nbCalls <= 4 ? g_noResiduals : BoolResult(true); });
    expectPartitionCalls(14, true);
    EXPECT_CALL(_robust, computeScore).Times(10);
    expectSuccess(_robust.computeEstimation(_data));
}

TEST_F(RobustLoop, FailsWhenAllResidualsFail)
{
    const test::LogCapture log;
    ON_CALL(estimator(), processResiduals).WillByDefault(Return(g_noResiduals));
    expectPartitionCalls(20, true);
    EXPECT_CALL(estimator(), processEstimation).Times(20);
    EXPECT_CALL(estimator(), processResiduals).Times(20);
    EXPECT_CALL(_robust, computeScore).Times(0);
    expectFailure("Robust estimation failed after 20 runs (with 0 successful runs), while expecting 10 successful runs",
                  _robust.computeEstimation(_data));
    EXPECT_EQ(log.getTexts().size(), 20u);
}

TEST_F(RobustLoop, ResidualsAreComputedWithChecks)
{
    // A model that breaks the size of its parameters is found out by the check before the hook.
    const test::LogCapture log;
    ON_CALL(estimator(), processEstimation)
        .WillByDefault(
            [](const DataSet&, ParameterType& estimParams)
            {
                estimParams.resize(2);
                return BoolResult(true);
            });
    EXPECT_CALL(estimator(), processResiduals).Times(0);
    expectFailure("Robust estimation failed after 20 runs (with 0 successful runs), while expecting 10 successful runs",
                  _robust.computeEstimation(_data));
    EXPECT_EQ(log.getTexts().at(0), "Residuals computation failed while estimation was successful\n"
                                    "Invalid number of estimated parameters 2, expecting 1 number of estimated "
                                    "parameters");
}

TEST_F(RobustLoop, ADatumOfAWrongSizeFailsBeforeAnythingIsCalled)
{
    EXPECT_CALL(partition(), initDerived).Times(0);
    EXPECT_CALL(partition(), clearDerived).Times(0);
    EXPECT_CALL(estimator(), processEstimation).Times(0);
    DataSet data = _data;
    data[20] = makeVector({1, 2});
    expectFailure("Invalid data size 2 into data set, expecting data with size 1", _robust.computeEstimation(data));
}

TEST_F(RobustLoop, FewerDataThanTheModelNeedsFailBeforeTheRobustMinimum)
{
    expectFailure("Data set with size 1 do no contains enough data to ensure processing (needs at least 2 data)",
                  _robust.computeEstimation(numberedData(1)));
}

TEST_F(RobustLoop, ADatumOfAWrongSizeFailsBeforeTheRobustMinimum)
{
    expectFailure("Invalid data size 3 into data set, expecting data with size 1",
                  _robust.computeEstimation(makeDataSet({{1}, {1, 2, 3}})));
}

TEST_F(RobustLoop, OneDatumFewerThanTheMinimumFailsBeforeThePartitionIsTouched)
{
    EXPECT_CALL(partition(), initDerived).Times(0);
    EXPECT_CALL(partition(), clearDerived).Times(0);
    EXPECT_CALL(partition(), randomSubSet).Times(0);
    EXPECT_CALL(estimator(), processEstimation).Times(0);
    expectFailure("Not enough data 4 to ensure robust estimation (need at least 5 data)",
                  _robust.computeEstimation(numberedData(4)));
}

TEST_F(RobustLoop, ExactlyTheMinimumOfDataRuns)
{
    // Five data have as many pairs as runs are needed: each is drawn.
    expectPartitionCalls(10, true);
    expectSuccess(_robust.computeEstimation(numberedData(5)));
}

TEST_F(RobustLoop, ReturnsTheFailureOfAPartitionThatCannotBePrepared)
{
    ON_CALL(partition(), initDerived).WillByDefault(Return(BoolResult(false, "No partition")));
    expectPartitionCalls(0, false);
    EXPECT_CALL(estimator(), processEstimation).Times(0);
    expectFailure("No partition", _robust.computeEstimation(_data));
    expectPartitionInitialised();
}

TEST_F(RobustLoop, ReturnsTheFailureOfAGridWithTooFewCells)
{
    const auto pGrid = boost::make_shared<RegularGridPartition>();
    _robust.setDataPartition(pGrid);
    expectFailure("Not enough buckets 1 generated to ensure requested sub sets size 2",
                  _robust.computeEstimation(DataSet(30, makeVector({4}))));
}

TEST_F(RobustLoop, ReturnsTheFailureOfAPartitionWithoutANewSubSetAtOnce)
{
    ON_CALL(partition(), randomSubSet)
        .WillByDefault(
            [nbDraws = 0u](ovUInt32) mutable {
                return ++nbDraws < 4 ? std::set<ovUInt32>{0, nbDraws} : std::set<ovUInt32>{0, 1};
            });
    // Three runs, then a thousand draws in vain.
    expectPartitionCalls(1003, false);
    EXPECT_CALL(estimator(), processEstimation).Times(3);
    EXPECT_CALL(_robust, computeOutlierThreshold).Times(0);
    expectFailure(g_noSubSetText, _robust.computeEstimation(_data));
    expectPartitionInitialised();
}

TEST_F(RobustLoop, ASubSetOfAWrongSizeRaises)
{
    ON_CALL(partition(), randomSubSet).WillByDefault(Return(std::set<ovUInt32>{0, 1, 2}));
    expectMathRaises("Invalid data sub set size 3, exepection sub set with size 2",
                     [this] { _robust.computeEstimation(_data); });
}

TEST_F(RobustLoop, WithoutANeededRunNothingIsDrawn)
{
    const auto pOfOneDatum = boost::make_shared<NiceMock<MockEstimator>>(1u, 1u, 1u);
    _robust.init(pOfOneDatum);
    _robust.setExpectedOutlierRatio(0.1);
    _robust.setSuccessRatio(0.5);
    ASSERT_EQ(_robust.getNbNeededRuns(), 0u);
    expectPartitionCalls(0, true);
    EXPECT_CALL(*pOfOneDatum, processEstimation).Times(0);
    EXPECT_CALL(_robust, computeOutlierThreshold).Times(0);
    expectFailure(g_noScoreText, _robust.computeEstimation(_data));
    expectPartitionCleared();
}

TEST_F(OneRun, IsEnoughWithoutExpectedOutliers)
{
    expectPartitionCalls(1, true);
    EXPECT_CALL(estimator(), processEstimation).Times(2);
    expectSuccess(_robust.computeEstimation(_data));
}

TEST_F(OneRun, IsTriedFiveTimesAtMost)
{
    ON_CALL(estimator(), processEstimation).WillByDefault(Return(g_noFit));
    expectPartitionCalls(5, true);
    EXPECT_CALL(estimator(), processEstimation).Times(5);
    expectFailure("Robust estimation failed after 5 runs (with 0 successful runs), while expecting 1 successful runs",
                  _robust.computeEstimation(_data));
}

TEST_F(OneRun, CanSucceedAtTheFifthTry)
{
    ON_CALL(estimator(), processEstimation)
        .WillByDefault([nbFits = 0](const DataSet&, ParameterType&) mutable
                       { return ++nbFits >= 5 ? BoolResult(true) : g_noFit; });
    expectPartitionCalls(5, true);
    EXPECT_CALL(estimator(), processEstimation).Times(6);
    expectSuccess(_robust.computeEstimation(_data));
}

TEST_F(OneRun, AResidualOfTheThresholdIsAnOutlier)
{
    EXPECT_EQ(flagsOf(makeVector({2.0, std::nextafter(2.0, 0.0), std::nextafter(2.0, 3.0), 0.0, 5.0}), 2.0),
              (OutlierFlags{true, false, true, false, true}));
}

TEST_F(OneRun, TheSignOfAResidualPlaysNoPart)
{
    EXPECT_EQ(flagsOf(makeVector({-2.0, -1.5, -3.0, 1.5, 3.0}), 2.0), (OutlierFlags{true, false, true, false, true}));
}

TEST_F(OneRun, TheSignOfTheThresholdPlaysNoPart)
{
    EXPECT_EQ(flagsOf(makeVector({-2.0, -1.5, -3.0, 1.5, 3.0}), -2.0), (OutlierFlags{true, false, true, false, true}));
}

TEST_F(OneRun, AThresholdOfZeroMakesEveryDatumAnOutlier)
{
    EXPECT_EQ(flagsOf(makeVector({0.0, -0.0, 1.0, 1e-200, -1.0}), 0.0), OutlierFlags(5, true));
}

TEST_F(OneRun, AResidualThatIsNotANumberIsNoOutlier)
{
    EXPECT_EQ(flagsOf(makeVector({g_nan, g_infinity, -g_infinity, 1.0, 3.0}), 2.0),
              (OutlierFlags{false, true, true, false, true}));
}

TEST_F(OneRun, AThresholdThatIsNotANumberMakesNoOutliers)
{
    EXPECT_EQ(flagsOf(makeVector({g_nan, g_infinity, 0.0, 1.0, 3.0}), g_nan), OutlierFlags(5, false));
}

TEST_F(OneRun, SquaresAreCompared)
{
    // The square of 1e-200 is 0, and so is that of the threshold.
    EXPECT_EQ(flagsOf(makeVector({1e-200, 0.0, -1e-300, 1.0, 0.0}), 1e-180), OutlierFlags(5, true));
}

TEST_F(RobustLoop, ASecondEstimationDoesNotClearTheSubclass)
{
    EXPECT_CALL(_robust, clearDerived).Times(0);
    expectSuccess(_robust.computeEstimation(_data));
    expectSuccess(_robust.computeEstimation(_data));
}

TEST_F(RobustLoop, ASecondEstimationDrawsTheSameSubSetsAgain)
{
    expectSuccess(_robust.computeEstimation(numberedData(5)));
    expectPartitionCalls(10, true);
    expectSuccess(_robust.computeEstimation(numberedData(5)));
}

TEST_F(RobustLoop, ASecondEstimationReplacesTheResults)
{
    ON_CALL(_robust, computeOutlierThreshold).WillByDefault(Return(0.0));
    expectSuccess(_robust.computeEstimation(_data));
    EXPECT_EQ(_robust.getOutlierFlags(), OutlierFlags(30, true));
    ON_CALL(_robust, computeOutlierThreshold).WillByDefault(Return(1e9));
    expectSuccess(_robust.computeEstimation(numberedData(8)));
    EXPECT_EQ(_robust.getOutlierFlags(), OutlierFlags(8, false));
    EXPECT_EQ(_robust.getEstimOutlierThreshold(), 1e9);
    EXPECT_EQ(toStd(_robust.getEstimParams()), (std::vector<double>{22}));
}

TEST_F(RobustLoop, AModelOfAnotherNumberOfParametersResizesThem)
{
    expectSuccess(_robust.computeEstimation(_data));
    _robust.init(boost::make_shared<NiceMock<MockEstimator>>(2u, 3u, 1u));
    EXPECT_EQ(_robust.getEstimParams().size(), 1u);
    expectFailure("Not enough data 4 to ensure robust estimation (need at least 5 data)",
                  _robust.computeEstimation(numberedData(4)));
    EXPECT_EQ(_robust.getEstimParams().size(), 3u);
}

TEST_F(RobustLoop, IsDoneAlsoAfterTheFirstCheckFailed)
{
    EXPECT_FALSE(_robust.computeEstimation(DataSet()));
    EXPECT_TRUE(_robust.isEstimationDone());
    EXPECT_EQ(_robust.getEstimParams().size(), 1u);
    EXPECT_EQ(_robust.getOutlierFlags(), OutlierFlags());
    EXPECT_EQ(_robust.getEstimOutlierThreshold(), 0.0);
}

TEST_F(RobustLoop, IsDoneAlsoWithTooFewData)
{
    EXPECT_FALSE(_robust.computeEstimation(numberedData(4)));
    EXPECT_TRUE(_robust.isEstimationDone());
    EXPECT_EQ(_robust.getOutlierFlags(), OutlierFlags(4, false));
}

TEST_F(RobustLoop, AfterFailedRunsTheParametersAreThoseOfTheLastRunAndAllFlagsFalse)
{
    ON_CALL(_robust, computeOutlierThreshold).WillByDefault(Return(0.0));
    expectSuccess(_robust.computeEstimation(_data));
    ON_CALL(estimator(), processEstimation)
        .WillByDefault(
            [nbFits = 100.0](const DataSet&, ParameterType& estimParams) mutable
            {
                estimParams(0) = ++nbFits;
                return g_noFit;
            });
    EXPECT_FALSE(_robust.computeEstimation(_data));
    EXPECT_TRUE(_robust.isEstimationDone());
    EXPECT_EQ(toStd(_robust.getEstimParams()), (std::vector<double>{120}));
    EXPECT_EQ(_robust.getOutlierFlags(), OutlierFlags(30, false));
}

TEST_F(RobustLoop, AfterRejectedRunsTheParametersAreThoseOfTheLastRunAndAllFlagsFalse)
{
    ON_CALL(_robust, computeScore).WillByDefault(Return(g_rejected));
    EXPECT_FALSE(_robust.computeEstimation(_data));
    EXPECT_EQ(toStd(_robust.getEstimParams()), (std::vector<double>{10}));
    EXPECT_EQ(_robust.getOutlierFlags(), OutlierFlags(30, false));
}

TEST_F(RobustLoop, AfterDrawsInVainAllFlagsAreFalse)
{
    ON_CALL(partition(), randomSubSet).WillByDefault(Return(std::set<ovUInt32>()));
    EXPECT_FALSE(_robust.computeEstimation(_data));
    EXPECT_EQ(_robust.getOutlierFlags(), OutlierFlags(30, false));
}

TEST_F(RobustLoop, RunsAgainAfterAFailure)
{
    EXPECT_CALL(partition(), initDerived)
        .WillOnce(Return(BoolResult(false, "No partition")))
        .WillRepeatedly(Return(BoolResult(true)));
    ON_CALL(partition(), randomSubSet)
        .WillByDefault(
            [nbDraws = 0u](ovUInt32) mutable {
                return std::set<ovUInt32>{0, ++nbDraws};
            });
    EXPECT_FALSE(_robust.computeEstimation(_data));
    expectSuccess(_robust.computeEstimation(_data));
}

} // namespace math
} // namespace ovrix
