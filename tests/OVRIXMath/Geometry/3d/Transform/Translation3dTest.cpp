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

using Point = test::Transforms3d::Point;
using Values = std::vector<double>;

TEST(Translation3d, AddsTheTranslation)
{
    EXPECT_EQ(map(makeTransform<Translation3d>(makeVector({1, 2, 3})), {0.5, 0.25, 0}), (Point{1.5, 2.25, 3}));
}

TEST(Translation3d, TheInverseParametersAreTheNegatedOnes)
{
    EXPECT_EQ(toStd(makeTransform<Translation3d>(makeVector({1, -2, 3})).getInvParams()), (Values{-1, 2, -3}));
}

TEST(Translation3d, BothMatricesAreTheIdentityWithThreeRowsWhateverTheTranslation)
{
    const Translation3d translation = makeTransform<Translation3d>(makeVector({1, 2, 3}));
    for (const HomogenousMatrix3d& matrix : {translation.getHomogenousMatrix(), translation.getInvHomogenousMatrix()})
    {
        EXPECT_EQ(matrix.size1(), 3u);
        EXPECT_EQ(matrix.size2(), 3u);
        EXPECT_EQ(getEntries(matrix), (Values{1, 0, 0, 0, 1, 0, 0, 0, 1}));
    }
}

TEST(Translation3d, TheIdentityParametersAreZeros)
{
    EXPECT_EQ(toStd(Translation3d::getIdentityParams()), (Values{0, 0, 0}));
}

} // namespace transform
} // namespace math
} // namespace ovrix
