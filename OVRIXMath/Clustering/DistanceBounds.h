#pragma once

#include <cmath>
#include <cstddef>

namespace ovrix
{
namespace math
{
namespace clustering
{
namespace details
{

/// Bounds on Euclidean distances that hold for the real numbers behind the computed ones, and what they tell about
/// computed squared distances.
///
/// Let u be the unit roundoff and d the number of coordinates. A computed squared distance differs from the real one by
/// a factor of at most 1 + (d + 2) u, to first order, and by at most d 2^-1074 for squares below the range of normal
/// numbers, as long as nothing overflows. With e = (d + 8) 2^-52 the root of the computed one, times 1 + e and plus
/// 2^-500, is therefore above the real distance, and times 1 - e and minus 2^-500 below it; the roundings on the way are
/// covered as well, since e is more than twice what the sums need.
///
/// If a real distance is at most `a` and another at least `b`, both from here, and `b > a (1 + 4 e)`, then the computed
/// squared distance of the first is less than that of the second: the squares are apart by a factor of 1 + 8 e, of which
/// rounding takes less than 2 e, and what is left of `a^2` at its least of 2^-1000 covers the squares out of range.
///
/// Bounds that are added up over many steps are widened by four units of the last place in each.
class DistanceBounds
{
public:
    explicit DistanceBounds(std::size_t dimension)
        : _growth(1.0 + (static_cast<double>(dimension) + 8.0) * s_eps),
          _shrinkage(1.0 - (static_cast<double>(dimension) + 8.0) * s_eps),
          _lead(1.0 + 4.0 * (static_cast<double>(dimension) + 8.0) * s_eps)
    {
    }

    /// Coordinates up to this magnitude are far from any overflow.
    static constexpr double s_largestCoordinate = 0x1p400;

    double getUpper(double squaredDistance) const
    {
        return std::sqrt(squaredDistance) * _growth + s_least;
    }

    double getLower(double squaredDistance) const
    {
        return std::sqrt(squaredDistance) * _shrinkage - s_least;
    }

    /// An upper bound of the sum of two upper bounds.
    static double addUpper(double a, double b)
    {
        return (a + b) * (1.0 + 4.0 * s_eps);
    }

    /// A lower bound of the difference of a lower and an upper bound. Below 0 it is none, but stays below 0.
    static double subtractUpper(double lower, double upper)
    {
        return (lower - upper) * (1.0 - 4.0 * s_eps);
    }

    /// What a lower bound has to exceed for the computed squared distances to be as different as the bounds.
    double getLimit(double upper) const
    {
        return upper * _lead;
    }

private:
    static constexpr double s_eps = 0x1p-52;
    static constexpr double s_least = 0x1p-500;

    double _growth;
    double _shrinkage;
    double _lead;
};

} // namespace details
} // namespace clustering
} // namespace math
} // namespace ovrix
