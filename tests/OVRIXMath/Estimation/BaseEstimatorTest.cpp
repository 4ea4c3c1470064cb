#include <OVRIXMath/Estimation/BaseEstimator.h>

#include <boost/noncopyable.hpp>
#include <gmock/gmock.h>

#include <support/Builders.h>
#include <support/ExpectFailure.h>
#include <support/HeaderExample.h>
#include <support/LineEstimator.h>
#include <support/LogCapture.h>
#include <support/MockEstimators.h>
#include <type_traits>

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
using testing::_;
using testing::NiceMock;
using testing::Ref;
using testing::Return;
using testing::StrictMock;

const char* const g_notInitText = "Estimator has not been initialized";
const char* const g_nullMinText = "Minimun number of requested data should not be null";
const char* const g_nullParamsText = "Number of estimated parameters should not be null";
const char* const g_nullSizeText = "Data size should not be null";

/// Two data fix it, three parameters, a datum has two elements; no hook may be called unless a test says so.
class BaseEstimatorChecks : public testing::Test
{
protected:
    StrictMock<MockEstimator> _estimator{2u, 3u, 2u};
    const DataSet _goodData = makeDataSet({{1, 2}, {3, 4}});
    ParameterType _params = makeVector({7, 8, 9});
};

} // namespace

TEST(BaseEstimator, CannotBeCopied)
{
    EXPECT_FALSE(std::is_copy_constructible<LineEstimator>::value);
    EXPECT_FALSE(std::is_copy_assignable<LineEstimator>::value);
    EXPECT_TRUE((std::is_base_of<boost::noncopyable_::noncopyable, BaseEstimator>::value));
}

TEST(BaseEstimator, IsNoSerialisableObject)
{
    EXPECT_FALSE((std::is_convertible<LineEstimator*, BaseDynamicObject*>::value));
}

TEST(BaseEstimator, TheCountsAreThoseOfInitBase)
{
    MockEstimator estimator;
    estimator.initBase(4, 5, 6);
    EXPECT_EQ(estimator.getNbMinRequestedData(), 4u);
    EXPECT_EQ(estimator.getNbEstimParams(), 5u);
    EXPECT_EQ(estimator.getDataSize(), 6u);
}

TEST(BaseEstimator, TheCountsCanBeAsLargeAsTheirType)
{
    MockEstimator estimator(4294967295u, 4294967294u, 4294967293u);
    EXPECT_EQ(estimator.getNbMinRequestedData(), 4294967295u);
    EXPECT_EQ(estimator.getNbEstimParams(), 4294967294u);
    EXPECT_EQ(estimator.getDataSize(), 4294967293u);
}

TEST(BaseEstimator, EachCountRaisesBeforeInitBase)
{
    const MockEstimator estimator;
    expectMathRaises(g_notInitText, [&] { estimator.getNbMinRequestedData(); });
    expectMathRaises(g_notInitText, [&] { estimator.getNbEstimParams(); });
    expectMathRaises(g_notInitText, [&] { estimator.getDataSize(); });
}

TEST(BaseEstimator, CheckDataRaisesBeforeInitBase)
{
    const MockEstimator estimator;
    expectMathRaises(g_notInitText, [&] { estimator.checkData(DataSet(), ParameterType()); });
}

TEST(BaseEstimator, ComputeEstimationRaisesBeforeInitBase)
{
    StrictMock<MockEstimator> estimator;
    ParameterType params;
    expectMathRaises(g_notInitText, [&] { estimator.computeEstimation(DataSet(), params); });
}

TEST(BaseEstimator, ComputeResidualsRaisesBeforeInitBase)
{
    const StrictMock<MockEstimator> estimator;
    ResidualsSet residuals;
    expectMathRaises(g_notInitText, [&] { estimator.computeResiduals(DataSet(), ParameterType(), residuals); });
}

TEST(BaseEstimator, InitBaseRefusesANullMinimumOfData)
{
    MockEstimator estimator;
    expectMathRaises(g_nullMinText, [&] { estimator.initBase(0, 1, 1); });
}

TEST(BaseEstimator, InitBaseRefusesANullNumberOfParameters)
{
    MockEstimator estimator;
    expectMathRaises(g_nullParamsText, [&] { estimator.initBase(1, 0, 1); });
}

TEST(BaseEstimator, InitBaseRefusesANullDataSize)
{
    MockEstimator estimator;
    expectMathRaises(g_nullSizeText, [&] { estimator.initBase(1, 1, 0); });
}

TEST(BaseEstimator, InitBaseChecksTheMinimumThenTheParametersThenTheSize)
{
    MockEstimator estimator;
    expectMathRaises(g_nullMinText, [&] { estimator.initBase(0, 0, 0); });
    expectMathRaises(g_nullMinText, [&] { estimator.initBase(0, 1, 0); });
    expectMathRaises(g_nullParamsText, [&] { estimator.initBase(1, 0, 0); });
}

TEST(BaseEstimator, AFailedInitBaseLeavesTheObjectNotInitialised)
{
    MockEstimator estimator;
    expectMathRaises(g_nullSizeText, [&] { estimator.initBase(1, 1, 0); });
    expectMathRaises(g_notInitText, [&] { estimator.getNbMinRequestedData(); });
}

TEST(BaseEstimator, AFailedInitBaseLeavesEarlierCounts)
{
    MockEstimator estimator(4, 5, 6);
    expectMathRaises(g_nullMinText, [&] { estimator.initBase(0, 8, 9); });
    expectMathRaises(g_nullParamsText, [&] { estimator.initBase(7, 0, 9); });
    expectMathRaises(g_nullSizeText, [&] { estimator.initBase(7, 8, 0); });
    EXPECT_EQ(estimator.getNbMinRequestedData(), 4u);
    EXPECT_EQ(estimator.getNbEstimParams(), 5u);
    EXPECT_EQ(estimator.getDataSize(), 6u);
}

TEST_F(BaseEstimatorChecks, ExactlyTheMinimumOfDataPasses)
{
    expectSuccess(_estimator.checkData(_goodData, _params));
}

TEST_F(BaseEstimatorChecks, MoreDataThanTheMinimumPass)
{
    expectSuccess(_estimator.checkData(makeDataSet({{1, 2}, {3, 4}, {5, 6}}), _params));
}

TEST_F(BaseEstimatorChecks, OneDatumFewerThanTheMinimumFails)
{
    expectFailure("Data set with size 1 do no contains enough data to ensure processing (needs at least 2 data)",
                  _estimator.checkData(makeDataSet({{1, 2}}), _params));
}

TEST_F(BaseEstimatorChecks, ANumberOfParametersOtherThanDeclaredFails)
{
    expectFailure("Invalid number of estimated parameters 4, expecting 3 number of estimated parameters",
                  _estimator.checkData(_goodData, makeVector({0, 0, 0, 0})));
    expectFailure("Invalid number of estimated parameters 0, expecting 3 number of estimated parameters",
                  _estimator.checkData(_goodData, ParameterType()));
}

TEST_F(BaseEstimatorChecks, TheFirstDatumOfAnotherSizeFails)
{
    expectFailure("Invalid data size 3 into data set, expecting data with size 2",
                  _estimator.checkData(makeDataSet({{1, 2}, {1, 2, 3}, {1}}), _params));
}

TEST_F(BaseEstimatorChecks, TheParametersAreCheckedBeforeTheNumberOfData)
{
    expectFailure("Invalid number of estimated parameters 1, expecting 3 number of estimated parameters",
                  _estimator.checkData(makeDataSet({{1}}), makeVector({0})));
}

TEST_F(BaseEstimatorChecks, TheNumberOfDataIsCheckedBeforeTheirSize)
{
    expectFailure("Data set with size 1 do no contains enough data to ensure processing (needs at least 2 data)",
                  _estimator.checkData(makeDataSet({{1}}), _params));
}

TEST_F(BaseEstimatorChecks, AFailedCheckWritesNothingToTheLog)
{
    const test::LogCapture log;
    _estimator.checkData(DataSet(), ParameterType());
    _estimator.checkData(DataSet(), _params);
    _estimator.checkData(makeDataSet({{1}, {1}}), _params);
    EXPECT_EQ(log.getTexts(), std::vector<std::string>());
}

TEST_F(BaseEstimatorChecks, ComputeEstimationReturnsTheFailedCheckWithoutCallingTheHook)
{
    expectFailure("Data set with size 0 do no contains enough data to ensure processing (needs at least 2 data)",
                  _estimator.computeEstimation(DataSet(), _params));
}

TEST_F(BaseEstimatorChecks, ComputeEstimationLeavesTheParametersWhenACheckFails)
{
    _estimator.computeEstimation(makeDataSet({{1}, {1}}), _params);
    EXPECT_EQ(test::toStd(_params), (std::vector<double>{7, 8, 9}));
}

TEST_F(BaseEstimatorChecks, ComputeEstimationDoesNotSizeTheParameters)
{
    ParameterType params;
    expectFailure("Invalid number of estimated parameters 0, expecting 3 number of estimated parameters",
                  _estimator.computeEstimation(_goodData, params));
    EXPECT_EQ(params.size(), 0u);
}

TEST_F(BaseEstimatorChecks, ComputeEstimationHandsTheCallersObjectsToTheHook)
{
    EXPECT_CALL(_estimator, processEstimation(Ref(_goodData), Ref(_params))).WillOnce(Return(BoolResult(true)));
    expectSuccess(_estimator.computeEstimation(_goodData, _params));
}

TEST_F(BaseEstimatorChecks, ComputeEstimationReturnsTheHooksFailureUnchanged)
{
    EXPECT_CALL(_estimator, processEstimation(_, _)).WillOnce(Return(BoolResult(false, "No fit")));
    expectFailure("No fit", _estimator.computeEstimation(_goodData, _params));
}

TEST_F(BaseEstimatorChecks, ComputeResidualsReturnsTheFailedCheckWithoutCallingTheHook)
{
    ResidualsSet residuals(1);
    expectFailure("Data set with size 1 do no contains enough data to ensure processing (needs at least 2 data)",
                  _estimator.computeResiduals(makeDataSet({{1, 2}}), _params, residuals));
}

TEST_F(BaseEstimatorChecks, ComputeResidualsReturnsTheFailedCheckAlsoWithResidualsOfAWrongSize)
{
    ResidualsSet residuals(5);
    expectFailure("Data set with size 1 do no contains enough data to ensure processing (needs at least 2 data)",
                  _estimator.computeResiduals(makeDataSet({{1, 2}}), _params, residuals));
}

TEST_F(BaseEstimatorChecks, ComputeResidualsRaisesForResidualsOfAWrongSize)
{
    ResidualsSet residuals(3);
    expectMathRaises("Residuals collection size 3 mismatch with data set size 2",
                     [&] { _estimator.computeResiduals(_goodData, _params, residuals); });
}

TEST_F(BaseEstimatorChecks, ComputeResidualsLeavesResidualsThatItRefuses)
{
    ResidualsSet residuals = makeVector({1, 2, 3});
    EXPECT_THROW(_estimator.computeResiduals(_goodData, _params, residuals), OVRIXMathException);
    EXPECT_EQ(test::toStd(residuals), (std::vector<double>{1, 2, 3}));
}

TEST_F(BaseEstimatorChecks, ComputeResidualsHandsTheCallersObjectsToTheHook)
{
    ResidualsSet residuals(2);
    EXPECT_CALL(_estimator, processResiduals(Ref(_goodData), Ref(_params), Ref(residuals)))
        .WillOnce(Return(BoolResult(true)));
    expectSuccess(_estimator.computeResiduals(_goodData, _params, residuals));
}

TEST_F(BaseEstimatorChecks, ComputeResidualsReturnsTheHooksFailureUnchanged)
{
    ResidualsSet residuals(2);
    EXPECT_CALL(_estimator, processResiduals(_, _, _)).WillOnce(Return(BoolResult(false, "No residuals")));
    expectFailure("No residuals", _estimator.computeResiduals(_goodData, _params, residuals));
}

TEST(BaseEstimatorExample, IsTheCodeThatTheseTestsCompile)
{
    EXPECT_THAT(test::readCode("tests/support/LineEstimator.h"),
                testing::HasSubstr(test::readExample("OVRIXMath/Estimation/BaseEstimator.h")));
}

TEST(BaseEstimatorExample, FitsALine)
{
    LineEstimator estimator;
    ParameterType params(2);
    expectSuccess(estimator.computeEstimation(makeDataSet({{0, 1}, {1, 3}, {2, 5}}), params));
    // Least squares by LAPACK; a few units of rounding.
    EXPECT_NEAR(params(0), 2.0, 1e-14);
    EXPECT_NEAR(params(1), 1.0, 1e-14);
}

TEST(BaseEstimatorExample, GivesSignedResiduals)
{
    const LineEstimator estimator;
    ResidualsSet residuals(3);
    expectSuccess(estimator.computeResiduals(makeDataSet({{0, 1}, {1, 4}, {2, 2}}), makeVector({2, 1}), residuals));
    EXPECT_EQ(test::toStd(residuals), (std::vector<double>{0, 1, -3}));
}

TEST(BaseEstimatorExample, ReportsDataThatFixNoLine)
{
    LineEstimator estimator;
    ParameterType params(2);
    expectFailure("All data have the same x", estimator.computeEstimation(makeDataSet({{1, 1}, {1, 3}}), params));
}

} // namespace math
} // namespace ovrix
