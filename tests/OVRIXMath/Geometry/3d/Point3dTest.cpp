#include <OVRIXMath/Geometry/3d/Point3d.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <random>
#include <support/NumberTypes.h>
#include <support/SegmentNumbers.h>

namespace ovrix
{
namespace math
{

using namespace test;

namespace
{

template <class T>
using Point = std::array<T, 3>;

/// Distance and the point given for the closest.
struct Closest
{
    double distance;
    Point<double> q;
};

template <class T>
Closest findClosest(const Point<T>& p, const Point<T>& a, const Point<T>& b)
{
    Closest closest{-6.0, {-7.0, -8.0, -9.0}};
    closest.distance = pointSegmentDistance<T>(p[0], p[1], p[2], a[0], a[1], a[2], b[0], b[1], b[2], closest.q[0],
                                               closest.q[1], closest.q[2]);
    return closest;
}

} // namespace

template <class T>
class PointSegmentDistance3d : public ::testing::Test
{
};
TYPED_TEST_SUITE(PointSegmentDistance3d, SegmentNumbers, TypeNames);

TYPED_TEST(PointSegmentDistance3d, TakesTheFirstEndBeforeIt)
{
    const Closest closest = findClosest<TypeParam>({2, 4, 5}, {4, 7, 11}, {9, 7, 11});
    EXPECT_EQ(closest.distance, 7.0);
    EXPECT_EQ(closest.q, (Point<double>{4.0, 7.0, 11.0}));
}

TYPED_TEST(PointSegmentDistance3d, TakesTheSecondEndBehindIt)
{
    const Closest closest = findClosest<TypeParam>({11, 4, 5}, {4, 7, 11}, {9, 7, 11});
    EXPECT_EQ(closest.distance, 7.0);
    EXPECT_EQ(closest.q, (Point<double>{9.0, 7.0, 11.0}));
}

TYPED_TEST(PointSegmentDistance3d, TakesTheFirstEndOfASegmentWithoutLength)
{
    const Closest closest = findClosest<TypeParam>({2, 4, 5}, {4, 7, 11}, {4, 7, 11});
    EXPECT_EQ(closest.distance, 7.0);
    EXPECT_EQ(closest.q, (Point<double>{4.0, 7.0, 11.0}));
}

TYPED_TEST(PointSegmentDistance3d, StretchesTheWayToTheFootByTheDistanceAndRepeatsItsSecondCoordinate)
{
    // The foot is (3, 4, 7), the way to it (0, -3, -4), the distance 5.
    const Closest closest = findClosest<TypeParam>({3, 7, 11}, {1, 4, 7}, {9, 4, 7});
    EXPECT_EQ(closest.distance, 5.0);
    EXPECT_EQ(closest.q, (Point<double>{3.0, -8.0, -8.0}));
}

TYPED_TEST(PointSegmentDistance3d, ReachesTheFootAtADistanceOfOne)
{
    // The third coordinate repeats the second nevertheless.
    const Closest closest = findClosest<TypeParam>({3, 5, 7}, {1, 4, 7}, {9, 4, 7});
    EXPECT_EQ(closest.distance, 1.0);
    EXPECT_EQ(closest.q, (Point<double>{3.0, 4.0, 4.0}));
}

TYPED_TEST(PointSegmentDistance3d, RepeatsTheSecondCoordinateOfAPointOnTheSegment)
{
    const Closest closest = findClosest<TypeParam>({3, 4, 7}, {1, 4, 7}, {9, 4, 7});
    EXPECT_EQ(closest.distance, 0.0);
    EXPECT_EQ(closest.q, (Point<double>{3.0, 4.0, 4.0}));
}

TYPED_TEST(PointSegmentDistance3d, IsThatOfTheProjectionLimitedToTheSegment)
{
    std::mt19937 generator(91);
    for (int run = 0; run < 1000; ++run)
    {
        const auto p = drawGridPoint<TypeParam, 3>(generator, 20);
        const auto a = drawGridPoint<TypeParam, 3>(generator, 20);
        const auto b = drawGridPoint<TypeParam, 3>(generator, 20);
        // The distance to an end is rounded to float at most: 35 * 2^-24.
        EXPECT_NEAR(findClosest<TypeParam>(p, a, b).distance, distanceToSegment(p, a, b), 2.1e-6);
    }
}

TYPED_TEST(PointSegmentDistance3d, GivesThePointMadeFromTheFootBetweenTheEnds)
{
    std::mt19937 generator(92);
    for (int run = 0; run < 1000; ++run)
    {
        const auto p = widened(drawGridPoint<TypeParam, 3>(generator, 20));
        const auto a = widened(drawGridPoint<TypeParam, 3>(generator, 20));
        const auto b = widened(drawGridPoint<TypeParam, 3>(generator, 20));
        const double ux = b[0] - a[0], uy = b[1] - a[1], uz = b[2] - a[2];
        const double along = (p[0] - a[0]) * ux + (p[1] - a[1]) * uy + (p[2] - a[2]) * uz;
        const double squaredLength = ux * ux + uy * uy + uz * uz;
        const auto narrow = [](const Point<double>& point)
        {
            return Point<TypeParam>{static_cast<TypeParam>(point[0]), static_cast<TypeParam>(point[1]),
                                    static_cast<TypeParam>(point[2])};
        };
        const Closest closest = findClosest<TypeParam>(narrow(p), narrow(a), narrow(b));
        if (along <= 0.0)
            EXPECT_EQ(closest.q, a);
        else if (along > squaredLength)
            EXPECT_EQ(closest.q, b);
        else
        {
            const double d = distanceToSegment(p, a, b);
            const double t = along / squaredLength;
            EXPECT_NEAR(closest.q[0], p[0] + (a[0] + t * ux - p[0]) * d, 1e-11);
            EXPECT_NEAR(closest.q[1], p[1] + (a[1] + t * uy - p[1]) * d, 1e-11);
            EXPECT_EQ(closest.q[2], closest.q[1]);
        }
    }
}

TYPED_TEST(PointSegmentDistance3d, HasTheSameValueWithoutTheClosestPoint)
{
    std::mt19937 generator(93);
    for (int run = 0; run < 1000; ++run)
    {
        const auto p = drawGridPoint<TypeParam, 3>(generator, 20);
        const auto a = drawGridPoint<TypeParam, 3>(generator, 20);
        const auto b = drawGridPoint<TypeParam, 3>(generator, 20);
        EXPECT_EQ(pointSegmentDistance<TypeParam>(p[0], p[1], p[2], a[0], a[1], a[2], b[0], b[1], b[2]),
                  findClosest<TypeParam>(p, a, b).distance);
    }
}

TYPED_TEST(PointSegmentDistance3d, ComputesTheDistanceToAnEndInItsOwnArithmetic)
{
    std::mt19937 generator(94);
    for (int run = 0; run < 10000; ++run)
    {
        Point<TypeParam> p, a;
        bool bFinite = true;
        for (std::size_t i = 0; i < 3; ++i)
        {
            p[i] = anyValue<TypeParam>(generator);
            a[i] = anyValue<TypeParam>(generator);
            bFinite = bFinite && std::isfinite(double(p[i]) - double(a[i]));
        }
        // Where the difference overflows, the product with the direction of no length is NaN, and so is the result.
        if (!bFinite)
            continue;
        const double distance = findClosest<TypeParam>(p, a, a).distance;
        const double expected = distanceToEnd(p, a);
        if (std::isnan(expected))
            EXPECT_TRUE(std::isnan(distance));
        else
            EXPECT_EQ(distance, expected);
    }
}

// What each type does in its own way

TEST(PointSegmentDistance3dInt, IsNaNWhereTheSumOfSquaresTurnsNegative)
{
    const Closest closest = findClosest<int>({30000, 30000, 30000}, {-1, 0, 0}, {0, 0, 0});
    EXPECT_TRUE(std::isnan(closest.distance));
    EXPECT_EQ(closest.q, (Point<double>{0.0, 0.0, 0.0}));
}

TEST(PointSegmentDistance3dInt, WrapsTheSumOfSquares)
{
    EXPECT_EQ(findClosest<int>({40000, 40000, 40000}, {-1, 0, 0}, {0, 0, 0}).distance,
              std::sqrt(4800000000.0 - 4294967296.0));
}

TEST(PointSegmentDistance3dUnsigned, TakesTheSumOfSquaresUpToTheFull32Bits)
{
    EXPECT_EQ(findClosest<unsigned int>({30001, 30000, 30000}, {0, 0, 0}, {1, 0, 0}).distance, std::sqrt(2700000000.0));
}

TEST(PointSegmentDistance3dUnsigned, WrapsTheSumOfSquares)
{
    EXPECT_EQ(findClosest<unsigned int>({40001, 40000, 40000}, {0, 0, 0}, {1, 0, 0}).distance,
              std::sqrt(4800000000.0 - 4294967296.0));
}

TEST(PointSegmentDistance3dFloat, ComputesTheDistanceToAnEndInSinglePrecision)
{
    // 4097^2 + 1 rounds to 2^24 + 2^13, whose root rounds to 4097.
    EXPECT_EQ(findClosest<float>({4097.0f, 0.0f, 1.0f}, {-1.0f, 0.0f, 0.0f}, {0.0f, 0.0f, 0.0f}).distance, 4097.0);
}

TEST(PointSegmentDistance3dDouble, StretchesTheWayToTheFootByTheDistance)
{
    const Closest closest = findClosest<double>({0.0, 2.0, 1.0}, {-1.0, 0.0, 0.0}, {1.0, 0.0, 0.0});
    EXPECT_EQ(closest.distance, std::sqrt(5.0));
    EXPECT_EQ(closest.q[0], 0.0);
    EXPECT_EQ(closest.q[1], 2.0 - 2.0 * std::sqrt(5.0));
    EXPECT_EQ(closest.q[2], closest.q[1]);
}

TEST(PointSegmentDistance3dDouble, MeasuresBesideASegmentShorterThanEpsilon)
{
    const Closest closest = findClosest<double>({0.5e-16, 3.0, 0.0}, {0.0, 0.0, 0.0}, {1e-16, 0.0, 0.0});
    EXPECT_EQ(closest.distance, 3.0);
}

TEST(PointSegmentDistance3dDouble, TakesTheFirstEndWhereTheProjectionMeetsIt)
{
    const Closest closest = findClosest<double>({0.0, 3.0, 4.0}, {0.0, 0.0, 0.0}, {1.0, 0.0, 0.0});
    EXPECT_EQ(closest.distance, 5.0);
    EXPECT_EQ(closest.q, (Point<double>{0.0, 0.0, 0.0}));
}

TEST(PointSegmentDistance3dDouble, TreatsAProjectionOnTheSecondEndAsBetweenTheEnds)
{
    const Closest closest = findClosest<double>({1.0, 3.0, 4.0}, {0.0, 0.0, 0.0}, {1.0, 0.0, 0.0});
    EXPECT_EQ(closest.distance, 5.0);
    EXPECT_EQ(closest.q, (Point<double>{1.0, -12.0, -12.0}));
}

TEST(PointSegmentDistance3dDouble, GivesNaNForNaN)
{
    for (std::size_t position = 0; position < 9; ++position)
    {
        std::array<double, 9> v{0.0, 1.0, 2.0, -1.0, 0.5, 0.0, 1.0, 2.0, 3.0};
        v[position] = std::numeric_limits<double>::quiet_NaN();
        const Closest closest = findClosest<double>({v[0], v[1], v[2]}, {v[3], v[4], v[5]}, {v[6], v[7], v[8]});
        EXPECT_TRUE(std::isnan(closest.distance));
        for (const double coordinate : closest.q)
            EXPECT_TRUE(std::isnan(coordinate));
    }
}

} // namespace math
} // namespace ovrix
