#include <gtest/gtest.h>

#include <support/Builders.h>
#include <support/Transforms.h>

namespace ovrix
{
namespace math
{
namespace transform
{

using test::getEntries;
using test::makeTransform;
using test::makeVector;
using test::map;
using test::toStd;

using Point = test::Transforms2d::Point;
using Values = std::vector<double>;

TEST(Translation2d, AddsTheTranslation)
{
    EXPECT_EQ(map(makeTransform<Translation2d>(makeVector({1, -2})), {0.5, 0.25}), (Point{1.5, -1.75}));
}

TEST(Translation2d, TheInverseParametersAreTheNegatedOnes)
{
    EXPECT_EQ(toStd(makeTransform<Translation2d>(makeVector({1, -2})).getInvParams()), (Values{-1, 2}));
}

TEST(Translation2d, TheMatricesHoldTheTranslationInTheLastColumn)
{
    const Translation2d translation = makeTransform<Translation2d>(makeVector({3, 4}));
    EXPECT_EQ(getEntries(translation.getHomogenousMatrix()), (Values{1, 0, 3, 0, 1, 4, 0, 0, 1}));
    EXPECT_EQ(getEntries(translation.getInvHomogenousMatrix()), (Values{1, 0, -3, 0, 1, -4, 0, 0, 1}));
}

TEST(Translation2d, TheIdentityParametersAreZeros)
{
    EXPECT_EQ(toStd(Translation2d::getIdentityParams()), (Values{0, 0}));
}

} // namespace transform
} // namespace math
} // namespace ovrix
