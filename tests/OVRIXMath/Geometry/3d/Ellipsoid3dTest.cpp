#include <OVRIXMath/Geometry/3d/Ellipsoid3d.h>

#include <gtest/gtest.h>

#include <algorithm>
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

constexpr double g_pi = 3.141592653589793;
constexpr double g_halfPi = 1.5707963267948966;
constexpr double g_nan = std::numeric_limits<double>::quiet_NaN();
constexpr double g_infinity = std::numeric_limits<double>::infinity();

using Point = std::array<double, 3>;
using Matrix3 = boost::numeric::ublas::bounded_matrix<double, 3, 3>;

/// Centre, angles rz, ry, rx and radii; before they are set, values that no test gives.
struct Ellipsoid
{
    Point c{-11.0, -12.0, -13.0};
    Point angles{-14.0, -15.0, -16.0};
    Point r{-17.0, -18.0, -19.0};
};

/// qxx, qxy, qxz, qyy, qyz, qzz, qx, qy, qz, q0.
using Quadratic = std::array<double, 10>;

bool fromQuadratic(const Quadratic& q, Ellipsoid& to)
{
    return convertEllipsoidFromQuadratic(q[0], q[1], q[2], q[3], q[4], q[5], q[6], q[7], q[8], q[9], to.c[0], to.c[1],
                                         to.c[2], to.angles[0], to.angles[1], to.angles[2], to.r[0], to.r[1], to.r[2]);
}

bool toQuadratic(const Ellipsoid& e, Quadratic& q)
{
    return convertEllipsoidToQuadratic(e.c[0], e.c[1], e.c[2], e.angles[0], e.angles[1], e.angles[2], e.r[0], e.r[1],
                                       e.r[2], q[0], q[1], q[2], q[3], q[4], q[5], q[6], q[7], q[8], q[9]);
}

double valueAt(const Quadratic& q, const Point& x)
{
    return q[0] * x[0] * x[0] + q[3] * x[1] * x[1] + q[5] * x[2] * x[2] +
           2.0 * (q[1] * x[0] * x[1] + q[2] * x[0] * x[2] + q[4] * x[1] * x[2]) + q[6] * x[0] + q[7] * x[1] +
           q[8] * x[2] + q[9];
}

/// The polynomial that is 0 on the ellipsoid whose axes are the columns of the matrix.
Quadratic makeQuadratic(const Point& c, const Rows& axes, const Point& r)
{
    const Rows a = product(
        axes, product(diagonal(1.0 / (r[0] * r[0]), 1.0 / (r[1] * r[1]), 1.0 / (r[2] * r[2])), transposed(axes)));
    const Point w = product(a, c);
    return {a[0][0], a[0][1],     a[0][2],     a[1][1],     a[1][2],
            a[2][2], -2.0 * w[0], -2.0 * w[1], -2.0 * w[2], c[0] * w[0] + c[1] * w[1] + c[2] * w[2] - 1.0};
}

/// The polynomial, times `scale`, of the ellipsoid of radii 3, 2 and 1 units about (10, 0, 0) units, turned by pi / 4
/// about z.
Quadratic makeLargeQuadratic(double unit, double scale)
{
    Ellipsoid e;
    e.c = {10.0 * unit, 0.0, 0.0};
    e.angles = {g_pi / 4.0, 0.0, 0.0};
    e.r = {3.0 * unit, 2.0 * unit, unit};
    Quadratic q;
    EXPECT_TRUE(toQuadratic(e, q));
    q[9] -= 1.0;
    for (double& coefficient : q)
        coefficient *= scale;
    return q;
}

/// A centre at 4 to 9 from the origin, any orientation, radii from 1 to 3 that fall by 0.2 at least.
Ellipsoid drawEllipsoid(std::mt19937& generator)
{
    std::uniform_real_distribution<double> coordinate(4.0, 5.0);
    std::uniform_real_distribution<double> angle(-3.0, 3.0);
    std::uniform_real_distribution<double> more(0.2, 1.0);
    Ellipsoid e;
    for (double& value : e.c)
        value = angle(generator) < 0.0 ? -coordinate(generator) : coordinate(generator);
    for (double& value : e.angles)
        value = angle(generator);
    e.r[2] = more(generator) + 0.8;
    e.r[1] = e.r[2] + more(generator);
    e.r[0] = e.r[1] + more(generator);
    return e;
}

Point drawDirection(std::mt19937& generator)
{
    std::normal_distribution<double> normal;
    Point direction{normal(generator), normal(generator), normal(generator)};
    const double length = std::hypot(direction[0], direction[1], direction[2]);
    for (double& value : direction)
        value /= length;
    return direction;
}

/// Surface of an ellipsoid of revolution with the radius a twice and c once, in closed form.
double spheroidArea(double a, double c)
{
    if (c < a)
    {
        const double e = std::sqrt(1.0 - c * c / (a * a));
        return 2.0 * g_pi * a * a * (1.0 + (1.0 - e * e) / e * std::atanh(e));
    }
    const double e = std::sqrt(1.0 - a * a / (c * c));
    return 2.0 * g_pi * a * a * (1.0 + c / (a * e) * std::asin(e));
}

} // namespace

// From the polynomial

TEST(ConvertEllipsoidFromQuadratic, FindsASphereBesideTheOrigin)
{
    Ellipsoid e;
    EXPECT_TRUE(fromQuadratic({1.0, 0.0, 0.0, 1.0, 0.0, 1.0, -4.0, 0.0, 0.0, 3.0}, e));
    EXPECT_EQ(e.c, (Point{2.0, 0.0, 0.0}));
    EXPECT_EQ(e.r, (Point{1.0, 1.0, 1.0}));
}

TEST(ConvertEllipsoidFromQuadratic, NegatesAllCoefficientsForANegativeConstant)
{
    Ellipsoid e;
    EXPECT_TRUE(fromQuadratic({-1.0, 0.0, 0.0, -1.0, 0.0, -1.0, 4.0, 0.0, 0.0, -3.0}, e));
    EXPECT_EQ(e.c, (Point{2.0, 0.0, 0.0}));
    EXPECT_EQ(e.r, (Point{1.0, 1.0, 1.0}));
}

TEST(ConvertEllipsoidFromQuadratic, RefusesTheUnitSphere)
{
    Ellipsoid e;
    EXPECT_FALSE(fromQuadratic({1.0, 0.0, 0.0, 1.0, 0.0, 1.0, 0.0, 0.0, 0.0, -1.0}, e));
    EXPECT_FALSE(fromQuadratic({-1.0, 0.0, 0.0, -1.0, 0.0, -1.0, 0.0, 0.0, 0.0, 1.0}, e));
}

TEST(ConvertEllipsoidFromQuadratic, RefusesAConstantOfZeroForAPositiveMatrix)
{
    // The sphere about (2, 0, 0) through the origin: a constant of zero has the coefficients negated.
    Ellipsoid e;
    EXPECT_FALSE(fromQuadratic({1.0, 0.0, 0.0, 1.0, 0.0, 1.0, -4.0, 0.0, 0.0, 0.0}, e));
    EXPECT_TRUE(fromQuadratic({-1.0, 0.0, 0.0, -1.0, 0.0, -1.0, 4.0, 0.0, 0.0, 0.0}, e));
    EXPECT_EQ(e.c, (Point{2.0, 0.0, 0.0}));
    EXPECT_EQ(e.r, (Point{2.0, 2.0, 2.0}));
}

TEST(ConvertEllipsoidFromQuadratic, WritesTheAnglesButNoMoreOfAMatrixThatIsNotPositive)
{
    Ellipsoid e;
    EXPECT_FALSE(fromQuadratic({1.0, 0.0, 0.0, -1.0, 0.0, 1.0, -4.0, 0.0, 0.0, 3.0}, e));
    EXPECT_EQ(e.c, Ellipsoid().c);
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_LE(std::fabs(e.angles[i]), g_pi);
    EXPECT_EQ(e.r, Ellipsoid().r);
}

TEST(ConvertEllipsoidFromQuadratic, WritesAnglesAndCentreOfAnImaginaryEllipsoid)
{
    Ellipsoid e;
    EXPECT_FALSE(fromQuadratic({1.0, 0.0, 0.0, 1.0, 0.0, 1.0, -4.0, 0.0, 0.0, 5.0}, e));
    EXPECT_EQ(e.c, (Point{2.0, 0.0, 0.0}));
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_LE(std::fabs(e.angles[i]), g_pi);
    EXPECT_EQ(e.r, Ellipsoid().r);
}

TEST(ConvertEllipsoidFromQuadratic, RefusesASingularMatrix)
{
    Ellipsoid e;
    EXPECT_FALSE(fromQuadratic({1.0, 0.0, 0.0, 1.0, 0.0, 0.0, -4.0, 0.0, 0.0, 3.0}, e));
    EXPECT_EQ(e.c, Ellipsoid().c);
    EXPECT_EQ(e.r, Ellipsoid().r);
}

TEST(ConvertEllipsoidFromQuadratic, RefusesNaN)
{
    for (std::size_t position = 0; position < 10; ++position)
    {
        Quadratic q{1.0, 0.125, 0.25, 2.0, 0.5, 3.0, -8.0, 1.0, 2.0, 3.0};
        Ellipsoid e;
        EXPECT_TRUE(fromQuadratic(q, e));
        e = Ellipsoid();
        q[position] = g_nan;
        EXPECT_FALSE(fromQuadratic(q, e)) << position;
        // An eigenvalue that is NaN ends it before the centre.
        if (position < 6)
        {
            EXPECT_EQ(e.c, Ellipsoid().c);
        }
        EXPECT_EQ(e.r, Ellipsoid().r);
    }
}

TEST(ConvertEllipsoidFromQuadratic, FindsRotatedEllipsoidsOfRadiiFromOneToThree)
{
    std::mt19937 generator(111);
    for (int run = 0; run < 1000; ++run)
    {
        const Ellipsoid drawn = drawEllipsoid(generator);
        const Rows axes = rotationOf(drawn.angles[0], drawn.angles[1], drawn.angles[2]);
        Ellipsoid e;
        ASSERT_TRUE(fromQuadratic(makeQuadratic(drawn.c, axes, drawn.r), e));
        // The closed form of the eigenvectors keeps half of the digits where eigenvalues are near to each other.
        for (std::size_t i = 0; i < 3; ++i)
        {
            EXPECT_NEAR(e.c[i], drawn.c[i], 1e-8);
            EXPECT_NEAR(e.r[i], drawn.r[i], 1e-8);
        }
    }
}

TEST(ConvertEllipsoidFromQuadratic, HasTheAxesAsRowsOfItsRotation)
{
    std::mt19937 generator(112);
    for (int run = 0; run < 1000; ++run)
    {
        const Ellipsoid drawn = drawEllipsoid(generator);
        const Rows axes = rotationOf(drawn.angles[0], drawn.angles[1], drawn.angles[2]);
        Ellipsoid e;
        ASSERT_TRUE(fromQuadratic(makeQuadratic(drawn.c, axes, drawn.r), e));
        const Rows found = rotationOf(e.angles[0], e.angles[1], e.angles[2]);
        // Each row is a column of the other up to its sign.
        for (std::size_t i = 0; i < 3; ++i)
            EXPECT_NEAR(std::fabs(found[i][0] * axes[0][i] + found[i][1] * axes[1][i] + found[i][2] * axes[2][i]), 1.0,
                        1e-8);
    }
}

TEST(ConvertEllipsoidFromQuadratic, TakesModerateScalesOfEitherSign)
{
    std::mt19937 generator(113);
    for (const double scale : {0.5, 8.0, -1.0, -4.0})
    {
        const Ellipsoid drawn = drawEllipsoid(generator);
        Quadratic q = makeQuadratic(drawn.c, rotationOf(drawn.angles[0], drawn.angles[1], drawn.angles[2]), drawn.r);
        for (double& coefficient : q)
            coefficient *= scale;
        Ellipsoid e;
        ASSERT_TRUE(fromQuadratic(q, e));
        for (std::size_t i = 0; i < 3; ++i)
        {
            EXPECT_NEAR(e.c[i], drawn.c[i], 1e-8);
            EXPECT_NEAR(e.r[i], drawn.r[i], 1e-8);
        }
    }
}

TEST(ConvertEllipsoidFromQuadratic, RefusesALargeEllipsoidOfTinyCoefficients)
{
    Ellipsoid e;
    EXPECT_FALSE(fromQuadratic(makeLargeQuadratic(100.0, 1.0), e));
    EXPECT_EQ(e.r, Ellipsoid().r);
}

TEST(ConvertEllipsoidFromQuadratic, FindsAWrongCentreForSmallCoefficients)
{
    Ellipsoid e;
    EXPECT_TRUE(fromQuadratic(makeLargeQuadratic(50.0, 1.0), e));
    EXPECT_GT(std::fabs(e.c[0] - 500.0), 100.0);
}

TEST(ConvertEllipsoidFromQuadratic, FindsALargeEllipsoidOfCoefficientsThatWereScaledUp)
{
    for (const double unit : {50.0, 100.0})
        for (const double scale : {1e4, 1e5})
        {
            Ellipsoid e;
            ASSERT_TRUE(fromQuadratic(makeLargeQuadratic(unit, scale), e));
            EXPECT_NEAR(e.c[0], 10.0 * unit, 1e-9);
            EXPECT_NEAR(e.c[1], 0.0, 1e-9);
            EXPECT_NEAR(e.c[2], 0.0, 1e-9);
            EXPECT_NEAR(e.r[0], 3.0 * unit, 1e-9);
            EXPECT_NEAR(e.r[1], 2.0 * unit, 1e-9);
            EXPECT_NEAR(e.r[2], unit, 1e-9);
        }
}

TEST(ConvertEllipsoidFromQuadratic, SortsTheRadiiOfEllipsoidsAlongTheAxes)
{
    const Point sorted{4.0, 2.0, 1.0};
    Point r{1.0, 2.0, 4.0};
    do
    {
        // The eigenvector of the largest eigenvalue along x stands the angles at a quarter turn about y.
        const Point c{5.0, -6.0, 7.0};
        Ellipsoid e;
        ASSERT_TRUE(fromQuadratic(makeQuadratic(c, diagonal(1.0, 1.0, 1.0), r), e));
        const Rows found = rotationOf(e.angles[0], e.angles[1], e.angles[2]);
        for (std::size_t i = 0; i < 3; ++i)
        {
            EXPECT_NEAR(e.r[i], sorted[i], 1e-13);
            EXPECT_NEAR(e.c[i], c[i], 1e-13);
            for (std::size_t j = 0; j < 3; ++j)
                EXPECT_NEAR(std::fabs(found[i][j]), r[j] == sorted[i] ? 1.0 : 0.0, 1e-15);
        }
    } while (std::next_permutation(r.begin(), r.end()));
}

// To the polynomial

TEST(ConvertEllipsoidToQuadratic, IsExactAlongTheAxes)
{
    Ellipsoid e;
    e.c = {1.0, 2.0, 3.0};
    e.angles = {0.0, 0.0, 0.0};
    e.r = {1.0, 2.0, 0.5};
    Quadratic q;
    EXPECT_TRUE(toQuadratic(e, q));
    EXPECT_EQ(q, (Quadratic{1.0, 0.0, 0.0, 0.25, 0.0, 4.0, -2.0, -1.0, -24.0, 38.0}));
}

TEST(ConvertEllipsoidToQuadratic, RefusesRadiiThatAreNotPositive)
{
    for (std::size_t i = 0; i < 3; ++i)
        for (const double radius : {0.0, -0.0, -1.0, -g_infinity})
        {
            Ellipsoid e;
            e.r = {1.0, 2.0, 3.0};
            e.r[i] = radius;
            Quadratic q;
            q.fill(-9.0);
            EXPECT_FALSE(toQuadratic(e, q));
            EXPECT_EQ(std::count(q.begin(), q.end(), -9.0), 10);
        }
}

TEST(ConvertEllipsoidToQuadratic, LetsNaNThrough)
{
    for (std::size_t i = 0; i < 3; ++i)
        for (Point Ellipsoid::*part : {&Ellipsoid::c, &Ellipsoid::angles, &Ellipsoid::r})
        {
            Ellipsoid e;
            e.c = {1.0, 2.0, 3.0};
            e.angles = {0.1, 0.2, 0.3};
            e.r = {1.0, 2.0, 3.0};
            (e.*part)[i] = g_nan;
            Quadratic q;
            EXPECT_TRUE(toQuadratic(e, q));
            EXPECT_TRUE(std::isnan(q[9]));
        }
}

TEST(ConvertEllipsoidToQuadratic, GivesAPolynomialThatIsOneOnTheEllipsoid)
{
    std::mt19937 generator(114);
    for (int run = 0; run < 1000; ++run)
    {
        const Ellipsoid e = drawEllipsoid(generator);
        Quadratic q;
        ASSERT_TRUE(toQuadratic(e, q));
        const Point d = drawDirection(generator);
        const Point offset = product(rotationOf(e.angles[0], e.angles[1], e.angles[2]),
                                     Point{e.r[0] * d[0], e.r[1] * d[1], e.r[2] * d[2]});
        EXPECT_NEAR(valueAt(q, {e.c[0] + offset[0], e.c[1] + offset[1], e.c[2] + offset[2]}), 1.0, 1e-12);
        EXPECT_NEAR(valueAt(q, e.c), 0.0, 1e-12);
    }
}

// There and back

TEST(ConvertEllipsoid, IsRefusedOnTheWayBackWhereTheArithmeticIsExact)
{
    Ellipsoid e;
    e.c = {2.0, 0.0, 0.0};
    e.angles = {0.0, 0.0, 0.0};
    e.r = {1.0, 1.0, 1.0};
    Quadratic q;
    ASSERT_TRUE(toQuadratic(e, q));
    EXPECT_EQ(q, (Quadratic{1.0, 0.0, 0.0, 1.0, 0.0, 1.0, -4.0, 0.0, 0.0, 4.0}));
    Ellipsoid back;
    EXPECT_FALSE(fromQuadratic(q, back));
    EXPECT_EQ(back.c, e.c);
    EXPECT_EQ(back.r, Ellipsoid().r);
}

TEST(ConvertEllipsoid, IsAlmostAPointOnTheWayBackWhereRoundingLetsItPass)
{
    std::mt19937 generator(119);
    int nbPassed = 0;
    for (int run = 0; run < 1000; ++run)
    {
        Quadratic q;
        ASSERT_TRUE(toQuadratic(drawEllipsoid(generator), q));
        Ellipsoid back;
        if (!fromQuadratic(q, back))
            continue;
        ++nbPassed;
        EXPECT_LT(back.r[0], 1e-3);
    }
    EXPECT_GT(nbPassed, 0);
}

TEST(ConvertEllipsoid, ComesBackWithOneSubtractedFromTheConstant)
{
    std::mt19937 generator(115);
    for (int run = 0; run < 1000; ++run)
    {
        const Ellipsoid e = drawEllipsoid(generator);
        Quadratic q;
        ASSERT_TRUE(toQuadratic(e, q));
        q[9] -= 1.0;
        Ellipsoid back;
        ASSERT_TRUE(fromQuadratic(q, back));
        for (std::size_t i = 0; i < 3; ++i)
        {
            EXPECT_NEAR(back.c[i], e.c[i], 1e-8);
            EXPECT_NEAR(back.r[i], e.r[i], 1e-8);
        }
    }
}

// Measures

TEST(EllipsoidArea, IsExactForASphereOfRadiusOne)
{
    EXPECT_EQ(ellipsoidArea(1.0, 1.0, 1.0), 4.0 * g_pi);
}

TEST(EllipsoidArea, IsThatOfASphere)
{
    EXPECT_NEAR(ellipsoidArea(3.0, 3.0, 3.0), 36.0 * g_pi, 1e-12);
}

TEST(EllipsoidArea, IsZeroUnlessAllRadiiArePositive)
{
    EXPECT_EQ(ellipsoidArea(0.0, 1.0, 1.0), 0.0);
    EXPECT_EQ(ellipsoidArea(1.0, -1.0, 1.0), 0.0);
    EXPECT_EQ(ellipsoidArea(1.0, 1.0, 0.0), 0.0);
    EXPECT_EQ(ellipsoidArea(g_nan, 1.0, 0.0), 0.0);
}

TEST(EllipsoidArea, IsWithinItsErrorOfTheTrueAreaForEllipsoidsOfRevolution)
{
    for (const double c : {0.01, 0.1, 0.5, 0.9, 1.1, 2.0, 10.0, 100.0})
    {
        const double area = spheroidArea(1.0, c);
        EXPECT_NEAR(ellipsoidArea(1.0, 1.0, c), area, 0.0108 * area);
        EXPECT_NE(ellipsoidArea(1.0, 1.0, c), area);
    }
}

TEST(EllipsoidArea, LetsNaNThrough)
{
    EXPECT_TRUE(std::isnan(ellipsoidArea(g_nan, 1.0, 1.0)));
    EXPECT_TRUE(std::isnan(ellipsoidArea(1.0, g_nan, 1.0)));
    EXPECT_TRUE(std::isnan(ellipsoidArea(1.0, 1.0, g_nan)));
}

TEST(EllipsoidVolume, IsFourThirdsPiTimesTheRadii)
{
    EXPECT_EQ(ellipsoidVolume(1.0, 1.0, 1.0), 4.1887902047863905);
    EXPECT_EQ(ellipsoidVolume(2.0, 4.0, 8.0), 64.0 * 4.1887902047863905);
}

TEST(EllipsoidVolume, DoesNotCheckTheRadii)
{
    EXPECT_EQ(ellipsoidVolume(-1.0, 1.0, 1.0), -4.1887902047863905);
    EXPECT_TRUE(std::isnan(ellipsoidVolume(g_nan, 1.0, 1.0)));
}

TEST(EllipsoidVolume, MultipliesFromLeftToRight)
{
    EXPECT_EQ(ellipsoidVolume(0.1, 0.3, 0.7), 0.1 * 4.1887902047863905 * 0.3 * 0.7);
}

TEST(EllipsoidExcentricity, TakesTheLargestAndTheSmallestRadius)
{
    Point r{3.0, 4.0, 5.0};
    do
        EXPECT_EQ(ellipsoidExcentricity(r[0], r[1], r[2]), 0.8);
    while (std::next_permutation(r.begin(), r.end()));
}

TEST(EllipsoidExcentricity, IsZeroWithoutAPositiveRadius)
{
    EXPECT_EQ(ellipsoidExcentricity(0.0, 0.0, 0.0), 0.0);
    EXPECT_EQ(ellipsoidExcentricity(-1.0, 0.0, -2.0), 0.0);
}

TEST(EllipsoidExcentricity, IsZeroForASphere)
{
    EXPECT_EQ(ellipsoidExcentricity(2.0, 2.0, 2.0), 0.0);
}

TEST(EllipsoidExcentricity, IsNaNWhereANegativeRadiusIsTheLongest)
{
    EXPECT_TRUE(std::isnan(ellipsoidExcentricity(1.0, 0.5, -2.0)));
}

TEST(EllipsoidExcentricity, LetsNaNThroughWhereSortingDoesNotPutItInTheMiddle)
{
    EXPECT_EQ(ellipsoidExcentricity(3.0, g_nan, 5.0), 0.8);
    EXPECT_TRUE(std::isnan(ellipsoidExcentricity(5.0, 3.0, g_nan)));
    EXPECT_TRUE(std::isnan(ellipsoidExcentricity(g_nan, 3.0, 5.0)));
}

TEST(EllipsoidExcentricity, IsZeroForANaNThatIsSortedBelowNegativeRadii)
{
    EXPECT_EQ(ellipsoidExcentricity(g_nan, -1.0, -2.0), 0.0);
}

// Radius and points

TEST(EllipsoidRadius, IsZeroUnlessAllRadiiArePositive)
{
    const Matrix3 matrix;
    for (const double radius : {0.0, -1.0})
    {
        EXPECT_EQ(ellipsoidRadius(radius, 2.0, 3.0, 0.1, 0.2), 0.0);
        EXPECT_EQ(ellipsoidRadius(1.0, radius, 3.0, 0.1, 0.2), 0.0);
        EXPECT_EQ(ellipsoidRadius(1.0, 2.0, radius, 0.1, 0.2), 0.0);
        EXPECT_EQ(ellipsoidRadius(1.0, 2.0, radius, matrix, 0.1, 0.2), 0.0);
    }
}

TEST(EllipsoidRadius, IsEachRadiusAlongItsAxis)
{
    EXPECT_EQ(ellipsoidRadius(2.0, 4.0, 8.0, g_halfPi, 0.0), 2.0);
    EXPECT_EQ(ellipsoidRadius(2.0, 4.0, 8.0, g_halfPi, g_halfPi), 4.0);
    EXPECT_EQ(ellipsoidRadius(2.0, 4.0, 8.0, 0.0, 0.0), 8.0);
}

TEST(EllipsoidRadius, EndsOnTheEllipsoid)
{
    std::mt19937 generator(116);
    std::uniform_real_distribution<double> angle(-7.0, 7.0);
    for (int run = 0; run < 1000; ++run)
    {
        const Point r = drawEllipsoid(generator).r;
        const double theta = angle(generator);
        const double phi = angle(generator);
        const double radius = ellipsoidRadius(r[0], r[1], r[2], theta, phi);
        const double x = radius * std::sin(theta) * std::cos(phi);
        const double y = radius * std::sin(theta) * std::sin(phi);
        const double z = radius * std::cos(theta);
        EXPECT_NEAR(x * x / (r[0] * r[0]) + y * y / (r[1] * r[1]) + z * z / (r[2] * r[2]), 1.0, 1e-14);
    }
}

TEST(EllipsoidRadius, DoesNotReadTheMatrix)
{
    std::mt19937 generator(117);
    std::uniform_real_distribution<double> angle(-7.0, 7.0);
    for (int run = 0; run < 1000; ++run)
    {
        const Point r = drawEllipsoid(generator).r;
        const double theta = angle(generator);
        const double phi = angle(generator);
        Matrix3 matrix;
        std::generate(matrix.data().begin(), matrix.data().end(), [&] { return run == 0 ? g_nan : angle(generator); });
        const double expected = ellipsoidRadius(r[0], r[1], r[2], theta, phi);
        // The polar angle is found by its cosine, which loses half of the digits near the poles, where the radius
        // depends on its square.
        EXPECT_NEAR(ellipsoidRadius(r[0], r[1], r[2], matrix, theta, phi), expected, 1e-14);
    }
}

TEST(EllipsoidRadius, LetsNaNThrough)
{
    const Matrix3 matrix;
    EXPECT_TRUE(std::isnan(ellipsoidRadius(g_nan, 2.0, 3.0, 0.1, 0.2)));
    EXPECT_TRUE(std::isnan(ellipsoidRadius(1.0, 2.0, 3.0, g_nan, 0.2)));
    EXPECT_TRUE(std::isnan(ellipsoidRadius(1.0, 2.0, 3.0, 0.1, g_nan)));
    EXPECT_TRUE(std::isnan(ellipsoidRadius(1.0, 2.0, 3.0, matrix, g_nan, 0.2)));
    EXPECT_TRUE(std::isnan(ellipsoidRadius(1.0, 2.0, 3.0, matrix, 0.1, g_nan)));
}

TEST(EllipsoidPoint, LiesInTheDirectionAtTheRadius)
{
    std::mt19937 generator(118);
    std::uniform_real_distribution<double> angle(-7.0, 7.0);
    for (int run = 0; run < 1000; ++run)
    {
        const Ellipsoid e = drawEllipsoid(generator);
        const double theta = angle(generator);
        const double phi = angle(generator);
        Matrix3 matrix;
        std::generate(matrix.data().begin(), matrix.data().end(), [&] { return run == 0 ? g_nan : angle(generator); });
        double x, y, z;
        ellipsoidPoint(e.c[0], e.c[1], e.c[2], e.r[0], e.r[1], e.r[2], matrix, theta, phi, x, y, z);
        const double radius = ellipsoidRadius(e.r[0], e.r[1], e.r[2], theta, phi);
        EXPECT_NEAR(x, e.c[0] + radius * std::sin(theta) * std::cos(phi), 2e-14);
        EXPECT_NEAR(y, e.c[1] + radius * std::sin(theta) * std::sin(phi), 2e-14);
        EXPECT_NEAR(z, e.c[2] + radius * std::cos(theta), 2e-14);
    }
}

TEST(EllipsoidPoint, IsTheCentreUnlessAllRadiiArePositive)
{
    double x, y, z;
    ellipsoidPoint(1.0, 2.0, 3.0, 1.0, 0.0, 1.0, Matrix3(), 0.1, 0.2, x, y, z);
    EXPECT_EQ(x, 1.0);
    EXPECT_EQ(y, 2.0);
    EXPECT_EQ(z, 3.0);
}

} // namespace math
} // namespace ovrix
