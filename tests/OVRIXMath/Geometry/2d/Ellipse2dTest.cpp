#include <OVRIXMath/Geometry/2d/Ellipse2d.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <utility>

namespace ovrix
{
namespace math
{

namespace
{

constexpr double g_pi = 3.141592653589793;
constexpr double g_halfPi = 1.5707963267948966;
constexpr double g_nan = std::numeric_limits<double>::quiet_NaN();
constexpr double g_infinity = std::numeric_limits<double>::infinity();

/// An ellipse whose values no test gives, before they are set.
struct Ellipse
{
    double cx = -5.0;
    double cy = -6.0;
    double theta = -7.0;
    double r1 = -8.0;
    double r2 = -9.0;
};

struct Quadratic
{
    double a = -1.0;
    double b = -2.0;
    double c = -3.0;
    double d = -4.0;
    double e = -5.0;
    double f = -6.0;
};

bool fromQuadratic(const Quadratic& from, Ellipse& to)
{
    return convertEllipseFromQuadratic(from.a, from.b, from.c, from.d, from.e, from.f, to.cx, to.cy, to.theta, to.r1,
                                       to.r2);
}

bool toQuadratic(const Ellipse& from, Quadratic& to)
{
    return convertEllipseToQuadratic(from.cx, from.cy, from.theta, from.r1, from.r2, to.a, to.b, to.c, to.d, to.e,
                                     to.f);
}

void expectUntouched(const Ellipse& ellipse)
{
    EXPECT_EQ(ellipse.cx, -5.0);
    EXPECT_EQ(ellipse.cy, -6.0);
    EXPECT_EQ(ellipse.theta, -7.0);
    EXPECT_EQ(ellipse.r1, -8.0);
    EXPECT_EQ(ellipse.r2, -9.0);
}

void expectUntouched(const Quadratic& quadratic)
{
    EXPECT_EQ(quadratic.a, -1.0);
    EXPECT_EQ(quadratic.b, -2.0);
    EXPECT_EQ(quadratic.c, -3.0);
    EXPECT_EQ(quadratic.d, -4.0);
    EXPECT_EQ(quadratic.e, -5.0);
    EXPECT_EQ(quadratic.f, -6.0);
}

/// A centre within 5, any orientation, radii from 0.5 to 3 whose first is the larger by 0.1 at least.
Ellipse drawEllipse(std::mt19937& generator)
{
    std::uniform_real_distribution<double> coordinate(-5.0, 5.0);
    std::uniform_real_distribution<double> angle(-1.57, 1.57);
    std::uniform_real_distribution<double> small(0.5, 1.5);
    std::uniform_real_distribution<double> more(0.1, 1.5);
    Ellipse ellipse;
    ellipse.cx = coordinate(generator);
    ellipse.cy = coordinate(generator);
    ellipse.theta = angle(generator);
    ellipse.r2 = small(generator);
    ellipse.r1 = ellipse.r2 + more(generator);
    return ellipse;
}

/// The point of the ellipse at the parameter t.
void pointAt(const Ellipse& ellipse, double t, double& x, double& y)
{
    const double u = ellipse.r1 * std::cos(t);
    const double v = ellipse.r2 * std::sin(t);
    x = ellipse.cx + u * std::cos(ellipse.theta) - v * std::sin(ellipse.theta);
    y = ellipse.cy + u * std::sin(ellipse.theta) + v * std::cos(ellipse.theta);
}

/// Length of the ellipse, by the trapezoidal rule over the whole turn.
double measurePerimeter(double r1, double r2)
{
    constexpr int nbSteps = 2000;
    double sum = 0.0;
    for (int i = 0; i < nbSteps; ++i)
    {
        const double t = 2.0 * g_pi * i / nbSteps;
        sum += std::hypot(r1 * std::sin(t), r2 * std::cos(t));
    }
    return sum * 2.0 * g_pi / nbSteps;
}

} // namespace

// From the polynomial

TEST(ConvertEllipseFromQuadratic, FindsAnEllipseAlongTheAxes)
{
    // (x - 1)^2 / 9 + (y - 2)^2 / 4 = 1, times 36.
    Ellipse ellipse;
    EXPECT_TRUE(fromQuadratic({4.0, 0.0, 9.0, -8.0, -36.0, 4.0}, ellipse));
    EXPECT_EQ(ellipse.cx, 1.0);
    EXPECT_EQ(ellipse.cy, 2.0);
    EXPECT_NEAR(ellipse.theta, 0.0, 1e-15);
    EXPECT_NEAR(ellipse.r1, 3.0, 1e-15);
    EXPECT_NEAR(ellipse.r2, 2.0, 1e-15);
}

TEST(ConvertEllipseFromQuadratic, TakesTwiceItsSecondCoefficientForTheMixedTerm)
{
    // x^2 + x y + y^2 = 1: half of the sum of the axes' squares; the long axis is the falling diagonal.
    Ellipse ellipse;
    EXPECT_TRUE(fromQuadratic({1.0, 0.5, 1.0, 0.0, 0.0, -1.0}, ellipse));
    EXPECT_NEAR(ellipse.theta, -g_pi / 4.0, 1e-15);
    EXPECT_NEAR(ellipse.r1, std::sqrt(2.0), 1e-15);
    EXPECT_NEAR(ellipse.r2, std::sqrt(2.0 / 3.0), 1e-15);
}

TEST(ConvertEllipseFromQuadratic, FoldsTheOrientationOfACircleToMinusHalfPi)
{
    Ellipse ellipse;
    EXPECT_TRUE(fromQuadratic({1.0, 0.0, 1.0, 0.0, 0.0, -4.0}, ellipse));
    EXPECT_EQ(ellipse.theta, -g_halfPi);
    EXPECT_EQ(ellipse.r1, 2.0);
    EXPECT_EQ(ellipse.r2, 2.0);
}

TEST(ConvertEllipseFromQuadratic, IgnoresTheSignOfZeroOfACircle)
{
    Ellipse ellipse;
    EXPECT_TRUE(fromQuadratic({1.0, -0.0, 1.0, 0.0, 0.0, -4.0}, ellipse));
    EXPECT_EQ(ellipse.theta, -g_halfPi);
}

TEST(ConvertEllipseFromQuadratic, FindsTheDiagonalToTheBit)
{
    Ellipse ellipse;
    EXPECT_TRUE(fromQuadratic({1.0, -0.5, 1.0, 0.0, 0.0, -1.0}, ellipse));
    EXPECT_EQ(ellipse.theta, g_pi / 4.0);
}

TEST(ConvertEllipseFromQuadratic, GivesMinusHalfPiForAnUprightEllipse)
{
    Ellipse ellipse;
    EXPECT_TRUE(fromQuadratic({4.0, 0.0, 1.0, 0.0, 0.0, -4.0}, ellipse));
    EXPECT_EQ(ellipse.theta, -g_halfPi);
    EXPECT_EQ(ellipse.r1, 2.0);
    EXPECT_EQ(ellipse.r2, 1.0);
}

TEST(ConvertEllipseFromQuadratic, DoesNotDependOnTheSignOfTheScale)
{
    Ellipse ellipse;
    EXPECT_TRUE(fromQuadratic({-4.0, 0.0, -1.0, 0.0, 0.0, 4.0}, ellipse));
    EXPECT_EQ(ellipse.theta, -g_halfPi);
    EXPECT_EQ(ellipse.r1, 2.0);
    EXPECT_EQ(ellipse.r2, 1.0);
}

TEST(ConvertEllipseFromQuadratic, RefusesAParabola)
{
    Ellipse ellipse;
    EXPECT_FALSE(fromQuadratic({1.0, 1.0, 1.0, 1.0, 0.0, -1.0}, ellipse));
    expectUntouched(ellipse);
}

TEST(ConvertEllipseFromQuadratic, RefusesAHyperbola)
{
    Ellipse ellipse;
    EXPECT_FALSE(fromQuadratic({1.0, 0.0, -1.0, 0.0, 0.0, -1.0}, ellipse));
    expectUntouched(ellipse);
}

TEST(ConvertEllipseFromQuadratic, GivesNaNRadiiForAnImaginaryEllipse)
{
    Ellipse ellipse;
    EXPECT_TRUE(fromQuadratic({1.0, 0.0, 2.0, 0.0, 0.0, 1.0}, ellipse));
    EXPECT_EQ(ellipse.cx, 0.0);
    EXPECT_EQ(ellipse.cy, 0.0);
    EXPECT_TRUE(std::isnan(ellipse.r1));
    EXPECT_TRUE(std::isnan(ellipse.r2));
}

TEST(ConvertEllipseFromQuadratic, LetsANaNDiscriminantThrough)
{
    for (double Quadratic::*coefficient : {&Quadratic::a, &Quadratic::b, &Quadratic::c})
    {
        Quadratic quadratic{4.0, 0.0, 9.0, -8.0, -36.0, 4.0};
        quadratic.*coefficient = g_nan;
        Ellipse ellipse;
        EXPECT_TRUE(fromQuadratic(quadratic, ellipse));
        EXPECT_TRUE(std::isnan(ellipse.cx));
        EXPECT_TRUE(std::isnan(ellipse.cy));
        EXPECT_TRUE(std::isnan(ellipse.theta));
        EXPECT_TRUE(std::isnan(ellipse.r1));
        EXPECT_TRUE(std::isnan(ellipse.r2));
    }
}

TEST(ConvertEllipseFromQuadratic, KeepsTheCentreWhereTheConstantIsNaN)
{
    Ellipse ellipse;
    EXPECT_TRUE(fromQuadratic({4.0, 0.0, 9.0, -8.0, -36.0, g_nan}, ellipse));
    EXPECT_EQ(ellipse.cx, 1.0);
    EXPECT_EQ(ellipse.cy, 2.0);
    EXPECT_TRUE(std::isnan(ellipse.theta));
    EXPECT_TRUE(std::isnan(ellipse.r1));
    EXPECT_TRUE(std::isnan(ellipse.r2));
}

// To the polynomial

TEST(ConvertEllipseToQuadratic, GivesTheSquaredRadiiForAnEllipseAlongTheAxes)
{
    Quadratic quadratic;
    EXPECT_TRUE(toQuadratic({1.0, 2.0, 0.0, 3.0, 2.0}, quadratic));
    EXPECT_EQ(quadratic.a, 4.0);
    EXPECT_EQ(quadratic.b, 0.0);
    EXPECT_EQ(quadratic.c, 9.0);
    EXPECT_EQ(quadratic.d, -8.0);
    EXPECT_EQ(quadratic.e, -36.0);
    EXPECT_EQ(quadratic.f, 4.0);
}

TEST(ConvertEllipseToQuadratic, RefusesRadiiThatAreNotPositive)
{
    for (const double radius : {0.0, -0.0, -1.0, -g_infinity})
    {
        Quadratic quadratic;
        EXPECT_FALSE(toQuadratic({1.0, 2.0, 0.3, radius, 2.0}, quadratic));
        EXPECT_FALSE(toQuadratic({1.0, 2.0, 0.3, 2.0, radius}, quadratic));
        expectUntouched(quadratic);
    }
}

TEST(ConvertEllipseToQuadratic, LetsNaNRadiiThrough)
{
    Quadratic quadratic;
    EXPECT_TRUE(toQuadratic({1.0, 2.0, 0.3, g_nan, 2.0}, quadratic));
    EXPECT_TRUE(std::isnan(quadratic.a));
    EXPECT_TRUE(std::isnan(quadratic.f));
}

TEST(ConvertEllipseToQuadratic, GivesAPolynomialThatVanishesOnTheEllipse)
{
    std::mt19937 generator(21);
    std::uniform_real_distribution<double> parameter(0.0, 6.28);
    for (int run = 0; run < 1000; ++run)
    {
        const Ellipse ellipse = drawEllipse(generator);
        Quadratic q;
        ASSERT_TRUE(toQuadratic(ellipse, q));
        double x, y;
        pointAt(ellipse, parameter(generator), x, y);
        // The terms reach 9 * 64.
        EXPECT_NEAR(q.a * x * x + q.b * x * y + q.c * y * y + q.d * x + q.e * y + q.f, 0.0, 1e-11);
    }
}

TEST(ConvertEllipseToQuadratic, HasTheScaleOfTheSquaredRadii)
{
    std::mt19937 generator(22);
    for (int run = 0; run < 1000; ++run)
    {
        const Ellipse ellipse = drawEllipse(generator);
        Quadratic q;
        ASSERT_TRUE(toQuadratic(ellipse, q));
        const double pq = ellipse.r1 * ellipse.r1 * ellipse.r2 * ellipse.r2;
        EXPECT_NEAR(q.a * q.c - q.b * q.b / 4.0, pq, 1e-12);
        const double atCentre = q.a * ellipse.cx * ellipse.cx + q.b * ellipse.cx * ellipse.cy +
                                q.c * ellipse.cy * ellipse.cy + q.d * ellipse.cx + q.e * ellipse.cy + q.f;
        EXPECT_NEAR(atCentre, -pq, 1e-11);
    }
}

// There and back

TEST(ConvertEllipse, ComesBackWhenTheMixedCoefficientIsHalved)
{
    Quadratic quadratic;
    ASSERT_TRUE(toQuadratic({1.0, 2.0, 0.3, 3.0, 1.0}, quadratic));
    quadratic.b /= 2.0;
    Ellipse ellipse;
    EXPECT_TRUE(fromQuadratic(quadratic, ellipse));
    EXPECT_NEAR(ellipse.cx, 1.0, 1e-14);
    EXPECT_NEAR(ellipse.cy, 2.0, 1e-14);
    EXPECT_NEAR(ellipse.theta, 0.3, 1e-14);
    EXPECT_NEAR(ellipse.r1, 3.0, 1e-13);
    EXPECT_NEAR(ellipse.r2, 1.0, 1e-13);
}

TEST(ConvertEllipse, IsRefusedWhenTheMixedCoefficientIsNotHalved)
{
    Quadratic quadratic;
    ASSERT_TRUE(toQuadratic({1.0, 2.0, 0.3, 3.0, 1.0}, quadratic));
    Ellipse ellipse;
    EXPECT_FALSE(fromQuadratic(quadratic, ellipse));
    expectUntouched(ellipse);
}

TEST(ConvertEllipse, ComesBackFromEveryEllipse)
{
    std::mt19937 generator(23);
    for (int run = 0; run < 1000; ++run)
    {
        const Ellipse ellipse = drawEllipse(generator);
        Quadratic quadratic;
        ASSERT_TRUE(toQuadratic(ellipse, quadratic));
        quadratic.b /= 2.0;
        Ellipse back;
        ASSERT_TRUE(fromQuadratic(quadratic, back));
        // The constant loses digits to the squares of the centre, the angle to radii that differ by 0.1 only.
        EXPECT_NEAR(back.cx, ellipse.cx, 1e-12);
        EXPECT_NEAR(back.cy, ellipse.cy, 1e-12);
        EXPECT_NEAR(back.theta, ellipse.theta, 1e-12);
        EXPECT_NEAR(back.r1, ellipse.r1, 1e-11);
        EXPECT_NEAR(back.r2, ellipse.r2, 1e-11);
    }
}

TEST(ConvertEllipse, TurnsTheOrientationToTheLargerRadius)
{
    std::mt19937 generator(24);
    for (int run = 0; run < 1000; ++run)
    {
        Ellipse ellipse = drawEllipse(generator);
        std::swap(ellipse.r1, ellipse.r2);
        Quadratic quadratic;
        ASSERT_TRUE(toQuadratic(ellipse, quadratic));
        quadratic.b /= 2.0;
        Ellipse back;
        ASSERT_TRUE(fromQuadratic(quadratic, back));
        EXPECT_NEAR(back.theta, ellipse.theta + (ellipse.theta < 0.0 ? g_halfPi : -g_halfPi), 1e-12);
        EXPECT_NEAR(back.r1, ellipse.r2, 1e-11);
        EXPECT_NEAR(back.r2, ellipse.r1, 1e-11);
        EXPECT_GE(back.theta, -g_halfPi);
        EXPECT_LT(back.theta, g_halfPi);
    }
}

// Measures

TEST(EllipsePerimeterBounds, AreTheFormulas)
{
    EXPECT_EQ(ellipsePerimeterLowerBound(3.0, 4.0), 20.0);
    EXPECT_EQ(ellipsePerimeterUpperBound(1.0, 1.0), 2.0 * g_pi);
    EXPECT_EQ(ellipsePerimeterUpperBound(1.0, 7.0), 10.0 * g_pi);
}

TEST(EllipsePerimeterBounds, EncloseThePerimeter)
{
    std::mt19937 generator(25);
    std::uniform_real_distribution<double> radius(0.5, 5.0);
    for (int run = 0; run < 100; ++run)
    {
        const double r1 = radius(generator);
        const double r2 = radius(generator);
        const double perimeter = measurePerimeter(r1, r2);
        EXPECT_LT(ellipsePerimeterLowerBound(r1, r2), perimeter);
        EXPECT_GT(ellipsePerimeterUpperBound(r1, r2), perimeter);
    }
}

TEST(EllipseArea, IsPiTimesTheRadii)
{
    EXPECT_EQ(ellipseArea(1.0, 1.0), g_pi);
    EXPECT_EQ(ellipseArea(2.0, 4.0), 8.0 * g_pi);
    EXPECT_EQ(ellipseArea(-2.0, 4.0), -8.0 * g_pi);
    EXPECT_TRUE(std::isnan(ellipseArea(g_nan, 1.0)));
}

TEST(EllipseExcentricity, DoesNotDependOnTheOrderOfTheRadii)
{
    EXPECT_EQ(ellipseExcentricity(3.0, 5.0), 0.8);
    EXPECT_EQ(ellipseExcentricity(5.0, 3.0), 0.8);
}

TEST(EllipseExcentricity, IsZeroWithoutAPositiveRadius)
{
    EXPECT_EQ(ellipseExcentricity(0.0, 0.0), 0.0);
    EXPECT_EQ(ellipseExcentricity(0.0, -1.0), 0.0);
    EXPECT_EQ(ellipseExcentricity(-2.0, -1.0), 0.0);
}

TEST(EllipseExcentricity, IsOneForASegment)
{
    EXPECT_EQ(ellipseExcentricity(0.0, 5.0), 1.0);
}

TEST(EllipseExcentricity, IsZeroForACircle)
{
    EXPECT_EQ(ellipseExcentricity(5.0, 5.0), 0.0);
}

TEST(EllipseExcentricity, IsNaNWhereANegativeRadiusIsTheLongerOne)
{
    EXPECT_TRUE(std::isnan(ellipseExcentricity(1.0, -2.0)));
}

TEST(EllipseExcentricity, LetsNaNThrough)
{
    EXPECT_TRUE(std::isnan(ellipseExcentricity(g_nan, 2.0)));
    EXPECT_TRUE(std::isnan(ellipseExcentricity(2.0, g_nan)));
}

TEST(EllipseExcentricity, TakesTheSecondRadiusForTheBigOneBesideNaN)
{
    EXPECT_EQ(ellipseExcentricity(g_nan, -1.0), 0.0);
    EXPECT_TRUE(std::isnan(ellipseExcentricity(-1.0, g_nan)));
}

// Equivalent ellipse

TEST(EquivalentEllipse, IsAPointForNothing)
{
    double r1 = -8.0;
    double r2 = -9.0;
    EXPECT_TRUE(equivalentEllipse(0.0, 0.0, r1, r2));
    EXPECT_EQ(r1, 0.0);
    EXPECT_EQ(r2, 0.0);
}

TEST(EquivalentEllipse, RefusesNegativeMeasures)
{
    double r1 = -8.0;
    double r2 = -9.0;
    EXPECT_FALSE(equivalentEllipse(-1.0, 1.0, r1, r2));
    EXPECT_FALSE(equivalentEllipse(10.0, -1.0, r1, r2));
    EXPECT_EQ(r1, -8.0);
    EXPECT_EQ(r2, -9.0);
}

TEST(EquivalentEllipse, RefusesAPerimeterThatIsTooSmallForTheArea)
{
    double r1 = -8.0;
    double r2 = -9.0;
    EXPECT_FALSE(equivalentEllipse(6.28, g_pi, r1, r2));
    EXPECT_EQ(r1, -8.0);
    EXPECT_EQ(r2, -9.0);
}

TEST(EquivalentEllipse, IsASegmentWithoutArea)
{
    double r1, r2;
    EXPECT_TRUE(equivalentEllipse(ellipsePerimeterUpperBound(2.0, 0.0), 0.0, r1, r2));
    EXPECT_NEAR(r1, 2.0, 1e-15);
    EXPECT_EQ(r2, 0.0);
}

TEST(EquivalentEllipse, LetsNaNThrough)
{
    double r1 = 0.0;
    double r2 = 0.0;
    EXPECT_TRUE(equivalentEllipse(g_nan, 1.0, r1, r2));
    EXPECT_TRUE(std::isnan(r1));
    EXPECT_TRUE(std::isnan(r2));
    r1 = r2 = 0.0;
    EXPECT_TRUE(equivalentEllipse(10.0, g_nan, r1, r2));
    EXPECT_TRUE(std::isnan(r1));
    EXPECT_TRUE(std::isnan(r2));
}

TEST(EquivalentEllipse, HasTheUpperBoundAndTheArea)
{
    std::mt19937 generator(26);
    for (int run = 0; run < 1000; ++run)
    {
        const Ellipse ellipse = drawEllipse(generator);
        double r1, r2;
        ASSERT_TRUE(equivalentEllipse(ellipsePerimeterUpperBound(ellipse.r1, ellipse.r2),
                                      ellipseArea(ellipse.r1, ellipse.r2), r1, r2));
        // The squared radii differ by 0.1 at least, which the discriminant loses some digits to.
        EXPECT_NEAR(r1, ellipse.r1, 1e-12);
        EXPECT_NEAR(r2, ellipse.r2, 1e-12);
    }
}

// Radius and points

TEST(EllipseRadius, IsZeroUnlessBothRadiiArePositive)
{
    EXPECT_EQ(ellipseRadius(0.0, 5.0, 1.0), 0.0);
    EXPECT_EQ(ellipseRadius(5.0, 0.0, 1.0), 0.0);
    EXPECT_EQ(ellipseRadius(-1.0, 5.0, 1.0), 0.0);
    EXPECT_EQ(ellipseRadius(5.0, -1.0, 1.0), 0.0);
    EXPECT_EQ(ellipseRadius(0.0, 5.0, 0.5, 1.0), 0.0);
    EXPECT_EQ(ellipseRadius(0.0, 5.0, g_nan), 0.0);
}

TEST(EllipseRadius, IsEachRadiusAlongItsAxis)
{
    EXPECT_EQ(ellipseRadius(3.0, 2.0, 0.0), 3.0);
    EXPECT_EQ(ellipseRadius(3.0, 2.0, g_halfPi), 2.0);
    EXPECT_EQ(ellipseRadius(3.0, 2.0, -g_halfPi), 2.0);
}

TEST(EllipseRadius, TakesTheAngleFromTheAxisOfTheFirstRadius)
{
    EXPECT_EQ(ellipseRadius(3.0, 2.0, 0.5, 0.5), 3.0);
    EXPECT_EQ(ellipseRadius(3.0, 2.0, 0.25, 1.0), ellipseRadius(3.0, 2.0, 0.75));
}

TEST(EllipseRadius, LetsNaNThrough)
{
    EXPECT_TRUE(std::isnan(ellipseRadius(g_nan, 2.0, 0.5)));
    EXPECT_TRUE(std::isnan(ellipseRadius(3.0, g_nan, 0.5)));
    EXPECT_TRUE(std::isnan(ellipseRadius(3.0, 2.0, g_nan)));
    EXPECT_TRUE(std::isnan(ellipseRadius(3.0, 2.0, g_nan, 0.5)));
}

TEST(EllipseRadius, IsTheDistanceOfThePointInThatDirection)
{
    std::mt19937 generator(27);
    std::uniform_real_distribution<double> parameter(0.0, 6.28);
    for (int run = 0; run < 1000; ++run)
    {
        const Ellipse ellipse = drawEllipse(generator);
        double x, y;
        pointAt(ellipse, parameter(generator), x, y);
        const double angle = std::atan2(y - ellipse.cy, x - ellipse.cx);
        EXPECT_NEAR(ellipseRadius(ellipse.r1, ellipse.r2, ellipse.theta, angle),
                    std::hypot(x - ellipse.cx, y - ellipse.cy), 1e-13);
    }
}

TEST(EllipsePoint, TakesThePolarAngle)
{
    std::mt19937 generator(28);
    std::uniform_real_distribution<double> parameter(0.0, 6.28);
    for (int run = 0; run < 1000; ++run)
    {
        const Ellipse ellipse = drawEllipse(generator);
        double x, y, foundX, foundY;
        pointAt(ellipse, parameter(generator), x, y);
        ellipsePoint(ellipse.cx, ellipse.cy, ellipse.r1, ellipse.r2, ellipse.theta,
                     std::atan2(y - ellipse.cy, x - ellipse.cx), foundX, foundY);
        EXPECT_NEAR(foundX, x, 1e-13);
        EXPECT_NEAR(foundY, y, 1e-13);
    }
}

TEST(EllipsePoint, IsTheCentreUnlessBothRadiiArePositive)
{
    double x, y;
    ellipsePoint(1.0, 2.0, 3.0, 0.0, 0.3, 0.7, x, y);
    EXPECT_EQ(x, 1.0);
    EXPECT_EQ(y, 2.0);
}

} // namespace math
} // namespace ovrix
