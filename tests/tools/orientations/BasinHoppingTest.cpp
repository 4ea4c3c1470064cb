#include <gtest/gtest.h>

#include <chrono>
#include <orientations/BasinHopping.h>
#include <orientations/Evenness.h>

namespace ovrix
{
namespace orientations
{

namespace
{

using Clock = std::chrono::steady_clock;

} // namespace

TEST(BasinHopping, StartsFromTheMinimumNextToThePoints)
{
    Generator generator(1);
    PointSet points = makeFibonacciSpiral(20);
    const BasinHopping hopping(points, generator, Clock::time_point::max());
    EXPECT_EQ(hopping.getBestEnergy(), Minimiser(20).minimise(points, StoppingRule()).energy);
    EXPECT_EQ(hopping.getBest().coordinates(), points.coordinates());
}

TEST(BasinHopping, FindsAFullyConvergedSetOfLowerEnergyWheneverAHopSaysSo)
{
    Generator generator(1);
    BasinHopping hopping(makeFibonacciSpiral(120), generator, Clock::time_point::max());
    const double start = hopping.getBestEnergy();
    double best = start;
    for (int i = 0; i < 60; ++i)
    {
        if (hopping.hop())
        {
            EXPECT_LT(hopping.getBestEnergy(), best - g_significantFall);
            PointSet points = hopping.getBest();
            EXPECT_LT(Minimiser(120).minimise(points, StoppingRule()).nbIterations, 3u);
            best = hopping.getBestEnergy();
        }
        EXPECT_EQ(hopping.getBestEnergy(), best);
    }
    EXPECT_LT(best, start);
}

TEST(BasinHopping, LeavesASinglePointAlone)
{
    Generator generator(1);
    BasinHopping hopping(PointSet(Records{{1.0, 2.0}}), generator, Clock::time_point::max());
    EXPECT_FALSE(hopping.hop());
    EXPECT_EQ(hopping.getBestEnergy(), 0.0);
}

TEST(BasinHopping, FindsNothingWhenTheTimeIsOver)
{
    Generator generator(1);
    BasinHopping hopping(makeFibonacciSpiral(50), generator, Clock::now());
    EXPECT_TRUE(hopping.isOver());
    for (int i = 0; i < 20; ++i)
        EXPECT_FALSE(hopping.hop());
}

} // namespace orientations
} // namespace ovrix
