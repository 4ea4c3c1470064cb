#include <OVRIXMath/Statistics/GaussianCurve2dEstimator.h>

#include <gtest/gtest.h>

namespace ovrix
{
namespace math
{

TEST(GaussianCurve2dEstimator, HasThreeParametersAndDataOfTwoElements)
{
    const GaussianCurve2dEstimator estimator;
    EXPECT_EQ(estimator.getNbEstimParams(), 3u);
    EXPECT_EQ(estimator.getDataSize(), 2u);
    EXPECT_EQ(estimator.getNbMinRequestedData(), 3u);
}

} // namespace math
} // namespace ovrix
