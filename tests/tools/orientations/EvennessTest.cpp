#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <orientations/Evenness.h>
#include <orientations/Moves.h>
#include <vector>

namespace ovrix
{
namespace orientations
{

namespace
{

PointSet makePoints(const std::vector<std::array<double, 3>>& places)
{
    PointSet points(places.size());
    for (std::size_t i = 0; i < places.size(); ++i)
    {
        points.x()[i] = places[i][0];
        points.y()[i] = places[i][1];
        points.z()[i] = places[i][2];
    }
    points.normalise();
    return points;
}

PointSet makeCube()
{
    std::vector<std::array<double, 3>> corners;
    for (int i = 0; i < 8; ++i)
        corners.push_back({i & 1 ? 1.0 : -1.0, i & 2 ? 1.0 : -1.0, i & 4 ? 1.0 : -1.0});
    return makePoints(corners);
}

} // namespace

TEST(DivideSphere, KnowsTheOctahedron)
{
    const SphereDivision division =
        divideSphere(makePoints({{1, 0, 0}, {-1, 0, 0}, {0, 1, 0}, {0, -1, 0}, {0, 0, 1}, {0, 0, -1}}));
    EXPECT_EQ(division.neighbours.size(), 12u);
    EXPECT_NEAR(division.smallestAngle, std::acos(0.0), 1e-12);
    EXPECT_NEAR(division.largestHole, std::acos(1.0 / std::sqrt(3.0)), 1e-12);
}

TEST(DivideSphere, KnowsTheTetrahedron)
{
    const SphereDivision division = divideSphere(makePoints({{1, 1, 1}, {1, -1, -1}, {-1, 1, -1}, {-1, -1, 1}}));
    EXPECT_EQ(division.neighbours.size(), 6u);
    EXPECT_NEAR(division.smallestAngle, std::acos(-1.0 / 3.0), 1e-12);
    EXPECT_NEAR(division.largestHole, std::acos(1.0 / 3.0), 1e-12);
}

TEST(DivideSphere, KnowsTheCubeWhoseFacesHaveFourCorners)
{
    const SphereDivision division = divideSphere(makeCube());
    EXPECT_NEAR(division.smallestAngle, std::acos(1.0 / 3.0), 1e-12);
    EXPECT_NEAR(division.largestHole, std::acos(1.0 / std::sqrt(3.0)), 1e-12);
}

TEST(DivideSphere, FindsAsManyNeighboursAsTrianglesHaveSides)
{
    Generator generator(1);
    EXPECT_EQ(divideSphere(drawPoints(50, generator)).neighbours.size(), 3u * 50u - 6u);
}

TEST(DivideSphere, FindsTheLargestHoleAmongManyPlaces)
{
    Generator generator(2);
    const PointSet points = drawPoints(20, generator);
    const PointSet places = drawPoints(20000, generator);
    double largest = 0.0;
    for (std::size_t i = 0; i < places.size(); ++i)
    {
        double nearest = -1.0;
        for (std::size_t k = 0; k < points.size(); ++k)
            nearest = std::max(nearest, places.x()[i] * points.x()[k] + places.y()[i] * points.y()[k] +
                                            places.z()[i] * points.z()[k]);
        largest = std::max(largest, std::acos(nearest));
    }
    const double hole = divideSphere(points).largestHole;
    EXPECT_GE(hole, largest);
    EXPECT_LT(hole, largest + 0.05);
}

TEST(DivideSphere, KnowsTwoPoints)
{
    const SphereDivision division = divideSphere(makePoints({{1, 0, 0}, {0, 1, 0}}));
    EXPECT_EQ(division.neighbours.size(), 1u);
    EXPECT_NEAR(division.smallestAngle, std::acos(0.0), 1e-12);
    EXPECT_NEAR(division.largestHole, std::acos(-1.0 / std::sqrt(2.0)), 1e-12);
}

TEST(DivideSphere, KnowsTwoPoles)
{
    const SphereDivision division = divideSphere(makePoints({{0, 0, 1}, {0, 0, -1}}));
    EXPECT_NEAR(division.smallestAngle, 2.0 * std::acos(0.0), 1e-12);
    EXPECT_NEAR(division.largestHole, std::acos(0.0), 1e-12);
}

TEST(DivideSphere, FindsAHoleThatIsMoreThanHalfOfTheSphere)
{
    // A flat triangle about +z: the place that is furthest from all three is -z.
    const double c = std::sqrt(0.75);
    const SphereDivision division = divideSphere(makePoints({{1, 0, 2}, {-0.5, c, 2}, {-0.5, -c, 2}}));
    EXPECT_NEAR(division.largestHole, std::acos(-2.0 / std::sqrt(5.0)), 1e-12);

    // The third is so near to the line between the two that the furthest place is as near to them as to no other.
    const SphereDivision arc = divideSphere(makePoints({{1, 0, 0}, {0, 1, 0}, {1, 1, 0.01}}));
    EXPECT_NEAR(arc.largestHole, std::acos(-1.0 / std::sqrt(2.0)), 1e-4);
}

TEST(FibonacciSpiral, HasABandOfEqualAreaForEachPoint)
{
    const PointSet points = makeFibonacciSpiral(10);
    for (std::size_t i = 0; i < 10; ++i)
    {
        EXPECT_NEAR(points.z()[i], 0.9 - 0.2 * static_cast<double>(i), 1e-12);
        EXPECT_NEAR(std::hypot(points.x()[i], points.y()[i], points.z()[i]), 1.0, 1e-12);
    }
}

} // namespace orientations
} // namespace ovrix
