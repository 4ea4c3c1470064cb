#include <OVRIXMath/Estimation/DataPartition/RegularGridPartition.h>
#include <OVRIXMath/Estimation/EstimationUtils.h>
#include <OVRIXMath/Estimation/LMSRobustEstimator.h>
#include <OVRIXMath/Estimation/MLESACRobustEstimator.h>
#include <OVRIXMath/Estimation/MSACRobustEstimator.h>
#include <OVRIXMath/Estimation/RANSACRobustEstimator.h>

#include <boost/make_shared.hpp>
#include <boost/pointer_cast.hpp>
#include <gmock/gmock.h>

#include <cmath>
#include <limits>
#include <support/Bits.h>
#include <support/Builders.h>
#include <support/ExpectFailure.h>
#include <support/MockEstimators.h>
#include <support/RandomData.h>

namespace ovrix
{
namespace math
{

namespace
{

using test::bitsOf;
using test::expectFailure;
using test::expectMathRaises;
using test::expectSuccess;
using test::makeDataSet;
using test::makeVector;
using test::toStd;
using testing::NiceMock;

const double g_nan = std::numeric_limits<double>::quiet_NaN();

EstimatorPtr anyEstimator()
{
    return boost::make_shared<NiceMock<test::MockEstimator>>(2u, 1u, 1u);
}

} // namespace

TEST(CheckDataSize, AnEmptyDataSetPasses)
{
    expectSuccess(checkDataSize(DataSet(), 3));
}

TEST(CheckDataSize, DataOfTheSizePass)
{
    expectSuccess(checkDataSize(makeDataSet({{1, 2}, {3, 4}}), 2));
    expectSuccess(checkDataSize(DataSet(2), 0));
}

TEST(CheckDataSize, ReportsTheFirstDatumOfAnotherSize)
{
    expectFailure("Invalid data size 3 into data set, expecting data with size 2",
                  checkDataSize(makeDataSet({{1, 2}, {1, 2, 3}, {1}}), 2));
    expectFailure("Invalid data size 0 into data set, expecting data with size 2", checkDataSize(DataSet(1), 2));
}

TEST(ComputeRMS, IsZeroWithoutResiduals)
{
    EXPECT_EQ(computeRMS(ResidualsSet()), 0.0);
}

TEST(ComputeRMS, OfTwoAndTwoIsTwo)
{
    EXPECT_EQ(computeRMS(makeVector({2, 2})), 2.0);
    EXPECT_EQ(computeRMS(makeVector({2, -2})), 2.0);
}

TEST(ComputeRMS, DividesTwoRoots)
{
    test::RandomData random(51);
    for (int trial = 0; trial < 1000; ++trial)
    {
        const ResidualsSet residuals = random.vector(random.integer(1, 40), -3.0, 3.0);
        double sum = 0.0;
        for (const double r : residuals)
            sum += r * r;
        ASSERT_EQ(bitsOf(computeRMS(residuals)), bitsOf(std::sqrt(sum) / std::sqrt(double(residuals.size()))));
    }
}

TEST(ComputeRMS, OfAResidualThatIsNotANumberIsNotANumber)
{
    EXPECT_TRUE(std::isnan(computeRMS(makeVector({1, g_nan}))));
}

TEST(ComputeRMSOfInliers, SumsTheInliersAndDividesByTheNumberOfAll)
{
    EXPECT_EQ(computeRMS(makeVector({2, 2}), {false, true}), std::sqrt(4.0 / 2.0));
}

TEST(ComputeRMSOfInliers, IsZeroWithoutResiduals)
{
    EXPECT_EQ(computeRMS(ResidualsSet(), OutlierFlags()), 0.0);
}

TEST(ComputeRMSOfInliers, IsZeroWithoutInliers)
{
    EXPECT_EQ(computeRMS(makeVector({2, 2}), {true, true}), 0.0);
}

TEST(ComputeRMSOfInliers, DoesNotReadTheOutliers)
{
    EXPECT_EQ(computeRMS(makeVector({g_nan, 3, 0, 0}), {true, false, false, false}), 1.5);
}

TEST(ComputeRMSOfInliers, TakesTheRootOfAQuotient)
{
    test::RandomData random(52);
    for (int trial = 0; trial < 1000; ++trial)
    {
        const ResidualsSet residuals = random.vector(random.integer(1, 40), -3.0, 3.0);
        OutlierFlags flags;
        double sum = 0.0;
        for (const double r : residuals)
        {
            flags.push_back(random.integer(0, 2) == 0);
            if (!flags.back())
                sum += r * r;
        }
        ASSERT_EQ(bitsOf(computeRMS(residuals, flags)), bitsOf(std::sqrt(sum / double(residuals.size()))));
    }
}

TEST(ComputeRMSOfInliers, RaisesForFlagsOfAnotherNumber)
{
    expectMathRaises("Residuals set collection size 2 mismatch with outlier flags collection size 3",
                     [] {
                         computeRMS(makeVector({2, 2}), {false, true, false});
                     });
    expectMathRaises("Residuals set collection size 0 mismatch with outlier flags collection size 1",
                     [] { computeRMS(ResidualsSet(), OutlierFlags(1)); });
    expectMathRaises("Residuals set collection size 1 mismatch with outlier flags collection size 0",
                     [] { computeRMS(makeVector({2}), OutlierFlags()); });
}

TEST(ComputeNbOutliers, CountsTheSetFlags)
{
    EXPECT_EQ(computeNbOutliers({true, false, true, false, false}), 2u);
    EXPECT_EQ(computeNbOutliers(OutlierFlags()), 0u);
    EXPECT_EQ(computeNbOutliers(OutlierFlags(1000, true)), 1000u);
}

TEST(ComputeNbInliers, CountsTheFlagsThatAreNotSet)
{
    EXPECT_EQ(computeNbInliers({true, false, true, false, false}), 3u);
    EXPECT_EQ(computeNbInliers(OutlierFlags()), 0u);
    EXPECT_EQ(computeNbInliers(OutlierFlags(1000, false)), 1000u);
}

TEST(ExtractInliers, CopiesTheDataWithoutAFlagInTheirOrder)
{
    const DataSet inliers = extractInliers(makeDataSet({{1, 2}, {3, 4}, {5, 6}, {7, 8}}), {false, true, true, false});
    ASSERT_EQ(inliers.size(), 2u);
    EXPECT_EQ(toStd(inliers[0]), (std::vector<double>{1, 2}));
    EXPECT_EQ(toStd(inliers[1]), (std::vector<double>{7, 8}));
}

TEST(ExtractInliers, CanFindNone)
{
    EXPECT_TRUE(extractInliers(makeDataSet({{1}, {2}}), {true, true}).empty());
    EXPECT_TRUE(extractInliers(DataSet(), OutlierFlags()).empty());
}

TEST(ExtractInliers, RaisesForFlagsOfAnotherNumber)
{
    expectMathRaises("Data set collection size 2 mismatch with outlier flags collection size 1",
                     [] {
                         extractInliers(makeDataSet({{1}, {2}}), {true});
                     });
    expectMathRaises("Data set collection size 2 mismatch with outlier flags collection size 0",
                     [] {
                         extractInliers(makeDataSet({{1}, {2}}), OutlierFlags());
                     });
}

TEST(CreateNonRobustConfig, GivesAnInitialisedConfiguration)
{
    const EstimationConfig config = createNonRobustConfig();
    EXPECT_EQ(config.getRobustEstimationType(), eRET_NonRobust);
    EXPECT_EQ(config.getOutlierThreshold(), 0.0);
    EXPECT_TRUE(config.getAllowSimpleEstimation());
}

TEST(CreateNonRobustConfig, GivesAnotherPartitionEachTime)
{
    EXPECT_NE(createNonRobustConfig().getDataPartitionPtr(), createNonRobustConfig().getDataPartitionPtr());
}

TEST(RobustEstimationTypeName, IsThatOfTheEnumerator)
{
    EXPECT_STREQ(getRobustEstimationTypeName(eRET_NonRobust), "eRET_NonRobust");
    EXPECT_STREQ(getRobustEstimationTypeName(eRET_LMS), "eRET_LMS");
    EXPECT_STREQ(getRobustEstimationTypeName(eRET_RANSAC), "eRET_RANSAC");
    EXPECT_STREQ(getRobustEstimationTypeName(eRET_MSAC), "eRET_MSAC");
    EXPECT_STREQ(getRobustEstimationTypeName(eRET_MLESAC), "eRET_MLESAC");
}

TEST(RobustEstimationTypeName, IsNullOutOfTheList)
{
    EXPECT_EQ(getRobustEstimationTypeName(static_cast<eRobustEstimationType>(5)), nullptr);
    EXPECT_EQ(getRobustEstimationTypeName(static_cast<eRobustEstimationType>(-1)), nullptr);
}

TEST(CreateRobustEstimator, MakesTheScorerOfTheMethod)
{
    EstimationConfig config;
    config.initLMS(0.25);
    EXPECT_TRUE(boost::dynamic_pointer_cast<LMSRobustEstimator>(createRobustEstimator(config, anyEstimator())));
    config.initRANSAC(2.0, 0.25);
    EXPECT_TRUE(boost::dynamic_pointer_cast<RANSACRobustEstimator>(createRobustEstimator(config, anyEstimator())));
    config.initMSAC(2.0, 0.25);
    EXPECT_TRUE(boost::dynamic_pointer_cast<MSACRobustEstimator>(createRobustEstimator(config, anyEstimator())));
    config.initMLESAC(1.0, 2.0, 3.0, 0.25);
    EXPECT_TRUE(boost::dynamic_pointer_cast<MLESACRobustEstimator>(createRobustEstimator(config, anyEstimator())));
}

TEST(CreateRobustEstimator, InitialisesItWithTheModel)
{
    EstimationConfig config;
    config.initLMS(0.25);
    const EstimatorPtr pEstimator = anyEstimator();
    EXPECT_EQ(&createRobustEstimator(config, pEstimator)->getEstimator(), pEstimator.get());
}

TEST(CreateRobustEstimator, HandsOverTheRatios)
{
    EstimationConfig config;
    config.initRANSAC(2.0, 0.25);
    config.setSuccessRatio(0.875);
    // log(0.125) / log(1 - 0.75^2) = 2.5
    EXPECT_EQ(createRobustEstimator(config, anyEstimator())->getNbNeededRuns(), 3u);
}

TEST(CreateRobustEstimator, SharesThePartitionOfTheConfiguration)
{
    EstimationConfig config;
    config.initRANSAC(2.0, 0.25);
    const auto pPartition = boost::make_shared<RegularGridPartition>();
    config.setDataPartition(pPartition);
    EXPECT_EQ(pPartition.use_count(), 2);
    const RobustEstimatorPtr pRobustEstimator = createRobustEstimator(config, anyEstimator());
    EXPECT_EQ(pPartition.use_count(), 3);
}

TEST(CreateRobustEstimator, DoesNotTouchThePartition)
{
    EstimationConfig config;
    config.initRANSAC(2.0, 0.25);
    config.setDataPartition(boost::make_shared<testing::StrictMock<test::MockPartition>>());
    EXPECT_TRUE(createRobustEstimator(config, anyEstimator()));
}

TEST(CreateRobustEstimator, RaisesForTheNonRobustMethod)
{
    expectMathRaises("Robust estimator eRET_NonRobust is not yet supported",
                     [] { createRobustEstimator(createNonRobustConfig(), anyEstimator()); });
}

TEST(CreateRobustEstimator, RaisesForTheNonRobustMethodBeforeItLooksAtTheModel)
{
    expectMathRaises("Robust estimator eRET_NonRobust is not yet supported",
                     [] { createRobustEstimator(createNonRobustConfig(), EstimatorPtr()); });
}

TEST(CreateRobustEstimator, RaisesForAConfigurationThatIsNotInitialised)
{
    expectMathRaises("Estimation configuration has not been initialized",
                     [] { createRobustEstimator(EstimationConfig(), EstimatorPtr()); });
}

TEST(CreateRobustEstimator, RaisesForANullModel)
{
    const char* const text = "Estimator shared pointer should not be null for robust estimator initialization";
    EstimationConfig config;
    config.initLMS(0.25);
    expectMathRaises(text, [&] { createRobustEstimator(config, EstimatorPtr()); });
    config.initRANSAC(2.0, 0.25);
    expectMathRaises(text, [&] { createRobustEstimator(config, EstimatorPtr()); });
    config.initMSAC(2.0, 0.25);
    expectMathRaises(text, [&] { createRobustEstimator(config, EstimatorPtr()); });
    config.initMLESAC(1.0, 2.0, 3.0, 0.25);
    expectMathRaises(text, [&] { createRobustEstimator(config, EstimatorPtr()); });
}

TEST(CreateRobustEstimator, RaisesForAModelThatIsNotInitialised)
{
    EstimationConfig config;
    config.initLMS(0.25);
    expectMathRaises("Estimator has not been initialized",
                     [&] { createRobustEstimator(config, boost::make_shared<NiceMock<test::MockEstimator>>()); });
}

} // namespace math
} // namespace ovrix
