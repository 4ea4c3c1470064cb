#include <OVRIXMath/Estimation/EstimationUtils.h>
#include <OVRIXMath/Estimation/LMSRobustEstimator.h>
#include <OVRIXMath/Estimation/MLESACRobustEstimator.h>
#include <OVRIXMath/Estimation/MSACRobustEstimator.h>
#include <OVRIXMath/Estimation/RANSACRobustEstimator.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <boost/make_shared.hpp>
#include <gmock/gmock.h>

#include <support/Builders.h>
#include <support/DataSets.h>
#include <support/ExpectFailure.h>
#include <support/LineEstimator.h>
#include <support/LogCapture.h>
#include <support/MockEstimators.h>
#include <tuple>

namespace ovrix
{
namespace math
{

namespace
{

using test::expectFailure;
using test::expectMathRaises;
using test::expectSuccess;
using test::makeVector;
using test::MockEstimator;
using test::MockPartition;
using test::noisyLine;
using test::numberedData;
using test::toStd;
using testing::_;
using testing::NiceMock;
using testing::Return;
using testing::SizeIs;

const char* const g_notInitText = "Estimation results have not been initialized";
const char* const g_rejectedText =
    "Robust estimation failed, no valid estimation score computed, outlier threshold may be to high";

const BoolResult g_noFit(false, "No fit");
const BoolResult g_noResiduals(false, "No residuals");

/// A configuration of each method that expects 40 % of outliers and accepts residuals around the first fits' numbers.
EstimationConfig createConfig(eRobustEstimationType type)
{
    EstimationConfig config;
    switch (type)
    {
    case eRET_NonRobust:
        config.initNonRobust();
        break;
    case eRET_LMS:
        config.initLMS(0.4);
        break;
    case eRET_RANSAC:
        config.initRANSAC(100.0, 0.4);
        break;
    case eRET_MSAC:
        config.initMSAC(100.0, 0.4);
        break;
    case eRET_MLESAC:
        config.initMLESAC(10.0, 10.0, 100.0, 0.4);
        break;
    }
    return config;
}

/// A mocked model of two data, one parameter and data of one element, whose robust estimation needs ten runs and five
/// data; the data are drawn through a mocked partition.
class ProcessEstimation : public testing::Test
{
protected:
    void initConfig(eRobustEstimationType type)
    {
        _config = createConfig(type);
        _config.setDataPartition(_pPartition);
    }

    MockEstimator& estimator()
    {
        return *_pEstimator;
    }

    void process(const DataSet& dataSet)
    {
        processEstimation(_config, _pEstimator, dataSet, _results);
    }

    void expectFailed(const std::string& text)
    {
        expectFailure(text, _results.getEstimationStatus());
    }

    void expectCounts(ovUInt32 nbMinDataForRobust, ovUInt32 nbData)
    {
        EXPECT_EQ(_results.getNbEstimParams(), 3u);
        EXPECT_EQ(_results.getInputDataSize(), 1u);
        EXPECT_EQ(_results.getNbMinDataForEstimation(), 2u);
        EXPECT_EQ(_results.getNbMinDataForRobustEstimation(), nbMinDataForRobust);
        EXPECT_EQ(_results.getNbInputData(), nbData);
    }

    EstimationConfig _config = createNonRobustConfig();
    boost::shared_ptr<NiceMock<MockEstimator>> _pEstimator = boost::make_shared<NiceMock<MockEstimator>>(2u, 3u, 1u);
    boost::shared_ptr<NiceMock<MockPartition>> _pPartition = boost::make_shared<NiceMock<MockPartition>>();
    EstimationResults _results;
};

/// The driver's choice by method, number of data and permission of plain estimation.
class ProcessEstimationTree : public ProcessEstimation,
                              public testing::WithParamInterface<std::tuple<eRobustEstimationType, ovUInt32, bool>>
{
};

/// The methods that are robust.
class ProcessEstimationByMethod : public ProcessEstimation, public testing::WithParamInterface<eRobustEstimationType>
{
};

} // namespace

TEST_P(ProcessEstimationTree, TakesThePathOfMethodCountAndPermission)
{
    const auto [type, nbData, bAllowSimple] = GetParam();
    initConfig(type);
    _config.setAllowSimpleEstimation(bAllowSimple);
    const DataSet data = numberedData(nbData);
    const bool bRobust = type != eRET_NonRobust && nbData >= 5;
    const bool bSimple = type == eRET_NonRobust || (nbData < 5 && bAllowSimple);
    const int nbFits = bRobust ? 11 : bSimple ? 1 : 0;
    EXPECT_CALL(estimator(), processEstimation).Times(nbFits);
    EXPECT_CALL(estimator(), processResiduals).Times(nbFits);
    EXPECT_CALL(*_pPartition, initDerived).Times(bRobust ? 1 : 0);
    process(data);

    if (nbFits == 0)
    {
        expectMathRaises(g_notInitText, [this] { _results.getEstimationStatus(); });
        return;
    }
    expectSuccess(_results.getEstimationStatus());
    EXPECT_EQ(_results.hasRobustEstimationDone(), bRobust);
    EXPECT_EQ(_results.getEstimationConfig().getRobustEstimationType(), type);
    expectCounts(type == eRET_NonRobust ? 0 : 5, nbData);
}

INSTANTIATE_TEST_SUITE_P(AllWays, ProcessEstimationTree,
                         testing::Combine(testing::Values(eRET_NonRobust, eRET_LMS, eRET_RANSAC, eRET_MSAC,
                                                          eRET_MLESAC),
                                          testing::Values(4u, 5u, 30u), testing::Bool()));

TEST_F(ProcessEstimation, ANullModelRaises)
{
    expectMathRaises("Estimator shared pointer should not be null for robust estimator initialization",
                     [this] { processEstimation(_config, EstimatorPtr(), numberedData(5), _results); });
}

TEST_F(ProcessEstimation, ANullModelRaisesBeforeAConfigurationThatIsNotInitialised)
{
    expectMathRaises("Estimator shared pointer should not be null for robust estimator initialization",
                     [this] { processEstimation(EstimationConfig(), EstimatorPtr(), numberedData(5), _results); });
}

TEST_F(ProcessEstimation, AModelThatIsNotInitialisedRaisesBeforeAConfigurationThatIsNotInitialised)
{
    expectMathRaises("Estimator has not been initialized",
                     [this] {
                         processEstimation(EstimationConfig(), boost::make_shared<NiceMock<MockEstimator>>(),
                                           numberedData(5), _results);
                     });
}

TEST_F(ProcessEstimation, AConfigurationThatIsNotInitialisedRaises)
{
    EXPECT_CALL(estimator(), processEstimation).Times(0);
    expectMathRaises("Estimation configuration has not been initialized",
                     [this] { processEstimation(EstimationConfig(), _pEstimator, numberedData(5), _results); });
}

TEST_F(ProcessEstimation, TheResultsAreClearedBeforeAnyCheck)
{
    process(numberedData(5));
    ASSERT_TRUE(_results.getEstimationStatus());
    EXPECT_THROW(processEstimation(_config, EstimatorPtr(), numberedData(5), _results), OVRIXMathException);
    expectMathRaises(g_notInitText, [this] { _results.getEstimationStatus(); });
}

TEST_F(ProcessEstimation, EarlierResultsAreForgottenWhenNothingIsDone)
{
    process(numberedData(5));
    initConfig(eRET_RANSAC);
    _config.setAllowSimpleEstimation(false);
    process(numberedData(4));
    expectMathRaises(g_notInitText, [this] { _results.getEstimationStatus(); });
}

TEST_F(ProcessEstimation, NothingIsLoggedWhenNothingIsDone)
{
    const test::LogCapture log;
    initConfig(eRET_RANSAC);
    _config.setAllowSimpleEstimation(false);
    process(numberedData(4));
    EXPECT_EQ(log.getTexts(), std::vector<std::string>());
}

TEST_F(ProcessEstimation, ASimpleFitIsMadeOnAllData)
{
    const DataSet data = numberedData(7);
    EXPECT_CALL(estimator(), processEstimation(testing::Ref(data), SizeIs(3)));
    EXPECT_CALL(estimator(), processResiduals(testing::Ref(data), SizeIs(3), SizeIs(7)));
    process(data);
    EXPECT_EQ(toStd(_results.getEstimParams()), (std::vector<double>{1, 1, 1}));
    EXPECT_EQ(toStd(_results.getResidualsSet()), std::vector<double>(7, 1.0));
    EXPECT_EQ(_results.getOutlierFlags(), OutlierFlags());
}

TEST_F(ProcessEstimation, AFailedSimpleFitFailsWithItsText)
{
    EXPECT_CALL(estimator(), processEstimation).WillOnce(Return(g_noFit));
    EXPECT_CALL(estimator(), processResiduals).Times(0);
    process(numberedData(7));
    expectFailed("No fit");
    expectCounts(0, 7);
}

TEST_F(ProcessEstimation, FailedResidualsOfASimpleFitFailWithAHigherText)
{
    const test::LogCapture log;
    EXPECT_CALL(estimator(), processEstimation).Times(1);
    EXPECT_CALL(estimator(), processResiduals).WillOnce(Return(g_noResiduals));
    process(numberedData(7));
    expectFailed("Residuals computation failed while estimation was successful\nNo residuals");
    expectCounts(0, 7);
    EXPECT_EQ(log.getTexts(), std::vector<std::string>());
}

TEST_F(ProcessEstimation, TooFewDataForTheModelFailTheSimpleFit)
{
    process(numberedData(1));
    expectFailed("Data set with size 1 do no contains enough data to ensure processing (needs at least 2 data)");
    expectCounts(0, 1);
}

TEST_F(ProcessEstimation, AnEmptyDataSetFailsTheSimpleFit)
{
    process(DataSet());
    expectFailed("Data set with size 0 do no contains enough data to ensure processing (needs at least 2 data)");
    EXPECT_EQ(_results.getNbInliers(), 0u);
}

TEST_F(ProcessEstimation, ADatumOfAWrongSizeFailsTheSimpleFit)
{
    DataSet data = numberedData(7);
    data[3] = makeVector({1, 2});
    process(data);
    expectFailed("Invalid data size 2 into data set, expecting data with size 1");
}

TEST_P(ProcessEstimationByMethod, ADatumOfAWrongSizeFailsTheRobustFit)
{
    initConfig(GetParam());
    DataSet data = numberedData(7);
    data[3] = makeVector({1, 2});
    process(data);
    expectFailed("Invalid data size 2 into data set, expecting data with size 1");
    expectCounts(5, 7);
}

TEST_P(ProcessEstimationByMethod, ADatumOfAWrongSizeFailsTheFitThatStandsIn)
{
    initConfig(GetParam());
    DataSet data = numberedData(4);
    data[3] = makeVector({1, 2});
    process(data);
    expectFailed("Invalid data size 2 into data set, expecting data with size 1");
    expectCounts(5, 4);
}

TEST_P(ProcessEstimationByMethod, ASimpleFitThatStandsInKeepsTheRobustMinimum)
{
    initConfig(GetParam());
    process(numberedData(4));
    EXPECT_EQ(_results.getNbMinDataForRobustEstimation(), 5u);
    EXPECT_FALSE(_results.hasRobustEstimationDone());
}

TEST_P(ProcessEstimationByMethod, AFailedFitThatStandsInFailsWithItsText)
{
    initConfig(GetParam());
    ON_CALL(estimator(), processEstimation).WillByDefault(Return(g_noFit));
    process(numberedData(4));
    expectFailed("No fit");
    expectCounts(5, 4);
}

TEST_P(ProcessEstimationByMethod, FailedResidualsOfAFitThatStandsInFailWithAHigherText)
{
    initConfig(GetParam());
    ON_CALL(estimator(), processResiduals).WillByDefault(Return(g_noResiduals));
    process(numberedData(4));
    expectFailed("Residuals computation failed while estimation was successful\nNo residuals");
    expectCounts(5, 4);
}

TEST_P(ProcessEstimationByMethod, ARobustFitThatFailsIsNotTriedAsASimpleOne)
{
    initConfig(GetParam());
    EXPECT_CALL(estimator(), processEstimation(SizeIs(2), _)).Times(20).WillRepeatedly(Return(g_noFit));
    process(numberedData(30));
    expectFailed("Robust estimation failed after 20 runs (with 0 successful runs), while expecting 10 successful runs");
    expectCounts(5, 30);
}

TEST_P(ProcessEstimationByMethod, AFailedFitToTheInliersFailsWithItsReason)
{
    initConfig(GetParam());
    EXPECT_CALL(estimator(), processEstimation(SizeIs(2), _)).Times(10);
    EXPECT_CALL(estimator(), processEstimation(SizeIs(30), _)).WillOnce(Return(g_noFit));
    process(numberedData(30));
    expectFailed("Robust estimation final estimation failed\nNo fit");
    expectCounts(5, 30);
}

TEST_P(ProcessEstimationByMethod, APartitionThatCannotBePreparedFails)
{
    initConfig(GetParam());
    ON_CALL(*_pPartition, initDerived).WillByDefault(Return(BoolResult(false, "No partition")));
    process(numberedData(30));
    expectFailed("No partition");
    expectCounts(5, 30);
}

TEST_P(ProcessEstimationByMethod, APartitionWithoutANewSubSetFails)
{
    initConfig(GetParam());
    ON_CALL(*_pPartition, randomSubSet).WillByDefault(Return(std::set<ovUInt32>()));
    process(numberedData(30));
    expectFailed("Failed to generate a sub set of data using data partition");
}

TEST_P(ProcessEstimationByMethod, FailedResidualsOfTheFinalParametersFailWithAHigherText)
{
    const test::LogCapture log;
    initConfig(GetParam());
    ON_CALL(estimator(), processResiduals)
        .WillByDefault(
            [nbCalls = 0](const DataSet&, const ParameterType&, ResidualsSet& residuals) mutable
            {
                std::fill(residuals.begin(), residuals.end(), 1e-9);
                return ++nbCalls == 11 ? g_noResiduals : BoolResult(true);
            });
    process(numberedData(30));
    expectFailed("Residuals computation failed while estimation was successful\nNo residuals");
    expectCounts(5, 30);
    EXPECT_EQ(log.getTexts(), std::vector<std::string>());
}

TEST_P(ProcessEstimationByMethod, TheResidualsAreThoseOfTheFinalParameters)
{
    initConfig(GetParam());
    process(numberedData(30));
    EXPECT_EQ(toStd(_results.getEstimParams()), (std::vector<double>{11, 11, 11}));
    EXPECT_EQ(toStd(_results.getResidualsSet()), std::vector<double>(30, 11.0));
}

TEST_P(ProcessEstimationByMethod, ThePartitionOfTheConfigurationIsUsedAndShared)
{
    initConfig(GetParam());
    EXPECT_CALL(*_pPartition, randomSubSet(2)).Times(10);
    process(numberedData(30));
    EXPECT_EQ(_results.getEstimationConfig().getDataPartitionPtr(), _pPartition);
    // The test, its configuration and that of the results.
    EXPECT_EQ(_pPartition.use_count(), 3);
}

TEST_P(ProcessEstimationByMethod, TheConfigurationsCopyStandsInTheResults)
{
    initConfig(GetParam());
    _config.setSuccessRatio(0.992);
    process(numberedData(30));
    EXPECT_EQ(_results.getEstimationConfig().getSuccessRatio(), 0.992);
    EXPECT_EQ(_results.getEstimationConfig().getExpectedOutlierRatio(), 0.4);
    EXPECT_EQ(_results.getNbMinDataForRobustEstimation(), 6u);
}

TEST_P(ProcessEstimationByMethod, TheModelIsReleased)
{
    initConfig(GetParam());
    process(numberedData(30));
    EXPECT_EQ(_pEstimator.use_count(), 1);
}

INSTANTIATE_TEST_SUITE_P(AllMethods, ProcessEstimationByMethod,
                         testing::Values(eRET_LMS, eRET_RANSAC, eRET_MSAC, eRET_MLESAC));

TEST_F(ProcessEstimation, RejectedRunsFail)
{
    initConfig(eRET_RANSAC);
    ON_CALL(estimator(), processResiduals)
        .WillByDefault(
            [](const DataSet&, const ParameterType&, ResidualsSet& residuals)
            {
                std::fill(residuals.begin(), residuals.end(), 100.0);
                return BoolResult(true);
            });
    process(numberedData(30));
    expectFailed(g_rejectedText);
    EXPECT_EQ(_results.getNbInliers(), 30u);
}

TEST_F(ProcessEstimation, AMethodOutOfTheListRaises)
{
    initConfig(eRET_RANSAC);
    const_cast<eRobustEstimationType&>(_config.getRobustEstimationType()) = static_cast<eRobustEstimationType>(5);
    EXPECT_THROW(process(numberedData(30)), OVRIXMathException);
    expectMathRaises(g_notInitText, [this] { _results.getEstimationStatus(); });
}

TEST_F(ProcessEstimation, OneModelServesManyEstimations)
{
    const auto pLine = boost::make_shared<LineEstimator>();
    const DataSet first = test::makeDataSet({{0, 1}, {1, 3}, {2, 5}});
    const DataSet second = test::makeDataSet({{0, 4}, {1, 3}, {2, 2}});
    EstimationResults results;
    processEstimation(_config, pLine, first, _results);
    processEstimation(_config, pLine, second, results);
    // Least squares by LAPACK; a few units of rounding.
    EXPECT_NEAR(_results.getEstimParams()(0), 2.0, 1e-13);
    EXPECT_NEAR(_results.getEstimParams()(1), 1.0, 1e-13);
    EXPECT_NEAR(results.getEstimParams()(0), -1.0, 1e-13);
    EXPECT_NEAR(results.getEstimParams()(1), 4.0, 1e-13);
}

namespace
{

/// The robust estimation that a configuration stands for, set up by hand.
RobustEstimatorPtr setUpByHand(eRobustEstimationType type, const EstimatorPtr& pEstimator)
{
    RobustEstimatorPtr pRobustEstimator;
    if (type == eRET_LMS)
    {
        const auto pLMS = boost::make_shared<LMSRobustEstimator>();
        pLMS->init(pEstimator);
        pRobustEstimator = pLMS;
    }
    else if (type == eRET_RANSAC)
    {
        const auto pRANSAC = boost::make_shared<RANSACRobustEstimator>();
        pRANSAC->init(pEstimator, 0.4);
        pRobustEstimator = pRANSAC;
    }
    else if (type == eRET_MSAC)
    {
        const auto pMSAC = boost::make_shared<MSACRobustEstimator>();
        pMSAC->init(pEstimator, 0.4);
        pRobustEstimator = pMSAC;
    }
    else
    {
        const auto pMLESAC = boost::make_shared<MLESACRobustEstimator>();
        pMLESAC->init(pEstimator, 0.125, 4.0, 80.0);
        pRobustEstimator = pMLESAC;
    }
    pRobustEstimator->setExpectedOutlierRatio(0.35);
    pRobustEstimator->setSuccessRatio(0.999);
    return pRobustEstimator;
}

} // namespace

TEST_P(ProcessEstimationByMethod, GivesWhatTheRobustEstimatorGives)
{
    const eRobustEstimationType type = GetParam();
    const auto pLine = boost::make_shared<LineEstimator>();
    const DataSet data = noisyLine(61);
    switch (type)
    {
    case eRET_LMS:
        _config.initLMS(0.35);
        break;
    case eRET_RANSAC:
        _config.initRANSAC(0.4, 0.35);
        break;
    case eRET_MSAC:
        _config.initMSAC(0.4, 0.35);
        break;
    default:
        _config.initMLESAC(0.125, 4.0, 80.0, 0.35);
        break;
    }
    _config.setSuccessRatio(0.999);
    RandomUniformGenerator::getGen().seed(62);
    processEstimation(_config, pLine, data, _results);
    expectSuccess(_results.getEstimationStatus());

    const RobustEstimatorPtr pByHand = setUpByHand(type, pLine);
    RandomUniformGenerator::getGen().seed(62);
    expectSuccess(pByHand->computeEstimation(data));
    ResidualsSet residuals(data.size());
    expectSuccess(pLine->computeResiduals(data, pByHand->getEstimParams(), residuals));

    EXPECT_EQ(toStd(_results.getEstimParams()), toStd(pByHand->getEstimParams()));
    EXPECT_EQ(_results.getOutlierFlags(), pByHand->getOutlierFlags());
    EXPECT_EQ(_results.getEstimOutlierThreshold(), pByHand->getEstimOutlierThreshold());
    EXPECT_EQ(toStd(_results.getResidualsSet()), toStd(residuals));
    EXPECT_EQ(_results.getNbMinDataForRobustEstimation(), pByHand->getNbMinDataForRobustEstimation());
    EXPECT_EQ(_results.getNbOutliers(), 20u);
}

} // namespace math
} // namespace ovrix
