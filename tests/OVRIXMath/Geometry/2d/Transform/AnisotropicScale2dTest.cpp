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

TEST(AnisotropicScale2d, TheInverseOfAScaleOfMinusZeroIsPlusZero)
{
    const AnisotropicScale2d scale = makeTransform<AnisotropicScale2d>(makeVector({2, -0.0}));
    EXPECT_EQ(bitsOf(scale.getInvParams()), bitsOf(Values{0.5, 0}));
}

TEST(AnisotropicScale2d, TheInverseOfAScaleThatIsNotANumberIsNotANumberByItself)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const Vector inverse = makeTransform<AnisotropicScale2d>(makeVector({2, nan})).getInvParams();
    EXPECT_EQ(inverse(0), 0.5);
    EXPECT_TRUE(std::isnan(inverse(1)));
}

TEST(AnisotropicScale2d, AScaleOfZeroCanBeInverted)
{
    const AnisotropicScale2d scale = makeTransform<AnisotropicScale2d>(makeVector({2, 0}));
    EXPECT_EQ(toStd(scale.createInverted()->getParams()), (Values{0.5, 0}));
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
