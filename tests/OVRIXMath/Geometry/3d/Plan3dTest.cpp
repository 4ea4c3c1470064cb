#include <OVRIXMath/Geometry/3d/Plan3d.h>

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstddef>
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

/// Three points one after the other.
using Points = std::array<double, 9>;

/// Outputs that start from values which no test gives.
struct Plan
{
    double rho = -7.0;
    double theta = -8.0;
    double phi = -9.0;
};

bool fit(const Points& p, Plan& plan)
{
    return planFromPoints(p[0], p[1], p[2], p[3], p[4], p[5], p[6], p[7], p[8], plan.rho, plan.theta, plan.phi);
}

} // namespace

TEST(PlanFromPoints, HasTheNormalOfThePointsOrder)
{
    Plan plan;
    EXPECT_TRUE(fit({0.0, 0.0, 2.0, 1.0, 0.0, 2.0, 0.0, 1.0, 2.0}, plan));
    EXPECT_EQ(plan.rho, 2.0);
    EXPECT_EQ(plan.theta, 0.0);
}

TEST(PlanFromPoints, TurnsTheNormalWithThePointsOrder)
{
    Plan plan;
    EXPECT_TRUE(fit({0.0, 0.0, 2.0, 0.0, 1.0, 2.0, 1.0, 0.0, 2.0}, plan));
    EXPECT_EQ(plan.rho, -2.0);
    EXPECT_EQ(plan.theta, g_pi);
}

TEST(PlanFromPoints, TakesTheAzimuthFromX)
{
    Plan plan;
    EXPECT_TRUE(fit({0.0, 3.0, 0.0, 0.0, 3.0, 1.0, 1.0, 3.0, 0.0}, plan));
    EXPECT_EQ(plan.rho, 3.0);
    EXPECT_EQ(plan.theta, g_halfPi);
    EXPECT_EQ(plan.phi, g_halfPi);
}

TEST(PlanFromPoints, WritesTheAnglesOfCollinearPoints)
{
    Plan plan;
    EXPECT_FALSE(fit({0.0, 0.0, 0.0, 1.0, 1.0, 1.0, 2.0, 2.0, 2.0}, plan));
    EXPECT_EQ(plan.rho, -7.0);
    EXPECT_EQ(plan.theta, 0.0);
    EXPECT_EQ(plan.phi, 0.0);
}

TEST(PlanFromPoints, TakesTheAzimuthOfSignedZeros)
{
    // The cross product is (-0, 0, 0).
    Plan plan;
    EXPECT_FALSE(fit({0.0, 0.0, 0.0, 0.0, -1.0, 0.0, 0.0, 1.0, 0.0}, plan));
    EXPECT_EQ(plan.rho, -7.0);
    EXPECT_EQ(plan.theta, 0.0);
    EXPECT_EQ(plan.phi, g_pi);
}

TEST(PlanFromPoints, AppliesNoTolerance)
{
    Plan plan;
    EXPECT_TRUE(fit({0.0, 0.0, 0.0, 1e-60, 0.0, 0.0, 0.0, 1e-60, 0.0}, plan));
    EXPECT_EQ(plan.rho, 0.0);
    EXPECT_EQ(plan.theta, 0.0);
}

TEST(PlanFromPoints, RefusesACrossProductWhoseLengthUnderflows)
{
    Plan plan;
    EXPECT_FALSE(fit({0.0, 0.0, 0.0, 1e-90, 0.0, 0.0, 0.0, 1e-90, 0.0}, plan));
    EXPECT_EQ(plan.rho, -7.0);
    EXPECT_EQ(plan.theta, 0.0);
    EXPECT_EQ(plan.phi, 0.0);
}

TEST(PlanFromPoints, TakesTheAzimuthOfACrossProductWhoseLengthUnderflows)
{
    Plan plan;
    EXPECT_FALSE(fit({0.0, 0.0, 0.0, 0.0, 0.0, 1e-90, 1e-90, 0.0, 0.0}, plan));
    EXPECT_EQ(plan.rho, -7.0);
    EXPECT_EQ(plan.theta, 0.0);
    EXPECT_EQ(plan.phi, g_halfPi);
}

TEST(PlanFromPoints, LetsNaNThrough)
{
    for (std::size_t position = 0; position < 9; ++position)
    {
        Points points{0.5, 1.0, 2.0, 1.0, 0.0, 2.5, 0.0, 1.5, 2.0};
        points[position] = std::numeric_limits<double>::quiet_NaN();
        Plan plan;
        EXPECT_TRUE(fit(points, plan));
        EXPECT_TRUE(std::isnan(plan.rho));
        EXPECT_TRUE(std::isnan(plan.theta));
    }
}

TEST(PlanFromPoints, PassesThroughThePointsWithTheNormalOnTheirLeft)
{
    std::mt19937 generator(61);
    std::uniform_real_distribution<double> coordinate(-5.0, 5.0);
    for (int run = 0; run < 1000; ++run)
    {
        Points p;
        for (double& value : p)
            value = coordinate(generator);
        Plan plan;
        ASSERT_TRUE(fit(p, plan));
        const double nx = std::sin(plan.theta) * std::cos(plan.phi);
        const double ny = std::sin(plan.theta) * std::sin(plan.phi);
        const double nz = std::cos(plan.theta);
        // The polar angle loses up to half of the digits near the poles.
        for (std::size_t i = 0; i < 9; i += 3)
            EXPECT_NEAR(p[i] * nx + p[i + 1] * ny + p[i + 2] * nz, plan.rho, 1e-10);
        const double area = (p[3] - p[0]) * ((p[7] - p[1]) * nz - (p[8] - p[2]) * ny) +
                            (p[4] - p[1]) * ((p[8] - p[2]) * nx - (p[6] - p[0]) * nz) +
                            (p[5] - p[2]) * ((p[6] - p[0]) * ny - (p[7] - p[1]) * nx);
        EXPECT_GT(area, 0.0);
    }
}

} // namespace math
} // namespace ovrix
