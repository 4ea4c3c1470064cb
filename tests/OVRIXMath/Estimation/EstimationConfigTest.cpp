#include <OVRIXMath/Estimation/DataPartition/AdaptiveGridPartition.h>
#include <OVRIXMath/Estimation/DataPartition/RegularGridPartition.h>
#include <OVRIXMath/Estimation/EstimationConfig.h>
#include <OVRIXMath/Estimation/EstimationResults.h>
#include <OVRIXUtil/DynamicObjectFactory.h>

#include <boost/make_shared.hpp>
#include <boost/pointer_cast.hpp>
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <memory>
#include <support/Builders.h>
#include <support/ExpectFailure.h>
#include <support/LogCapture.h>
#include <support/MockEstimators.h>
#include <type_traits>
#include <vector>

namespace ovrix
{
namespace math
{

namespace
{

using test::expectMathRaises;

const double g_nan = std::numeric_limits<double>::quiet_NaN();
const double g_infinity = std::numeric_limits<double>::infinity();

const char* const g_notInitText = "Estimation configuration has not been initialized";

/// Every `init` with arguments that it accepts.
const std::vector<std::function<void(EstimationConfig&)>> g_inits = {
    [](EstimationConfig& config) { config.initNonRobust(); },
    [](EstimationConfig& config) { config.initLMS(0.25); },
    [](EstimationConfig& config) { config.initRANSAC(2.5, 0.25); },
    [](EstimationConfig& config) { config.initMSAC(2.5, 0.25); },
    [](EstimationConfig& config) { config.initMLESAC(2.0, 3.0, 6.0, 0.25); },
};

/// Every `init` that can raise, with arguments that it refuses.
const std::vector<std::function<void(EstimationConfig&)>> g_failingInits = {
    [](EstimationConfig& config) { config.initLMS(0.5); },
    [](EstimationConfig& config) { config.initRANSAC(2.5, 1.0); },
    [](EstimationConfig& config) { config.initMSAC(2.5, 1.0); },
    [](EstimationConfig& config) { config.initMLESAC(0.0, 3.0, 6.0, 0.25); },
    [](EstimationConfig& config) { config.initMLESAC(2.0, 0.0, 6.0, 0.25); },
    [](EstimationConfig& config) { config.initMLESAC(2.0, 3.0, 3.0, 0.25); },
    [](EstimationConfig& config) { config.initMLESAC(2.0, 3.0, 6.0, 1.0); },
};

/// Expects every getter to raise, as none does once the object is initialised.
void expectNotInit(const EstimationConfig& config)
{
    expectMathRaises(g_notInitText, [&] { config.getRobustEstimationType(); });
    expectMathRaises(g_notInitText, [&] { config.getOutlierThreshold(); });
    expectMathRaises(g_notInitText, [&] { config.getGaussianSigma(); });
    expectMathRaises(g_notInitText, [&] { config.getOutlierThresholdFactor(); });
    expectMathRaises(g_notInitText, [&] { config.getOutlierRangeFactor(); });
    expectMathRaises(g_notInitText, [&] { config.getExpectedOutlierRatio(); });
    expectMathRaises(g_notInitText, [&] { config.getAllowSimpleEstimation(); });
    expectMathRaises(g_notInitText, [&] { config.getSuccessRatio(); });
    expectMathRaises(g_notInitText, [&] { config.getDataPartitionPtr(); });
}

/// Expects what a fresh `init` leaves beside the values of the method.
void expectDefaults(const EstimationConfig& config)
{
    EXPECT_TRUE(config.getAllowSimpleEstimation());
    EXPECT_EQ(config.getSuccessRatio(), 0.99);
    EXPECT_TRUE(boost::dynamic_pointer_cast<AdaptiveGridPartition>(config.getDataPartitionPtr()));
}

void expectMethod(const EstimationConfig& config, eRobustEstimationType type, double outlierThreshold,
                  double gaussianSigma, double outlierThresholdFactor, double outlierRangeFactor,
                  double expectedOutlierRatio)
{
    EXPECT_EQ(config.getRobustEstimationType(), type);
    EXPECT_EQ(config.getOutlierThreshold(), outlierThreshold);
    EXPECT_EQ(config.getGaussianSigma(), gaussianSigma);
    EXPECT_EQ(config.getOutlierThresholdFactor(), outlierThresholdFactor);
    EXPECT_EQ(config.getOutlierRangeFactor(), outlierRangeFactor);
    EXPECT_EQ(config.getExpectedOutlierRatio(), expectedOutlierRatio);
}

/// A configuration in which nothing has its default value.
EstimationConfig unusualConfig()
{
    EstimationConfig config;
    config.initMLESAC(2.0, 3.0, 6.0, 0.25);
    config.setAllowSimpleEstimation(false);
    config.setSuccessRatio(0.75);
    config.setRegularGridPartition();
    return config;
}

void expectUnusual(const EstimationConfig& config)
{
    expectMethod(config, eRET_MLESAC, 6.0, 2.0, 3.0, 6.0, 0.25);
    EXPECT_FALSE(config.getAllowSimpleEstimation());
    EXPECT_EQ(config.getSuccessRatio(), 0.75);
}

/// Number of cells along one axis that a grid partition makes of a hundred different values.
std::size_t nbCellsOf(const DataPartitionPtr& pPartition)
{
    DataSet data;
    for (int i = 0; i < 100; ++i)
        data.push_back(test::makeVector({static_cast<double>(i)}));
    BaseGridPartition::BucketPopulation population;
    EXPECT_TRUE(boost::dynamic_pointer_cast<BaseGridPartition>(pPartition)->populateBuckets(data, population));
    return population.size();
}

} // namespace

TEST(EstimationConfig, TheTypesHaveTheirNumbers)
{
    EXPECT_EQ(static_cast<int>(eRET_NonRobust), 0);
    EXPECT_EQ(static_cast<int>(eRET_LMS), 1);
    EXPECT_EQ(static_cast<int>(eRET_RANSAC), 2);
    EXPECT_EQ(static_cast<int>(eRET_MSAC), 3);
    EXPECT_EQ(static_cast<int>(eRET_MLESAC), 4);
    EXPECT_TRUE((std::is_same<std::underlying_type<eRobustEstimationType>::type, int>::value));
}

TEST(EstimationConfig, IsNotInitialisedAtFirst)
{
    expectNotInit(EstimationConfig());
}

TEST(EstimationConfig, InitNonRobustSetsItsValues)
{
    EstimationConfig config;
    config.initNonRobust();
    expectMethod(config, eRET_NonRobust, 0.0, 0.0, 0.0, 0.0, 0.0);
    expectDefaults(config);
}

TEST(EstimationConfig, InitLMSSetsItsValues)
{
    EstimationConfig config;
    config.initLMS(0.25);
    expectMethod(config, eRET_LMS, 0.0, 0.0, 0.0, 0.0, 0.25);
    expectDefaults(config);
}

TEST(EstimationConfig, InitRANSACSetsItsValues)
{
    EstimationConfig config;
    config.initRANSAC(2.5, 0.25);
    expectMethod(config, eRET_RANSAC, 2.5, 0.0, 0.0, 0.0, 0.25);
    expectDefaults(config);
}

TEST(EstimationConfig, InitMSACSetsItsValues)
{
    EstimationConfig config;
    config.initMSAC(2.5, 0.25);
    expectMethod(config, eRET_MSAC, 2.5, 0.0, 0.0, 0.0, 0.25);
    expectDefaults(config);
}

TEST(EstimationConfig, InitMLESACSetsItsValues)
{
    EstimationConfig config;
    config.initMLESAC(2.0, 3.0, 6.0, 0.3);
    expectMethod(config, eRET_MLESAC, 6.0, 2.0, 3.0, 6.0, 0.3);
    expectDefaults(config);
}

TEST(EstimationConfig, TheThresholdFactorIsComputedBackFromTheThreshold)
{
    EstimationConfig config;
    config.initMLESAC(0.1, 0.7, 6.0, 0.3);
    EXPECT_EQ(config.getOutlierThreshold(), 0.1 * 0.7);
    EXPECT_EQ(config.getOutlierThresholdFactor(), (0.1 * 0.7) / 0.1);
}

TEST(EstimationConfig, EveryInitResetsWhatAnotherMethodLeft)
{
    const std::vector<std::function<void(const EstimationConfig&)>> expectations = {
        [](const EstimationConfig& config) { expectMethod(config, eRET_NonRobust, 0.0, 0.0, 0.0, 0.0, 0.0); },
        [](const EstimationConfig& config) { expectMethod(config, eRET_LMS, 0.0, 0.0, 0.0, 0.0, 0.25); },
        [](const EstimationConfig& config) { expectMethod(config, eRET_RANSAC, 2.5, 0.0, 0.0, 0.0, 0.25); },
        [](const EstimationConfig& config) { expectMethod(config, eRET_MSAC, 2.5, 0.0, 0.0, 0.0, 0.25); },
        [](const EstimationConfig& config) { expectMethod(config, eRET_MLESAC, 6.0, 2.0, 3.0, 6.0, 0.25); },
    };
    for (std::size_t i = 0; i < g_inits.size(); ++i)
    {
        EstimationConfig config;
        config.initMLESAC(7.0, 8.0, 9.0, 0.875);
        g_inits[i](config);
        expectations[i](config);
    }
}

TEST(EstimationConfig, EveryInitResetsTheSetters)
{
    for (const auto& init : g_inits)
    {
        EstimationConfig config = unusualConfig();
        init(config);
        expectDefaults(config);
    }
}

TEST(EstimationConfig, EveryInitMakesANewPartition)
{
    for (const auto& init : g_inits)
    {
        EstimationConfig config;
        init(config);
        const DataPartitionPtr pFirst = config.getDataPartitionPtr();
        init(config);
        EXPECT_NE(config.getDataPartitionPtr(), pFirst);
    }
}

TEST(EstimationConfig, TheDefaultPartitionHasFiveCellsByAxis)
{
    EstimationConfig config;
    config.initNonRobust();
    EXPECT_EQ(nbCellsOf(config.getDataPartitionPtr()), 5u);
}

TEST(EstimationConfig, AFailedInitLeavesTheObjectNotInitialised)
{
    for (const auto& init : g_failingInits)
    {
        EstimationConfig config = unusualConfig();
        EXPECT_THROW(init(config), OVRIXMathException);
        expectNotInit(config);
    }
}

TEST(EstimationConfig, AFailedInitReleasesThePartition)
{
    for (const auto& init : g_failingInits)
    {
        EstimationConfig config = unusualConfig();
        const DataPartitionPtr pPartition = config.getDataPartitionPtr();
        EXPECT_THROW(init(config), OVRIXMathException);
        EXPECT_EQ(pPartition.use_count(), 1);
    }
}

TEST(EstimationConfig, ClearLeavesTheObjectNotInitialised)
{
    EstimationConfig config = unusualConfig();
    config.clear();
    expectNotInit(config);
}

TEST(EstimationConfig, TheRatioOfLMSLiesFromZeroToBelowAHalf)
{
    EstimationConfig config;
    config.initLMS(0.0);
    EXPECT_EQ(config.getExpectedOutlierRatio(), 0.0);
    config.initLMS(std::nextafter(0.5, 0.0));
    EXPECT_EQ(config.getExpectedOutlierRatio(), std::nextafter(0.5, 0.0));
}

TEST(EstimationConfig, InitLMSRefusesARatioOutOfRange)
{
    EstimationConfig config;
    expectMathRaises("Invalid expected outlier ratio value 0.500000, should be in [0, 0.5[",
                     [&] { config.initLMS(0.5); });
    expectMathRaises("Invalid expected outlier ratio value -0.125000, should be in [0, 0.5[",
                     [&] { config.initLMS(-0.125); });
    expectMathRaises("Invalid expected outlier ratio value nan, should be in [0, 0.5[", [&] { config.initLMS(g_nan); });
}

TEST(EstimationConfig, TheRatioOfTheOtherMethodsLiesFromZeroToBelowOne)
{
    EstimationConfig config;
    for (const double ratio : {0.0, 0.5, std::nextafter(1.0, 0.0)})
    {
        config.initRANSAC(1.0, ratio);
        EXPECT_EQ(config.getExpectedOutlierRatio(), ratio);
        config.initMSAC(1.0, ratio);
        EXPECT_EQ(config.getExpectedOutlierRatio(), ratio);
        config.initMLESAC(1.0, 2.0, 3.0, ratio);
        EXPECT_EQ(config.getExpectedOutlierRatio(), ratio);
    }
}

TEST(EstimationConfig, TheOtherMethodsRefuseARatioOfOne)
{
    const char* const text = "Invalid expected outlier ratio value 1.000000, should be in [0, 1[";
    EstimationConfig config;
    expectMathRaises(text, [&] { config.initRANSAC(1.0, 1.0); });
    expectMathRaises(text, [&] { config.initMSAC(1.0, 1.0); });
    expectMathRaises(text, [&] { config.initMLESAC(1.0, 2.0, 3.0, 1.0); });
}

TEST(EstimationConfig, TheOtherMethodsRefuseANegativeRatio)
{
    const char* const text = "Invalid expected outlier ratio value -0.500000, should be in [0, 1[";
    EstimationConfig config;
    expectMathRaises(text, [&] { config.initRANSAC(1.0, -0.5); });
    expectMathRaises(text, [&] { config.initMSAC(1.0, -0.5); });
    expectMathRaises(text, [&] { config.initMLESAC(1.0, 2.0, 3.0, -0.5); });
}

TEST(EstimationConfig, TheOtherMethodsRefuseARatioThatIsNotANumber)
{
    const char* const text = "Invalid expected outlier ratio value nan, should be in [0, 1[";
    EstimationConfig config;
    expectMathRaises(text, [&] { config.initRANSAC(1.0, g_nan); });
    expectMathRaises(text, [&] { config.initMSAC(1.0, g_nan); });
    expectMathRaises(text, [&] { config.initMLESAC(1.0, 2.0, 3.0, g_nan); });
}

TEST(EstimationConfig, TheThresholdOfRANSACAndMSACIsNotChecked)
{
    EstimationConfig config;
    for (const double threshold : {0.0, -1.0, g_infinity, -g_infinity})
    {
        config.initRANSAC(threshold, 0.25);
        EXPECT_EQ(config.getOutlierThreshold(), threshold);
        config.initMSAC(threshold, 0.25);
        EXPECT_EQ(config.getOutlierThreshold(), threshold);
    }
    config.initRANSAC(g_nan, 0.25);
    EXPECT_TRUE(std::isnan(config.getOutlierThreshold()));
    config.initMSAC(g_nan, 0.25);
    EXPECT_TRUE(std::isnan(config.getOutlierThreshold()));
}

TEST(EstimationConfig, InitMLESACRefusesASigmaThatIsNotPositive)
{
    EstimationConfig config;
    expectMathRaises("Input gaussian sigma value {0.000000} should be strictly positive",
                     [&] { config.initMLESAC(0.0, 3.0, 6.0, 0.3); });
    expectMathRaises("Input gaussian sigma value {-2.500000} should be strictly positive",
                     [&] { config.initMLESAC(-2.5, 3.0, 6.0, 0.3); });
    expectMathRaises("Input gaussian sigma value {nan} should be strictly positive",
                     [&] { config.initMLESAC(g_nan, 3.0, 6.0, 0.3); });
}

TEST(EstimationConfig, InitMLESACRefusesAThresholdFactorThatIsNotPositive)
{
    EstimationConfig config;
    expectMathRaises("Input outlier threshold factor value {0.000000} should be strictly positive",
                     [&] { config.initMLESAC(1.0, 0.0, 6.0, 0.3); });
    expectMathRaises("Input outlier threshold factor value {nan} should be strictly positive",
                     [&] { config.initMLESAC(1.0, g_nan, 6.0, 0.3); });
}

TEST(EstimationConfig, InitMLESACRefusesARangeFactorThatIsNotAboveTheThresholdFactor)
{
    EstimationConfig config;
    expectMathRaises("Input outlier range factor value {3.000000} should be strictly greater than outlier threshold "
                     "factor {3.000000}",
                     [&] { config.initMLESAC(1.0, 3.0, 3.0, 0.3); });
    expectMathRaises("Input outlier range factor value {nan} should be strictly greater than outlier threshold factor "
                     "{3.000000}",
                     [&] { config.initMLESAC(1.0, 3.0, g_nan, 0.3); });
}

TEST(EstimationConfig, InitMLESACChecksItsArgumentsInTheirOrder)
{
    EstimationConfig config;
    expectMathRaises("Input gaussian sigma value {-1.000000} should be strictly positive",
                     [&] { config.initMLESAC(-1.0, -2.0, -3.0, -4.0); });
    expectMathRaises("Input outlier threshold factor value {-2.000000} should be strictly positive",
                     [&] { config.initMLESAC(1.0, -2.0, -3.0, -4.0); });
    expectMathRaises("Input outlier range factor value {-3.000000} should be strictly greater than outlier threshold "
                     "factor {2.000000}",
                     [&] { config.initMLESAC(1.0, 2.0, -3.0, -4.0); });
    expectMathRaises("Invalid expected outlier ratio value -4.000000, should be in [0, 1[",
                     [&] { config.initMLESAC(1.0, 2.0, 3.0, -4.0); });
}

TEST(EstimationConfig, SetAllowSimpleEstimationStores)
{
    EstimationConfig config;
    config.initNonRobust();
    config.setAllowSimpleEstimation(false);
    EXPECT_FALSE(config.getAllowSimpleEstimation());
    config.setAllowSimpleEstimation(true);
    EXPECT_TRUE(config.getAllowSimpleEstimation());
}

TEST(EstimationConfig, SetSuccessRatioStores)
{
    EstimationConfig config;
    config.initNonRobust();
    for (const double ratio : {std::numeric_limits<double>::denorm_min(), 0.5, std::nextafter(1.0, 0.0)})
    {
        config.setSuccessRatio(ratio);
        EXPECT_EQ(config.getSuccessRatio(), ratio);
    }
}

TEST(EstimationConfig, SetSuccessRatioRefusesAValueOutOfRange)
{
    EstimationConfig config;
    config.initNonRobust();
    expectMathRaises("Invalid success ratio value 0.000000, should be in ]0, 1[", [&] { config.setSuccessRatio(0.0); });
    expectMathRaises("Invalid success ratio value 1.000000, should be in ]0, 1[", [&] { config.setSuccessRatio(1.0); });
    expectMathRaises("Invalid success ratio value nan, should be in ]0, 1[", [&] { config.setSuccessRatio(g_nan); });
    EXPECT_EQ(config.getSuccessRatio(), 0.99);
}

TEST(EstimationConfig, SetSuccessRatioAcceptsAnObjectThatIsNotInitialised)
{
    EstimationConfig config;
    config.setSuccessRatio(0.5);
    expectNotInit(config);
    config.initNonRobust();
    EXPECT_EQ(config.getSuccessRatio(), 0.99);
}

TEST(EstimationConfig, SetSuccessRatioChecksTheRangeOfAnObjectThatIsNotInitialised)
{
    EstimationConfig config;
    expectMathRaises("Invalid success ratio value 1.500000, should be in ]0, 1[", [&] { config.setSuccessRatio(1.5); });
}

TEST(EstimationConfig, TheOtherSettersRaiseOnAnObjectThatIsNotInitialised)
{
    EstimationConfig config;
    expectMathRaises(g_notInitText, [&] { config.setAllowSimpleEstimation(true); });
    expectMathRaises(g_notInitText, [&] { config.setDataPartition(boost::make_shared<RegularGridPartition>()); });
    expectMathRaises(g_notInitText, [&] { config.setAdaptiveGridPartition(); });
    expectMathRaises(g_notInitText, [&] { config.setAdaptiveGridPartition(3); });
    expectMathRaises(g_notInitText, [&] { config.setRegularGridPartition(); });
    expectMathRaises(g_notInitText, [&] { config.setRegularGridPartition(3); });
}

TEST(EstimationConfig, TheSettersOfPartitionsCheckTheStateFirst)
{
    EstimationConfig config;
    expectMathRaises(g_notInitText, [&] { config.setDataPartition(DataPartitionPtr()); });
    expectMathRaises(g_notInitText, [&] { config.setAdaptiveGridPartition(0); });
    expectMathRaises(g_notInitText, [&] { config.setRegularGridPartition(0); });
}

TEST(EstimationConfig, SetDataPartitionStoresThePointer)
{
    EstimationConfig config;
    config.initNonRobust();
    const auto pPartition = boost::make_shared<RegularGridPartition>();
    config.setDataPartition(pPartition);
    EXPECT_EQ(config.getDataPartitionPtr(), pPartition);
}

TEST(EstimationConfig, SetDataPartitionDoesNotClearThePartitions)
{
    EstimationConfig config;
    config.initNonRobust();
    const auto pOld = boost::make_shared<testing::StrictMock<test::MockPartition>>();
    const auto pNew = boost::make_shared<testing::StrictMock<test::MockPartition>>();
    config.setDataPartition(pOld);
    config.setDataPartition(pNew);
    EXPECT_EQ(config.getDataPartitionPtr(), pNew);
}

TEST(EstimationConfig, SetDataPartitionRefusesANullPointer)
{
    EstimationConfig config;
    config.initNonRobust();
    const DataPartitionPtr pOld = config.getDataPartitionPtr();
    expectMathRaises("Data partition shared pointer should not be null",
                     [&] { config.setDataPartition(DataPartitionPtr()); });
    EXPECT_EQ(config.getDataPartitionPtr(), pOld);
}

TEST(EstimationConfig, SetAdaptiveGridPartitionMakesANewOneOfFiveCells)
{
    EstimationConfig config;
    config.initNonRobust();
    const DataPartitionPtr pOld = config.getDataPartitionPtr();
    config.setAdaptiveGridPartition();
    EXPECT_NE(config.getDataPartitionPtr(), pOld);
    EXPECT_TRUE(boost::dynamic_pointer_cast<AdaptiveGridPartition>(config.getDataPartitionPtr()));
    EXPECT_EQ(nbCellsOf(config.getDataPartitionPtr()), 5u);
}

TEST(EstimationConfig, SetAdaptiveGridPartitionTakesANumberOfCells)
{
    EstimationConfig config;
    config.initNonRobust();
    config.setAdaptiveGridPartition(8);
    EXPECT_TRUE(boost::dynamic_pointer_cast<AdaptiveGridPartition>(config.getDataPartitionPtr()));
    EXPECT_EQ(nbCellsOf(config.getDataPartitionPtr()), 8u);
}

TEST(EstimationConfig, SetRegularGridPartitionMakesANewOneOfFiveCellsAndThatOfTheMaximum)
{
    EstimationConfig config;
    config.initNonRobust();
    config.setRegularGridPartition();
    EXPECT_TRUE(boost::dynamic_pointer_cast<RegularGridPartition>(config.getDataPartitionPtr()));
    EXPECT_EQ(nbCellsOf(config.getDataPartitionPtr()), 6u);
}

TEST(EstimationConfig, SetRegularGridPartitionTakesANumberOfCells)
{
    EstimationConfig config;
    config.initNonRobust();
    config.setRegularGridPartition(8);
    EXPECT_TRUE(boost::dynamic_pointer_cast<RegularGridPartition>(config.getDataPartitionPtr()));
    EXPECT_EQ(nbCellsOf(config.getDataPartitionPtr()), 9u);
}

TEST(EstimationConfig, AGridOfNoCellsIsRefusedAndTheOldPartitionStays)
{
    EstimationConfig config;
    config.initNonRobust();
    const DataPartitionPtr pOld = config.getDataPartitionPtr();
    const char* const text = "Number of buckets by axis should not be null";
    expectMathRaises(text, [&] { config.setAdaptiveGridPartition(0); });
    expectMathRaises(text, [&] { config.setRegularGridPartition(0); });
    EXPECT_EQ(config.getDataPartitionPtr(), pOld);
}

TEST(EstimationConfig, TheCopyConstructorCopiesTheValues)
{
    const EstimationConfig config = unusualConfig();
    expectUnusual(EstimationConfig(config));
}

TEST(EstimationConfig, AssignmentCopiesTheValues)
{
    const EstimationConfig config = unusualConfig();
    EstimationConfig copy;
    copy.initLMS(0.125);
    EXPECT_EQ(&(copy = config), &copy);
    expectUnusual(copy);
}

TEST(EstimationConfig, AssignmentToItselfChangesNothing)
{
    EstimationConfig config = unusualConfig();
    const DataPartitionPtr pPartition = config.getDataPartitionPtr();
    const EstimationConfig& same = config;
    config = same;
    expectUnusual(config);
    EXPECT_EQ(config.getDataPartitionPtr(), pPartition);
}

TEST(EstimationConfig, AssignmentGoesThroughTheVirtualCopy)
{
    class CountingConfig : public EstimationConfig
    {
    public:
        using EstimationConfig::operator=;

        void copy(const BaseDynamicObject& other) override
        {
            ++_nbCopies;
            EstimationConfig::copy(other);
        }

        int _nbCopies = 0;
    };
    CountingConfig copy;
    copy = unusualConfig();
    EXPECT_EQ(copy._nbCopies, 1);
    expectUnusual(copy);
}

TEST(EstimationConfig, CopyCopiesTheValues)
{
    const EstimationConfig config = unusualConfig();
    EstimationConfig copy;
    copy.copy(config);
    expectUnusual(copy);
}

TEST(EstimationConfig, DuplicateGivesAnEqualObject)
{
    const EstimationConfig config = unusualConfig();
    const std::unique_ptr<BaseDynamicObject> pCopy(config.duplicate());
    expectUnusual(dynamic_cast<const EstimationConfig&>(*pCopy));
}

TEST(EstimationConfig, DuplicateSharedGivesAnEqualObject)
{
    const EstimationConfig config = unusualConfig();
    const DynamicObjectPtr pCopy = config.duplicateShared();
    expectUnusual(dynamic_cast<const EstimationConfig&>(*pCopy));
}

TEST(EstimationConfig, EveryCopySharesThePartition)
{
    const EstimationConfig config = unusualConfig();
    const DataPartitionPtr pPartition = config.getDataPartitionPtr();
    const EstimationConfig constructed(config);
    EstimationConfig assigned;
    assigned = config;
    const std::unique_ptr<BaseDynamicObject> pDuplicate(config.duplicate());
    EXPECT_EQ(constructed.getDataPartitionPtr(), pPartition);
    EXPECT_EQ(assigned.getDataPartitionPtr(), pPartition);
    EXPECT_EQ(dynamic_cast<const EstimationConfig&>(*pDuplicate).getDataPartitionPtr(), pPartition);
}

TEST(EstimationConfig, ACopyIsIndependentButForThePartition)
{
    const EstimationConfig config = unusualConfig();
    EstimationConfig copy(config);
    copy.setSuccessRatio(0.5);
    copy.setAllowSimpleEstimation(true);
    copy.setAdaptiveGridPartition();
    expectUnusual(config);
    EXPECT_TRUE(boost::dynamic_pointer_cast<RegularGridPartition>(config.getDataPartitionPtr()));
}

TEST(EstimationConfig, ACopyOfAnObjectThatIsNotInitialisedIsNotInitialised)
{
    EstimationConfig copy = unusualConfig();
    copy = EstimationConfig();
    expectNotInit(copy);
    expectNotInit(EstimationConfig(copy));
}

TEST(EstimationConfig, CopyRefusesAnObjectOfAnotherClass)
{
    EstimationConfig config = unusualConfig();
    EXPECT_THROW(config.copy(EstimationResults()), OVRIXUtilException);
    expectUnusual(config);
}

TEST(EstimationConfig, SupportsCopy)
{
    EXPECT_TRUE(EstimationConfig().hasCopySupport());
}

TEST(EstimationConfig, HasItsClassNameAndVersion)
{
    EXPECT_EQ(EstimationConfig::getTypeName(), "ovrix::math::EstimationConfig");
    EXPECT_EQ(EstimationConfig().getClassName(), "ovrix::math::EstimationConfig");
    EXPECT_EQ(EstimationConfig::getVersion(), 1u);
}

TEST(EstimationConfig, CreatesNewObjectsOfItsClass)
{
    const EstimationConfig config = unusualConfig();
    const std::unique_ptr<BaseDynamicObject> pNew(config.createNew());
    expectNotInit(dynamic_cast<const EstimationConfig&>(*pNew));
    expectNotInit(dynamic_cast<const EstimationConfig&>(*config.createShared()));
    const std::unique_ptr<EstimationConfig> pStatic(EstimationConfig::createNewObject());
    expectNotInit(*pStatic);
}

TEST(EstimationConfig, IsCreatedByItsName)
{
    const DynamicObjectFactory& factory = DynamicObjectFactory::getInstance();
    const std::unique_ptr<BaseDynamicObject> pNew(factory.createNew("ovrix::math::EstimationConfig"));
    EXPECT_TRUE(dynamic_cast<const EstimationConfig*>(pNew.get()));
    EXPECT_TRUE(boost::dynamic_pointer_cast<EstimationConfig>(factory.createShared("ovrix::math::EstimationConfig")));
}

} // namespace math
} // namespace ovrix
