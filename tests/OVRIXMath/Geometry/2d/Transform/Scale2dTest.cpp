#include <gtest/gtest.h>

#include <cmath>
#include <limits>
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

TEST(Scale2d, MultipliesBothCoordinates)
{
    EXPECT_EQ(map(makeTransform<Scale2d>(makeVector({-2})), {0.5, 3}), (Point{-1, -6}));
}

TEST(Scale2d, TheIdentityParameterIsZero)
{
    EXPECT_EQ(toStd(Scale2d::getIdentityParams()), Values{0});
}

TEST(Scale2d, SetIdentityCollapsesEveryPointToTheOrigin)
{
    Scale2d scale;
    scale.setIdentity();
    EXPECT_EQ(map(scale, {3, 4}), (Point{0, 0}));
}

TEST(Scale2d, FreshFromTheFactoryKeepsEveryPoint)
{
    EXPECT_EQ(map(*Transform2dFactory::createTransform(eGT2DT_Scale), {3, 4}), (Point{3, 4}));
}

TEST(Scale2d, TheInverseParameterIsTheInverseScale)
{
    EXPECT_EQ(toStd(makeTransform<Scale2d>(makeVector({4})).getInvParams()), Values{0.25});
}

TEST(Scale2d, TheInverseOfScaleZeroIsZero)
{
    for (const double zero : {0.0, -0.0})
    {
        const Scale2d scale = makeTransform<Scale2d>(makeVector({zero}));
        EXPECT_EQ(toStd(scale.getInvParams()), Values{0});
        EXPECT_FALSE(std::signbit(scale.getInvParams()(0)));
        EXPECT_EQ(toStd(scale.createInverted()->getParams()), Values{0});
    }
}

TEST(Scale2d, NoToleranceIsAppliedToTheScale)
{
    const double tiny = std::numeric_limits<double>::min();
    EXPECT_EQ(toStd(makeTransform<Scale2d>(makeVector({tiny})).getInvParams()), Values{1.0 / tiny});
}

TEST(Scale2d, TheInverseOfAScaleThatIsNotANumberIsNotANumber)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_TRUE(std::isnan(makeTransform<Scale2d>(makeVector({nan})).getInvParams()(0)));
}

TEST(Scale2d, BothMatricesAreThatOfTheTransform)
{
    const Scale2d scale = makeTransform<Scale2d>(makeVector({2}));
    EXPECT_EQ(getEntries(scale.getHomogenousMatrix()), (Values{2, 0, 0, 0, 2, 0, 0, 0, 1}));
    EXPECT_EQ(getEntries(scale.getInvHomogenousMatrix()), (Values{2, 0, 0, 0, 2, 0, 0, 0, 1}));
}

} // namespace transform
} // namespace math
} // namespace ovrix
