#include <OVRIXMath/Estimation/EstimationLogMessages.h>
#include <OVRIXMath/OVRIXMathFailure.h>

#include <gtest/gtest.h>

#include <string>
#include <typeinfo>

namespace ovrix
{
namespace math
{

namespace
{

/// The text of a message, its placeholders fed in order.
template <class... Arguments>
std::string textOf(int id, Arguments... arguments)
{
    return failure<eEstimationMessage>(id, arguments...).getMessage();
}

} // namespace

TEST(EstimationLogMessages, TheDomainHasItsKey)
{
    EXPECT_STREQ(typeid(eEstimationMessage::domain).name(), "N5ovrix4math18eEstimationMessage6domainE");
}

TEST(EstimationLogMessages, EachTextStandsUnderItsNumber)
{
    EXPECT_EQ(textOf(0), "Failed to generate a sub set of data using data partition");
    EXPECT_EQ(textOf(1), "Data partition has not been initialized");
    EXPECT_EQ(textOf(2, 3ul, 4ul), "Data set collection size 3 mismatch with outlier flags collection size 4");
    EXPECT_EQ(textOf(3), "Estimation configuration has not been initialized");
    EXPECT_EQ(textOf(4), "Can't get results from a failed estimation");
    EXPECT_EQ(textOf(5), "Estimation results have not been initialized");
    EXPECT_EQ(textOf(6), "Estimator has not been initialized");
    EXPECT_EQ(textOf(7, 3u, 4u), "Not enough buckets 3 generated to ensure requested sub sets size 4");
    EXPECT_EQ(textOf(8, 3u, 4u), "Invalid data size 3 into data set, expecting data with size 4");
    EXPECT_EQ(textOf(9, 1.25, 1.0), "Invalid expected outlier ratio value 1.250000, should be in [0, 1[");
    EXPECT_EQ(textOf(10, -1.5), "Input gaussian sigma value {-1.500000} should be strictly positive");
    EXPECT_EQ(textOf(11, 3u, 4u),
              "Invalid number of estimated parameters 3, expecting 4 number of estimated parameters");
    EXPECT_EQ(textOf(12, 2.0, 3.0), "Input outlier range factor value {2.000000} should be strictly greater than "
                                    "outlier threshold factor {3.000000}");
    EXPECT_EQ(textOf(13, 0.0), "Input outlier threshold factor value {0.000000} should be strictly positive");
    EXPECT_EQ(textOf(14, 3ul, 4u), "Invalid data sub set size 3, exepection sub set with size 4");
    EXPECT_EQ(textOf(15, 1.0), "Invalid success ratio value 1.000000, should be in ]0, 1[");
    EXPECT_EQ(textOf(16, "why"), "Non linear estimation pass failed\nwhy");
    EXPECT_EQ(textOf(17, 3ul, 4u),
              "Data set with size 3 do no contains enough data to ensure processing (needs at least 4 data)");
    EXPECT_EQ(textOf(18), "Cost function shared pointer should not be null for estimation");
    EXPECT_EQ(textOf(19), "Data partition shared pointer should not be null");
    EXPECT_EQ(textOf(20), "Data size should not be null");
    EXPECT_EQ(textOf(21), "Estimator shared pointer should not be null for robust estimator initialization");
    EXPECT_EQ(textOf(22), "Number of buckets by axis should not be null");
    EXPECT_EQ(textOf(23), "Number of estimated parameters should not be null");
    EXPECT_EQ(textOf(24), "Minimun number of requested data should not be null");
    EXPECT_EQ(textOf(25), "Sub set requested size should not be null");
    EXPECT_EQ(textOf(26, 1.0, 2.5),
              "Data range [1.000000, 2.500000] is not sufficient to ensure regular grid bucket partitioning");
    EXPECT_EQ(textOf(27, "why"), "Residuals computation failed while estimation was successful\nwhy");
    EXPECT_EQ(textOf(28, 3ul, 4ul), "Residuals set collection size 3 mismatch with outlier flags collection size 4");
    EXPECT_EQ(textOf(29, 3ul, 4ul), "Residuals collection size 3 mismatch with data set size 4");
    EXPECT_EQ(textOf(30, "why"), "Robust estimation final estimation failed\nwhy");
    EXPECT_EQ(textOf(31),
              "Robust estimation failed, no valid estimation score computed, outlier threshold may be to high");
    EXPECT_EQ(textOf(32), "Robust estimation has not been proceeded, can't retrieve results");
    EXPECT_EQ(textOf(33, 3u, 4u), "Not enough data 3 to ensure robust estimation (need at least 4 data)");
    EXPECT_EQ(textOf(34, 5u, 3u, 4u),
              "Robust estimation failed after 5 runs (with 3 successful runs), while expecting 4 successful runs");
    EXPECT_EQ(textOf(35), "Robust estimator has not been initialized");
    EXPECT_EQ(textOf(36, "eRET_NonRobust"), "Robust estimator eRET_NonRobust is not yet supported");
}

TEST(EstimationLogMessages, ThereAreThirtySevenTexts)
{
    EXPECT_ANY_THROW(textOf(37));
    EXPECT_ANY_THROW(textOf(-1));
}

} // namespace math
} // namespace ovrix
