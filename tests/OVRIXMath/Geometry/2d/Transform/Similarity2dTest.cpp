#include <gtest/gtest.h>

#include <cmath>
#include <limits>
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

TEST(Similarity2d, FollowsTheFormulas)
{
    std::mt19937 generator(1);
    for (int i = 0; i < 200; ++i)
    {
        const Vector params = drawParams<Similarity2d>(generator);
        const auto [x, y] = drawPoint<test::Transforms2d>(generator);
        const double scale = params(0);
        const double c = std::cos(params(1));
        const double s = std::sin(params(1));
        const double tx = params(2);
        const double ty = params(3);
        const double r = 1.0 / scale;
        const Similarity2d similarity = makeTransform<Similarity2d>(params);
        EXPECT_EQ(map(similarity, {x, y}), (Point{scale * (c * x - s * y) + tx, scale * (c * y + s * x) + ty}));
        EXPECT_EQ(toStd(similarity.getInvParams()),
                  (Values{r, -params(1), -(c * tx + s * ty) * r, -(c * ty - s * tx) * r}));
        EXPECT_EQ(getEntries(similarity.getHomogenousMatrix()),
                  (Values{scale * c, -scale * s, tx, scale * s, scale * c, ty, 0, 0, 1}));
    }
}

TEST(Similarity2d, TheInverseParametersHoldTheInverseScaleAndTheInverseMatrixDoesNot)
{
    const Similarity2d similarity = makeTransform<Similarity2d>(makeVector({2, 0, 0, 0}));
    EXPECT_EQ(similarity.getInvParams()(0), 0.5);
    EXPECT_EQ(getEntries(similarity.getInvHomogenousMatrix()), (Values{2, 0, 0, 0, 2, 0, 0, 0, 1}));
}

TEST(Similarity2d, TheInverseOfScaleZeroCollapsesToTheOrigin)
{
    for (const double zero : {0.0, -0.0})
    {
        const Similarity2d similarity = makeTransform<Similarity2d>(makeVector({zero, 0.5, 3, 4}));
        EXPECT_EQ(toStd(similarity.getInvParams()), (Values{0, -0.5, 0, 0}));
        EXPECT_EQ(bitsOf(similarity.getInvParams()(0)), bitsOf(0.0));
        EXPECT_EQ(toStd(similarity.createInverted()->getParams()), (Values{0, -0.5, 0, 0}));
    }
}

TEST(Similarity2d, TheInverseOfAScaleThatIsNotANumberKeepsTheAngleAlone)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const Vector inverse = makeTransform<Similarity2d>(makeVector({nan, 0.5, 3, 4})).getInvParams();
    EXPECT_TRUE(std::isnan(inverse(0)));
    EXPECT_EQ(inverse(1), -0.5);
    EXPECT_TRUE(std::isnan(inverse(2)));
    EXPECT_TRUE(std::isnan(inverse(3)));
}

TEST(Similarity2d, TheIdentityParametersHaveScaleOne)
{
    EXPECT_EQ(toStd(Similarity2d::getIdentityParams()), (Values{1, 0, 0, 0}));
}

} // namespace transform
} // namespace math
} // namespace ovrix
