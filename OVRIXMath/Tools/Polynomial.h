#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXUtil/Types.h>

namespace ovrix
{
namespace math
{

/// The real roots of `a x^2 + b x + c`.
///
/// With `a == 0` the root of the line `b x + c`. Otherwise by the discriminant `d = b^2 - 4 a c`: two roots
/// `(-b -+ sqrt(d)) / (2 a)` if `d > 0`, the double root `-b / (2 a)` if `d == 0`. Both comparisons with zero are
/// exact; a coefficient that is NaN counts as `d > 0` and gives two roots that are NaN.
///
/// @param[out] x1, x2 the two roots, `x1` the smaller; both the same for one root; untouched for none
/// @return the number of distinct roots: 0 (also where both `a` and `b` are 0), 1 or 2
OVRIXMATH_EXPORT ovUInt32 solveQuadratic(double a, double b, double c, double& x1, double& x2);

} // namespace math
} // namespace ovrix
