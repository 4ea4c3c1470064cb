#include <gtest/gtest.h>

#include <cmath>
#include <support/Builders.h>
#include <support/Transforms.h>

namespace ovrix
{
namespace math
{
namespace transform
{

using test::drawParams;
using test::drawPoint;
using test::getEntries;
using test::makeTransform;
using test::makeVector;
using test::map;
using test::toStd;

using Point = test::Transforms3d::Point;
using Values = std::vector<double>;

/// The rotation matrix of the same angles, row by row with zeros in the fourth column.
Values rotationOf(const Vector& params)
{
    return getEntries(makeTransform<Rotation3d>(makeVector({params(0), params(1), params(2)})).getHomogenousMatrix());
}

TEST(Rigid3d, TurnsThenTranslates)
{
    const Point image = map(makeTransform<Rigid3d>(makeVector({M_PI_2, 0, 0, 10, 20, 30})), {1, 0, 0});
    EXPECT_NEAR(image[0], 10.0, 1e-15);
    EXPECT_EQ(image[1], 21.0);
    EXPECT_EQ(image[2], 30.0);
}

TEST(Rigid3d, FollowsTheFormulas)
{
    std::mt19937 generator(1);
    for (int i = 0; i < 200; ++i)
    {
        const Vector params = drawParams<Rigid3d>(generator);
        const Point p = drawPoint<test::Transforms3d>(generator);
        const Values r = rotationOf(params);
        const double tx = params(3), ty = params(4), tz = params(5);
        const Rigid3d rigid = makeTransform<Rigid3d>(params);
        EXPECT_EQ(map(rigid, p),
                  (Point{(r[0] * p[0] + r[1] * p[1] + r[2] * p[2]) + tx, (r[4] * p[0] + r[5] * p[1] + r[6] * p[2]) + ty,
                         (r[8] * p[0] + r[9] * p[1] + r[10] * p[2]) + tz}));
        EXPECT_EQ(getEntries(rigid.getHomogenousMatrix()),
                  (Values{r[0], r[1], r[2], tx, r[4], r[5], r[6], ty, r[8], r[9], r[10], tz, 0, 0, 0, 1}));

        double rz = params(0), ry = params(1), rx = params(2);
        Rotation3d::getInvParams(rz, ry, rx);
        EXPECT_EQ(toStd(rigid.getInvParams()),
                  (Values{rz, ry, rx, -(r[0] * tx + r[4] * ty + r[8] * tz), -(r[1] * tx + r[5] * ty + r[9] * tz),
                          -(r[2] * tx + r[6] * ty + r[10] * tz)}));
    }
}

TEST(Rigid3d, TheInverseTakesAPointBackInTheGimbalCase)
{
    const Rigid3d gimbal = makeTransform<Rigid3d>(makeVector({0.4, M_PI_2, 0.4, 1, 2, 3}));
    const Point back = map(*gimbal.createInverted(), map(gimbal, {4, 5, 6}));
    // The angles of the gimbal case are right to sqrt(epsilon).
    EXPECT_NEAR(back[0], 4.0, 1e-6);
    EXPECT_NEAR(back[1], 5.0, 1e-6);
    EXPECT_NEAR(back[2], 6.0, 1e-6);
    EXPECT_EQ(gimbal.getInvParams()(0), 0.0);
}

TEST(Rigid3d, TheStaticFormIsThatOfTheObject)
{
    double rz = 0.1, ry = 0.2, rx = 0.3, tx = 4, ty = 5, tz = 6;
    Rigid3d::getInvParams(rz, ry, rx, tx, ty, tz);
    EXPECT_EQ((Values{rz, ry, rx, tx, ty, tz}),
              toStd(makeTransform<Rigid3d>(makeVector({0.1, 0.2, 0.3, 4, 5, 6})).getInvParams()));
}

TEST(Rigid3d, TheIdentityParametersAreZeros)
{
    EXPECT_EQ(toStd(Rigid3d::getIdentityParams()), (Values{0, 0, 0, 0, 0, 0}));
}

} // namespace transform
} // namespace math
} // namespace ovrix
