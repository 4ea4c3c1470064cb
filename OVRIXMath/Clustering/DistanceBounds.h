#pragma once

#include <algorithm>
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
/// Let u = 2^-53 be the unit roundoff and d the number of coordinates. As long as nothing overflows, a computed squared
/// distance differs from the real one by a factor between (1 - u)^(d + 2) and (1 + u)^(d + 2): one rounding for the
/// difference, twice in the square, one for the product, d - 1 for the sum; and by at most d 2^-1075 for products below
/// the normal numbers. Let e = (d + 8) 2^-52 = (2 d + 16) u. The root of the computed one, times 1 + e and plus 2^-500,
/// is above the real distance: the root halves the d + 2 roundings and turns the absolute error to at most
/// d^(1/2) 2^-537, and root, factor, product and sum add a rounding each, so that d / 2 + 5 of the 2 d + 16 units are
/// needed. Times 1 - e and minus 2^-500 it is below the real distance for the same reason, and so is 0.
///
/// If a real distance is at most `a` and another at least `b`, both from here, and `b > a (1 + 4 e)`, then the computed
/// squared distance of the first is less than that of the second: b^2 exceeds a^2 by a share of 8 e = (16 d + 128) u,
/// of which roundings take 2 (d + 2) u and those of the clear bound itself 5 u. The rest, at least 14 d u a^2 with
/// a >= 2^-500, is more than the d 2^-1074 of products below the normal numbers.
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

    /// At least 2^-500.
    double getUpper(double squaredDistance) const
    {
        return std::sqrt(squaredDistance) * _growth + s_least;
    }

    /// At least 0.
    double getLower(double squaredDistance) const
    {
        return std::max(0.0, std::sqrt(squaredDistance) * _shrinkage - s_least);
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

    /// The clear bound of an upper one: a distance whose lower bound exceeds it is larger as computed, too.
    double getClearBound(double upper) const
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
