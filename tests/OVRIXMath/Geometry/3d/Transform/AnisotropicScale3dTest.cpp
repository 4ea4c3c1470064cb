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

TEST(AnisotropicScale3d, MultipliesEachCoordinateByItsScale)
{
    EXPECT_EQ(map(makeTransform<AnisotropicScale3d>(makeVector({2, -3, 4})), {5, 7, 9}), (Point{10, -21, 36}));
}

TEST(AnisotropicScale3d, TheInverseOfAScaleOfZeroIsZeroByItself)
{
    EXPECT_EQ(toStd(makeTransform<AnisotropicScale3d>(makeVector({2, 0, 4})).getInvParams()), (Values{0.5, 0, 0.25}));
}

TEST(AnisotropicScale3d, TheInverseOfAScaleOfMinusZeroIsPlusZero)
{
    const AnisotropicScale3d scale = makeTransform<AnisotropicScale3d>(makeVector({2, -0.0, 4}));
    EXPECT_EQ(bitsOf(scale.getInvParams()), bitsOf(Values{0.5, 0, 0.25}));
}

TEST(AnisotropicScale3d, TheInverseOfAScaleThatIsNotANumberIsNotANumberByItself)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const Vector inverse = makeTransform<AnisotropicScale3d>(makeVector({2, nan, 4})).getInvParams();
    EXPECT_EQ(inverse(0), 0.5);
    EXPECT_TRUE(std::isnan(inverse(1)));
}

TEST(AnisotropicScale3d, AScaleOfZeroCanBeInverted)
{
    const AnisotropicScale3d scale = makeTransform<AnisotropicScale3d>(makeVector({2, 0, 4}));
    EXPECT_EQ(toStd(scale.createInverted()->getParams()), (Values{0.5, 0, 0.25}));
}

TEST(AnisotropicScale3d, BothMatricesAreThatOfTheTransform)
{
    const AnisotropicScale3d scale = makeTransform<AnisotropicScale3d>(makeVector({2, 3, 4}));
    const Values expected{2, 0, 0, 0, 0, 3, 0, 0, 0, 0, 4, 0, 0, 0, 0, 1};
    EXPECT_EQ(getEntries(scale.getHomogenousMatrix()), expected);
    EXPECT_EQ(getEntries(scale.getInvHomogenousMatrix()), expected);
}

TEST(AnisotropicScale3d, TheIdentityParametersAreOnes)
{
    EXPECT_EQ(toStd(AnisotropicScale3d::getIdentityParams()), (Values{1, 1, 1}));
}

} // namespace transform
} // namespace math
} // namespace ovrix
