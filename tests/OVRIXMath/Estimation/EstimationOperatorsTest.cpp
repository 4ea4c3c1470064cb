#include <OVRIXMath/Estimation/EstimationOperators.h>

#include <gtest/gtest.h>

#include <cmath>
#include <iomanip>
#include <limits>
#include <sstream>
#include <support/Builders.h>
#include <support/ExpectFailure.h>

namespace ovrix
{
namespace math
{

namespace
{

using test::expectMathRaises;
using test::makeVector;

template <class T>
std::string textOf(const T& value)
{
    std::ostringstream stream;
    stream << value;
    return stream.str();
}

EstimationConfig createConfig()
{
    EstimationConfig config;
    config.initMLESAC(2.0, 3.0, 6.0, 0.25);
    return config;
}

const char* const g_configText = "[RobustEstimationType=eRET_MLESAC, OutlierThreshold=6, ExpectedOutlierRatio=0.25, "
                                 "AllowSimpleEstimation=1, SuccessRatio=0.99]";

} // namespace

TEST(EstimationOperators, AVectorStandsInSquareBrackets)
{
    EXPECT_EQ(textOf(makeVector({1, -2.5, 1e100})), "[1, -2.5, 1e+100]");
    EXPECT_EQ(textOf(makeVector({1})), "[1]");
    EXPECT_EQ(textOf(Vector()), "[]");
}

TEST(EstimationOperators, AVectorTakesTheFormatOfTheStream)
{
    std::ostringstream stream;
    stream << std::setprecision(3) << makeVector({1.0 / 3.0, 12345.0});
    EXPECT_EQ(stream.str(), "[0.333, 1.23e+04]");
}

TEST(EstimationOperators, AVectorPrintsValuesThatAreNotFinite)
{
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(textOf(makeVector({infinity, -infinity, std::numeric_limits<double>::quiet_NaN()})), "[inf, -inf, nan]");
}

TEST(EstimationOperators, AConfigurationStandsOnOneLine)
{
    EXPECT_EQ(textOf(createConfig()), g_configText);
}

TEST(EstimationOperators, AConfigurationPrintsTheNameOfItsMethod)
{
    EstimationConfig config;
    config.initNonRobust();
    EXPECT_EQ(textOf(config), "[RobustEstimationType=eRET_NonRobust, OutlierThreshold=0, ExpectedOutlierRatio=0, "
                              "AllowSimpleEstimation=1, SuccessRatio=0.99]");
    config.initLMS(0.125);
    EXPECT_EQ(textOf(config), "[RobustEstimationType=eRET_LMS, OutlierThreshold=0, ExpectedOutlierRatio=0.125, "
                              "AllowSimpleEstimation=1, SuccessRatio=0.99]");
    config.initRANSAC(1.5, 0.5);
    EXPECT_EQ(textOf(config), "[RobustEstimationType=eRET_RANSAC, OutlierThreshold=1.5, ExpectedOutlierRatio=0.5, "
                              "AllowSimpleEstimation=1, SuccessRatio=0.99]");
    config.initMSAC(1e-9, 0.5);
    EXPECT_EQ(textOf(config), "[RobustEstimationType=eRET_MSAC, OutlierThreshold=1e-09, ExpectedOutlierRatio=0.5, "
                              "AllowSimpleEstimation=1, SuccessRatio=0.99]");
}

TEST(EstimationOperators, AConfigurationPrintsWhatWasSet)
{
    EstimationConfig config = createConfig();
    config.setAllowSimpleEstimation(false);
    config.setSuccessRatio(0.5);
    EXPECT_EQ(textOf(config), "[RobustEstimationType=eRET_MLESAC, OutlierThreshold=6, ExpectedOutlierRatio=0.25, "
                              "AllowSimpleEstimation=0, SuccessRatio=0.5]");
}

TEST(EstimationOperators, AConfigurationTakesTheFormatOfTheStream)
{
    EstimationConfig config;
    config.initRANSAC(1.0 / 3.0, 2.0 / 3.0);
    std::ostringstream stream;
    stream << std::boolalpha << std::fixed << std::setprecision(2) << config;
    EXPECT_EQ(stream.str(), "[RobustEstimationType=eRET_RANSAC, OutlierThreshold=0.33, ExpectedOutlierRatio=0.67, "
                            "AllowSimpleEstimation=true, SuccessRatio=0.99]");
}

TEST(EstimationOperators, AConfigurationThatIsNotInitialisedRaises)
{
    std::ostringstream stream;
    expectMathRaises("Estimation configuration has not been initialized", [&] { stream << EstimationConfig(); });
}

TEST(EstimationOperators, AMethodOutOfTheListSetsTheBadBitAtItsPlace)
{
    EstimationConfig config = createConfig();
    const_cast<eRobustEstimationType&>(config.getRobustEstimationType()) = static_cast<eRobustEstimationType>(5);
    std::ostringstream stream;
    stream << config;
    EXPECT_TRUE(stream.bad());
    EXPECT_EQ(stream.str(), "[RobustEstimationType=");
}

TEST(EstimationOperators, AMethodBelowTheListSetsTheBadBitAtItsPlace)
{
    EstimationConfig config = createConfig();
    const_cast<eRobustEstimationType&>(config.getRobustEstimationType()) = static_cast<eRobustEstimationType>(-1);
    std::ostringstream stream;
    stream << config;
    EXPECT_TRUE(stream.bad());
    EXPECT_EQ(stream.str(), "[RobustEstimationType=");
}

TEST(EstimationOperators, ResultsThatAreNotInitialisedSaySo)
{
    EXPECT_EQ(textOf(EstimationResults()), "[NotInit]");
}

TEST(EstimationOperators, ClearedResultsSaySo)
{
    EstimationResults results;
    results.initFailed(createConfig(), 1, 2, 3, 4, 5, "Why");
    results.clear();
    EXPECT_EQ(textOf(results), "[NotInit]");
}

TEST(EstimationOperators, AFailureStopsAtItsText)
{
    EstimationResults results;
    results.initFailed(createConfig(), 1, 2, 3, 4, 5, "No fit\nWhy");
    EXPECT_EQ(textOf(results), std::string("[EstimationConfig=") + g_configText +
                                   ", NbEstimParams=1, InputDataSize=2, NbMinDataForEstimation=3, "
                                   "NbMinDataForRobustEstimation=4, NbInputData=5, EstimationStatusFlag=0, "
                                   "EstimationStatusMsg=No fit\nWhy]");
}

TEST(EstimationOperators, ASimpleSuccessPrintsEverything)
{
    EstimationResults results;
    results.initSimpleSuccess(createConfig(), 2, 3, 4, 5, 2, makeVector({7, 8.5}), makeVector({3, -4}));
    EXPECT_EQ(textOf(results), std::string("[EstimationConfig=") + g_configText +
                                   ", NbEstimParams=2, InputDataSize=3, NbMinDataForEstimation=4, "
                                   "NbMinDataForRobustEstimation=5, NbInputData=2, EstimationStatusFlag=1, "
                                   "EstimationStatusMsg=, HasRobustEstimationDone=0, EstimParams=[7, 8.5], "
                                   "ResidualsSet=[3, -4], OutlierFlags=[], EstimOutlierThreshold=0, "
                                   "GlobalRms=3.53553, InliersRms=3.53553, NbOutliers=0, NbInliers=2, "
                                   "OutlierRatio=0, InlierRatio=1, NbNonLinearIteration=0]");
}

TEST(EstimationOperators, ARobustSuccessPrintsEverything)
{
    EstimationResults results;
    results.initRobustSuccess(createConfig(), 2, 3, 4, 5, 4, makeVector({7, 8.5}), makeVector({2, -2, 9, 0}),
                              {false, false, true, false}, 2.5);
    results.updateNonLinearSuccess(makeVector({9, 10}), makeVector({2, -2, 6, 2}), 17, "Converged");
    EXPECT_EQ(textOf(results), std::string("[EstimationConfig=") + g_configText +
                                   ", NbEstimParams=2, InputDataSize=3, NbMinDataForEstimation=4, "
                                   "NbMinDataForRobustEstimation=5, NbInputData=4, EstimationStatusFlag=1, "
                                   "EstimationStatusMsg=Converged, HasRobustEstimationDone=1, EstimParams=[9, 10], "
                                   "ResidualsSet=[2, -2, 6, 2], OutlierFlags=[0, 0, 1, 0], EstimOutlierThreshold=2.5, "
                                   "GlobalRms=3.4641, InliersRms=1.73205, NbOutliers=1, NbInliers=3, "
                                   "OutlierRatio=0.25, InlierRatio=0.75, NbNonLinearIteration=17]");
}

TEST(EstimationOperators, ResultsTakeTheFormatOfTheStream)
{
    EstimationResults results;
    results.initRobustSuccess(createConfig(), 2, 3, 4, 5, 3, makeVector({1.0 / 3.0, 1}), makeVector({2, 2, 2}),
                              {false, true, false}, 2.5);
    std::ostringstream stream;
    stream << std::boolalpha << std::setprecision(2) << results;
    EXPECT_EQ(stream.str(),
              "[EstimationConfig=[RobustEstimationType=eRET_MLESAC, OutlierThreshold=6, ExpectedOutlierRatio=0.25, "
              "AllowSimpleEstimation=true, SuccessRatio=0.99], NbEstimParams=2, InputDataSize=3, "
              "NbMinDataForEstimation=4, NbMinDataForRobustEstimation=5, NbInputData=3, EstimationStatusFlag=true, "
              "EstimationStatusMsg=, HasRobustEstimationDone=true, EstimParams=[0.33, 1], ResidualsSet=[2, 2, 2], "
              "OutlierFlags=[false, true, false], EstimOutlierThreshold=2.5, GlobalRms=2, InliersRms=1.6, "
              "NbOutliers=1, NbInliers=2, OutlierRatio=0.33, InlierRatio=0.67, NbNonLinearIteration=0]");
}

TEST(EstimationOperators, ResultsOfAConfigurationThatIsNotInitialisedRaise)
{
    EstimationResults results;
    results.initFailed(EstimationConfig(), 1, 2, 3, 4, 5, "Why");
    std::ostringstream stream;
    expectMathRaises("Estimation configuration has not been initialized", [&] { stream << results; });
}

TEST(EstimationOperators, TheStreamIsReturned)
{
    std::ostringstream stream;
    EXPECT_EQ(&(stream << makeVector({1})), &stream);
    EXPECT_EQ(&(stream << createConfig()), &stream);
    EXPECT_EQ(&(stream << EstimationResults()), &stream);
}

} // namespace math
} // namespace ovrix
