#include <gtest/gtest.h>

#include <cmath>
#include <support/Bits.h>
#include <support/Builders.h>
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

TEST(Rigid2d, TurnsThenTranslates)
{
    const Point image = map(makeTransform<Rigid2d>(makeVector({M_PI_2, 1, 2})), {1, 0});
    EXPECT_NEAR(image[0], 1.0, 1e-15);
    EXPECT_EQ(image[1], 3.0);
}

TEST(Rigid2d, FollowsTheFormulas)
{
    std::mt19937 generator(1);
    for (int i = 0; i < 200; ++i)
    {
        const Vector params = drawParams<Rigid2d>(generator);
        const auto [x, y] = drawPoint<test::Transforms2d>(generator);
        const double c = std::cos(params(0));
        const double s = std::sin(params(0));
        const double tx = params(1);
        const double ty = params(2);
        const Rigid2d rigid = makeTransform<Rigid2d>(params);
        EXPECT_EQ(map(rigid, {x, y}), (Point{(c * x - s * y) + tx, (c * y + s * x) + ty}));
        EXPECT_EQ(toStd(rigid.getInvParams()), (Values{-params(0), -(c * tx + s * ty), -(c * ty - s * tx)}));
        EXPECT_EQ(getEntries(rigid.getHomogenousMatrix()), (Values{c, -s, tx, s, c, ty, 0, 0, 1}));
        EXPECT_EQ(getEntries(rigid.getInvHomogenousMatrix()),
                  (Values{c, s, -(c * tx + s * ty), -s, c, -(c * ty - s * tx), 0, 0, 1}));
    }
}

TEST(Rigid2d, TheInverseMatrixFollowsTheFormulaToTheBit)
{
    std::mt19937 generator(2);
    std::vector<Vector> draws;
    for (const double zero : {0.0, -0.0})
        for (const double tx : {0.0, -0.0, 3.0})
            draws.push_back(makeVector({zero, tx, 0.0}));
    for (int i = 0; i < 200; ++i)
        draws.push_back(drawParams<Rigid2d>(generator));
    for (const Vector& params : draws)
    {
        const double c = std::cos(params(0));
        const double s = std::sin(params(0));
        const double tx = params(1);
        const double ty = params(2);
        EXPECT_EQ(bitsOf(getEntries(makeTransform<Rigid2d>(params).getInvHomogenousMatrix())),
                  bitsOf(Values{c, s, -(c * tx + s * ty), -s, c, -(c * ty - s * tx), 0, 0, 1}));
    }
}

TEST(Rigid2d, TheIdentityParametersAreZeros)
{
    EXPECT_EQ(toStd(Rigid2d::getIdentityParams()), (Values{0, 0, 0}));
}

} // namespace transform
} // namespace math
} // namespace ovrix
