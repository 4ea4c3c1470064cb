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
using test::getEntries;
using test::makeTransform;
using test::makeVector;
using test::map;
using test::toStd;

using Point = test::Transforms3d::Point;
using Values = std::vector<double>;

TEST(Scale3d, MultipliesAllCoordinates)
{
    EXPECT_EQ(map(makeTransform<Scale3d>(makeVector({-2})), {0.5, 3, -1}), (Point{-1, -6, 2}));
}

TEST(Scale3d, TheIdentityParameterIsOne)
{
    EXPECT_EQ(toStd(Scale3d::getIdentityParams()), Values{1});
}

TEST(Scale3d, TheInverseParameterIsTheInverseScaleAndZeroForZero)
{
    EXPECT_EQ(toStd(makeTransform<Scale3d>(makeVector({4})).getInvParams()), Values{0.25});
    EXPECT_EQ(toStd(makeTransform<Scale3d>(makeVector({0})).getInvParams()), Values{0});
    EXPECT_EQ(toStd(makeTransform<Scale3d>(makeVector({0})).createInverted()->getParams()), Values{0});
}

TEST(Scale3d, TheInverseOfAScaleOfMinusZeroIsPlusZero)
{
    EXPECT_EQ(bitsOf(makeTransform<Scale3d>(makeVector({-0.0})).getInvParams()), bitsOf(Values{0}));
}

TEST(Scale3d, TheInverseOfAScaleThatIsNotANumberIsNotANumber)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_TRUE(std::isnan(makeTransform<Scale3d>(makeVector({nan})).getInvParams()(0)));
}

TEST(Scale3d, BothMatricesAreThatOfTheTransform)
{
    const Scale3d scale = makeTransform<Scale3d>(makeVector({2}));
    const Values expected{2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 1};
    EXPECT_EQ(getEntries(scale.getHomogenousMatrix()), expected);
    EXPECT_EQ(getEntries(scale.getInvHomogenousMatrix()), expected);
}

} // namespace transform
} // namespace math
} // namespace ovrix
