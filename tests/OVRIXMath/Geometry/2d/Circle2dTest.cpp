#include <OVRIXMath/Geometry/2d/Circle2d.h>

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

constexpr double g_nan = std::numeric_limits<double>::quiet_NaN();

/// Outputs that start from values which no test gives.
struct Circle
{
    double cx = -7.0;
    double cy = -8.0;
    double r = -9.0;
};

void expectUntouched(const Circle& circle)
{
    EXPECT_EQ(circle.cx, -7.0);
    EXPECT_EQ(circle.cy, -8.0);
    EXPECT_EQ(circle.r, -9.0);
}

} // namespace

TEST(CircleFromPoints, IsExactWhereTheArithmeticIs)
{
    Circle circle;
    EXPECT_TRUE(circleFromPoints(0.0, 0.0, 2.0, 0.0, 0.0, 2.0, circle.cx, circle.cy, circle.r));
    EXPECT_EQ(circle.cx, 1.0);
    EXPECT_EQ(circle.cy, 1.0);
    EXPECT_EQ(circle.r, std::sqrt(2.0));
}

TEST(CircleFromPoints, DoesNotDependOnTheSenseOfRotation)
{
    Circle circle;
    EXPECT_TRUE(circleFromPoints(0.0, 2.0, 2.0, 0.0, 0.0, 0.0, circle.cx, circle.cy, circle.r));
    EXPECT_EQ(circle.cx, 1.0);
    EXPECT_EQ(circle.cy, 1.0);
    EXPECT_EQ(circle.r, std::sqrt(2.0));
}

TEST(CircleFromPoints, RefusesCollinearPoints)
{
    Circle circle;
    EXPECT_FALSE(circleFromPoints(0.0, 0.0, 1.0, 2.0, 2.0, 4.0, circle.cx, circle.cy, circle.r));
    expectUntouched(circle);
}

TEST(CircleFromPoints, RefusesCoincidentPoints)
{
    Circle circle;
    EXPECT_FALSE(circleFromPoints(3.0, 1.0, 3.0, 1.0, 2.0, 4.0, circle.cx, circle.cy, circle.r));
    expectUntouched(circle);
}

TEST(CircleFromPoints, RefusesAVerySmallTriangle)
{
    Circle circle;
    EXPECT_FALSE(circleFromPoints(0.0, 0.0, 1e-4, 0.0, 0.0, 1e-4, circle.cx, circle.cy, circle.r));
    expectUntouched(circle);
}

TEST(CircleFromPoints, RefusesADeterminantOfExactlyTheSquareRootOfEpsilon)
{
    // The determinant of these points is the square of the side.
    Circle circle;
    EXPECT_FALSE(circleFromPoints(0.0, 0.0, 0x1p-13, 0.0, 0.0, 0x1p-13, circle.cx, circle.cy, circle.r));
    expectUntouched(circle);
}

TEST(CircleFromPoints, AcceptsADeterminantJustAboveTheSquareRootOfEpsilon)
{
    Circle circle;
    EXPECT_TRUE(circleFromPoints(0.0, 0.0, 0x1.0000000000001p-13, 0.0, 0.0, 0x1p-13, circle.cx, circle.cy, circle.r));
    EXPECT_EQ(circle.cy, 0x1p-14);
}

TEST(CircleFromPoints, AcceptsANegativeDeterminantBelowMinusTheSquareRootOfEpsilon)
{
    Circle circle;
    EXPECT_TRUE(circleFromPoints(0.0, 0.0, 0.0, 0x1p-13, 0x1.0000000000001p-13, 0.0, circle.cx, circle.cy, circle.r));
    EXPECT_EQ(circle.cy, 0x1p-14);
}

TEST(CircleFromPoints, RefusesNaN)
{
    for (int position = 0; position < 6; ++position)
    {
        double points[] = {0.0, 0.0, 2.0, 0.0, 0.0, 2.0};
        points[position] = g_nan;
        Circle circle;
        EXPECT_FALSE(circleFromPoints(points[0], points[1], points[2], points[3], points[4], points[5], circle.cx,
                                      circle.cy, circle.r));
        expectUntouched(circle);
    }
}

TEST(CircleFromPoints, FindsTheCircleThatThePointsWereTakenFrom)
{
    std::mt19937 generator(11);
    std::uniform_real_distribution<double> coordinate(-10.0, 10.0);
    std::uniform_real_distribution<double> radius(0.5, 5.0);
    std::uniform_real_distribution<double> jitter(-0.5, 0.5);
    for (int run = 0; run < 1000; ++run)
    {
        const double x = coordinate(generator);
        const double y = coordinate(generator);
        const double r = radius(generator);
        const double angles[] = {jitter(generator), 2.1 + jitter(generator), 4.2 + jitter(generator)};
        Circle circle;
        ASSERT_TRUE(circleFromPoints(x + r * std::cos(angles[0]), y + r * std::sin(angles[0]),
                                     x + r * std::cos(angles[1]), y + r * std::sin(angles[1]),
                                     x + r * std::cos(angles[2]), y + r * std::sin(angles[2]), circle.cx, circle.cy,
                                     circle.r));
        // Squared coordinates of some 200, divided by a determinant above 0.3: some hundred roundings at most.
        EXPECT_NEAR(circle.cx, x, 1e-11);
        EXPECT_NEAR(circle.cy, y, 1e-11);
        EXPECT_NEAR(circle.r, r, 1e-11);
    }
}

} // namespace math
} // namespace ovrix
