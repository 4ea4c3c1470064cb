#include <OVRIXMath/Clustering/Kernel/PolynomialKernel.h>

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

constexpr double g_nan = std::numeric_limits<double>::quiet_NaN();

} // namespace

TEST(PolynomialKernel, IsThePowerOfTheShiftedProduct)
{
    const PolynomialKernel kernel = PolynomialKernel::createKernel(2.0, 1.0, 3.0);
    EXPECT_EQ(kernel(makeVector({1.0, 2.0}), makeVector({3.0, 4.0})), std::pow(2.0 * 11.0 + 1.0, 3.0));
    EXPECT_EQ(kernel(makeVector({1.0, 2.0})), std::pow(2.0 * 5.0 + 1.0, 3.0));
}

TEST(PolynomialKernel, TakesARealDegree)
{
    const PolynomialKernel kernel = PolynomialKernel::createKernel(0.3, 0.0, 1.7);
    EXPECT_EQ(kernel(makeVector({1.25}), makeVector({0.7})), std::pow(0.3 * (1.25 * 0.7) + 0.0, 1.7));
    EXPECT_TRUE(std::isnan(kernel(makeVector({1.0}), makeVector({-1.0}))));
}

TEST(PolynomialKernel, TellsItsParameters)
{
    const PolynomialKernel kernel = PolynomialKernel::createKernel(2.0, 1.0, 3.0);
    EXPECT_EQ(kernel.getAlpha(), 2.0);
    EXPECT_EQ(kernel.getBeta(), 1.0);
    EXPECT_EQ(kernel.getDegree(), 3.0);
}

TEST(PolynomialKernel, AnAlphaThatIsNotPositiveRaises)
{
    test::expectMathRaises("Invalid polynomial kernel alpha value 0.000000, should be strictly positive",
                           [] { PolynomialKernel::createKernel(0.0, 1.0, 1.0); });
    test::expectMathRaises("Invalid polynomial kernel alpha value -1.500000, should be strictly positive",
                           [] { PolynomialKernel::createKernel(-1.5, -1.0, -1.0); });
    test::expectMathRaises("Invalid polynomial kernel alpha value nan, should be strictly positive",
                           [] { PolynomialKernel::createKernel(g_nan, 1.0, 1.0); });
}

TEST(PolynomialKernel, ANegativeBetaRaises)
{
    test::expectMathRaises("Invalid polynomial kernel beta value -0.500000, should be positive",
                           [] { PolynomialKernel::createKernel(1.0, -0.5, 0.0); });
}

TEST(PolynomialKernel, ABetaOfZeroOrNaNPasses)
{
    EXPECT_EQ(PolynomialKernel::createKernel(1.0, 0.0, 2.0)(makeVector({3.0})), 81.0);
    EXPECT_TRUE(std::isnan(PolynomialKernel::createKernel(1.0, g_nan, 2.0)(makeVector({3.0}))));
}

TEST(PolynomialKernel, ParametersBelowOnePass)
{
    EXPECT_EQ(PolynomialKernel::createKernel(0.25, 0.0, 0.5)(makeVector({4.0})), 2.0);
}

TEST(PolynomialKernel, ADegreeThatIsNotPositiveRaises)
{
    test::expectMathRaises("Invalid polynomial kernel degree 0.000000, should be strictly positive",
                           [] { PolynomialKernel::createKernel(1.0, 1.0, 0.0); });
    test::expectMathRaises("Invalid polynomial kernel degree -2.000000, should be strictly positive",
                           [] { PolynomialKernel::createKernel(1.0, g_nan, -2.0); });
    test::expectMathRaises("Invalid polynomial kernel degree nan, should be strictly positive",
                           [] { PolynomialKernel::createKernel(1.0, 1.0, g_nan); });
}

TEST(PolynomialKernel, TheConstructorChecksNothing)
{
    EXPECT_EQ(PolynomialKernel(-1.0, -1.0, -1.0)(makeVector({1.0})), -0.5);
}

} // namespace clustering
} // namespace math
} // namespace ovrix
