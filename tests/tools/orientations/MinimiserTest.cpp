#include <gtest/gtest.h>

#include <cmath>
#include <orientations/CoulombEnergy.h>
#include <orientations/Minimiser.h>
#include <orientations/Moves.h>
#include <support/AllocationCount.h>

namespace ovrix
{
namespace orientations
{

TEST(Minimiser, ReachesTheOneMinimumOfFewPoints)
{
    const double energies[] = {0.0, 0.5, 1.732050808, 3.674234614, 6.474691495, 9.985281374};
    Generator generator(1);
    for (std::size_t nbPoints = 1; nbPoints <= 6; ++nbPoints)
    {
        PointSet points = drawPoints(nbPoints, generator);
        const Minimum minimum = Minimiser(nbPoints).minimise(points, StoppingRule());
        EXPECT_NEAR(minimum.energy, energies[nbPoints - 1], 1e-9);
        EXPECT_LE(minimum.gradient, 1e-10);
    }
}

TEST(Minimiser, LeavesPointsOfLengthOneAtTheEnergyThatItTells)
{
    Generator generator(2);
    PointSet points = drawPoints(50, generator);
    const Minimum minimum = Minimiser(50).minimise(points, StoppingRule());
    for (std::size_t i = 0; i < points.size(); ++i)
        EXPECT_NEAR(std::hypot(points.x()[i], points.y()[i], points.z()[i]), 1.0, 1e-14);
    EXPECT_NEAR(minimum.energy, static_cast<double>(computeExactEnergy(toRecords(points))), 1e-9);
}

TEST(Minimiser, EndsAtTheWantedEnergy)
{
    Generator generator(3);
    PointSet points = drawPoints(12, generator);
    StoppingRule rule;
    rule.energy = 49.2;
    const Minimum minimum = Minimiser(12).minimise(points, rule);
    EXPECT_NEAR(minimum.energy, 49.2, 1e-12);
    EXPECT_GT(minimum.gradient, 1e-3);
}

TEST(Minimiser, EndsAtTheLargestNumberOfIterations)
{
    Generator generator(4);
    PointSet points = drawPoints(100, generator);
    StoppingRule rule;
    rule.maxIterations = 7;
    EXPECT_EQ(Minimiser(100).minimise(points, rule).nbIterations, 7u);
}

TEST(Minimiser, AllocatesNothingOnceItIsMade)
{
    Generator generator(5);
    PointSet points = drawPoints(40, generator);
    Minimiser minimiser(40);
    const std::size_t nbAllocations = test::getNbAllocations();
    minimiser.minimise(points, StoppingRule());
    EXPECT_EQ(test::getNbAllocations(), nbAllocations);
}

TEST(Minimiser, KnowsNoGradientWhereTwoPointsAreTheSame)
{
    // The gradient of the third, which comes behind theirs, is a number.
    PointSet points(Records{{1.0, 1.0}, {1.0, 1.0}, {2.0, 2.0}});
    EXPECT_TRUE(std::isnan(Minimiser(3).minimise(points, StoppingRule()).gradient));
}

TEST(Minimiser, TakesNoStepWhenTheTimeIsOver)
{
    Generator generator(1);
    PointSet points = drawPoints(20, generator);
    const std::vector<double> before = points.coordinates();
    StoppingRule rule;
    rule.end = std::chrono::steady_clock::now();
    EXPECT_EQ(Minimiser(20).minimise(points, rule).nbIterations, 0u);
    for (std::size_t i = 0; i < before.size(); ++i)
        EXPECT_NEAR(points.coordinates()[i], before[i], 1e-15);
}

} // namespace orientations
} // namespace ovrix
