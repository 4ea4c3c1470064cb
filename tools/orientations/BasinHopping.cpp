#include "BasinHopping.h"

#include <random>

namespace ovrix
{
namespace orientations
{

namespace
{

constexpr double g_meanThreshold = 0.02;
constexpr std::size_t g_patience = 100;

/// While hopping, a minimum need not be reached to the end: the energy is then above the minimum's by less than
/// `g_roughness`, but for the few descents that linger near a saddle.
constexpr double g_roughGradient = 2e-3;
constexpr double g_roughness = 1e-4;

/// Tells energies apart by less than `g_significantFall`.
constexpr double g_fineGradient = 1e-5;

constexpr double g_fullGradient = 1e-10;

} // namespace

BasinHopping::BasinHopping(const PointSet& start, Generator& generator, std::chrono::steady_clock::time_point end)
    : _generator(generator), _end(end), _minimiser(start.size()), _best(start)
{
    _bestEnergy = _minimiser.minimise(_best, makeRule(g_fullGradient)).energy;
    goBack();
}

bool BasinHopping::isOver() const
{
    return std::chrono::steady_clock::now() >= _end;
}

bool BasinHopping::hop()
{
    if (_best.size() < 2)
        return false;
    if (_nbHopsSinceBest == g_patience)
        goBack();
    ++_nbHopsSinceBest;
    _candidate = _current;
    moveAtRandom(_candidate, _generator);
    double energy = _minimiser.minimise(_candidate, makeRule(g_roughGradient)).energy;
    if (energy < _bestEnergy + g_roughness)
        energy = _minimiser.minimise(_candidate, makeRule(g_fineGradient)).energy;
    const double threshold = std::exponential_distribution<double>(1.0 / g_meanThreshold)(_generator);
    if (!(energy < _currentEnergy + threshold))
        return false;
    _current.coordinates().swap(_candidate.coordinates());
    _currentEnergy = energy;
    if (!(energy < _bestEnergy - g_significantFall))
        return false;
    _currentEnergy = _minimiser.minimise(_current, makeRule(g_fullGradient)).energy;
    if (isOver())
        return false;
    _bestEnergy = _currentEnergy;
    _best = _current;
    _nbHopsSinceBest = 0;
    return true;
}

StoppingRule BasinHopping::makeRule(double gradientTolerance) const
{
    StoppingRule rule;
    rule.gradientTolerance = gradientTolerance;
    rule.end = _end;
    return rule;
}

void BasinHopping::goBack()
{
    _current = _best;
    _currentEnergy = _bestEnergy;
    _nbHopsSinceBest = 0;
}

} // namespace orientations
} // namespace ovrix
