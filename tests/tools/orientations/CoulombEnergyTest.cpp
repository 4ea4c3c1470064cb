#include <gtest/gtest.h>

#include <cmath>
#include <orientations/CoulombEnergy.h>
#include <orientations/Moves.h>

namespace ovrix
{
namespace orientations
{

TEST(CoulombEnergy, IsOneOverTheDistanceForEachPair)
{
    EXPECT_EQ(static_cast<double>(computeExactEnergy({{0.0, 0.0}})), 0.0);
    EXPECT_NEAR(static_cast<double>(computeExactEnergy({{0.0, 0.0}, {0.0, 3.141592653589793}})), 0.5, 1e-15);
    const double right = 1.5707963267948966;
    EXPECT_NEAR(static_cast<double>(computeExactEnergy({{0.0, 0.0}, {0.0, right}, {right, right}})),
                3.0 / std::sqrt(2.0), 1e-15);
}

TEST(CoulombEnergy, IsTheSameInBothPrecisions)
{
    Generator generator(1);
    for (const std::size_t nbPoints : {2, 3, 17, 64, 101})
    {
        const PointSet points = drawPoints(nbPoints, generator);
        PointSet gradient(nbPoints);
        const double energy = computeEnergy(points, gradient);
        EXPECT_NEAR(energy, static_cast<double>(computeExactEnergy(toRecords(points))), 1e-12 * energy);
    }
}

TEST(CoulombEnergy, HasTheGradientOfItsDifferences)
{
    Generator generator(2);
    const PointSet points = drawPoints(13, generator);
    PointSet gradient(13);
    PointSet unused(13);
    computeEnergy(points, gradient);
    constexpr double step = 1e-5;
    for (std::size_t i = 0; i < points.coordinates().size(); ++i)
    {
        PointSet before = points;
        PointSet after = points;
        before.coordinates()[i] -= step;
        after.coordinates()[i] += step;
        const double slope = (computeEnergy(after, unused) - computeEnergy(before, unused)) / (2.0 * step);
        EXPECT_NEAR(gradient.coordinates()[i], slope, 1e-6 * std::abs(slope) + 1e-6);
    }
}

} // namespace orientations
} // namespace ovrix
