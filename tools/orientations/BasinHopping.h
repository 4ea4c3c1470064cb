#pragma once

#include "Minimiser.h"
#include "Moves.h"
#include "PointSet.h"

#include <chrono>
#include <cstddef>

namespace ovrix
{
namespace orientations
{

/// A set is better than another when its energy is lower by more than rounding and better convergence can give.
constexpr double g_significantFall = 1e-6;

/// Searches the set of points of lowest energy by hops between local minima: Wales and Doye, Global optimization by
/// basin-hopping, Journal of Physical Chemistry A 101 (1997).
///
/// A hop moves the points at random (see Moves.h), goes down to the next local minimum, and stays there when that is
/// lower, or higher by less than a random threshold. After a hundred hops without a new lowest energy the search goes
/// back to the best set. It is over when the time is; what a hop was at then is left out.
class BasinHopping
{
public:
    /// Starts from the minimum next to the points, as far as the time allows.
    BasinHopping(const PointSet& start, Generator& generator, std::chrono::steady_clock::time_point end);

    /// Whether the time is over.
    bool isOver() const;

    /// @return whether the hop has found a lower energy than all before
    bool hop();

    /// The best set so far, fully converged unless the time was over before the first hop.
    const PointSet& getBest() const
    {
        return _best;
    }

    double getBestEnergy() const
    {
        return _bestEnergy;
    }

private:
    StoppingRule makeRule(double gradientTolerance) const;
    void goBack();

    Generator& _generator;
    std::chrono::steady_clock::time_point _end;
    Minimiser _minimiser;
    PointSet _best;
    double _bestEnergy = 0.0;
    PointSet _current;
    double _currentEnergy = 0.0;
    PointSet _candidate;
    std::size_t _nbHopsSinceBest = 0;
};

} // namespace orientations
} // namespace ovrix
