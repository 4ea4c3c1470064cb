#include <gtest/gtest.h>

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
const Values g_identity{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

TEST(Homography3d, FollowsTheFormula)
{
    std::mt19937 generator(1);
    for (int i = 0; i < 200; ++i)
    {
        const Vector h = drawParams<Homography3d>(generator);
        const auto [x, y, z] = drawPoint<test::Transforms3d>(generator);
        const double w = h(12) * x + h(13) * y + h(14) * z + h(15);
        EXPECT_EQ(map(makeTransform<Homography3d>(h), {x, y, z}),
                  (Point{(h(0) * x + h(1) * y + h(2) * z + h(3)) / w, (h(4) * x + h(5) * y + h(6) * z + h(7)) / w,
                         (h(8) * x + h(9) * y + h(10) * z + h(11)) / w}));
    }
}

TEST(Homography3d, APointWhoseDivisorIsZeroStays)
{
    Vector params = Homography3d::getIdentityParams();
    params(0) = 2;
    params(12) = 1;
    params(15) = 0;
    EXPECT_EQ(map(makeTransform<Homography3d>(params), {0, 5, 6}), (Point{0, 5, 6}));
}

TEST(Homography3d, TheIdentityParametersAreTheNeutralElement)
{
    EXPECT_EQ(toStd(Homography3d::getIdentityParams()), g_identity);
    Homography3d homography = makeTransform<Homography3d>(Vector(16, 2.0));
    homography.setIdentity();
    EXPECT_TRUE(homography.isInvertible());
    EXPECT_EQ(map(homography, {1, 2, 3}), (Point{1, 2, 3}));
}

TEST(Homography3d, ASingularMatrixIsNotInvertibleAndRaisesOnInversion)
{
    const Homography3d homography = makeTransform<Homography3d>(Vector(16, 1.0));
    EXPECT_FALSE(homography.isInvertible());
    EXPECT_FALSE(static_cast<const BaseGeometricTransform3d&>(homography).isInvertible());
    test::expectMathRaises(g_notInvertible, [&] { homography.getInvParams(); });
    test::expectMathRaises(g_notInvertible, [&] { homography.getInvHomogenousMatrix(); });
    test::expectMathRaises(g_notInvertible, [&] { homography.createInverted(); });
}

TEST(Homography3d, ThereIsNoThresholdOfInvertibility)
{
    EXPECT_TRUE(Homography3d::isInvertible(1, 0, 0, 0, 0, 1e-300, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1));
    EXPECT_FALSE(Homography3d::isInvertible(1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1));
}

TEST(Homography3d, TheStaticFormTellsInvertibilityInTheOrderOfTheParameters)
{
    EXPECT_TRUE(Homography3d::isInvertible(0, 2, 0, 0, 0, 0, 4, 0, 0, 0, 0, 8, 16, 0, 0, 0));
    EXPECT_FALSE(Homography3d::isInvertible(1, 2, 3, 4, 2, 4, 6, 8, 1, 1, 1, 1, 0, 0, 0, 1));
}

TEST(Homography3d, AMatrixWithNaNRaisesTheFailureOfLapack)
{
    for (std::size_t i = 0; i < Homography3d::s_nbParams; ++i)
    {
        Vector params = Homography3d().getParams();
        params(i) = std::numeric_limits<double>::quiet_NaN();
        const Homography3d homography = makeTransform<Homography3d>(params);
        test::expectMathRaises(g_lapackFailure, [&] { homography.isInvertible(); });
        test::expectMathRaises(g_lapackFailure, [&] { homography.getInvParams(); });
        test::expectMathRaises(g_lapackFailure, [&] { homography.getInvHomogenousMatrix(); });
        test::expectMathRaises(g_lapackFailure, [&] { homography.createInverted(); });
    }
}

TEST(Homography3d, InfinitiesThatCancelOutRaiseTheFailureOfLapack)
{
    Vector params = Homography3d().getParams();
    params(4) = 1; // takes the first row from the second
    params(3) = std::numeric_limits<double>::infinity();
    params(7) = std::numeric_limits<double>::infinity();
    const Homography3d homography = makeTransform<Homography3d>(params);
    test::expectMathRaises(g_lapackFailure, [&] { homography.isInvertible(); });
    test::expectMathRaises(g_lapackFailure, [&] { homography.getInvParams(); });
}

TEST(Homography3d, TheStaticFormsRaiseForNaNAndLeaveTheParametersUntouched)
{
    Values h = toStd(Homography3d().getParams());
    h[1] = std::numeric_limits<double>::quiet_NaN();
    const auto before = bitsOf(h);
    test::expectMathRaises(g_lapackFailure,
                           [&]
                           {
                               Homography3d::getInvParams(h[0], h[1], h[2], h[3], h[4], h[5], h[6], h[7], h[8], h[9],
                                                          h[10], h[11], h[12], h[13], h[14], h[15]);
                           });
    test::expectMathRaises(g_lapackFailure,
                           [&]
                           {
                               Homography3d::isInvertible(h[0], h[1], h[2], h[3], h[4], h[5], h[6], h[7], h[8], h[9],
                                                          h[10], h[11], h[12], h[13], h[14], h[15]);
                           });
    EXPECT_EQ(bitsOf(h), before);
}

TEST(Homography3d, TheInverseIsNotNormalised)
{
    Vector params = Homography3d::getIdentityParams();
    params(15) = 4;
    Values expected = g_identity;
    expected[15] = 0.25;
    EXPECT_EQ(toStd(makeTransform<Homography3d>(params).getInvParams()), expected);
    EXPECT_EQ(getEntries(makeTransform<Homography3d>(params).getInvHomogenousMatrix()), expected);
}

TEST(Homography3d, TheMatrixHoldsTheParametersRowByRow)
{
    Vector params(16);
    for (std::size_t i = 0; i < params.size(); ++i)
        params(i) = static_cast<double>(i);
    EXPECT_EQ(getEntries(makeTransform<Homography3d>(params).getHomogenousMatrix()), toStd(params));
}

TEST(Homography3d, TheStaticFormInvertsInPlaceInTheOrderOfTheParameters)
{
    double h[16] = {0, 2, 0, 0, 0, 0, 4, 0, 0, 0, 0, 8, 16, 0, 0, 0};
    Homography3d::getInvParams(h[0], h[1], h[2], h[3], h[4], h[5], h[6], h[7], h[8], h[9], h[10], h[11], h[12], h[13],
                               h[14], h[15]);
    EXPECT_EQ(Values(h, h + 16), (Values{0, 0, 0, 0.0625, 0.5, 0, 0, 0, 0, 0.25, 0, 0, 0, 0, 0.125, 0}));
}

TEST(Homography3d, TheStaticFormLeavesSingularParametersUntouched)
{
    double h[16] = {1, 2, 3, 4, 2, 4, 6, 8, 1, 1, 1, 1, 0, 0, 0, 1};
    const Values before(h, h + 16);
    test::expectMathRaises(g_notInvertible,
                           [&]
                           {
                               Homography3d::getInvParams(h[0], h[1], h[2], h[3], h[4], h[5], h[6], h[7], h[8], h[9],
                                                          h[10], h[11], h[12], h[13], h[14], h[15]);
                           });
    EXPECT_EQ(Values(h, h + 16), before);
}

} // namespace transform
} // namespace math
} // namespace ovrix
