#include <OVRIXMath/Geometry/2d/Line2d.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace ovrix
{
namespace math
{

namespace
{

constexpr double g_pi = 3.141592653589793;
constexpr double g_halfPi = 1.5707963267948966;

} // namespace

TEST(LineFromPoints, RefusesEqualPoints)
{
    double rho = -7.0;
    double theta = -8.0;
    EXPECT_FALSE(lineFromPoints(1.5, -2.5, 1.5, -2.5, rho, theta));
    EXPECT_EQ(rho, -7.0);
    EXPECT_EQ(theta, -8.0);
}

TEST(LineFromPoints, AppliesNoTolerance)
{
    double rho, theta;
    EXPECT_TRUE(lineFromPoints(0.0, 0.0, 0.0, std::numeric_limits<double>::denorm_min(), rho, theta));
    EXPECT_EQ(theta, 0.0);
    EXPECT_EQ(rho, 0.0);
}

TEST(LineFromPoints, GivesTheNormalOfAHorizontalLine)
{
    double rho, theta;
    EXPECT_TRUE(lineFromPoints(0.0, 0.0, 1.0, 0.0, rho, theta));
    EXPECT_EQ(theta, -g_halfPi);
    EXPECT_EQ(rho, 0.0);
}

TEST(LineFromPoints, GivesNegativeRho)
{
    double rho, theta;
    EXPECT_TRUE(lineFromPoints(0.0, 3.0, 1.0, 3.0, rho, theta));
    EXPECT_EQ(theta, -g_halfPi);
    EXPECT_EQ(rho, -3.0);
}

TEST(LineFromPoints, LetsNaNThrough)
{
    for (int position = 0; position < 4; ++position)
    {
        double points[] = {0.0, 0.0, 1.0, 2.0};
        points[position] = std::numeric_limits<double>::quiet_NaN();
        double rho = 0.0;
        double theta = 0.0;
        EXPECT_TRUE(lineFromPoints(points[0], points[1], points[2], points[3], rho, theta));
        EXPECT_TRUE(std::isnan(rho));
        EXPECT_TRUE(std::isnan(theta));
    }
}

TEST(LineFromPoints, GivesNaNForEqualPointsAtInfinity)
{
    const double infinity = std::numeric_limits<double>::infinity();
    double rho = 0.0;
    double theta = 0.0;
    EXPECT_TRUE(lineFromPoints(infinity, 0.0, infinity, 0.0, rho, theta));
    EXPECT_TRUE(std::isnan(rho));
    EXPECT_TRUE(std::isnan(theta));
}

TEST(LineFromPoints, GivesALineThroughBothPoints)
{
    std::mt19937 generator(12);
    std::uniform_real_distribution<double> coordinate(-10.0, 10.0);
    for (int run = 0; run < 1000; ++run)
    {
        const double x1 = coordinate(generator);
        const double y1 = coordinate(generator);
        const double x2 = coordinate(generator);
        const double y2 = coordinate(generator);
        double rho, theta;
        ASSERT_TRUE(lineFromPoints(x1, y1, x2, y2, rho, theta));
        // Coordinates of up to 10 and an angle that is rounded to 4e-16.
        EXPECT_NEAR(x1 * std::cos(theta) + y1 * std::sin(theta), rho, 1e-13);
        EXPECT_NEAR(x2 * std::cos(theta) + y2 * std::sin(theta), rho, 1e-13);
    }
}

TEST(LineFromPoints, TurnsTheNormalWhenThePointsAreSwapped)
{
    std::mt19937 generator(13);
    std::uniform_real_distribution<double> coordinate(-10.0, 10.0);
    for (int run = 0; run < 1000; ++run)
    {
        const double x1 = coordinate(generator);
        const double y1 = coordinate(generator);
        const double x2 = coordinate(generator);
        const double y2 = coordinate(generator);
        double rho, theta, swappedRho, swappedTheta;
        ASSERT_TRUE(lineFromPoints(x1, y1, x2, y2, rho, theta));
        ASSERT_TRUE(lineFromPoints(x2, y2, x1, y1, swappedRho, swappedTheta));
        EXPECT_NEAR(std::fabs(swappedTheta - theta), g_pi, 1e-15);
        EXPECT_NEAR(swappedRho, -rho, 1e-13);
    }
}

TEST(LineFromPoints, PutsTheNormalToTheRightOfTheWayFromTheFirstPointToTheSecond)
{
    std::mt19937 generator(14);
    std::uniform_real_distribution<double> coordinate(-10.0, 10.0);
    for (int run = 0; run < 1000; ++run)
    {
        const double x1 = coordinate(generator);
        const double y1 = coordinate(generator);
        const double x2 = coordinate(generator);
        const double y2 = coordinate(generator);
        double rho, theta;
        ASSERT_TRUE(lineFromPoints(x1, y1, x2, y2, rho, theta));
        EXPECT_LT((x2 - x1) * std::sin(theta) - (y2 - y1) * std::cos(theta), 0.0);
    }
}

} // namespace math
} // namespace ovrix
