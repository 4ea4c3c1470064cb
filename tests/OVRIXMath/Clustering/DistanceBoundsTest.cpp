#include <OVRIXMath/Clustering/DistanceBounds.h>
#include <OVRIXMath/Clustering/SampleTable.h>

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

namespace ovrix
{
namespace math
{
namespace clustering
{
namespace details
{

namespace
{

using Point = std::vector<double>;

/// A point whose coordinates are of about this power of two.
Point makePoint(std::mt19937& generator, std::size_t dimension, int exponent)
{
    std::uniform_real_distribution<double> uniform(-1.0, 1.0);
    Point point(dimension);
    for (double& coordinate : point)
        coordinate = std::ldexp(uniform(generator), exponent);
    return point;
}

/// The distance with 11 more bits, and a larger range, than the computed one.
long double exactDistance(const Point& a, const Point& b)
{
    long double sum = 0.0L;
    for (std::size_t j = 0; j < a.size(); ++j)
    {
        const long double difference = static_cast<long double>(a[j]) - b[j];
        sum += difference * difference;
    }
    return std::sqrt(sum);
}

double computedSquare(const Point& a, const Point& b)
{
    return squaredDistance(a.data(), b.data(), a.size());
}

} // namespace

TEST(DistanceBounds, BracketTheDistanceAtAnyScale)
{
    std::mt19937 generator(1);
    for (const int exponent : {-560, -538, -530, -500, -300, -1, 0, 1, 20, 399})
    {
        for (const std::size_t dimension : {1u, 2u, 3u, 16u, 1000u})
        {
            for (int repeat = 0; repeat < 50; ++repeat)
            {
                const DistanceBounds bounds(dimension);
                const Point a = makePoint(generator, dimension, exponent);
                const Point b = makePoint(generator, dimension, exponent);
                const long double distance = exactDistance(a, b);
                EXPECT_GE(bounds.getUpper(computedSquare(a, b)), distance);
                EXPECT_LE(bounds.getLower(computedSquare(a, b)), distance);
            }
        }
    }
}

TEST(DistanceBounds, AreCloseToTheDistance)
{
    const DistanceBounds bounds(16);
    EXPECT_LT(bounds.getUpper(4.0), 2.0 * (1.0 + 1e-14));
    EXPECT_GT(bounds.getLower(4.0), 2.0 * (1.0 - 1e-14));
    EXPECT_LT(bounds.getClearBound(2.0), 2.0 * (1.0 + 1e-13));
}

TEST(DistanceBounds, ALowerBoundIsNeverBelowZero)
{
    EXPECT_EQ(DistanceBounds(3).getLower(0.0), 0.0);
}

TEST(DistanceBounds, BeyondTheClearBoundTheComputedSquareIsLarger)
{
    // Of points at nearly equal distances, those that the bounds tell apart have computed squares in the same order.
    std::mt19937 generator(2);
    std::size_t nbToldApart = 0;
    for (const int exponent : {-520, -499, -100, 0, 300})
    {
        for (int repeat = 0; repeat < 20000; ++repeat)
        {
            const std::size_t dimension = 1 + generator() % 4;
            const DistanceBounds bounds(dimension);
            const Point origin(dimension, 0.0);
            const Point a = makePoint(generator, dimension, exponent);
            Point b = a;
            for (double& coordinate : b)
                coordinate *= 1.0 + std::ldexp(static_cast<double>(generator() % 64), -50);
            const double squareA = computedSquare(a, origin);
            const double squareB = computedSquare(b, origin);
            if (bounds.getClearBound(bounds.getUpper(squareA)) < bounds.getLower(squareB))
            {
                ++nbToldApart;
                EXPECT_LT(squareA, squareB);
            }
        }
    }
    EXPECT_GT(nbToldApart, 1000u);
}

TEST(DistanceBounds, SumsAndDifferencesStayBounds)
{
    std::mt19937 generator(3);
    std::uniform_real_distribution<double> uniform;
    for (int repeat = 0; repeat < 10000; ++repeat)
    {
        const double a = std::ldexp(uniform(generator), static_cast<int>(generator() % 60) - 30);
        const double b = std::ldexp(uniform(generator), static_cast<int>(generator() % 60) - 30);
        const long double exactA = a;
        EXPECT_GE(DistanceBounds::addUpper(a, b), exactA + b);
        if (a >= b)
        {
            EXPECT_LE(DistanceBounds::subtractUpper(a, b), exactA - b);
        }
        else
        {
            EXPECT_LT(DistanceBounds::subtractUpper(a, b), 0.0);
        }
    }
}

} // namespace details
} // namespace clustering
} // namespace math
} // namespace ovrix
