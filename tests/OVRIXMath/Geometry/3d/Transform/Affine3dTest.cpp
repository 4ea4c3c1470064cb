#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <support/Bits.h>
#include <support/Builders.h>
#include <support/ExpectFailure.h>
#include <support/Transforms.h>

namespace ovrix
{
namespace math
{
namespace transform
{

using test::bitsOf;
using test::drawParams;
using test::drawPoint;
using test::getEntries;
using test::makeTransform;
using test::map;
using test::toStd;

using Point = test::Transforms3d::Point;
using Values = std::vector<double>;

const std::string g_notInvertible = "Transformation cannot be inverted";
const std::string g_lapackFailure = "LaPack repport an error during execution";

TEST(Affine3d, FollowsTheFormulas)
{
    std::mt19937 generator(1);
    for (int i = 0; i < 200; ++i)
    {
        const Vector a = drawParams<Affine3d>(generator);
        const auto [x, y, z] = drawPoint<test::Transforms3d>(generator);
        const Affine3d affine = makeTransform<Affine3d>(a);
        EXPECT_EQ(map(affine, {x, y, z}),
                  (Point{a(0) * x + a(1) * y + a(2) * z + a(9), a(3) * x + a(4) * y + a(5) * z + a(10),
                         a(6) * x + a(7) * y + a(8) * z + a(11)}));
        EXPECT_EQ(getEntries(affine.getHomogenousMatrix()),
                  (Values{a(0), a(1), a(2), a(9), a(3), a(4), a(5), a(10), a(6), a(7), a(8), a(11), 0, 0, 0, 1}));
    }
}

TEST(Affine3d, TheInverseTranslationIsThatOfTheInverseMatrix)
{
    std::mt19937 generator(2);
    for (int i = 0; i < 200; ++i)
    {
        const Vector a = drawParams<Affine3d>(generator);
        const Affine3d affine = makeTransform<Affine3d>(a);
        const Vector b = affine.getInvParams();
        for (int row = 0; row < 3; ++row)
            EXPECT_EQ(b(9 + row), -(b(3 * row) * a(9) + b(3 * row + 1) * a(10) + b(3 * row + 2) * a(11)));
        EXPECT_EQ(getEntries(affine.getInvHomogenousMatrix()),
                  (Values{b(0), b(1), b(2), b(9), b(3), b(4), b(5), b(10), b(6), b(7), b(8), b(11), 0, 0, 0, 1}));
    }
}

TEST(Affine3d, AZeroMatrixIsSaidToBeInvertibleAndRaisesOnInversion)
{
    const Affine3d affine = makeTransform<Affine3d>(Vector(12, 0.0));
    EXPECT_TRUE(affine.isInvertible());
    test::expectMathRaises(g_notInvertible, [&] { affine.getInvParams(); });
    test::expectMathRaises(g_notInvertible, [&] { affine.getInvHomogenousMatrix(); });
    test::expectMathRaises(g_notInvertible, [&] { affine.createInverted(); });
}

TEST(Affine3d, AMatrixWithNaNIsSaidToBeInvertibleAndRaisesTheFailureOfLapackOnInversion)
{
    for (std::size_t i = 0; i < 9; ++i)
    {
        Vector params = Affine3d::getIdentityParams();
        params(i) = std::numeric_limits<double>::quiet_NaN();
        const Affine3d affine = makeTransform<Affine3d>(params);
        EXPECT_TRUE(affine.isInvertible());
        test::expectMathRaises(g_lapackFailure, [&] { affine.getInvParams(); });
        test::expectMathRaises(g_lapackFailure, [&] { affine.getInvHomogenousMatrix(); });
        test::expectMathRaises(g_lapackFailure, [&] { affine.createInverted(); });
    }
}

TEST(Affine3d, InfinitiesThatCancelOutRaiseTheFailureOfLapackOnInversion)
{
    Vector params = Affine3d::getIdentityParams();
    params(3) = 1; // takes the first row from the second
    params(2) = std::numeric_limits<double>::infinity();
    params(5) = std::numeric_limits<double>::infinity();
    test::expectMathRaises(g_lapackFailure, [&] { makeTransform<Affine3d>(params).getInvParams(); });
}

TEST(Affine3d, ATranslationOfNaNIsInverted)
{
    Vector params = Affine3d::getIdentityParams();
    params(9) = std::numeric_limits<double>::quiet_NaN();
    const Values inverse = toStd(makeTransform<Affine3d>(params).getInvParams());
    EXPECT_EQ(Values(inverse.begin(), inverse.begin() + 9), (Values{1, 0, 0, 0, 1, 0, 0, 0, 1}));
    EXPECT_TRUE(std::isnan(inverse[9]));
}

TEST(Affine3d, TheStaticFormRaisesForNaNAndLeavesTheParametersUntouched)
{
    Values a{1, std::numeric_limits<double>::quiet_NaN(), 0, 0, 1, 0, 0, 0, 1, 2, 3, 4};
    const auto before = bitsOf(a);
    test::expectMathRaises(
        g_lapackFailure,
        [&] { Affine3d::getInvParams(a[0], a[1], a[2], a[3], a[4], a[5], a[6], a[7], a[8], a[9], a[10], a[11]); });
    EXPECT_EQ(bitsOf(a), before);
}

TEST(Affine3d, TheStaticFormInvertsInPlaceInTheOrderOfTheParameters)
{
    double a00 = 0, a01 = 2, a02 = 0, a10 = 0, a11 = 0, a12 = 4, a20 = 8, a21 = 0, a22 = 0, tx = 2, ty = 4, tz = 16;
    Affine3d::getInvParams(a00, a01, a02, a10, a11, a12, a20, a21, a22, tx, ty, tz);
    EXPECT_EQ((Values{a00, a01, a02, a10, a11, a12, a20, a21, a22, tx, ty, tz}),
              (Values{0, 0, 0.125, 0.5, 0, 0, 0, 0.25, 0, -2, -1, -1}));
}

TEST(Affine3d, TheStaticFormLeavesSingularParametersUntouched)
{
    double a00 = 1, a01 = 2, a02 = 3, a10 = 2, a11 = 4, a12 = 6, a20 = 7, a21 = 8, a22 = 9, tx = 1, ty = 2, tz = 3;
    test::expectMathRaises(g_notInvertible,
                           [&] { Affine3d::getInvParams(a00, a01, a02, a10, a11, a12, a20, a21, a22, tx, ty, tz); });
    EXPECT_EQ((Values{a00, a01, a02, a10, a11, a12, a20, a21, a22, tx, ty, tz}),
              (Values{1, 2, 3, 2, 4, 6, 7, 8, 9, 1, 2, 3}));
}

TEST(Affine3d, TheIdentityParametersAreTheNeutralElement)
{
    EXPECT_EQ(toStd(Affine3d::getIdentityParams()), (Values{1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0}));
}

} // namespace transform
} // namespace math
} // namespace ovrix
