#include <OVRIXMath/Geometry/2d/Segment2d.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <random>
#include <support/AllocationCount.h>
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
using Point = std::array<T, 2>;

/// Distance and closest points.
struct Closest
{
    double distance;
    Point<double> onFirst;
    Point<double> onSecond;
};

template <class T>
Closest findClosest(const Point<T>& a, const Point<T>& b, const Point<T>& c, const Point<T>& d)
{
    Closest closest{-5.0, {-6.0, -7.0}, {-8.0, -9.0}};
    closest.distance = segmentsDistance<T>(a[0], a[1], b[0], b[1], c[0], c[1], d[0], d[1], closest.onFirst[0],
                                           closest.onFirst[1], closest.onSecond[0], closest.onSecond[1]);
    return closest;
}

template <class T>
bool intersects(const Point<T>& a, const Point<T>& b, const Point<T>& c, const Point<T>& d)
{
    return segmentsIntersects<T>(a[0], a[1], b[0], b[1], c[0], c[1], d[0], d[1]);
}

void expectPoint(double x, double y, const Point<double>& point)
{
    EXPECT_EQ(point[0], x);
    EXPECT_EQ(point[1], y);
}

} // namespace

// Intersection

template <class T>
class SegmentsIntersects2d : public ::testing::Test
{
};
TYPED_TEST_SUITE(SegmentsIntersects2d, SegmentNumbers, TypeNames);

TYPED_TEST(SegmentsIntersects2d, IsTrueForACrossing)
{
    EXPECT_TRUE(intersects<TypeParam>({0, 0}, {2, 2}, {0, 2}, {2, 0}));
}

TYPED_TEST(SegmentsIntersects2d, IsFalseForSegmentsApart)
{
    EXPECT_FALSE(intersects<TypeParam>({0, 0}, {2, 2}, {0, 1}, {2, 3}));
}

TYPED_TEST(SegmentsIntersects2d, IsFalseWhereOnlyTheLinesCross)
{
    EXPECT_FALSE(intersects<TypeParam>({0, 0}, {1, 1}, {0, 4}, {4, 0}));
}

TYPED_TEST(SegmentsIntersects2d, CountsACommonEnd)
{
    EXPECT_TRUE(intersects<TypeParam>({0, 0}, {2, 2}, {2, 2}, {5, 1}));
}

TYPED_TEST(SegmentsIntersects2d, CountsAnEndInside)
{
    EXPECT_TRUE(intersects<TypeParam>({0, 0}, {2, 2}, {1, 1}, {5, 1}));
}

TYPED_TEST(SegmentsIntersects2d, CountsACollinearOverlap)
{
    EXPECT_TRUE(intersects<TypeParam>({0, 0}, {2, 2}, {1, 1}, {3, 3}));
}

TYPED_TEST(SegmentsIntersects2d, IsFalseForACollinearGap)
{
    EXPECT_FALSE(intersects<TypeParam>({0, 0}, {1, 1}, {2, 2}, {3, 3}));
}

TYPED_TEST(SegmentsIntersects2d, CountsAPointOnASegment)
{
    EXPECT_TRUE(intersects<TypeParam>({1, 1}, {1, 1}, {0, 0}, {3, 3}));
    EXPECT_FALSE(intersects<TypeParam>({1, 2}, {1, 2}, {0, 0}, {3, 3}));
}

TYPED_TEST(SegmentsIntersects2d, CountsTwoEqualPoints)
{
    EXPECT_TRUE(intersects<TypeParam>({1, 2}, {1, 2}, {1, 2}, {1, 2}));
    EXPECT_FALSE(intersects<TypeParam>({1, 2}, {1, 2}, {2, 1}, {2, 1}));
}

TYPED_TEST(SegmentsIntersects2d, FollowsTheTurnsOfTheEnds)
{
    std::mt19937 generator(41);
    for (int run = 0; run < 5000; ++run)
    {
        const auto a = drawGridPoint<TypeParam, 2>(generator, 6);
        const auto b = drawGridPoint<TypeParam, 2>(generator, 6);
        const auto c = drawGridPoint<TypeParam, 2>(generator, 6);
        const auto d = drawGridPoint<TypeParam, 2>(generator, 6);
        EXPECT_EQ(intersects<TypeParam>(a, b, c, d), haveCommonPoint(a, b, c, d));
    }
}

TEST(SegmentsIntersects2dDouble, BridgesAGapOfEpsilon)
{
    EXPECT_TRUE(intersects<double>({0.0, 0.0}, {1.0, 0.0}, {1.0 + 0x1p-52, 0.0}, {2.0, 0.0}));
}

TEST(SegmentsIntersects2dDouble, DoesNotBridgeALargerGap)
{
    EXPECT_FALSE(intersects<double>({0.0, 0.0}, {1.0, 0.0}, {1.0 + 0x1p-48, 0.0}, {2.0, 0.0}));
}

TEST(SegmentsIntersects2dInt, DoesNotOverflow)
{
    constexpr int lowest = std::numeric_limits<int>::lowest();
    constexpr int highest = std::numeric_limits<int>::max();
    EXPECT_TRUE(intersects<int>({lowest, lowest}, {highest, highest}, {lowest, highest}, {highest, lowest}));
}

// Distance

template <class T>
class SegmentsDistance2d : public ::testing::Test
{
};
TYPED_TEST_SUITE(SegmentsDistance2d, SegmentNumbers, TypeNames);

TYPED_TEST(SegmentsDistance2d, IsZeroAtACrossing)
{
    const Closest closest = findClosest<TypeParam>({0, 0}, {4, 4}, {0, 4}, {4, 0});
    EXPECT_EQ(closest.distance, 0.0);
    expectPoint(2.0, 2.0, closest.onFirst);
    expectPoint(2.0, 2.0, closest.onSecond);
}

TYPED_TEST(SegmentsDistance2d, TakesTheFirstEndOfTheFirstSegment)
{
    const Closest closest = findClosest<TypeParam>({2, 1}, {2, 5}, {0, 0}, {9, 0});
    EXPECT_EQ(closest.distance, 1.0);
    expectPoint(2.0, 1.0, closest.onFirst);
    expectPoint(2.0, 0.0, closest.onSecond);
}

TYPED_TEST(SegmentsDistance2d, TakesTheSecondEndOfTheFirstSegment)
{
    const Closest closest = findClosest<TypeParam>({2, 5}, {3, 1}, {0, 0}, {9, 0});
    EXPECT_EQ(closest.distance, 1.0);
    expectPoint(3.0, 1.0, closest.onFirst);
    expectPoint(3.0, 0.0, closest.onSecond);
}

TYPED_TEST(SegmentsDistance2d, TakesTheFirstEndOfTheSecondSegment)
{
    const Closest closest = findClosest<TypeParam>({0, 0}, {9, 0}, {2, 1}, {2, 5});
    EXPECT_EQ(closest.distance, 1.0);
    expectPoint(2.0, 0.0, closest.onFirst);
    expectPoint(2.0, 1.0, closest.onSecond);
}

TYPED_TEST(SegmentsDistance2d, TakesTheSecondEndOfTheSecondSegment)
{
    const Closest closest = findClosest<TypeParam>({0, 0}, {9, 0}, {2, 5}, {3, 1});
    EXPECT_EQ(closest.distance, 1.0);
    expectPoint(3.0, 0.0, closest.onFirst);
    expectPoint(3.0, 1.0, closest.onSecond);
}

TYPED_TEST(SegmentsDistance2d, KeepsTheFirstCandidateOfParallelSegments)
{
    const Closest closest = findClosest<TypeParam>({0, 3}, {4, 3}, {0, 0}, {4, 0});
    EXPECT_EQ(closest.distance, 3.0);
    expectPoint(0.0, 3.0, closest.onFirst);
    expectPoint(0.0, 0.0, closest.onSecond);
}

TYPED_TEST(SegmentsDistance2d, KeepsTheEarlierOfTheOtherCandidates)
{
    // a is far; b, c and d are all at 1.
    const Closest closest = findClosest<TypeParam>({0, 9}, {0, 1}, {0, 0}, {0, 0});
    EXPECT_EQ(closest.distance, 1.0);
    expectPoint(0.0, 1.0, closest.onFirst);
    expectPoint(0.0, 0.0, closest.onSecond);

    // Only c and d are near, at the same distance.
    const Closest second = findClosest<TypeParam>({0, 0}, {9, 0}, {3, 1}, {5, 1});
    EXPECT_EQ(second.distance, 1.0);
    expectPoint(3.0, 0.0, second.onFirst);
    expectPoint(3.0, 1.0, second.onSecond);
}

TYPED_TEST(SegmentsDistance2d, GivesACommonPointOfOverlappingSegments)
{
    const Closest closest = findClosest<TypeParam>({0, 0}, {4, 0}, {2, 0}, {6, 0});
    EXPECT_EQ(closest.distance, 0.0);
    EXPECT_EQ(closest.onFirst, closest.onSecond);
    EXPECT_EQ(closest.onFirst[1], 0.0);
    EXPECT_GE(closest.onFirst[0], 2.0);
    EXPECT_LE(closest.onFirst[0], 4.0);
}

TYPED_TEST(SegmentsDistance2d, IsTheSmallestOfTheFourOrZero)
{
    std::mt19937 generator(42);
    for (int run = 0; run < 5000; ++run)
    {
        const auto a = drawGridPoint<TypeParam, 2>(generator, 8);
        const auto b = drawGridPoint<TypeParam, 2>(generator, 8);
        const auto c = drawGridPoint<TypeParam, 2>(generator, 8);
        const auto d = drawGridPoint<TypeParam, 2>(generator, 8);
        const Closest closest = findClosest<TypeParam>(a, b, c, d);
        const double expected = haveCommonPoint(a, b, c, d)
                                    ? 0.0
                                    : std::min(std::min(distanceToSegment(a, c, d), distanceToSegment(b, c, d)),
                                               std::min(distanceToSegment(c, a, b), distanceToSegment(d, a, b)));
        // The distance of two ends is rounded to float at most.
        EXPECT_NEAR(closest.distance, expected, 2e-6);
    }
}

TYPED_TEST(SegmentsDistance2d, GivesAPointOnEachSegment)
{
    std::mt19937 generator(43);
    for (int run = 0; run < 5000; ++run)
    {
        const auto a = drawGridPoint<TypeParam, 2>(generator, 8);
        const auto b = drawGridPoint<TypeParam, 2>(generator, 8);
        const auto c = drawGridPoint<TypeParam, 2>(generator, 8);
        const auto d = drawGridPoint<TypeParam, 2>(generator, 8);
        const Closest closest = findClosest<TypeParam>(a, b, c, d);
        EXPECT_NEAR(distanceToSegment(closest.onFirst, widened(a), widened(b)), 0.0, 1e-13);
        EXPECT_NEAR(distanceToSegment(closest.onSecond, widened(c), widened(d)), 0.0, 1e-13);
        EXPECT_NEAR(std::hypot(closest.onFirst[0] - closest.onSecond[0], closest.onFirst[1] - closest.onSecond[1]),
                    closest.distance, 2e-6);
    }
}

TYPED_TEST(SegmentsDistance2d, HasTheSameValueWithoutTheClosestPoints)
{
    std::mt19937 generator(44);
    for (int run = 0; run < 1000; ++run)
    {
        const auto a = drawGridPoint<TypeParam, 2>(generator, 8);
        const auto b = drawGridPoint<TypeParam, 2>(generator, 8);
        const auto c = drawGridPoint<TypeParam, 2>(generator, 8);
        const auto d = drawGridPoint<TypeParam, 2>(generator, 8);
        EXPECT_EQ(segmentsDistance<TypeParam>(a[0], a[1], b[0], b[1], c[0], c[1], d[0], d[1]),
                  findClosest<TypeParam>(a, b, c, d).distance);
    }
}

TYPED_TEST(SegmentsDistance2d, AllocatesNothing)
{
    const Point<TypeParam> apart[] = {{0, 0}, {3, 0}, {0, 2}, {3, 2}};
    const Point<TypeParam> crossing[] = {{0, 0}, {4, 4}, {0, 4}, {4, 0}};
    const Point<TypeParam> overlapping[] = {{0, 0}, {4, 0}, {2, 0}, {8, 0}};
    double sum = 0.0;
    for (const Point<TypeParam>* p : {apart, crossing, overlapping})
        EXPECT_EQ(countSteadyAllocations([&] { sum += findClosest<TypeParam>(p[0], p[1], p[2], p[3]).distance; }), 0u);
}

// What the arithmetic of the types does

TEST(SegmentsDistance2dInt, KeepsANaNOfTheFirstCandidate)
{
    // a is 50000 from the end c, whose square is negative as an int; b is at 10.
    const Closest closest = findClosest<int>({50000, 0}, {10, 0}, {0, 0}, {-1, 0});
    EXPECT_TRUE(std::isnan(closest.distance));
    expectPoint(50000.0, 0.0, closest.onFirst);
    expectPoint(0.0, 0.0, closest.onSecond);
}

TEST(SegmentsDistance2dInt, PassesOverANaNOfALaterCandidate)
{
    const Closest closest = findClosest<int>({10, 0}, {50000, 0}, {0, 0}, {-1, 0});
    EXPECT_EQ(closest.distance, 10.0);
    expectPoint(10.0, 0.0, closest.onFirst);
    expectPoint(0.0, 0.0, closest.onSecond);
}

TEST(SegmentsDistance2dInt, PrefersADistanceThatWrapsToAShorterOne)
{
    // b is 65536 from the end c: the square wraps to 0.
    const Closest closest = findClosest<int>({10, 0}, {65536, 0}, {0, 0}, {-1, 0});
    EXPECT_EQ(closest.distance, 0.0);
    expectPoint(65536.0, 0.0, closest.onFirst);
    expectPoint(0.0, 0.0, closest.onSecond);
}

TEST(SegmentsDistance2dUnsigned, DoesNotWrapBelowZero)
{
    const Closest closest = findClosest<unsigned int>({9, 9}, {5, 4}, {0, 0}, {2, 0});
    EXPECT_EQ(closest.distance, 5.0);
    expectPoint(5.0, 4.0, closest.onFirst);
    expectPoint(2.0, 0.0, closest.onSecond);
}

TEST(SegmentsDistance2dFloat, ComparesTheCandidatesAsTheirTypeRoundsThem)
{
    // Both ends of the first segment are at 4097 from d in single precision, so that the earlier one stays, although
    // the later one is nearer.
    const Closest closest = findClosest<float>({4097.0f, 1.0f}, {4097.0f, 0.0f}, {-1.0f, 0.0f}, {0.0f, 0.0f});
    EXPECT_EQ(closest.distance, 4097.0);
    expectPoint(4097.0, 1.0, closest.onFirst);
    expectPoint(0.0, 0.0, closest.onSecond);
}

TEST(SegmentsDistance2dDouble, IsNaNForANaNEnd)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_TRUE(std::isnan(findClosest<double>({nan, 0.0}, {1.0, 1.0}, {5.0, 5.0}, {6.0, 5.0}).distance));
}

} // namespace math
} // namespace ovrix
