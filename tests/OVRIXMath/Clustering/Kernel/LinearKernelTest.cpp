#include <OVRIXMath/Clustering/Kernel/LinearKernel.h>

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

TEST(LinearKernel, IsTheScalarProduct)
{
    const LinearKernel kernel = LinearKernel::createKernel();
    EXPECT_EQ(kernel(makeVector({1.0, 2.0, 3.0}), makeVector({4.0, -5.0, 6.0})), 12.0);
    EXPECT_EQ(kernel(makeVector({3.0, 4.0})), 25.0);
}

TEST(LinearKernel, SumsInTheOrderOfTheCoordinates)
{
    const double expected = (1.0 + 1e-17) + 1e-17;
    EXPECT_EQ(expected, 1.0);
    EXPECT_EQ(LinearKernel::createKernel()(makeVector({1.0, 1e-17, 1e-17}), makeVector({1.0, 1.0, 1.0})), expected);
    EXPECT_EQ(LinearKernel::createKernel()(makeVector({1e16, 1.0, -1e16}), makeVector({1.0, 1.0, 1.0})), 0.0);
}

TEST(LinearKernel, ASumStartsFromPositiveZero)
{
    EXPECT_FALSE(std::signbit(LinearKernel::createKernel()(makeVector({-0.0}), makeVector({1.0}))));
}

TEST(LinearKernel, OfNaNIsNaN)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_TRUE(std::isnan(LinearKernel::createKernel()(makeVector({nan}))));
    EXPECT_TRUE(std::isnan(LinearKernel::createKernel()(makeVector({1.0}), makeVector({nan}))));
}

} // namespace clustering
} // namespace math
} // namespace ovrix
