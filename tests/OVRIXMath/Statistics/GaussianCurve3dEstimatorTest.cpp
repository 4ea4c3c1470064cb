#include <OVRIXMath/Statistics/GaussianCurve3dEstimator.h>

#include <gtest/gtest.h>

namespace ovrix
{
namespace math
{

TEST(GaussianCurve3dEstimator, HasFiveParametersAndDataOfThreeElements)
{
    const GaussianCurve3dEstimator estimator;
    EXPECT_EQ(estimator.getNbEstimParams(), 5u);
    EXPECT_EQ(estimator.getDataSize(), 3u);
    EXPECT_EQ(estimator.getNbMinRequestedData(), 5u);
}

} // namespace math
} // namespace ovrix
