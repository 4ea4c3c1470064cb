#include <gtest/gtest.h>

#include <orientations/CoulombEnergy.h>
#include <orientations/LooseTable.h>
#include <orientations/Minimiser.h>
#include <orientations/TableText.h>
#include <stdexcept>

namespace ovrix
{
namespace orientations
{

namespace
{

constexpr double g_minimum = 412.261274650529;

Records makeConvergedTable(Generator& generator)
{
    PointSet points = drawPoints(32, generator);
    Minimiser(32).minimise(points, StoppingRule());
    return makeTable(points, generator);
}

} // namespace

TEST(LooseTable, HasTheEnergyToNineDecimals)
{
    Generator generator(1);
    const Records table = makeConvergedTable(generator);
    ASSERT_NEAR(static_cast<double>(computeExactEnergy(table)), g_minimum, 1e-9);
    const Records loose = makeLooseTable(table, 412.261274720, generator);
    EXPECT_NEAR(static_cast<double>(computeExactEnergy(loose)), 412.261274720, 0.5e-9);
}

TEST(LooseTable, IsNextToTheSameMinimum)
{
    Generator generator(1);
    const Records loose = makeLooseTable(makeConvergedTable(generator), 412.2613, generator);
    PointSet points(loose);
    EXPECT_NEAR(Minimiser(32).minimise(points, StoppingRule()).energy, g_minimum, 1e-9);
}

TEST(LooseTable, CannotBeBelowTheMinimum)
{
    Generator generator(1);
    const Records table = makeConvergedTable(generator);
    EXPECT_THROW(makeLooseTable(table, 412.2612, generator), std::runtime_error);
}

} // namespace orientations
} // namespace ovrix
