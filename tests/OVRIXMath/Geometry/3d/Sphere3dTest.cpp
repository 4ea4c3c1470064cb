#include <OVRIXMath/Geometry/3d/Sphere3d.h>

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <random>
#include <support/Rotations.h>

namespace ovrix
{
namespace math
{

using namespace test;

namespace
{

/// Points one after the other.
using FourPoints = std::array<double, 12>;
using ThreePoints = std::array<double, 9>;

/// Outputs that start from values which no test gives.
struct Sphere
{
    double cx = -6.0;
    double cy = -7.0;
    double cz = -8.0;
    double r = -9.0;
};

bool fit(const FourPoints& p, Sphere& sphere)
{
    return sphereFromPoints(p[0], p[1], p[2], p[3], p[4], p[5], p[6], p[7], p[8], p[9], p[10], p[11], sphere.cx,
                            sphere.cy, sphere.cz, sphere.r);
}

bool fit(const ThreePoints& p, Sphere& sphere)
{
    return sphereFromPoints(p[0], p[1], p[2], p[3], p[4], p[5], p[6], p[7], p[8], sphere.cx, sphere.cy, sphere.cz,
                            sphere.r);
}

void expectUntouched(const Sphere& sphere)
{
    EXPECT_EQ(sphere.cx, -6.0);
    EXPECT_EQ(sphere.cy, -7.0);
    EXPECT_EQ(sphere.cz, -8.0);
    EXPECT_EQ(sphere.r, -9.0);
}

void expectSphere(double cx, double cy, double cz, double r, const Sphere& sphere)
{
    EXPECT_EQ(sphere.cx, cx);
    EXPECT_EQ(sphere.cy, cy);
    EXPECT_EQ(sphere.cz, cz);
    EXPECT_EQ(sphere.r, r);
}

template <class Points>
void expectNaN(Points points)
{
    for (double& value : points)
    {
        const double kept = value;
        value = std::numeric_limits<double>::quiet_NaN();
        Sphere sphere;
        EXPECT_TRUE(fit(points, sphere));
        EXPECT_TRUE(std::isnan(sphere.cx));
        EXPECT_TRUE(std::isnan(sphere.cy));
        EXPECT_TRUE(std::isnan(sphere.cz));
        EXPECT_TRUE(std::isnan(sphere.r));
        value = kept;
    }
}

} // namespace

// Four points

TEST(SphereFromFourPoints, IsExactWhereTheArithmeticIs)
{
    Sphere sphere;
    EXPECT_TRUE(fit(FourPoints{3.0, 2.0, 3.0, -1.0, 2.0, 3.0, 1.0, 4.0, 3.0, 1.0, 2.0, 5.0}, sphere));
    expectSphere(1.0, 2.0, 3.0, 2.0, sphere);
}

TEST(SphereFromFourPoints, RefusesCoplanarPoints)
{
    Sphere sphere;
    EXPECT_FALSE(fit(FourPoints{0.0, 0.0, 1.0, 1.0, 0.0, 1.0, 1.0, 2.0, 1.0, 0.0, 1.0, 1.0}, sphere));
    expectUntouched(sphere);
}

TEST(SphereFromFourPoints, RefusesCoincidentPoints)
{
    Sphere sphere;
    EXPECT_FALSE(fit(FourPoints{0.0, 0.0, 1.0, 1.0, 0.0, 5.0, 1.0, 0.0, 5.0, 0.0, 1.0, 1.0}, sphere));
    expectUntouched(sphere);
}

TEST(SphereFromFourPoints, AppliesNoTolerance)
{
    Sphere sphere;
    EXPECT_TRUE(fit(FourPoints{0.0, 0.0, 0.0, 0x1p-99, 0.0, 0.0, 0.0, 0x1p-99, 0.0, 0.0, 0.0, 0x1p-99}, sphere));
    expectSphere(0x1p-100, 0x1p-100, 0x1p-100, std::sqrt(3.0) * 0x1p-100, sphere);
}

TEST(SphereFromFourPoints, LetsNaNThrough)
{
    expectNaN(FourPoints{3.0, 2.5, 3.5, -1.0, 2.0, 3.0, 1.0, 4.0, 3.25, 1.5, 2.0, 5.0});
}

TEST(SphereFromFourPoints, FindsTheSphereThatThePointsWereTakenFrom)
{
    std::mt19937 generator(71);
    std::uniform_real_distribution<double> coordinate(-5.0, 5.0);
    std::uniform_real_distribution<double> radius(0.5, 3.0);
    std::uniform_real_distribution<double> jitter(-0.2, 0.2);
    for (int run = 0; run < 1000; ++run)
    {
        const std::array<double, 3> centre{coordinate(generator), coordinate(generator), coordinate(generator)};
        const double r = radius(generator);
        // Around the corners of a regular tetrahedron.
        FourPoints points{1.0, 1.0, 1.0, 1.0, -1.0, -1.0, -1.0, 1.0, -1.0, -1.0, -1.0, 1.0};
        for (double& value : points)
            value += jitter(generator);
        for (std::size_t i = 0; i < 12; i += 3)
        {
            const double length = std::hypot(points[i], points[i + 1], points[i + 2]);
            for (std::size_t j = 0; j < 3; ++j)
                points[i + j] = centre[j] + r * points[i + j] / length;
        }
        Sphere sphere;
        ASSERT_TRUE(fit(points, sphere));
        // Squared coordinates of up to 200 over edges of 0.5 at least.
        EXPECT_NEAR(sphere.cx, centre[0], 1e-11);
        EXPECT_NEAR(sphere.cy, centre[1], 1e-11);
        EXPECT_NEAR(sphere.cz, centre[2], 1e-11);
        EXPECT_NEAR(sphere.r, r, 1e-11);
    }
}

// Three points

TEST(SphereFromThreePoints, IsExactWhereTheArithmeticIs)
{
    Sphere sphere;
    EXPECT_TRUE(fit(ThreePoints{3.0, 2.0, 3.0, -1.0, 2.0, 3.0, 1.0, 4.0, 3.0}, sphere));
    expectSphere(1.0, 2.0, 3.0, 2.0, sphere);
}

TEST(SphereFromThreePoints, RefusesCollinearPoints)
{
    Sphere sphere;
    EXPECT_FALSE(fit(ThreePoints{0.0, 0.0, 0.0, 1.0, 2.0, 3.0, 2.0, 4.0, 6.0}, sphere));
    expectUntouched(sphere);
}

TEST(SphereFromThreePoints, RefusesCoincidentPoints)
{
    Sphere sphere;
    EXPECT_FALSE(fit(ThreePoints{1.0, 2.0, 3.0, 1.0, 2.0, 3.0, 2.0, 4.0, 5.0}, sphere));
    expectUntouched(sphere);
}

TEST(SphereFromThreePoints, AppliesNoTolerance)
{
    Sphere sphere;
    EXPECT_TRUE(fit(ThreePoints{0.0, 0.0, 0.0, 0x1p-99, 0.0, 0.0, 0.0, 0x1p-99, 0.0}, sphere));
    expectSphere(0x1p-100, 0x1p-100, 0.0, std::sqrt(2.0) * 0x1p-100, sphere);
}

TEST(SphereFromThreePoints, LetsNaNThrough)
{
    expectNaN(ThreePoints{3.0, 2.5, 3.5, -1.0, 2.0, 3.0, 1.0, 4.0, 3.25});
}

TEST(SphereFromThreePoints, HasTheCircleOfThePointsAsItsEquator)
{
    std::mt19937 generator(72);
    std::uniform_real_distribution<double> coordinate(-5.0, 5.0);
    std::uniform_real_distribution<double> radius(0.5, 3.0);
    std::uniform_real_distribution<double> jitter(-0.5, 0.5);
    for (int run = 0; run < 1000; ++run)
    {
        const std::array<double, 3> centre{coordinate(generator), coordinate(generator), coordinate(generator)};
        const double r = radius(generator);
        const Rows rotation = rotationOf(coordinate(generator), coordinate(generator), coordinate(generator));
        ThreePoints points;
        for (std::size_t i = 0; i < 3; ++i)
        {
            const double angle = 2.1 * double(i) + jitter(generator);
            const auto turned = product(rotation, std::array<double, 3>{r * std::cos(angle), r * std::sin(angle), 0.0});
            for (std::size_t j = 0; j < 3; ++j)
                points[3 * i + j] = centre[j] + turned[j];
        }
        Sphere sphere;
        ASSERT_TRUE(fit(points, sphere));
        EXPECT_NEAR(sphere.cx, centre[0], 1e-11);
        EXPECT_NEAR(sphere.cy, centre[1], 1e-11);
        EXPECT_NEAR(sphere.cz, centre[2], 1e-11);
        EXPECT_NEAR(sphere.r, r, 1e-11);
    }
}

} // namespace math
} // namespace ovrix
