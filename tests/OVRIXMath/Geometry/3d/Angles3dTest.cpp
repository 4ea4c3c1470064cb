#include <OVRIXMath/Geometry/3d/Angles3d.h>

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

constexpr double g_halfPi = 1.5707963267948966;
constexpr double g_nan = std::numeric_limits<double>::quiet_NaN();

using Quaternion = std::array<double, 4>;

/// rz, ry, rx.
using Angles = std::array<double, 3>;

Quaternion toQuaternion(const Angles& angles)
{
    Quaternion q;
    eulerToQuaternion(angles[0], angles[1], angles[2], q[0], q[1], q[2], q[3]);
    return q;
}

Angles toAngles(const Quaternion& q)
{
    Angles angles;
    quaternionToEuler(q[0], q[1], q[2], q[3], angles[0], angles[1], angles[2]);
    return angles;
}

/// The matrix that turns a point as the product q p q* does.
Rows turnOf(const Quaternion& q)
{
    const auto product = [](const Quaternion& a, const Quaternion& b)
    {
        return Quaternion{a[0] * b[0] - a[1] * b[1] - a[2] * b[2] - a[3] * b[3],
                          a[0] * b[1] + a[1] * b[0] + a[2] * b[3] - a[3] * b[2],
                          a[0] * b[2] - a[1] * b[3] + a[2] * b[0] + a[3] * b[1],
                          a[0] * b[3] + a[1] * b[2] - a[2] * b[1] + a[3] * b[0]};
    };
    Rows rows;
    for (std::size_t column = 0; column < 3; ++column)
    {
        Quaternion unit{};
        unit[column + 1] = 1.0;
        const Quaternion turned = product(product(q, unit), {q[0], -q[1], -q[2], -q[3]});
        for (std::size_t row = 0; row < 3; ++row)
            rows[row][column] = turned[row + 1];
    }
    return rows;
}

void expectSameTurn(const Rows& first, const Rows& second)
{
    for (std::size_t row = 0; row < 3; ++row)
        for (std::size_t column = 0; column < 3; ++column)
            EXPECT_NEAR(first[row][column], second[row][column], 1e-14);
}

} // namespace

TEST(EulerToQuaternion, IsOneWithoutRotation)
{
    EXPECT_EQ(toQuaternion({0.0, 0.0, 0.0}), (Quaternion{1.0, 0.0, 0.0, 0.0}));
}

TEST(EulerToQuaternion, TakesHalfTheAngleAboutEachAxis)
{
    EXPECT_EQ(toQuaternion({0.6, 0.0, 0.0}), (Quaternion{std::cos(0.3), 0.0, 0.0, std::sin(0.3)}));
    EXPECT_EQ(toQuaternion({0.0, 0.6, 0.0}), (Quaternion{std::cos(0.3), 0.0, std::sin(0.3), 0.0}));
    EXPECT_EQ(toQuaternion({0.0, 0.0, 0.6}), (Quaternion{std::cos(0.3), std::sin(0.3), 0.0, 0.0}));
}

TEST(EulerToQuaternion, TurnsAsTheProductOfTheThreeRotations)
{
    std::mt19937 generator(51);
    std::uniform_real_distribution<double> angle(-7.0, 7.0);
    for (int run = 0; run < 1000; ++run)
    {
        const Angles angles{angle(generator), angle(generator), angle(generator)};
        expectSameTurn(turnOf(toQuaternion(angles)), rotationOf(angles[0], angles[1], angles[2]));
    }
}

TEST(EulerToQuaternion, HasUnitLength)
{
    std::mt19937 generator(52);
    std::uniform_real_distribution<double> angle(-7.0, 7.0);
    for (int run = 0; run < 1000; ++run)
    {
        const Quaternion q = toQuaternion({angle(generator), angle(generator), angle(generator)});
        EXPECT_NEAR(q[0] * q[0] + q[1] * q[1] + q[2] * q[2] + q[3] * q[3], 1.0, 1e-15);
    }
}

TEST(EulerToQuaternion, LetsNaNThrough)
{
    for (std::size_t position = 0; position < 3; ++position)
    {
        Angles angles{0.1, 0.2, 0.3};
        angles[position] = g_nan;
        for (const double component : toQuaternion(angles))
            EXPECT_TRUE(std::isnan(component));
    }
}

TEST(QuaternionToEuler, GivesTheAnglesBack)
{
    const Angles angles = toAngles(toQuaternion({0.1, 0.2, 0.3}));
    EXPECT_NEAR(angles[0], 0.1, 1e-15);
    EXPECT_NEAR(angles[1], 0.2, 1e-15);
    EXPECT_NEAR(angles[2], 0.3, 1e-15);
}

TEST(QuaternionToEuler, GivesEveryAngleBackWithinItsRange)
{
    std::mt19937 generator(53);
    std::uniform_real_distribution<double> full(-3.14, 3.14);
    std::uniform_real_distribution<double> half(-1.5, 1.5);
    for (int run = 0; run < 1000; ++run)
    {
        const Angles angles{full(generator), half(generator), full(generator)};
        const Angles back = toAngles(toQuaternion(angles));
        // The cosine of 1.5 is 0.07: roundings grow by its inverse.
        for (std::size_t i = 0; i < 3; ++i)
            EXPECT_NEAR(back[i], angles[i], 1e-13);
    }
}

TEST(QuaternionToEuler, DescribesTheSameTurnForAnglesBeyondTheRange)
{
    const Angles back = toAngles(toQuaternion({0.1, 2.5, 0.3}));
    EXPECT_NEAR(back[1], 3.141592653589793 - 2.5, 1e-14);
    expectSameTurn(rotationOf(back[0], back[1], back[2]), rotationOf(0.1, 2.5, 0.3));
}

TEST(QuaternionToEuler, DoesNotDependOnTheSign)
{
    const Quaternion q = toQuaternion({0.1, 0.2, 0.3});
    EXPECT_EQ(toAngles({-q[0], -q[1], -q[2], -q[3]}), toAngles(q));
}

TEST(QuaternionToEuler, GivesNaNForASineAboveOne)
{
    const Angles angles = toAngles({1.0, 0.0, 0.6, 0.0});
    EXPECT_EQ(angles[0], 0.0);
    EXPECT_TRUE(std::isnan(angles[1]));
    EXPECT_EQ(angles[2], 0.0);
}

TEST(QuaternionToEuler, GivesNaNForASineBelowMinusOne)
{
    EXPECT_TRUE(std::isnan(toAngles({1.0, 0.0, -0.6, 0.0})[1]));
}

TEST(QuaternionToEuler, GivesNaNWhereRoundingLiftsTheSineOfAQuarterTurnAboveOne)
{
    // The square of sqrt(1/2) rounds to 0.5 + 2^-53.
    EXPECT_TRUE(std::isnan(toAngles({std::sqrt(0.5), 0.0, std::sqrt(0.5), 0.0})[1]));
}

TEST(QuaternionToEuler, DoesNotNormalise)
{
    const Angles angles = toAngles({0.5, 0.0, 0.5, 0.0});
    EXPECT_EQ(angles[0], 0.0);
    EXPECT_EQ(angles[1], std::asin(0.5));
    EXPECT_EQ(angles[2], 0.0);
}

TEST(QuaternionToEuler, LosesTheOtherAnglesAtAQuarterTurnAboutY)
{
    // Rz(-pi/2) Ry(pi/2), or Ry(pi/2) Rx(pi/2): all terms of both arc tangents cancel.
    EXPECT_EQ(toAngles({0.5, 0.5, 0.5, -0.5}), (Angles{0.0, g_halfPi, 0.0}));
    EXPECT_EQ(toAngles({0.5, -0.5, -0.5, -0.5}), (Angles{0.0, -g_halfPi, 0.0}));
}

TEST(QuaternionToEuler, LetsNaNThrough)
{
    for (std::size_t position = 0; position < 4; ++position)
    {
        Quaternion q{0.5, 0.5, 0.5, 0.1};
        q[position] = g_nan;
        for (const double angle : toAngles(q))
            EXPECT_TRUE(std::isnan(angle));
    }
}

} // namespace math
} // namespace ovrix
