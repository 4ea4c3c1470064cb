#pragma once

#include "PointSet.h"

#include <chrono>
#include <cstddef>
#include <limits>
#include <vector>

namespace ovrix
{
namespace orientations
{

/// When a minimisation ends.
struct StoppingRule
{
    /// No point's gradient along the sphere is longer than this.
    double gradientTolerance = 1e-10;

    std::size_t maxIterations = 10000;

    /// The energy is this one or lower. Two steps may straddle it: the last step is then cut where the energy is this.
    double energy = -std::numeric_limits<double>::infinity();

    /// The time is over.
    std::chrono::steady_clock::time_point end = std::chrono::steady_clock::time_point::max();
};

/// What a minimisation came to.
struct Minimum
{
    double energy = 0.0;

    /// Length of the longest gradient of a point along the sphere; not a number where two points are in one place.
    double gradient = 0.0;

    std::size_t nbIterations = 0;
};

/// Minimises the Coulomb energy of points on the unit sphere by the limited-memory BFGS method: Nocedal, Updating
/// quasi-Newton matrices with limited storage, Mathematics of Computation 35 (1980).
///
/// The points are variables of space, and the energy is that of their projections to the sphere, so the problem has no
/// constraint. A step is taken when the energy falls enough, or, where the energy's rounding hides that, when the slope
/// along the step does: Hager and Zhang, A new conjugate gradient method with guaranteed descent and an efficient line
/// search, SIAM Journal on Optimization 16 (2005).
///
/// The working memory is that of the object; a minimisation allocates nothing.
class Minimiser
{
public:
    explicit Minimiser(std::size_t nbPoints);

    /// Moves the points to a local minimum.
    ///
    /// @param points as many as the object was made for; of length 1 afterwards
    Minimum minimise(PointSet& points, const StoppingRule& rule);

private:
    using Coordinates = std::vector<double>;

    /// A step between two points and the difference of their gradients.
    struct Pair
    {
        Coordinates step;
        Coordinates difference;
        double inverseProduct = 0.0;
    };

    double evaluate(const Coordinates& variables, Coordinates& gradient);
    void computeDirection();
    double limitStep() const;
    void tryStep(double length);
    bool isAcceptable(double length, double slope) const;
    void bisect(double energy, double length);
    void remember();

    static constexpr std::size_t s_nbPairs = 20;

    std::size_t _nbPoints;
    double _maxMove;
    std::vector<Pair> _pairs;
    std::size_t _nbRemembered = 0;

    PointSet _unitPoints;
    PointSet _spaceGradient;
    Coordinates _direction;
    Coordinates _current;
    Coordinates _currentGradient;
    double _currentEnergy = 0.0;
    Coordinates _next;
    Coordinates _nextGradient;
    double _nextEnergy = 0.0;
};

} // namespace orientations
} // namespace ovrix
