#include "Minimiser.h"

#include "CoulombEnergy.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace ovrix
{
namespace orientations
{

namespace
{

double dot(const std::vector<double>& a, const std::vector<double>& b)
{
    const double* const pA = a.data();
    const double* const pB = b.data();
    double sum = 0.0;
#pragma omp simd reduction(+ : sum)
    for (std::size_t i = 0; i < a.size(); ++i)
        sum += pA[i] * pB[i];
    return sum;
}

/// y += a x
void add(double a, const std::vector<double>& x, std::vector<double>& y)
{
    const double* const pX = x.data();
    double* const pY = y.data();
    for (std::size_t i = 0; i < x.size(); ++i)
        pY[i] += a * pX[i];
}

} // namespace

Minimiser::Minimiser(std::size_t nbPoints)
    : _nbPoints(nbPoints), _maxMove(1.0 / std::sqrt(static_cast<double>(nbPoints))), _pairs(s_nbPairs),
      _unitPoints(nbPoints), _spaceGradient(nbPoints), _direction(3 * nbPoints), _current(3 * nbPoints),
      _currentGradient(3 * nbPoints), _next(3 * nbPoints), _nextGradient(3 * nbPoints)
{
    for (Pair& pair : _pairs)
    {
        pair.step.resize(3 * nbPoints);
        pair.difference.resize(3 * nbPoints);
    }
}

Minimum Minimiser::minimise(PointSet& points, const StoppingRule& rule)
{
    _current = points.coordinates();
    _nbRemembered = 0;
    _currentEnergy = evaluate(_current, _currentGradient);
    Minimum minimum;
    while (_currentEnergy > rule.energy && getMaxLength(_currentGradient) > rule.gradientTolerance &&
           minimum.nbIterations < rule.maxIterations && std::chrono::steady_clock::now() < rule.end)
    {
        computeDirection();
        const double slope = dot(_direction, _currentGradient);
        double length = limitStep();
        tryStep(length);
        while (!isAcceptable(length, slope) && length > 1e-10)
        {
            length *= 0.4;
            tryStep(length);
        }
        if (!isAcceptable(length, slope))
        {
            if (_nbRemembered == 0)
                break; // not even along the gradient: the minimum is reached but for rounding
            _nbRemembered = 0;
            continue;
        }
        if (_nextEnergy < rule.energy)
            bisect(rule.energy, length);
        remember();
        ++minimum.nbIterations;
    }
    points.coordinates() = _current;
    points.normalise();
    minimum.energy = _currentEnergy;
    minimum.gradient = getMaxLength(_currentGradient);
    return minimum;
}

/// Energy of the variables' projections to the sphere, and its gradient by the variables.
double Minimiser::evaluate(const Coordinates& variables, Coordinates& gradient)
{
    const std::size_t n = _nbPoints;
    std::copy(variables.begin(), variables.end(), _unitPoints.coordinates().begin());
    _unitPoints.normalise();
    const double energy = computeEnergy(_unitPoints, _spaceGradient);
    for (std::size_t i = 0; i < n; ++i)
    {
        const std::array<double, 3> u{_unitPoints.x()[i], _unitPoints.y()[i], _unitPoints.z()[i]};
        const std::array<double, 3> g{_spaceGradient.x()[i], _spaceGradient.y()[i], _spaceGradient.z()[i]};
        const double radial = u[0] * g[0] + u[1] * g[1] + u[2] * g[2];
        const double length = u[0] * variables[i] + u[1] * variables[n + i] + u[2] * variables[2 * n + i];
        for (std::size_t k = 0; k < 3; ++k)
            gradient[k * n + i] = (g[k] - radial * u[k]) / length;
    }
    return energy;
}

/// The two loops of the method over the remembered pairs, latest first.
void Minimiser::computeDirection()
{
    const std::size_t nbPairs = std::min(_nbRemembered, s_nbPairs);
    const auto getPair = [this](std::size_t age) -> const Pair&
    { return _pairs[(_nbRemembered - 1 - age) % s_nbPairs]; };
    std::array<double, s_nbPairs> weights;

    std::transform(_currentGradient.begin(), _currentGradient.end(), _direction.begin(), [](double g) { return -g; });
    if (nbPairs == 0)
        return;
    for (std::size_t age = 0; age < nbPairs; ++age)
    {
        const Pair& pair = getPair(age);
        weights[age] = pair.inverseProduct * dot(pair.step, _direction);
        add(-weights[age], pair.difference, _direction);
    }
    const Pair& latest = getPair(0);
    const double scale = 1.0 / (latest.inverseProduct * dot(latest.difference, latest.difference));
    for (double& coordinate : _direction)
        coordinate *= scale;
    for (std::size_t age = nbPairs; age-- > 0;)
    {
        const Pair& pair = getPair(age);
        add(weights[age] - pair.inverseProduct * dot(pair.difference, _direction), pair.step, _direction);
    }
}

/// Length of the first step to try. No point moves by much more than a quarter of the distance to its neighbours, and
/// along the plain gradient by a tenth of that.
double Minimiser::limitStep() const
{
    const double allowed = (_nbRemembered == 0 ? 0.1 : 1.0) * _maxMove;
    return std::min(1.0, allowed / getMaxLength(_direction));
}

void Minimiser::tryStep(double length)
{
    _next = _current;
    add(length, _direction, _next);
    _nextEnergy = evaluate(_next, _nextGradient);
}

bool Minimiser::isAcceptable(double length, double slope) const
{
    if (_nextEnergy <= _currentEnergy + 1e-4 * length * slope)
        return true;
    const double rounding = 1e-13 * _currentEnergy;
    return _nextEnergy <= _currentEnergy + rounding &&
           std::abs(dot(_direction, _nextGradient)) <= 0.9 * std::abs(slope);
}

/// Cuts a step of that length, whose end lies below the energy, where it meets the energy.
void Minimiser::bisect(double energy, double length)
{
    double above = 0.0;
    double below = length;
    while (true)
    {
        const double middle = 0.5 * (above + below);
        if (middle <= above || middle >= below)
            break;
        tryStep(middle);
        (_nextEnergy > energy ? above : below) = middle;
    }
    tryStep(below);
}

/// Goes on to the next point; the pair is kept unless the energy curves downwards along the step.
void Minimiser::remember()
{
    double product = 0.0;
    for (std::size_t i = 0; i < _next.size(); ++i)
        product += (_next[i] - _current[i]) * (_nextGradient[i] - _currentGradient[i]);
    if (product > 0.0)
    {
        Pair& pair = _pairs[_nbRemembered % s_nbPairs]; // the oldest, once all are taken
        std::transform(_next.begin(), _next.end(), _current.begin(), pair.step.begin(), std::minus<>());
        std::transform(_nextGradient.begin(), _nextGradient.end(), _currentGradient.begin(), pair.difference.begin(),
                       std::minus<>());
        pair.inverseProduct = 1.0 / product;
        ++_nbRemembered;
    }
    _current.swap(_next);
    _currentGradient.swap(_nextGradient);
    _currentEnergy = _nextEnergy;
}

} // namespace orientations
} // namespace ovrix
