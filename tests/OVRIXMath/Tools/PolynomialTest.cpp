#include <OVRIXMath/Tools/Polynomial.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <tuple>

namespace ovrix
{
namespace math
{

namespace
{

/// Number of roots, and what the roots hold after a call that found them at 7 and 8.
using Solution = std::tuple<ovUInt32, double, double>;

Solution solve(double a, double b, double c)
{
    double x1 = 7.0;
    double x2 = 8.0;
    const ovUInt32 nbRoots = solveQuadratic(a, b, c, x1, x2);
    return Solution(nbRoots, x1, x2);
}

} // namespace

TEST(SolveQuadratic, AConstantHasNoRootAndLeavesTheOutputs)
{
    EXPECT_EQ(solve(0, 0, 1), Solution(0, 7, 8));
    EXPECT_EQ(solve(0, 0, 0), Solution(0, 7, 8));
}

TEST(SolveQuadratic, ALineHasOneRoot)
{
    EXPECT_EQ(solve(0, 2, -3), Solution(1, 1.5, 1.5));
}

TEST(SolveQuadratic, ANullDiscriminantGivesOneRoot)
{
    EXPECT_EQ(solve(1, -2, 1), Solution(1, 1, 1));
    EXPECT_EQ(solve(-2, 4, -2), Solution(1, 1, 1));
}

TEST(SolveQuadratic, ANegativeDiscriminantLeavesTheOutputs)
{
    EXPECT_EQ(solve(1, 0, 1), Solution(0, 7, 8));
}

TEST(SolveQuadratic, TheSmallerRootComesFirst)
{
    EXPECT_EQ(solve(1, -5, 6), Solution(2, 2, 3));
    EXPECT_EQ(solve(-1, 0, 1), Solution(2, -1, 1));
    EXPECT_EQ(solve(-1, 5, -6), Solution(2, 2, 3));
}

TEST(SolveQuadratic, TheRootsFollowTheFormulasToTheBit)
{
    const double a = 0.3;
    const double b = 1.7;
    const double c = 0.11;
    const double s = std::sqrt(b * b - c * (4.0 * a));
    EXPECT_EQ(solve(a, b, c), Solution(2, (-b - s) / (a + a), (s - b) / (a + a)));
}

TEST(SolveQuadratic, TheTestOfTheLeadingCoefficientIsExact)
{
    double x1 = 0.0;
    double x2 = 0.0;
    EXPECT_EQ(solveQuadratic(1e-300, 1.0, -1.0, x1, x2), 2u);
    EXPECT_EQ(x2, 0.0); // cancellation in sqrt(d) - b, kept
}

TEST(SolveQuadratic, ACoefficientThatIsNotANumberGivesTwoRootsThatAreNone)
{
    double x1 = 0.0;
    double x2 = 0.0;
    EXPECT_EQ(solveQuadratic(1.0, std::numeric_limits<double>::quiet_NaN(), 1.0, x1, x2), 2u);
    EXPECT_TRUE(std::isnan(x1));
    EXPECT_TRUE(std::isnan(x2));
}

} // namespace math
} // namespace ovrix
