#include <OVRIXMath/Geometry/2d/Segment2d.h>
#include <OVRIXMath/Geometry/3d/Segment3d.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <random>
#include <support/AllocationCount.h>
#include <support/NumberTypes.h>
#include <support/SegmentNumbers.h>
#include <type_traits>
#include <utility>

namespace ovrix
{
namespace math
{

using namespace test;

namespace
{

template <class T>
using Point = std::array<T, 3>;

/// Distance and the points given for the closest.
struct Closest
{
    double distance;
    Point<double> onFirst;
    Point<double> onSecond;
};

template <class T>
Closest findClosest(const Point<T>& a, const Point<T>& b, const Point<T>& c, const Point<T>& d)
{
    Closest closest{-3.0, {-4.0, -5.0, -6.0}, {-7.0, -8.0, -9.0}};
    closest.distance = segmentsDistance<T>(a[0], a[1], a[2], b[0], b[1], b[2], c[0], c[1], c[2], d[0], d[1], d[2],
                                           closest.onFirst[0], closest.onFirst[1], closest.onFirst[2],
                                           closest.onSecond[0], closest.onSecond[1], closest.onSecond[2]);
    return closest;
}

template <class T>
bool intersects(const Point<T>& a, const Point<T>& b, const Point<T>& c, const Point<T>& d)
{
    return segmentsIntersects<T>(a[0], a[1], a[2], b[0], b[1], b[2], c[0], c[1], c[2], d[0], d[1], d[2]);
}

/// x and y.
std::array<double, 2> inPlane(const Point<double>& point)
{
    return {point[0], point[1]};
}

/// Four ends.
template <class T>
struct Segments
{
    Point<T> a;
    Point<T> b;
    Point<T> c;
    Point<T> d;
};

/// Segments with small integer coordinates, upright ones among them, but no two points.
template <class T>
Segments<T> drawSegments(std::mt19937& generator)
{
    Segments<T> s;
    do
        s = {drawGridPoint<T, 3>(generator, 6), drawGridPoint<T, 3>(generator, 6), drawGridPoint<T, 3>(generator, 6),
             drawGridPoint<T, 3>(generator, 6)};
    while (s.a == s.b && s.c == s.d);
    return s;
}

/// Whether segmentsDistance<T> can be called with these arguments, the headers of the plane and of space being known.
template <class T, class Enable, class... Arguments>
struct CanMeasure : std::false_type
{
};
template <class T, class... Arguments>
struct CanMeasure<T, std::void_t<decltype(segmentsDistance<T>(std::declval<Arguments>()...))>, Arguments...>
    : std::true_type
{
};

} // namespace

// Intersection

template <class T>
class SegmentsIntersects3d : public ::testing::Test
{
};
TYPED_TEST_SUITE(SegmentsIntersects3d, SegmentNumbers, TypeNames);

TYPED_TEST(SegmentsIntersects3d, IsTrueForACrossing)
{
    EXPECT_TRUE(intersects<TypeParam>({0, 0, 0}, {2, 2, 2}, {0, 2, 1}, {2, 0, 1}));
}

TYPED_TEST(SegmentsIntersects3d, LooksAlongZ)
{
    EXPECT_TRUE(intersects<TypeParam>({0, 0, 0}, {1, 1, 0}, {0, 1, 5}, {1, 0, 5}));
}

TYPED_TEST(SegmentsIntersects3d, CountsACommonEndInProjection)
{
    EXPECT_TRUE(intersects<TypeParam>({0, 0, 0}, {2, 2, 1}, {2, 2, 9}, {5, 1, 3}));
}

TYPED_TEST(SegmentsIntersects3d, CountsACollinearOverlapInProjection)
{
    EXPECT_TRUE(intersects<TypeParam>({0, 0, 0}, {2, 2, 1}, {1, 1, 9}, {3, 3, 3}));
    EXPECT_FALSE(intersects<TypeParam>({0, 0, 0}, {1, 1, 1}, {2, 2, 1}, {3, 3, 1}));
}

TYPED_TEST(SegmentsIntersects3d, IsFalseForSegmentsApart)
{
    EXPECT_FALSE(intersects<TypeParam>({0, 0, 0}, {2, 2, 0}, {0, 1, 0}, {2, 3, 0}));
}

TYPED_TEST(SegmentsIntersects3d, CountsAPointOnASegmentInProjection)
{
    EXPECT_TRUE(intersects<TypeParam>({1, 1, 7}, {1, 1, 7}, {0, 0, 0}, {3, 3, 0}));
    EXPECT_FALSE(intersects<TypeParam>({1, 2, 0}, {1, 2, 0}, {0, 0, 0}, {3, 3, 0}));
}

TYPED_TEST(SegmentsIntersects3d, SeesAnUprightSegmentAsAPoint)
{
    EXPECT_TRUE(intersects<TypeParam>({1, 0, 5}, {1, 0, 9}, {0, 0, 0}, {2, 0, 0}));
    EXPECT_TRUE(intersects<TypeParam>({1, 0, 5}, {1, 0, 9}, {1, 0, 0}, {1, 0, 3}));
    EXPECT_FALSE(intersects<TypeParam>({1, 1, 0}, {1, 1, 9}, {0, 0, 0}, {2, 0, 0}));
    EXPECT_FALSE(intersects<TypeParam>({1, 0, 0}, {1, 0, 9}, {2, 0, 0}, {2, 0, 9}));
}

TYPED_TEST(SegmentsIntersects3d, ComparesTheHeightsOfTwoPoints)
{
    EXPECT_TRUE(intersects<TypeParam>({1, 2, 3}, {1, 2, 3}, {1, 2, 3}, {1, 2, 3}));
    EXPECT_FALSE(intersects<TypeParam>({1, 2, 3}, {1, 2, 3}, {1, 2, 4}, {1, 2, 4}));
}

TYPED_TEST(SegmentsIntersects3d, DoesNotCompareTheHeightsOfAPointAndAnUprightSegment)
{
    EXPECT_TRUE(intersects<TypeParam>({1, 2, 3}, {1, 2, 3}, {1, 2, 0}, {1, 2, 9}));
    EXPECT_TRUE(intersects<TypeParam>({1, 2, 30}, {1, 2, 30}, {1, 2, 0}, {1, 2, 9}));
    EXPECT_TRUE(intersects<TypeParam>({1, 2, 0}, {1, 2, 9}, {1, 2, 30}, {1, 2, 30}));
}

TYPED_TEST(SegmentsIntersects3d, FollowsTheTurnsOfTheEndsInProjection)
{
    std::mt19937 generator(101);
    for (int run = 0; run < 5000; ++run)
    {
        const auto s = drawSegments<TypeParam>(generator);
        EXPECT_EQ(intersects<TypeParam>(s.a, s.b, s.c, s.d), haveCommonPoint(s.a, s.b, s.c, s.d));
    }
}

// Distance

template <class T>
class SegmentsDistance3d : public ::testing::Test
{
};
TYPED_TEST_SUITE(SegmentsDistance3d, SegmentNumbers, TypeNames);

TYPED_TEST(SegmentsDistance3d, IsZeroAtACrossing)
{
    const Closest closest = findClosest<TypeParam>({0, 0, 0}, {4, 4, 4}, {0, 4, 2}, {4, 0, 2});
    EXPECT_EQ(closest.distance, 0.0);
    EXPECT_EQ(closest.onFirst, (Point<double>{2.0, 2.0, 2.0}));
    EXPECT_EQ(closest.onSecond, closest.onFirst);
}

TYPED_TEST(SegmentsDistance3d, IsZeroAtACrossingInProjectionWithTheHeightOfTheFirstSegment)
{
    const Closest closest = findClosest<TypeParam>({0, 0, 1}, {4, 4, 5}, {0, 4, 90}, {4, 0, 70});
    EXPECT_EQ(closest.distance, 0.0);
    EXPECT_EQ(closest.onFirst, (Point<double>{2.0, 2.0, 3.0}));
    EXPECT_EQ(closest.onSecond, closest.onFirst);
}

TYPED_TEST(SegmentsDistance3d, TakesTheHeightAlongTheLongerExtent)
{
    const Closest closest = findClosest<TypeParam>({3, 0, 0}, {3, 8, 4}, {0, 2, 9}, {6, 2, 9});
    EXPECT_EQ(closest.distance, 0.0);
    EXPECT_EQ(closest.onFirst, (Point<double>{3.0, 2.0, 1.0}));
    EXPECT_EQ(closest.onSecond, closest.onFirst);
}

TYPED_TEST(SegmentsDistance3d, TakesTheFirstEndOfAnUprightSegmentAtACrossing)
{
    const Closest closest = findClosest<TypeParam>({1, 0, 5}, {1, 0, 9}, {0, 0, 2}, {2, 0, 2});
    EXPECT_EQ(closest.distance, 0.0);
    EXPECT_EQ(closest.onFirst, (Point<double>{1.0, 0.0, 5.0}));
    EXPECT_EQ(closest.onSecond, closest.onFirst);
}

TYPED_TEST(SegmentsDistance3d, MeasuresTheHeightBetweenTwoPoints)
{
    const Closest closest = findClosest<TypeParam>({1, 2, 3}, {1, 2, 3}, {1, 2, 7}, {1, 2, 7});
    EXPECT_EQ(closest.distance, 4.0);
    EXPECT_EQ(closest.onFirst, (Point<double>{1.0, 2.0, 3.0}));
    EXPECT_EQ(closest.onSecond, (Point<double>{1.0, 2.0, 7.0}));
}

TYPED_TEST(SegmentsDistance3d, TakesTheFirstEndOfTheFirstSegmentWithThePointOfItsDistance)
{
    // The foot of a is (2, 0, 3), the distance 1: the third coordinate repeats the second.
    const Closest closest = findClosest<TypeParam>({2, 1, 3}, {2, 5, 3}, {0, 0, 3}, {9, 0, 3});
    EXPECT_EQ(closest.distance, 1.0);
    EXPECT_EQ(closest.onFirst, (Point<double>{2.0, 1.0, 3.0}));
    EXPECT_EQ(closest.onSecond, (Point<double>{2.0, 0.0, 0.0}));
}

TYPED_TEST(SegmentsDistance3d, TakesTheSecondEndOfTheFirstSegment)
{
    const Closest closest = findClosest<TypeParam>({2, 5, 3}, {3, 1, 3}, {0, 0, 3}, {9, 0, 3});
    EXPECT_EQ(closest.distance, 1.0);
    EXPECT_EQ(closest.onFirst, (Point<double>{3.0, 1.0, 3.0}));
    EXPECT_EQ(closest.onSecond, (Point<double>{3.0, 0.0, 0.0}));
}

TYPED_TEST(SegmentsDistance3d, TakesTheFirstEndOfTheSecondSegment)
{
    const Closest closest = findClosest<TypeParam>({0, 0, 3}, {9, 0, 3}, {2, 1, 3}, {2, 5, 3});
    EXPECT_EQ(closest.distance, 1.0);
    EXPECT_EQ(closest.onFirst, (Point<double>{2.0, 0.0, 0.0}));
    EXPECT_EQ(closest.onSecond, (Point<double>{2.0, 1.0, 3.0}));
}

TYPED_TEST(SegmentsDistance3d, TakesTheSecondEndOfTheSecondSegment)
{
    const Closest closest = findClosest<TypeParam>({0, 0, 3}, {9, 0, 3}, {2, 5, 3}, {3, 1, 3});
    EXPECT_EQ(closest.distance, 1.0);
    EXPECT_EQ(closest.onFirst, (Point<double>{3.0, 0.0, 0.0}));
    EXPECT_EQ(closest.onSecond, (Point<double>{3.0, 1.0, 3.0}));
}

TYPED_TEST(SegmentsDistance3d, KeepsTheFirstCandidateOfParallelSegments)
{
    const Closest closest = findClosest<TypeParam>({0, 1, 2}, {4, 1, 2}, {0, 0, 2}, {4, 0, 2});
    EXPECT_EQ(closest.distance, 1.0);
    EXPECT_EQ(closest.onFirst, (Point<double>{0.0, 1.0, 2.0}));
    EXPECT_EQ(closest.onSecond, (Point<double>{0.0, 0.0, 2.0}));
}

TYPED_TEST(SegmentsDistance3d, MeasuresTheHeightBetweenSegmentsApartInProjection)
{
    const Closest closest = findClosest<TypeParam>({0, 0, 0}, {1, 0, 0}, {3, 3, 6}, {9, 3, 6});
    EXPECT_EQ(closest.distance, 7.0);
    EXPECT_EQ(closest.onFirst, (Point<double>{1.0, 0.0, 0.0}));
    EXPECT_EQ(closest.onSecond, (Point<double>{3.0, 3.0, 6.0}));
}

TYPED_TEST(SegmentsDistance3d, IsTheSmallestOfTheFourOrZero)
{
    std::mt19937 generator(102);
    for (int run = 0; run < 5000; ++run)
    {
        const auto s = drawSegments<TypeParam>(generator);
        const double expected =
            haveCommonPoint(s.a, s.b, s.c, s.d)
                ? 0.0
                : std::min(std::min(distanceToSegment(s.a, s.c, s.d), distanceToSegment(s.b, s.c, s.d)),
                           std::min(distanceToSegment(s.c, s.a, s.b), distanceToSegment(s.d, s.a, s.b)));
        // The distance of two ends is rounded to float at most.
        EXPECT_NEAR(findClosest<TypeParam>(s.a, s.b, s.c, s.d).distance, expected, 2e-6);
    }
}

TYPED_TEST(SegmentsDistance3d, PutsTheCommonPointOnTheFirstSegment)
{
    std::mt19937 generator(103);
    int nbCommon = 0;
    for (int run = 0; run < 5000; ++run)
    {
        const auto s = drawSegments<TypeParam>(generator);
        if (!haveCommonPoint(s.a, s.b, s.c, s.d))
            continue;
        ++nbCommon;
        const Closest closest = findClosest<TypeParam>(s.a, s.b, s.c, s.d);
        EXPECT_EQ(closest.onFirst, closest.onSecond);
        EXPECT_NEAR(distanceToSegment(closest.onFirst, widened(s.a), widened(s.b)), 0.0, 1e-13);
        EXPECT_NEAR(distanceToSegment(inPlane(closest.onSecond), inPlane(widened(s.c)), inPlane(widened(s.d))), 0.0,
                    1e-13);
    }
    EXPECT_GT(nbCommon, 500);
}

TYPED_TEST(SegmentsDistance3d, HasTheSameValueWithoutTheClosestPoints)
{
    std::mt19937 generator(104);
    for (int run = 0; run < 1000; ++run)
    {
        const auto s = drawSegments<TypeParam>(generator);
        EXPECT_EQ(segmentsDistance<TypeParam>(s.a[0], s.a[1], s.a[2], s.b[0], s.b[1], s.b[2], s.c[0], s.c[1], s.c[2],
                                              s.d[0], s.d[1], +s.d[2]),
                  findClosest<TypeParam>(s.a, s.b, s.c, s.d).distance);
    }
}

TYPED_TEST(SegmentsDistance3d, AllocatesNothing)
{
    const Point<TypeParam> apart[] = {{0, 0, 1}, {3, 0, 1}, {0, 2, 1}, {3, 2, 1}};
    const Point<TypeParam> crossing[] = {{0, 0, 1}, {4, 4, 1}, {0, 4, 2}, {4, 0, 2}};
    const Point<TypeParam> overlapping[] = {{0, 0, 1}, {4, 0, 1}, {2, 0, 1}, {8, 0, 1}};
    double sum = 0.0;
    for (const Point<TypeParam>* p : {apart, crossing, overlapping})
        EXPECT_EQ(countSteadyAllocations([&] { sum += findClosest<TypeParam>(p[0], p[1], p[2], p[3]).distance; }), 0u);
}

TEST(SegmentsDistance3dInt, KeepsANaNOfTheFirstCandidate)
{
    const Closest closest = findClosest<int>({50000, 0, 1}, {10, 0, 1}, {0, 0, 1}, {-1, 0, 1});
    EXPECT_TRUE(std::isnan(closest.distance));
    EXPECT_EQ(closest.onFirst, (Point<double>{50000.0, 0.0, 1.0}));
    EXPECT_EQ(closest.onSecond, (Point<double>{0.0, 0.0, 1.0}));
}

TEST(SegmentsDistance3dInt, PrefersADistanceThatWrapsToAShorterOne)
{
    const Closest closest = findClosest<int>({10, 0, 1}, {65536, 0, 1}, {0, 0, 1}, {-1, 0, 1});
    EXPECT_EQ(closest.distance, 0.0);
    EXPECT_EQ(closest.onFirst, (Point<double>{65536.0, 0.0, 1.0}));
    EXPECT_EQ(closest.onSecond, (Point<double>{0.0, 0.0, 1.0}));
}

TEST(SegmentsDistance3dDouble, IsNaNForANaNEnd)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_TRUE(
        std::isnan(findClosest<double>({nan, 0.0, 0.0}, {1.0, 1.0, 0.0}, {5.0, 5.0, 0.0}, {6.0, 5.0, 0.0}).distance));
}

// Twelve arguments, of the plane or of space

TEST(SegmentsDistanceOfTwelveVariables, DoesNotCompileForDouble)
{
    using V = double&;
    EXPECT_FALSE((CanMeasure<double, void, V, V, V, V, V, V, V, V, V, V, V, V>::value));
}

TEST(SegmentsDistanceOfTwelveVariables, IsThatOfSpaceWithAValueAsTheLastArgument)
{
    using V = double&;
    EXPECT_TRUE((CanMeasure<double, void, V, V, V, V, V, V, V, V, V, V, V, double>::value));
}

TEST(SegmentsDistanceOfTwelveVariables, IsThatOfThePlaneThroughAPointer)
{
    double (*const measure)(double, double, double, double, double, double, double, double, double&, double&, double&,
                            double&) = segmentsDistance<double>;
    double x1, y1, x2, y2;
    EXPECT_EQ(measure(0.0, 3.0, 4.0, 3.0, 0.0, 0.0, 4.0, 0.0, x1, y1, x2, y2), 3.0);
    EXPECT_EQ(y1, 3.0);
    EXPECT_EQ(y2, 0.0);
}

TEST(SegmentsDistanceOfTwelveVariables, IsThatOfThePlaneForOtherInputsThanDouble)
{
    double x1, y1, x2, y2;
    EXPECT_EQ(segmentsDistance<int>(0, 3, 4, 3, 0, 0, 4, 0, x1, y1, x2, y2), 3.0);
    EXPECT_EQ(segmentsDistance<float>(0.0f, 3.0f, 4.0f, 3.0f, 0.0f, 0.0f, 4.0f, 0.0f, x1, y1, x2, y2), 3.0);
}

} // namespace math
} // namespace ovrix
