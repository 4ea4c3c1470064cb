#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <support/Builders.h>
#include <support/Transforms.h>

namespace ovrix
{
namespace math
{
namespace transform
{

using test::drawParams;
using test::drawPoint;
using test::getEntries;
using test::makeTransform;
using test::makeVector;
using test::map;
using test::toStd;

using Point = test::Transforms3d::Point;
using Values = std::vector<double>;

/// Gimbal angles lose half of the digits: the transpose is known to sqrt(epsilon) only.
constexpr double g_gimbalTolerance = 1e-7;

void expectNear(const Point& expected, const Point& actual, double tolerance)
{
    for (std::size_t i = 0; i < expected.size(); ++i)
        EXPECT_NEAR(expected[i], actual[i], tolerance) << "coordinate " << i;
}

/// Turns in the plane of two axes, the first towards the second.
Point turn(Point point, std::size_t first, std::size_t second, double angle)
{
    const double a = point[first];
    const double b = point[second];
    point[first] = std::cos(angle) * a - std::sin(angle) * b;
    point[second] = std::sin(angle) * a + std::cos(angle) * b;
    return point;
}

TEST(Rotation3d, EachAngleTurnsAboutItsAxisRightHanded)
{
    expectNear({0, 1, 0}, map(makeTransform<Rotation3d>(makeVector({M_PI_2, 0, 0})), {1, 0, 0}), 1e-15);
    expectNear({0, 0, -1}, map(makeTransform<Rotation3d>(makeVector({0, M_PI_2, 0})), {1, 0, 0}), 1e-15);
    expectNear({0, 0, 1}, map(makeTransform<Rotation3d>(makeVector({0, 0, M_PI_2})), {0, 1, 0}), 1e-15);
}

TEST(Rotation3d, TurnsAboutXThenAboutYThenAboutZ)
{
    std::mt19937 generator(1);
    for (int i = 0; i < 200; ++i)
    {
        const Vector angles = drawParams<Rotation3d>(generator);
        const Point point = drawPoint<test::Transforms3d>(generator);
        const Point expected = turn(turn(turn(point, 1, 2, angles(2)), 2, 0, angles(1)), 0, 1, angles(0));
        expectNear(expected, map(makeTransform<Rotation3d>(angles), point), 1e-14);
    }
}

TEST(Rotation3d, FollowsTheFormulas)
{
    std::mt19937 generator(2);
    for (int i = 0; i < 200; ++i)
    {
        const Vector angles = drawParams<Rotation3d>(generator);
        const auto [x, y, z] = drawPoint<test::Transforms3d>(generator);
        const double cz = std::cos(angles(0)), sz = std::sin(angles(0));
        const double cy = std::cos(angles(1)), sy = std::sin(angles(1));
        const double cx = std::cos(angles(2)), sx = std::sin(angles(2));
        const double r00 = cy * cz, r01 = sx * sy * cz - cx * sz, r02 = cx * sy * cz + sx * sz;
        const double r10 = cy * sz, r11 = sx * sy * sz + cx * cz, r12 = cx * sy * sz - sx * cz;
        const double r20 = -sy, r21 = sx * cy, r22 = cx * cy;
        const Rotation3d rotation = makeTransform<Rotation3d>(angles);
        EXPECT_EQ(map(rotation, {x, y, z}),
                  (Point{r00 * x + r01 * y + r02 * z, r10 * x + r11 * y + r12 * z, r20 * x + r21 * y + r22 * z}));
        EXPECT_EQ(getEntries(rotation.getHomogenousMatrix()),
                  (Values{r00, r01, r02, 0, r10, r11, r12, 0, r20, r21, r22, 0, 0, 0, 0, 1}));

        // The entries of the transpose.
        const double b = std::asin(r02);
        const double cb = std::cos(b);
        EXPECT_EQ(toStd(rotation.getInvParams()),
                  (Values{std::atan2(r01 / cb, r00 / cb), -b, std::atan2(r12 / cb, r22 / cb)}));
    }
}

TEST(Rotation3d, TheInvertedTransformTakesAPointBack)
{
    const Rotation3d rotation = makeTransform<Rotation3d>(makeVector({0.1, 0.2, 0.3}));
    expectNear({1, 2, 3}, map(*rotation.createInverted(), map(rotation, {1, 2, 3})), 1e-14);
}

TEST(Rotation3d, TheInverseOfAQuarterTurnAboutYIsTheGimbalCase)
{
    const Vector inverse = makeTransform<Rotation3d>(makeVector({0, M_PI_2, 0})).getInvParams();
    EXPECT_EQ(inverse(0), 0.0);
    EXPECT_EQ(inverse(1), -M_PI_2);
}

TEST(Rotation3d, TheInverseOfAQuarterTurnBackAboutYIsTheOtherGimbalCase)
{
    const Vector inverse = makeTransform<Rotation3d>(makeVector({0, -M_PI_2, 0})).getInvParams();
    EXPECT_EQ(inverse(0), 0.0);
    EXPECT_EQ(inverse(1), M_PI_2);
}

TEST(Rotation3d, TheInverseTakesAPointBackInTheGimbalCases)
{
    std::mt19937 generator(3);
    std::uniform_real_distribution<double> angle(-3.0, 3.0);
    // Where R02 is 1 or -1: |sin(ry)| of 1 with rz equal to or opposite to rx, or rx and rz of quarter turns.
    for (int i = 0; i < 200; ++i)
    {
        const double rz = angle(generator);
        for (const Vector& angles :
             {makeVector({rz, M_PI_2, rz}), makeVector({rz, -M_PI_2, M_PI - rz}), makeVector({rz, -M_PI_2, -rz}),
              makeVector({M_PI_2, rz, M_PI_2}), makeVector({M_PI_2, rz, -M_PI_2}), makeVector({-M_PI_2, rz, M_PI_2})})
        {
            const Rotation3d rotation = makeTransform<Rotation3d>(angles);
            const Vector inverse = rotation.getInvParams();
            const double r02 = rotation.getHomogenousMatrix()(0, 2);
            ASSERT_NEAR(std::fabs(r02), 1.0, 1e-15);
            EXPECT_EQ(inverse(0), 0.0);
            EXPECT_EQ(inverse(1), r02 < 0.0 ? M_PI_2 : -M_PI_2);
            const Point point = drawPoint<test::Transforms3d>(generator);
            expectNear(point, map(*rotation.createInverted(), map(rotation, point)), g_gimbalTolerance);
        }
    }
}

TEST(Rotation3d, TheGimbalCaseBeginsWithinSqrtEpsilonOfTheRightAngle)
{
    // 1 - sin(pi/2 - d) is about d^2 / 2, to be compared with 2^-26.
    const double border = std::sqrt(2.0 * NumericLimits<double>::s_sqrt_eps);
    const Vector regular = makeTransform<Rotation3d>(makeVector({0, M_PI_2 - 1.001 * border, 0})).getInvParams();
    EXPECT_NEAR(regular(1), -(M_PI_2 - 1.001 * border), 1e-10);
    const Vector gimbal = makeTransform<Rotation3d>(makeVector({0, M_PI_2 - 0.999 * border, 0})).getInvParams();
    EXPECT_EQ(gimbal(1), -M_PI_2);
}

TEST(Rotation3d, AnglesThatAreNotNumbersTakeTheGimbalCaseOfThePositiveEntry)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const Vector inverse = makeTransform<Rotation3d>(makeVector({nan, 0, 0})).getInvParams();
    EXPECT_EQ(inverse(0), 0.0);
    EXPECT_EQ(inverse(1), -M_PI_2);
    EXPECT_TRUE(std::isnan(inverse(2)));
}

TEST(Rotation3d, TheStaticFormIsThatOfTheObject)
{
    double rz = 0.1, ry = 0.2, rx = 0.3;
    Rotation3d::getInvParams(rz, ry, rx);
    EXPECT_EQ((Values{rz, ry, rx}), toStd(makeTransform<Rotation3d>(makeVector({0.1, 0.2, 0.3})).getInvParams()));
}

TEST(Rotation3d, TheIdentityParametersAreZeros)
{
    EXPECT_EQ(toStd(Rotation3d::getIdentityParams()), (Values{0, 0, 0}));
}

} // namespace transform
} // namespace math
} // namespace ovrix
