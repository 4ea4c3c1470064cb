#include <gtest/gtest.h>

#include <cmath>
#include <orientations/Vector3.h>

namespace ovrix
{
namespace orientations
{

TEST(Vector3, IsAPointOfASet)
{
    PointSet points(2);
    points.coordinates() = {1.0, 2.0, 3.0, 4.0, 5.0, 6.0};
    EXPECT_EQ(getPoint(points, 0), (Vector3{1.0, 3.0, 5.0}));
    EXPECT_EQ(getPoint(points, 1), (Vector3{2.0, 4.0, 6.0}));
}

TEST(Vector3, HasProductsWithOthers)
{
    const Vector3 a{1.0, 2.0, 3.0};
    const Vector3 b{-2.0, 5.0, 7.0};
    EXPECT_EQ(dot(a, b), 29.0);
    EXPECT_EQ(cross(a, b), (Vector3{-1.0, -13.0, 9.0}));
}

TEST(ToAngle, IsTheArcOfTheCosine)
{
    EXPECT_EQ(toAngle(1.0), 0.0);
    EXPECT_DOUBLE_EQ(toAngle(0.5), g_pi / 3.0);
    EXPECT_EQ(toAngle(-1.0), g_pi);
}

TEST(ToAngle, TakesWhatRoundingHasTakenTooFar)
{
    EXPECT_EQ(toAngle(std::nextafter(1.0, 2.0)), 0.0);
    EXPECT_EQ(toAngle(std::nextafter(-1.0, -2.0)), g_pi);
}

} // namespace orientations
} // namespace ovrix
