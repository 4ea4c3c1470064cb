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

using Point = test::Transforms3d::Point;
using Values = std::vector<double>;

TEST(Similarity3d, FollowsTheFormulas)
{
    std::mt19937 generator(1);
    for (int i = 0; i < 200; ++i)
    {
        const Vector params = drawParams<Similarity3d>(generator);
        const Point p = drawPoint<test::Transforms3d>(generator);
        const double scale = params(0), tx = params(4), ty = params(5), tz = params(6);
        const Values r =
            getEntries(makeTransform<Rotation3d>(makeVector({params(1), params(2), params(3)})).getHomogenousMatrix());
        const Similarity3d similarity = makeTransform<Similarity3d>(params);
        EXPECT_EQ(map(similarity, p), (Point{scale * (r[0] * p[0] + r[1] * p[1] + r[2] * p[2]) + tx,
                                             scale * (r[4] * p[0] + r[5] * p[1] + r[6] * p[2]) + ty,
                                             scale * (r[8] * p[0] + r[9] * p[1] + r[10] * p[2]) + tz}));
        EXPECT_EQ(getEntries(similarity.getHomogenousMatrix()),
                  (Values{scale * r[0], scale * r[1], scale * r[2], tx, scale * r[4], scale * r[5], scale * r[6], ty,
                          scale * r[8], scale * r[9], scale * r[10], tz, 0, 0, 0, 1}));

        double rz = params(1), ry = params(2), rx = params(3);
        Rotation3d::getInvParams(rz, ry, rx);
        const double k = 1.0 / scale;
        EXPECT_EQ(toStd(similarity.getInvParams()),
                  (Values{scale, rz, ry, rx, -(r[0] * tx + r[4] * ty + r[8] * tz) * k,
                          -(r[1] * tx + r[5] * ty + r[9] * tz) * k, -(r[2] * tx + r[6] * ty + r[10] * tz) * k}));
    }
}

TEST(Similarity3d, TheInverseKeepsTheScaleAndDividesTheTranslationByIt)
{
    const Similarity3d similarity = makeTransform<Similarity3d>(makeVector({2, 0, 0, 0, 4, 6, 8}));
    EXPECT_EQ(toStd(similarity.getInvParams()), (Values{2, 0, 0, 0, -2, -3, -4}));
    EXPECT_EQ(toStd(similarity.createInverted()->getParams()), (Values{2, 0, 0, 0, -2, -3, -4}));
    EXPECT_EQ(map(*similarity.createInverted(), map(similarity, {1, 1, 1})), (Point{10, 13, 16}));
}

TEST(Similarity3d, TheInverseOfScaleZeroHasNoTranslation)
{
    for (const double zero : {0.0, -0.0})
    {
        const Similarity3d similarity = makeTransform<Similarity3d>(makeVector({zero, 0, 0, 0, 4, 6, 8}));
        EXPECT_EQ(toStd(similarity.getInvParams()), (Values{0, 0, 0, 0, 0, 0, 0}));
        EXPECT_EQ(bitsOf(similarity.getInvParams()(0)), bitsOf(zero));
        EXPECT_EQ(toStd(similarity.createInverted()->getParams()), (Values{0, 0, 0, 0, 0, 0, 0}));
    }
}

TEST(Similarity3d, TheInverseKeepsAScaleThatIsNotANumberToTheBit)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const Vector inverse = makeTransform<Similarity3d>(makeVector({nan, 0, 0.5, 0, 4, 6, 8})).getInvParams();
    EXPECT_EQ(bitsOf(inverse(0)), bitsOf(nan));
    EXPECT_EQ(inverse(1), 0.0);
    EXPECT_NEAR(inverse(2), -0.5, 1e-15);
    EXPECT_EQ(inverse(3), 0.0);
    for (std::size_t i = 4; i < 7; ++i)
        EXPECT_TRUE(std::isnan(inverse(i)));
}

TEST(Similarity3d, TheInverseOfAGimbalRotationHasNoAngleAboutZ)
{
    const Vector inverse = makeTransform<Similarity3d>(makeVector({2, 0.3, M_PI_2, 0.3, 0, 0, 0})).getInvParams();
    EXPECT_EQ(inverse(1), 0.0);
    EXPECT_EQ(inverse(2), -M_PI_2);
}

TEST(Similarity3d, TheStaticFormIsThatOfTheObject)
{
    double scale = 2, rz = 0.1, ry = 0.2, rx = 0.3, tx = 4, ty = 5, tz = 6;
    Similarity3d::getInvParams(scale, rz, ry, rx, tx, ty, tz);
    EXPECT_EQ((Values{scale, rz, ry, rx, tx, ty, tz}),
              toStd(makeTransform<Similarity3d>(makeVector({2, 0.1, 0.2, 0.3, 4, 5, 6})).getInvParams()));
}

TEST(Similarity3d, TheIdentityParametersHaveScaleOne)
{
    EXPECT_EQ(toStd(Similarity3d::getIdentityParams()), (Values{1, 0, 0, 0, 0, 0, 0}));
}

} // namespace transform
} // namespace math
} // namespace ovrix
