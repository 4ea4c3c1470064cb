#include "BasinHopping.h"

namespace ovrix
{
namespace orientations
{

namespace
{

/// While searching, energies need five decimals only: those of different minima are further apart.
constexpr double g_significantFall = 1e-5;

StoppingRule getRoughRule()
{
    StoppingRule rule;
    rule.gradientTolerance = 2e-3;
    rule.maxIterations = 2000;
    return rule;
}

} // namespace

BasinHopping::BasinHopping(const PointSet& start, Generator& generator)
    : _generator(generator), _minimiser(start.size()), _best(start)
{
    _bestEnergy = _minimiser.minimise(_best, StoppingRule()).energy;
    _current = _best;
    _currentEnergy = _bestEnergy;
}

bool BasinHopping::hop()
{
    if (_best.size() < 2)
        return false;
    if (++_nbHopsSinceBest % 100 == 0)
    {
        _current = _best;
        _currentEnergy = _bestEnergy;
    }
    _candidate = _current;
    moveAtRandom(_candidate, _generator);
    const double energy = _minimiser.minimise(_candidate, getRoughRule()).energy;
    const double threshold = std::exponential_distribution<double>(1.0 / 0.02)(_generator);
    if (!(energy < _currentEnergy + threshold))
        return false;
    _current.coordinates().swap(_candidate.coordinates());
    _currentEnergy = energy;
    if (!(energy < _bestEnergy - g_significantFall))
        return false;
    _bestEnergy = _minimiser.minimise(_current, StoppingRule()).energy;
    _currentEnergy = _bestEnergy;
    _best = _current;
    _nbHopsSinceBest = 0;
    return true;
}

} // namespace orientations
} // namespace ovrix
