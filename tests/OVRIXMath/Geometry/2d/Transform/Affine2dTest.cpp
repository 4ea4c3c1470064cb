#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <support/Builders.h>
#include <support/ExpectFailure.h>
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

using Point = test::Transforms2d::Point;
using Values = std::vector<double>;

const std::string g_notInvertible = "Transformation cannot be inverted";

TEST(Affine2d, FollowsTheFormulas)
{
    std::mt19937 generator(1);
    for (int i = 0; i < 200; ++i)
    {
        const Vector params = drawParams<Affine2d>(generator);
        const auto [x, y] = drawPoint<test::Transforms2d>(generator);
        const double a00 = params(0), a01 = params(1), a10 = params(2), a11 = params(3), tx = params(4), ty = params(5);
        const Affine2d affine = makeTransform<Affine2d>(params);
        EXPECT_EQ(map(affine, {x, y}), (Point{a00 * x + a01 * y + tx, a10 * x + a11 * y + ty}));
        EXPECT_EQ(getEntries(affine.getHomogenousMatrix()), (Values{a00, a01, tx, a10, a11, ty, 0, 0, 1}));

        const double det = a00 * a11 - a10 * a01;
        const double b00 = a11 / det, b01 = -a01 / det, b10 = -a10 / det, b11 = a00 / det;
        const double ux = -(b00 * tx + b01 * ty);
        const double uy = -(b10 * tx + b11 * ty);
        EXPECT_EQ(toStd(affine.getInvParams()), (Values{b00, b01, b10, b11, ux, uy}));
        EXPECT_EQ(getEntries(affine.getInvHomogenousMatrix()), (Values{b00, b01, ux, b10, b11, uy, 0, 0, 1}));
    }
}

TEST(Affine2d, ASingularMatrixIsSaidToBeInvertibleAndRaisesOnInversion)
{
    const Affine2d affine = makeTransform<Affine2d>(makeVector({1, 2, 2, 4, 0, 0}));
    EXPECT_TRUE(affine.isInvertible());
    test::expectMathRaises(g_notInvertible, [&] { affine.getInvParams(); });
    test::expectMathRaises(g_notInvertible, [&] { affine.getInvHomogenousMatrix(); });
    test::expectMathRaises(g_notInvertible, [&] { affine.createInverted(); });
}

TEST(Affine2d, NoToleranceIsAppliedToTheDeterminant)
{
    const double tiny = std::numeric_limits<double>::min();
    EXPECT_EQ(toStd(makeTransform<Affine2d>(makeVector({tiny, 0, 0, 1, 0, 0})).getInvParams()),
              (Values{1.0 / tiny, 0, 0, 1, 0, 0}));
}

TEST(Affine2d, ADeterminantThatIsNotANumberPasses)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const Vector inverse = makeTransform<Affine2d>(makeVector({nan, 0, 0, 1, 0, 0})).getInvParams();
    EXPECT_TRUE(std::isnan(inverse(0)));
}

TEST(Affine2d, TheStaticFormInvertsInPlace)
{
    double a00 = 2, a01 = 0, a10 = 0, a11 = 4, tx = 6, ty = 8;
    Affine2d::getInvParams(a00, a01, a10, a11, tx, ty);
    EXPECT_EQ((Values{a00, a01, a10, a11, tx, ty}), (Values{0.5, 0, 0, 0.25, -3, -2}));
}

TEST(Affine2d, TheStaticFormLeavesSingularParametersUntouched)
{
    double a00 = 1, a01 = 2, a10 = 2, a11 = 4, tx = 5, ty = 6;
    test::expectMathRaises(g_notInvertible, [&] { Affine2d::getInvParams(a00, a01, a10, a11, tx, ty); });
    EXPECT_EQ((Values{a00, a01, a10, a11, tx, ty}), (Values{1, 2, 2, 4, 5, 6}));
}

TEST(Affine2d, SevenParametersRaiseAndKeepTheOldOnes)
{
    Affine2d affine = makeTransform<Affine2d>(makeVector({1, 2, 3, 4, 5, 6}));
    test::expectMathRaises("Number of parameters 7 is not valid for transformation type eGT2DT_Affine, expecting 6 "
                           "parameters",
                           [&] { affine.setParams(Vector(7, 0.0)); });
    EXPECT_EQ(toStd(affine.getParams()), (Values{1, 2, 3, 4, 5, 6}));
}

TEST(Affine2d, TheIdentityParametersAreTheNeutralElement)
{
    EXPECT_EQ(toStd(Affine2d::getIdentityParams()), (Values{1, 0, 0, 1, 0, 0}));
}

} // namespace transform
} // namespace math
} // namespace ovrix
