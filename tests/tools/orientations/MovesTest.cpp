#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <orientations/CoulombEnergy.h>
#include <orientations/Minimiser.h>
#include <orientations/Moves.h>

namespace ovrix
{
namespace orientations
{

namespace
{

constexpr std::size_t g_nbPoints = 60;

PointSet makeEvenPoints(Generator& generator)
{
    PointSet points = drawPoints(g_nbPoints, generator);
    Minimiser(g_nbPoints).minimise(points, StoppingRule());
    return points;
}

double distance(const PointSet& a, const PointSet& b, std::size_t i)
{
    return std::hypot(a.x()[i] - b.x()[i], a.y()[i] - b.y()[i], a.z()[i] - b.z()[i]);
}

std::size_t countMoved(const PointSet& a, const PointSet& b)
{
    std::size_t nbMoved = 0;
    for (std::size_t i = 0; i < a.size(); ++i)
        nbMoved += distance(a, b, i) > 1e-9 ? 1 : 0;
    return nbMoved;
}

void expectOnSphere(const PointSet& points)
{
    for (std::size_t i = 0; i < points.size(); ++i)
        EXPECT_NEAR(std::hypot(points.x()[i], points.y()[i], points.z()[i]), 1.0, 1e-12);
}

} // namespace

TEST(Moves, DrawPointsOverTheWholeSphere)
{
    Generator generator(1);
    const PointSet points = drawPoints(8000, generator);
    expectOnSphere(points);
    std::size_t octants[8] = {};
    for (std::size_t i = 0; i < points.size(); ++i)
        ++octants[(points.x()[i] > 0.0 ? 1 : 0) + (points.y()[i] > 0.0 ? 2 : 0) + (points.z()[i] > 0.0 ? 4 : 0)];
    for (const std::size_t count : octants)
        EXPECT_NEAR(static_cast<double>(count), 1000.0, 5 * 30.0);
}

TEST(Moves, TurnThePointsAsAWhole)
{
    Generator generator(2);
    const PointSet points = makeEvenPoints(generator);
    PointSet turned = points;
    turnAtRandom(turned, generator);
    EXPECT_GT(countMoved(points, turned), g_nbPoints - 3);
    PointSet gradient(g_nbPoints);
    EXPECT_NEAR(computeEnergy(turned, gradient), computeEnergy(points, gradient), 1e-9);
}

TEST(Moves, JiggleSomePointsALittle)
{
    Generator generator(3);
    const PointSet points = makeEvenPoints(generator);
    for (int i = 0; i < 20; ++i)
    {
        PointSet jiggled = points;
        jigglePoints(jiggled, generator);
        expectOnSphere(jiggled);
        EXPECT_GT(countMoved(points, jiggled), 0u);
        for (std::size_t k = 0; k < g_nbPoints; ++k)
            EXPECT_LT(distance(points, jiggled, k), 1.5);
    }
}

TEST(Moves, MoveUpToThreePoints)
{
    Generator generator(4);
    const PointSet points = makeEvenPoints(generator);
    std::size_t counts[4] = {};
    for (int i = 0; i < 60; ++i)
    {
        PointSet moved = points;
        movePoints(moved, generator);
        expectOnSphere(moved);
        ASSERT_LE(countMoved(points, moved), 3u);
        ++counts[countMoved(points, moved)];
    }
    EXPECT_EQ(counts[0], 0u);
    for (std::size_t nbMoved = 1; nbMoved <= 3; ++nbMoved)
        EXPECT_GT(counts[nbMoved], 0u);
}

TEST(Moves, TwistACapAsAWhole)
{
    Generator generator(5);
    const PointSet points = makeEvenPoints(generator);
    PointSet twisted = points;
    twistCap(twisted, generator);
    expectOnSphere(twisted);
    // Distances within the cap stay.
    for (std::size_t i = 0; i < g_nbPoints; ++i)
    {
        for (std::size_t j = 0; j < i; ++j)
        {
            const bool bSameSide = (distance(points, twisted, i) > 1e-9) == (distance(points, twisted, j) > 1e-9);
            const auto apart = [=](const PointSet& set)
            { return std::hypot(set.x()[i] - set.x()[j], set.y()[i] - set.y()[j], set.z()[i] - set.z()[j]); };
            if (bSameSide)
            {
                EXPECT_NEAR(apart(points), apart(twisted), 1e-9);
            }
        }
    }
    EXPECT_GT(countMoved(points, twisted), 0u);
    EXPECT_LT(countMoved(points, twisted), g_nbPoints);
}

} // namespace orientations
} // namespace ovrix
