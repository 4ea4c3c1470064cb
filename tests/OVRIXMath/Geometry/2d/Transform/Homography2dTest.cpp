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
using test::makeVector;
using test::map;
using test::toStd;

using Point = test::Transforms2d::Point;
using Values = std::vector<double>;

const std::string g_notInvertible = "Transformation cannot be inverted";
const std::string g_lapackFailure = "LaPack repport an error during execution";

TEST(Homography2d, FollowsTheFormula)
{
    std::mt19937 generator(1);
    for (int i = 0; i < 200; ++i)
    {
        const Vector h = drawParams<Homography2d>(generator);
        const auto [x, y] = drawPoint<test::Transforms2d>(generator);
        const double w = h(6) * x + h(7) * y + h(8);
        EXPECT_EQ(map(makeTransform<Homography2d>(h), {x, y}),
                  (Point{(h(0) * x + h(1) * y + h(2)) / w, (h(3) * x + h(4) * y + h(5)) / w}));
    }
}

TEST(Homography2d, APointWhoseDivisorIsZeroStays)
{
    const Homography2d homography = makeTransform<Homography2d>(makeVector({2, 3, 4, 5, 6, 7, 1, 0, 0}));
    EXPECT_EQ(map(homography, {0, 5}), (Point{0, 5}));
}

TEST(Homography2d, ADivisorThatIsNotANumberIsUsed)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const Point image = map(makeTransform<Homography2d>(makeVector({1, 0, 0, 0, 1, 0, 0, 0, nan})), {1, 2});
    EXPECT_TRUE(std::isnan(image[0]));
    EXPECT_TRUE(std::isnan(image[1]));
}

TEST(Homography2d, TheIdentityParametersAreASingularMatrix)
{
    EXPECT_EQ(toStd(Homography2d::getIdentityParams()), (Values{1, 0, 0, 0, 1, 1, 0, 1, 1}));
}

TEST(Homography2d, IsNotInvertibleAfterSetIdentity)
{
    Homography2d homography;
    EXPECT_TRUE(homography.isInvertible());
    homography.setIdentity();
    EXPECT_FALSE(homography.isInvertible());
    EXPECT_FALSE(static_cast<const BaseGeometricTransform2d&>(homography).isInvertible());
    EXPECT_EQ(map(homography, {1, 2}), (Point{1.0 / 3.0, 1}));
}

TEST(Homography2d, ASingularMatrixRaisesOnInversion)
{
    Homography2d homography;
    homography.setIdentity();
    test::expectMathRaises(g_notInvertible, [&] { homography.getInvParams(); });
    test::expectMathRaises(g_notInvertible, [&] { homography.getInvHomogenousMatrix(); });
    test::expectMathRaises(g_notInvertible, [&] { homography.createInverted(); });
}

TEST(Homography2d, ThereIsNoThresholdOfInvertibility)
{
    EXPECT_TRUE(Homography2d::isInvertible(1, 0, 0, 0, 1e-300, 0, 0, 0, 1));
    EXPECT_FALSE(Homography2d::isInvertible(1, 0, 0, 0, 0, 0, 0, 0, 1));
}

TEST(Homography2d, TheStaticFormTellsInvertibilityInTheOrderOfTheParameters)
{
    EXPECT_TRUE(Homography2d::isInvertible(0, 2, 0, 0, 0, 4, 8, 0, 0));
    EXPECT_FALSE(Homography2d::isInvertible(1, 2, 3, 2, 4, 6, 7, 8, 9));
}

TEST(Homography2d, AMatrixWithNaNRaisesTheFailureOfLapack)
{
    for (std::size_t i = 0; i < Homography2d::s_nbParams; ++i)
    {
        Vector params = Homography2d().getParams();
        params(i) = std::numeric_limits<double>::quiet_NaN();
        const Homography2d homography = makeTransform<Homography2d>(params);
        test::expectMathRaises(g_lapackFailure, [&] { homography.isInvertible(); });
        test::expectMathRaises(g_lapackFailure, [&] { homography.getInvParams(); });
        test::expectMathRaises(g_lapackFailure, [&] { homography.getInvHomogenousMatrix(); });
        test::expectMathRaises(g_lapackFailure, [&] { homography.createInverted(); });
    }
}

TEST(Homography2d, InfinitiesThatCancelOutRaiseTheFailureOfLapack)
{
    Vector params = Homography2d().getParams();
    params(3) = 1; // takes the first row from the second
    params(2) = std::numeric_limits<double>::infinity();
    params(5) = std::numeric_limits<double>::infinity();
    const Homography2d homography = makeTransform<Homography2d>(params);
    test::expectMathRaises(g_lapackFailure, [&] { homography.isInvertible(); });
    test::expectMathRaises(g_lapackFailure, [&] { homography.getInvParams(); });
}

TEST(Homography2d, TheStaticFormsRaiseForNaNAndLeaveTheParametersUntouched)
{
    Values h = toStd(Homography2d().getParams());
    h[1] = std::numeric_limits<double>::quiet_NaN();
    const auto before = bitsOf(h);
    test::expectMathRaises(g_lapackFailure,
                           [&] { Homography2d::getInvParams(h[0], h[1], h[2], h[3], h[4], h[5], h[6], h[7], h[8]); });
    test::expectMathRaises(g_lapackFailure,
                           [&] { Homography2d::isInvertible(h[0], h[1], h[2], h[3], h[4], h[5], h[6], h[7], h[8]); });
    EXPECT_EQ(bitsOf(h), before);
}

TEST(Homography2d, TheInverseIsNotNormalised)
{
    const Homography2d homography = makeTransform<Homography2d>(makeVector({1, 0, 0, 0, 1, 0, 0, 0, 4}));
    EXPECT_EQ(toStd(homography.getInvParams()), (Values{1, 0, 0, 0, 1, 0, 0, 0, 0.25}));
    EXPECT_EQ(getEntries(homography.getInvHomogenousMatrix()), (Values{1, 0, 0, 0, 1, 0, 0, 0, 0.25}));
}

TEST(Homography2d, TheMatrixHoldsTheParametersRowByRow)
{
    const Homography2d homography = makeTransform<Homography2d>(makeVector({1, 2, 3, 4, 5, 6, 7, 8, 9}));
    EXPECT_EQ(getEntries(homography.getHomogenousMatrix()), (Values{1, 2, 3, 4, 5, 6, 7, 8, 9}));
}

TEST(Homography2d, TheStaticFormInvertsInPlaceInTheOrderOfTheParameters)
{
    double h00 = 0, h01 = 2, h02 = 0, h10 = 0, h11 = 0, h12 = 4, h20 = 8, h21 = 0, h22 = 0;
    Homography2d::getInvParams(h00, h01, h02, h10, h11, h12, h20, h21, h22);
    EXPECT_EQ((Values{h00, h01, h02, h10, h11, h12, h20, h21, h22}), (Values{0, 0, 0.125, 0.5, 0, 0, 0, 0.25, 0}));
}

TEST(Homography2d, TheStaticFormLeavesSingularParametersUntouched)
{
    double h00 = 1, h01 = 2, h02 = 3, h10 = 2, h11 = 4, h12 = 6, h20 = 7, h21 = 8, h22 = 9;
    test::expectMathRaises(g_notInvertible,
                           [&] { Homography2d::getInvParams(h00, h01, h02, h10, h11, h12, h20, h21, h22); });
    EXPECT_EQ((Values{h00, h01, h02, h10, h11, h12, h20, h21, h22}), (Values{1, 2, 3, 2, 4, 6, 7, 8, 9}));
}

} // namespace transform
} // namespace math
} // namespace ovrix
