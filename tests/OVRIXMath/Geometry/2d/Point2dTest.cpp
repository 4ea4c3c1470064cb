#include <OVRIXMath/Geometry/2d/Point2d.h>

#include <gtest/gtest.h>

#include <array>
#include <cmath>
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

constexpr double g_nan = std::numeric_limits<double>::quiet_NaN();

template <class T>
using Point = std::array<T, 2>;

/// Distance and closest point.
struct Closest
{
    double distance;
    double qx;
    double qy;
};

template <class T>
Closest findClosest(const Point<T>& p, const Point<T>& a, const Point<T>& b)
{
    Closest closest{-7.0, -8.0, -9.0};
    closest.distance = pointSegmentDistance<T>(p[0], p[1], a[0], a[1], b[0], b[1], closest.qx, closest.qy);
    return closest;
}

} // namespace

template <class T>
class PointSegmentDistance2d : public ::testing::Test
{
};
TYPED_TEST_SUITE(PointSegmentDistance2d, SegmentNumbers, TypeNames);

TYPED_TEST(PointSegmentDistance2d, ProjectsBetweenTheEnds)
{
    const Closest closest = findClosest<TypeParam>({3, 7}, {1, 2}, {9, 2});
    EXPECT_EQ(closest.distance, 5.0);
    EXPECT_EQ(closest.qx, 3.0);
    EXPECT_EQ(closest.qy, 2.0);
}

TYPED_TEST(PointSegmentDistance2d, IsPositiveOnBothSides)
{
    EXPECT_EQ(findClosest<TypeParam>({3, 1}, {1, 2}, {9, 2}).distance, 1.0);
    EXPECT_EQ(findClosest<TypeParam>({3, 3}, {1, 2}, {9, 2}).distance, 1.0);
    EXPECT_EQ(findClosest<TypeParam>({3, 3}, {9, 2}, {1, 2}).distance, 1.0);
}

TYPED_TEST(PointSegmentDistance2d, IsZeroOnTheSegment)
{
    const Closest closest = findClosest<TypeParam>({5, 2}, {1, 2}, {9, 2});
    EXPECT_EQ(closest.distance, 0.0);
    EXPECT_EQ(closest.qx, 5.0);
    EXPECT_EQ(closest.qy, 2.0);
}

TYPED_TEST(PointSegmentDistance2d, TakesTheFirstEndBeforeIt)
{
    const Closest closest = findClosest<TypeParam>({1, 6}, {4, 2}, {9, 2});
    EXPECT_EQ(closest.distance, 5.0);
    EXPECT_EQ(closest.qx, 4.0);
    EXPECT_EQ(closest.qy, 2.0);
}

TYPED_TEST(PointSegmentDistance2d, TakesTheSecondEndBehindIt)
{
    const Closest closest = findClosest<TypeParam>({12, 6}, {4, 2}, {9, 2});
    EXPECT_EQ(closest.distance, 5.0);
    EXPECT_EQ(closest.qx, 9.0);
    EXPECT_EQ(closest.qy, 2.0);
}

TYPED_TEST(PointSegmentDistance2d, TakesTheFirstEndOfASegmentWithoutLength)
{
    const Closest closest = findClosest<TypeParam>({1, 6}, {4, 2}, {4, 2});
    EXPECT_EQ(closest.distance, 5.0);
    EXPECT_EQ(closest.qx, 4.0);
    EXPECT_EQ(closest.qy, 2.0);
}

TYPED_TEST(PointSegmentDistance2d, IsThatOfTheProjectionLimitedToTheSegment)
{
    std::mt19937 generator(31);
    for (int run = 0; run < 1000; ++run)
    {
        const auto p = drawGridPoint<TypeParam, 2>(generator, 20);
        const auto a = drawGridPoint<TypeParam, 2>(generator, 20);
        const auto b = drawGridPoint<TypeParam, 2>(generator, 20);
        const Closest closest = findClosest<TypeParam>(p, a, b);
        // The distance to an end is rounded to float at most: 28 * 2^-24.
        EXPECT_NEAR(closest.distance, distanceToSegment(p, a, b), 2e-6);
        EXPECT_NEAR(std::hypot(closest.qx - double(p[0]), closest.qy - double(p[1])), distanceToSegment(p, a, b),
                    1e-13);
    }
}

TYPED_TEST(PointSegmentDistance2d, HasTheSameValueWithoutTheClosestPoint)
{
    std::mt19937 generator(32);
    for (int run = 0; run < 1000; ++run)
    {
        const auto p = drawGridPoint<TypeParam, 2>(generator, 20);
        const auto a = drawGridPoint<TypeParam, 2>(generator, 20);
        const auto b = drawGridPoint<TypeParam, 2>(generator, 20);
        EXPECT_EQ(pointSegmentDistance<TypeParam>(p[0], p[1], a[0], a[1], b[0], b[1]),
                  findClosest<TypeParam>(p, a, b).distance);
    }
}

TYPED_TEST(PointSegmentDistance2d, ComputesTheDistanceToAnEndInItsOwnArithmetic)
{
    std::mt19937 generator(33);
    for (int run = 0; run < 10000; ++run)
    {
        const Point<TypeParam> p{anyValue<TypeParam>(generator), anyValue<TypeParam>(generator)};
        const Point<TypeParam> a{anyValue<TypeParam>(generator), anyValue<TypeParam>(generator)};
        // Where the difference overflows, the product with the direction of no length is NaN, and so is the result.
        if (!std::isfinite(double(p[0]) - double(a[0])) || !std::isfinite(double(p[1]) - double(a[1])))
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

TEST(PointSegmentDistance2dInt, IsNaNWhereTheSumOfSquaresTurnsNegative)
{
    const Closest closest = findClosest<int>({50000, 0}, {-1, 0}, {0, 0});
    EXPECT_TRUE(std::isnan(closest.distance));
    EXPECT_EQ(closest.qx, 0.0);
    EXPECT_EQ(closest.qy, 0.0);
}

TEST(PointSegmentDistance2dInt, WrapsTheSumOfSquares)
{
    EXPECT_EQ(findClosest<int>({70000, 0}, {-1, 0}, {0, 0}).distance, std::sqrt(4900000000.0 - 4294967296.0));
    EXPECT_EQ(findClosest<int>({65536, 0}, {-1, 0}, {0, 0}).distance, 0.0);
}

TEST(PointSegmentDistance2dInt, WrapsTheDifference)
{
    // The difference is 2^32 - 1, which wraps to -1.
    EXPECT_EQ(findClosest<int>({2147483647, 0}, {-2147483648, 0}, {-2147483648, 0}).distance, 1.0);
}

TEST(PointSegmentDistance2dInt, ChoosesTheEndWithoutWrapping)
{
    // The differences between these ends and this point do not fit an int.
    const Closest closest = findClosest<int>({2147483647, 3}, {-2147483648, 0}, {2147483646, 0});
    EXPECT_EQ(closest.distance, std::sqrt(10.0));
    EXPECT_EQ(closest.qx, 2147483646.0);
    EXPECT_EQ(closest.qy, 0.0);
}

TEST(PointSegmentDistance2dInt, DoesNotWrapBetweenTheEnds)
{
    EXPECT_EQ(findClosest<int>({5, 2147483647}, {0, -2147483648}, {10, -2147483648}).distance, 4294967295.0);
}

TEST(PointSegmentDistance2dUnsigned, TakesTheSumOfSquaresUpToTheFull32Bits)
{
    EXPECT_EQ(findClosest<unsigned int>({50001, 0}, {0, 0}, {1, 0}).distance, 50000.0);
}

TEST(PointSegmentDistance2dUnsigned, WrapsTheSumOfSquares)
{
    EXPECT_EQ(findClosest<unsigned int>({70001, 0}, {0, 0}, {1, 0}).distance, std::sqrt(4900000000.0 - 4294967296.0));
    EXPECT_EQ(findClosest<unsigned int>({65537, 0}, {0, 0}, {1, 0}).distance, 0.0);
}

TEST(PointSegmentDistance2dUnsigned, TakesDifferencesOfEitherSign)
{
    const Closest closest = findClosest<unsigned int>({0, 0}, {3, 4}, {5, 6});
    EXPECT_EQ(closest.distance, 5.0);
    EXPECT_EQ(closest.qx, 3.0);
    EXPECT_EQ(closest.qy, 4.0);
}

TEST(PointSegmentDistance2dUnsigned, FindsDirectionsWithoutWrapping)
{
    const Closest closest = findClosest<unsigned int>({4, 7}, {9, 2}, {1, 2});
    EXPECT_EQ(closest.distance, 5.0);
    EXPECT_EQ(closest.qx, 4.0);
    EXPECT_EQ(closest.qy, 2.0);
}

TEST(PointSegmentDistance2dFloat, ComputesTheDistanceToAnEndInSinglePrecision)
{
    // 4097^2 + 1 rounds to 2^24 + 2^13, whose root rounds to 4097.
    EXPECT_EQ(findClosest<float>({4097.0f, 1.0f}, {-1.0f, 0.0f}, {0.0f, 0.0f}).distance, 4097.0);
    EXPECT_GT(findClosest<double>({4097.0, 1.0}, {-1.0, 0.0}, {0.0, 0.0}).distance, 4097.0001);
}

TEST(PointSegmentDistance2dFloat, OverflowsToInfinityAtAnEnd)
{
    EXPECT_EQ(findClosest<float>({1e20f, 0.0f}, {-1.0f, 0.0f}, {0.0f, 0.0f}).distance,
              std::numeric_limits<double>::infinity());
}

TEST(PointSegmentDistance2dFloat, IsOfDoublePrecisionBetweenTheEnds)
{
    // The diagonal at (0, 1), from widened coordinates.
    EXPECT_NEAR(findClosest<float>({0.0f, 1.0f}, {-3.0f, -3.0f}, {3.0f, 3.0f}).distance, std::sqrt(0.5), 1e-15);
    EXPECT_EQ(findClosest<float>({0.0f, 1e20f}, {-1.0f, 0.0f}, {1.0f, 0.0f}).distance, double(1e20f));
}

TEST(PointSegmentDistance2dDouble, IsZeroBesideASegmentShorterThanEpsilon)
{
    const Closest closest = findClosest<double>({0.5e-16, 3.0}, {0.0, 0.0}, {1e-16, 0.0});
    EXPECT_EQ(closest.distance, 0.0);
    EXPECT_EQ(closest.qx, 0.5e-16);
    EXPECT_EQ(closest.qy, 3.0);
}

TEST(PointSegmentDistance2dDouble, ProjectsOnASegmentOfEpsilon)
{
    const Closest closest = findClosest<double>({0x1p-53, 3.0}, {0.0, 0.0}, {0x1p-52, 0.0});
    EXPECT_EQ(closest.distance, 3.0);
    EXPECT_EQ(closest.qx, 0x1p-53);
    EXPECT_EQ(closest.qy, 0.0);
}

TEST(PointSegmentDistance2dDouble, TakesTheFirstEndWhereTheProjectionMeetsIt)
{
    // A projection would give the same point with another sign of zero.
    const Closest closest = findClosest<double>({0.0, 1.0}, {-0.0, -0.0}, {1.0, 0.0});
    EXPECT_EQ(closest.distance, 1.0);
    EXPECT_TRUE(std::signbit(closest.qx));
    EXPECT_TRUE(std::signbit(closest.qy));
}

TEST(PointSegmentDistance2dDouble, ProjectsWhereTheProjectionMeetsTheSecondEnd)
{
    const Closest closest = findClosest<double>({1.0, 1.0}, {0.0, 0.0}, {1.0, -0.0});
    EXPECT_EQ(closest.distance, 1.0);
    EXPECT_EQ(closest.qx, 1.0);
    EXPECT_EQ(closest.qy, 0.0);
    EXPECT_FALSE(std::signbit(closest.qy));
}

TEST(PointSegmentDistance2dDouble, GivesNaNForANaNPointOrFirstEnd)
{
    for (int position = 0; position < 4; ++position)
    {
        double values[] = {0.0, 1.0, -1.0, 0.5};
        values[position] = g_nan;
        const Closest closest = findClosest<double>({values[0], values[1]}, {values[2], values[3]}, {1.0, 2.0});
        EXPECT_TRUE(std::isnan(closest.distance));
        EXPECT_TRUE(std::isnan(closest.qx));
        EXPECT_TRUE(std::isnan(closest.qy));
    }
}

TEST(PointSegmentDistance2dDouble, IsZeroForANaNSecondEnd)
{
    // A length of NaN is not above epsilon either, and the point itself is taken.
    for (const Point<double>& b : {Point<double>{g_nan, 2.0}, Point<double>{1.0, g_nan}})
    {
        const Closest closest = findClosest<double>({0.0, 1.0}, {-1.0, 0.5}, b);
        EXPECT_EQ(closest.distance, 0.0);
        EXPECT_EQ(closest.qx, 0.0);
        EXPECT_EQ(closest.qy, 1.0);
    }
}

} // namespace math
} // namespace ovrix
