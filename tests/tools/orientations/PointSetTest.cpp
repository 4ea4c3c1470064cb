#include <gtest/gtest.h>

#include <cmath>
#include <orientations/PointSet.h>
#include <vector>

namespace ovrix
{
namespace orientations
{

TEST(PointSet, HoldsTheUnitVectorsOfTheRecords)
{
    const PointSet points(Records{{0.0, 0.0}, {1.0, 2.0}});
    ASSERT_EQ(points.size(), 2u);
    EXPECT_EQ(points.x()[0], 0.0);
    EXPECT_EQ(points.z()[0], 1.0);
    EXPECT_DOUBLE_EQ(points.x()[1], std::sin(2.0) * std::cos(1.0));
    EXPECT_DOUBLE_EQ(points.y()[1], std::sin(2.0) * std::sin(1.0));
    EXPECT_DOUBLE_EQ(points.z()[1], std::cos(2.0));
}

TEST(PointSet, ScalesEveryPointToLengthOne)
{
    PointSet points(2);
    points.coordinates() = {3.0, 0.0, 0.0, -0.5, 4.0, 0.0};
    points.normalise();
    EXPECT_DOUBLE_EQ(points.x()[0], 0.6);
    EXPECT_DOUBLE_EQ(points.z()[0], 0.8);
    EXPECT_DOUBLE_EQ(points.y()[1], -1.0);
}

TEST(MaxLength, IsThatOfTheLongestPoint)
{
    EXPECT_EQ(getMaxLength({}), 0.0);
    EXPECT_EQ(getMaxLength({-3.0, 0.0, -4.0}), 5.0);
    EXPECT_EQ(getMaxLength({1.0, 2.0, 0.5, 2.0, 3.0, 0.5, 2.0, 6.0, 0.5}), 7.0);
}

TEST(MaxLength, IsNotANumberWhereALengthIsNone)
{
    for (std::size_t i = 0; i < 9; ++i)
    {
        std::vector<double> coordinates(9, 1.0);
        coordinates[i] = std::nan("");
        EXPECT_TRUE(std::isnan(getMaxLength(coordinates))) << i;
    }
}

TEST(PointSet, TellsTheAnglesOfItsPoints)
{
    const Records expected{{0.5, 1.0}, {3.5, 2.0}, {6.25, 3.0}};
    const Records records = toRecords(PointSet(expected));
    ASSERT_EQ(records.size(), 3u);
    for (std::size_t i = 0; i < 3; ++i)
    {
        EXPECT_NEAR(records[i].phi, expected[i].phi, 1e-14);
        EXPECT_NEAR(records[i].theta, expected[i].theta, 1e-14);
    }
}

} // namespace orientations
} // namespace ovrix
