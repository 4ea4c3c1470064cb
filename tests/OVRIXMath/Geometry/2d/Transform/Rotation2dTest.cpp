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

TEST(Rotation2d, APositiveAngleTurnsXTowardsY)
{
    const Point image = map(makeTransform<Rotation2d>(makeVector({M_PI_2})), {1, 0});
    EXPECT_NEAR(image[0], 0.0, 1e-15);
    EXPECT_EQ(image[1], 1.0);
}

TEST(Rotation2d, FollowsTheFormula)
{
    std::mt19937 generator(1);
    for (int i = 0; i < 200; ++i)
    {
        const Vector params = drawParams<Rotation2d>(generator);
        const Point point = drawPoint<test::Transforms2d>(generator);
        const double c = std::cos(params(0));
        const double s = std::sin(params(0));
        EXPECT_EQ(map(makeTransform<Rotation2d>(params), point),
                  (Point{c * point[0] - s * point[1], s * point[0] + c * point[1]}));
    }
}

TEST(Rotation2d, TheAngleIsNotNormalised)
{
    const Rotation2d rotation = makeTransform<Rotation2d>(makeVector({100}));
    EXPECT_EQ(toStd(rotation.getParams()), Values{100});
    EXPECT_EQ(map(rotation, {1, 0}), (Point{std::cos(100.0), std::sin(100.0)}));
}

TEST(Rotation2d, TheInverseParameterIsTheNegatedAngle)
{
    EXPECT_EQ(toStd(makeTransform<Rotation2d>(makeVector({0.7})).getInvParams()), Values{-0.7});
}

TEST(Rotation2d, TheMatricesAreTransposesOfEachOther)
{
    const Rotation2d rotation = makeTransform<Rotation2d>(makeVector({0.7}));
    const double c = std::cos(0.7);
    const double s = std::sin(0.7);
    EXPECT_EQ(getEntries(rotation.getHomogenousMatrix()), (Values{c, -s, 0, s, c, 0, 0, 0, 1}));
    EXPECT_EQ(getEntries(rotation.getInvHomogenousMatrix()), (Values{c, s, 0, -s, c, 0, 0, 0, 1}));
}

TEST(Rotation2d, TheInverseMatrixHasToTheBitTheCosineAndSineOfTheAngle)
{
    std::mt19937 generator(2);
    std::vector<Vector> draws{makeVector({0.0}), makeVector({-0.0})};
    for (int i = 0; i < 200; ++i)
        draws.push_back(drawParams<Rotation2d>(generator));
    for (const Vector& params : draws)
    {
        const double c = std::cos(params(0));
        const double s = std::sin(params(0));
        EXPECT_EQ(bitsOf(getEntries(makeTransform<Rotation2d>(params).getInvHomogenousMatrix())),
                  bitsOf(Values{c, s, 0, -s, c, 0, 0, 0, 1}));
    }
}

TEST(Rotation2d, TheIdentityParameterIsZero)
{
    EXPECT_EQ(toStd(Rotation2d::getIdentityParams()), Values{0});
}

} // namespace transform
} // namespace math
} // namespace ovrix
