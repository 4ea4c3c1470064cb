#include <OVRIXMath/Geometry/2d/Angles2d.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <support/Bits.h>
#include <support/RandomData.h>
#include <vector>

namespace ovrix
{
namespace math
{

namespace
{

constexpr double g_pi = 3.141592653589793;
constexpr double g_halfPi = 1.5707963267948966;

/// By the remainder alone.
double foldedByRemainder(double angle)
{
    double folded = std::fmod(angle, g_pi);
    if (folded >= g_halfPi)
        folded -= g_pi;
    if (folded < -g_halfPi)
        folded += g_pi;
    return folded;
}

} // namespace

TEST(FoldToHalfTurn, IsToTheBitTheRemainderAtEveryBorder)
{
    std::vector<double> angles{0.0,   -0.0,   std::numeric_limits<double>::quiet_NaN(),
                               1e300, -1e300, std::numeric_limits<double>::infinity()};
    for (int quarters = -12; quarters <= 12; ++quarters)
    {
        const double border = quarters * g_halfPi;
        angles.insert(angles.end(), {std::nextafter(border, -1e9), border, std::nextafter(border, 1e9)});
    }
    for (const double angle : angles)
    {
        // The sign of a NaN means nothing.
        if (std::isnan(foldedByRemainder(angle)))
            EXPECT_TRUE(std::isnan(details::foldToHalfTurn(angle))) << angle;
        else
            EXPECT_EQ(test::bitsOf(details::foldToHalfTurn(angle)), test::bitsOf(foldedByRemainder(angle))) << angle;
    }
}

TEST(FoldToHalfTurn, IsToTheBitTheRemainderOfAnyAngle)
{
    test::RandomData random(1);
    for (int run = 0; run < 100000; ++run)
    {
        const double angle = random.real(-20.0, 20.0);
        ASSERT_EQ(test::bitsOf(details::foldToHalfTurn(angle)), test::bitsOf(foldedByRemainder(angle))) << angle;
    }
}

TEST(FoldToHalfTurn, LiesInTheHalfTurnAroundZero)
{
    test::RandomData random(2);
    for (int run = 0; run < 10000; ++run)
    {
        const double angle = random.real(-20.0, 20.0);
        const double folded = details::foldToHalfTurn(angle);
        ASSERT_GE(folded, -g_halfPi);
        ASSERT_LT(folded, g_halfPi);
        // The same axis: half a turn more changes the sign of the sine and nothing else.
        ASSERT_NEAR(std::sin(angle - folded), 0.0, 1e-14);
    }
}

} // namespace math
} // namespace ovrix
