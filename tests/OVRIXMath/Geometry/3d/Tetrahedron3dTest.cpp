#include <OVRIXMath/Geometry/3d/Tetrahedron3d.h>

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

using Point = std::array<double, 3>;

double area(const Point& p1, const Point& p2, const Point& p3, const Point& p4)
{
    return tetrahedronArea(p1[0], p1[1], p1[2], p2[0], p2[1], p2[2], p3[0], p3[1], p3[2], p4[0], p4[1], p4[2]);
}

double signedVolume(const Point& p1, const Point& p2, const Point& p3, const Point& p4)
{
    return tetrahedronSignedVolume(p1[0], p1[1], p1[2], p2[0], p2[1], p2[2], p3[0], p3[1], p3[2], p4[0], p4[1], p4[2]);
}

double signedVolume(const Point& a, const Point& b, const Point& c)
{
    return tetrahedronSignedVolume(a[0], a[1], a[2], b[0], b[1], b[2], c[0], c[1], c[2]);
}

double volume(const Point& p1, const Point& p2, const Point& p3, const Point& p4)
{
    return tetrahedronVolume(p1[0], p1[1], p1[2], p2[0], p2[1], p2[2], p3[0], p3[1], p3[2], p4[0], p4[1], p4[2]);
}

struct Inertia
{
    double xx = 0.0;
    double xy = 0.0;
    double xz = 0.0;
    double yy = 0.0;
    double yz = 0.0;
    double zz = 0.0;
};

Inertia inertia(const Point& a, const Point& b, const Point& c)
{
    Inertia i;
    tetrahedronInertia(a[0], a[1], a[2], b[0], b[1], b[2], c[0], c[1], c[2], i.xx, i.xy, i.xz, i.yy, i.yz, i.zz);
    return i;
}

/// Integral of the product of two coordinates over the tetrahedron a, b, c and the origin, by the rule of four points
/// that is exact for quadratic functions.
double integrate(const Point& a, const Point& b, const Point& c, std::size_t first, std::size_t second)
{
    constexpr double near = 0.5854101966249685;
    constexpr double far = 0.1381966011250105;
    const std::array<std::array<double, 3>, 4> weights{
        {{near, far, far}, {far, near, far}, {far, far, near}, {far, far, far}}};
    double sum = 0.0;
    for (const auto& w : weights)
        sum += (w[0] * a[first] + w[1] * b[first] + w[2] * c[first]) *
               (w[0] * a[second] + w[1] * b[second] + w[2] * c[second]);
    return sum / 4.0 * std::fabs(signedVolume(a, b, c));
}

/// Area of a triangle from its sides by Heron's formula.
double heron(const Point& p, const Point& q, const Point& r)
{
    const double a = std::hypot(p[0] - q[0], p[1] - q[1], p[2] - q[2]);
    const double b = std::hypot(q[0] - r[0], q[1] - r[1], q[2] - r[2]);
    const double c = std::hypot(r[0] - p[0], r[1] - p[1], r[2] - p[2]);
    const double s = (a + b + c) / 2.0;
    return std::sqrt(s * (s - a) * (s - b) * (s - c));
}

Point drawPoint(std::mt19937& generator)
{
    std::uniform_real_distribution<double> coordinate(-3.0, 3.0);
    return {coordinate(generator), coordinate(generator), coordinate(generator)};
}

} // namespace

TEST(TetrahedronArea, IsTheSumOfTheFaces)
{
    EXPECT_NEAR(area({1.0, 1.0, 1.0}, {1.0, -1.0, -1.0}, {-1.0, 1.0, -1.0}, {-1.0, -1.0, 1.0}), 8.0 * std::sqrt(3.0),
                1e-14);
    std::mt19937 generator(81);
    for (int run = 0; run < 1000; ++run)
    {
        const Point p1 = drawPoint(generator);
        const Point p2 = drawPoint(generator);
        const Point p3 = drawPoint(generator);
        const Point p4 = drawPoint(generator);
        // Heron's formula loses digits on flat triangles.
        EXPECT_NEAR(area(p1, p2, p3, p4), heron(p1, p2, p3) + heron(p1, p2, p4) + heron(p1, p3, p4) + heron(p2, p3, p4),
                    1e-11);
    }
}

TEST(TetrahedronArea, CountsBothSidesOfAFlatOne)
{
    EXPECT_EQ(area({0.0, 0.0, 0.0}, {2.0, 0.0, 0.0}, {0.0, 2.0, 0.0}, {2.0, 2.0, 0.0}), 8.0);
}

TEST(TetrahedronSignedVolume, IsThatOfTheCornerOfACube)
{
    EXPECT_EQ(signedVolume({1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}), 1.0 / 6.0);
    EXPECT_EQ(signedVolume({1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}, {0.0, 0.0, 0.0}), 1.0 / 6.0);
}

TEST(TetrahedronSignedVolume, TurnsItsSignWithTheOrder)
{
    EXPECT_EQ(signedVolume({0.0, 1.0, 0.0}, {1.0, 0.0, 0.0}, {0.0, 0.0, 1.0}), -1.0 / 6.0);
    EXPECT_EQ(signedVolume({0.0, 1.0, 0.0}, {1.0, 0.0, 0.0}, {0.0, 0.0, 1.0}, {0.0, 0.0, 0.0}), -1.0 / 6.0);
}

TEST(TetrahedronSignedVolume, TakesTheFourthPointAsTheOrigin)
{
    EXPECT_EQ(signedVolume({3.0, 2.0, 3.0}, {1.0, 4.0, 3.0}, {1.0, 2.0, 5.0}, {1.0, 2.0, 3.0}), 8.0 / 6.0);
}

TEST(TetrahedronSignedVolume, IsZeroForCoplanarPoints)
{
    EXPECT_EQ(signedVolume({1.0, 0.0, 5.0}, {0.0, 1.0, 5.0}, {2.0, 2.0, 5.0}, {0.0, 0.0, 5.0}), 0.0);
}

TEST(TetrahedronVolume, IsTheAbsoluteValue)
{
    EXPECT_EQ(volume({1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}, {0.0, 0.0, 0.0}), 1.0 / 6.0);
    EXPECT_EQ(volume({0.0, 1.0, 0.0}, {1.0, 0.0, 0.0}, {0.0, 0.0, 1.0}, {0.0, 0.0, 0.0}), 1.0 / 6.0);
}

TEST(TetrahedronVolume, DoesNotDependOnTheOrderOfThePoints)
{
    std::mt19937 generator(82);
    for (int run = 0; run < 1000; ++run)
    {
        const Point p1 = drawPoint(generator);
        const Point p2 = drawPoint(generator);
        const Point p3 = drawPoint(generator);
        const Point p4 = drawPoint(generator);
        EXPECT_NEAR(volume(p1, p2, p3, p4), volume(p4, p2, p1, p3), 1e-13);
    }
}

TEST(TetrahedronMeasures, LetNaNThrough)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const Point p{0.5, 1.0, 2.0};
    const Point q{1.0, 3.0, 0.5};
    const Point r{2.0, 0.5, 1.0};
    for (std::size_t position = 0; position < 3; ++position)
    {
        Point broken{4.0, 3.0, 5.0};
        broken[position] = nan;
        EXPECT_TRUE(std::isnan(area(p, q, r, broken)));
        EXPECT_TRUE(std::isnan(signedVolume(p, q, r, broken)));
        EXPECT_TRUE(std::isnan(signedVolume(p, q, broken)));
        EXPECT_TRUE(std::isnan(volume(p, q, r, broken)));
        EXPECT_TRUE(std::isnan(inertia(p, q, broken).xx));
    }
}

TEST(TetrahedronInertia, IsExactForTheCornerOfACube)
{
    const Inertia i = inertia({1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0});
    EXPECT_EQ(i.xx, 1.0 / 30.0);
    EXPECT_EQ(i.yy, 1.0 / 30.0);
    EXPECT_EQ(i.zz, 1.0 / 30.0);
    EXPECT_EQ(i.xy, 1.0 / 120.0);
    EXPECT_EQ(i.xz, 1.0 / 120.0);
    EXPECT_EQ(i.yz, 1.0 / 120.0);
}

TEST(TetrahedronInertia, IsTheIntegralOfTheSquaredDistancesFromTheAxes)
{
    std::mt19937 generator(83);
    for (int run = 0; run < 1000; ++run)
    {
        const Point a = drawPoint(generator);
        const Point b = drawPoint(generator);
        const Point c = drawPoint(generator);
        const Inertia i = inertia(a, b, c);
        const double x2 = integrate(a, b, c, 0, 0);
        const double y2 = integrate(a, b, c, 1, 1);
        const double z2 = integrate(a, b, c, 2, 2);
        EXPECT_NEAR(i.xx, y2 + z2, 1e-12);
        EXPECT_NEAR(i.yy, x2 + z2, 1e-12);
        EXPECT_NEAR(i.zz, x2 + y2, 1e-12);
    }
}

TEST(TetrahedronInertia, HasMixedTermsWithoutTheVolumeAndWithTheSignOfTheProduct)
{
    std::mt19937 generator(84);
    for (int run = 0; run < 1000; ++run)
    {
        const Point a = drawPoint(generator);
        const Point b = drawPoint(generator);
        const Point c = drawPoint(generator);
        const Inertia i = inertia(a, b, c);
        const double D = 6.0 * std::fabs(signedVolume(a, b, c));
        EXPECT_NEAR(D * i.xy, integrate(a, b, c, 0, 1), 1e-12);
        EXPECT_NEAR(D * i.xz, integrate(a, b, c, 0, 2), 1e-12);
        EXPECT_NEAR(D * i.yz, integrate(a, b, c, 1, 2), 1e-12);
    }
}

TEST(TetrahedronInertia, HasMixedTermsEvenForAFlatTetrahedron)
{
    const Inertia i = inertia({1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {1.0, 1.0, 0.0});
    EXPECT_EQ(i.xx, 0.0);
    EXPECT_EQ(i.zz, 0.0);
    // ((2 + 0 + 1) 0 + (1 + 0 + 1) 1 + (1 + 0 + 2) 1) / 120.
    EXPECT_EQ(i.xy, 5.0 / 120.0);
    EXPECT_EQ(i.xz, 0.0);
    EXPECT_EQ(i.yz, 0.0);
}

TEST(TetrahedronInertia, DoesNotDependOnTheOrientation)
{
    const Inertia first = inertia({1.0, 0.0, 0.0}, {0.0, 2.0, 0.0}, {0.0, 0.0, 3.0});
    const Inertia second = inertia({0.0, 2.0, 0.0}, {1.0, 0.0, 0.0}, {0.0, 0.0, 3.0});
    EXPECT_EQ(first.xx, second.xx);
    EXPECT_EQ(first.xy, second.xy);
    EXPECT_GT(second.xx, 0.0);
}

} // namespace math
} // namespace ovrix
