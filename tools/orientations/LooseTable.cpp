#include "LooseTable.h"

#include "CoulombEnergy.h"
#include "Minimiser.h"
#include "TableText.h"

#include <cmath>
#include <stdexcept>

namespace ovrix
{
namespace orientations
{

Records makeLooseTable(const Records& table, double energy, Generator& generator)
{
    constexpr int maxTrials = 100;
    constexpr double ninthDecimal = 1e-9;
    std::normal_distribution<double> offset(0.0, 1e-3);
    Minimiser minimiser(table.size());
    StoppingRule rule;
    rule.energy = energy;
    for (int trial = 0; trial < maxTrials; ++trial)
    {
        PointSet points(table);
        for (double& coordinate : points.coordinates())
            coordinate += offset(generator);
        points.normalise();
        minimiser.minimise(points, rule);
        const Records loose = makeTable(points, generator);
        // Cutting the digits has moved the energy, and the sum above is less exact than this one.
        if (std::abs(computeExactEnergy(loose) - static_cast<long double>(energy)) < 0.4L * ninthDecimal)
            return loose;
    }
    throw std::runtime_error("the energy is not that of a loose table: it may be below the minimum's or far above it");
}

} // namespace orientations
} // namespace ovrix
