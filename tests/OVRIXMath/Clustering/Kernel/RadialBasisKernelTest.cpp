#include <OVRIXMath/Clustering/Kernel/RadialBasisKernel.h>

#include <cmath>
#include <limits>
#include <support/Builders.h>
#include <support/ExpectFailure.h>

namespace ovrix
{
namespace math
{
namespace clustering
{

namespace
{

using test::makeVector;

constexpr double g_infinity = std::numeric_limits<double>::infinity();
constexpr double g_nan = std::numeric_limits<double>::quiet_NaN();

} // namespace

TEST(RadialBasisKernel, FallsWithTheSquaredDistance)
{
    const RadialBasisKernel kernel = RadialBasisKernel::createKernel(0.7);
    EXPECT_EQ(kernel(makeVector({1.0, 2.0}), makeVector({3.0, -1.0})), std::exp(-0.5 / (0.7 * 0.7) * 13.0));
}

TEST(RadialBasisKernel, TheSelfValueIsNeverEvaluated)
{
    EXPECT_EQ(RadialBasisKernel::createKernel(0.7)(makeVector({5.0})), 1.0);
    EXPECT_EQ(RadialBasisKernel::createKernel(0.7)(makeVector({g_nan})), 1.0);
    EXPECT_EQ(RadialBasisKernel(0.0)(makeVector({5.0})), 1.0);
    EXPECT_TRUE(std::isnan(RadialBasisKernel(0.0)(makeVector({5.0}), makeVector({5.0}))));
}

TEST(RadialBasisKernel, OfSamplesFarApartIsZero)
{
    EXPECT_EQ(RadialBasisKernel::createKernel(1.0)(makeVector({0.0}), makeVector({1e200})), 0.0);
}

TEST(RadialBasisKernel, TellsItsSigma)
{
    EXPECT_EQ(RadialBasisKernel::createKernel(0.7).getSigma(), 0.7);
}

TEST(RadialBasisKernel, ASigmaThatIsNotPositiveRaises)
{
    test::expectMathRaises("Invalid sigma value 0.000000 for radial basis function, should be strictly positive",
                           [] { RadialBasisKernel::createKernel(0.0); });
    test::expectMathRaises("Invalid sigma value -3.000000 for radial basis function, should be strictly positive",
                           [] { RadialBasisKernel::createKernel(-3.0); });
    test::expectMathRaises("Invalid sigma value nan for radial basis function, should be strictly positive",
                           [] { RadialBasisKernel::createKernel(g_nan); });
}

TEST(RadialBasisKernel, OfAnInfiniteSigmaIsOne)
{
    EXPECT_EQ(RadialBasisKernel::createKernel(g_infinity)(makeVector({0.0}), makeVector({1.0})), 1.0);
}

TEST(RadialBasisKernel, TheConstructorChecksNothing)
{
    EXPECT_EQ(RadialBasisKernel(-2.0)(makeVector({0.0}), makeVector({1.0})), std::exp(-0.125));
}

} // namespace clustering
} // namespace math
} // namespace ovrix
