#include <OVRIXMath/Clustering/Kernel/SigmoidKernel.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <support/Builders.h>

namespace ovrix
{
namespace math
{
namespace clustering
{

namespace
{

using test::makeVector;

} // namespace

TEST(SigmoidKernel, IsTheHyperbolicTangentOfTheShiftedProduct)
{
    const SigmoidKernel kernel = SigmoidKernel::createKernel(0.25, -1.0);
    EXPECT_EQ(kernel(makeVector({1.0, 2.0}), makeVector({3.0, -1.0})), std::tanh(0.25 * 1.0 - 1.0));
    EXPECT_EQ(kernel(makeVector({1.0, 2.0})), std::tanh(0.25 * 5.0 - 1.0));
}

TEST(SigmoidKernel, TakesAllParameters)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(SigmoidKernel::createKernel(-2.0, 0.0)(makeVector({1.0})), std::tanh(-2.0));
    EXPECT_EQ(SigmoidKernel::createKernel(0.0, 0.0)(makeVector({1.0})), 0.0);
    EXPECT_TRUE(std::isnan(SigmoidKernel::createKernel(nan, 0.0)(makeVector({1.0}))));
}

TEST(SigmoidKernel, TellsItsParameters)
{
    const SigmoidKernel kernel = SigmoidKernel::createKernel(0.25, -1.0);
    EXPECT_EQ(kernel.getAlpha(), 0.25);
    EXPECT_EQ(kernel.getBeta(), -1.0);
}

} // namespace clustering
} // namespace math
} // namespace ovrix
