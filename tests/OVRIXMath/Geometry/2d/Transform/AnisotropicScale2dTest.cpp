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

TEST(AnisotropicScale2d, MultipliesEachCoordinateByItsScale)
{
    EXPECT_EQ(map(makeTransform<AnisotropicScale2d>(makeVector({2, -3})), {5, 7}), (Point{10, -21}));
}

TEST(AnisotropicScale2d, TheInverseOfAScaleOfZeroIsZeroByItself)
{
    EXPECT_EQ(toStd(makeTransform<AnisotropicScale2d>(makeVector({2, 0})).getInvParams()), (Values{0.5, 0}));
    EXPECT_EQ(toStd(makeTransform<AnisotropicScale2d>(makeVector({0, 4})).getInvParams()), (Values{0, 0.25}));
}

TEST(AnisotropicScale2d, BothMatricesAreThatOfTheTransform)
{
    const AnisotropicScale2d scale = makeTransform<AnisotropicScale2d>(makeVector({2, 3}));
    EXPECT_EQ(getEntries(scale.getHomogenousMatrix()), (Values{2, 0, 0, 0, 3, 0, 0, 0, 1}));
    EXPECT_EQ(getEntries(scale.getInvHomogenousMatrix()), (Values{2, 0, 0, 0, 3, 0, 0, 0, 1}));
}

TEST(AnisotropicScale2d, TheIdentityParametersAreOnes)
{
    EXPECT_EQ(toStd(AnisotropicScale2d::getIdentityParams()), (Values{1, 1}));
}

} // namespace transform
} // namespace math
} // namespace ovrix
