#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXUtil/Types.h>

namespace ovrix
{
namespace math
{

/// The line through two points in normal form: x cos(theta) + y sin(theta) = rho.
///
/// Rho can be negative and theta is not folded: swapping the points turns theta by pi and negates rho.
///
/// @return `false` with the outputs untouched when the points are equal; no tolerance is applied. Coordinates of NaN
/// give NaN and `true`
OVRIXMATH_EXPORT ovBool lineFromPoints(ovReal64 x1, ovReal64 y1, ovReal64 x2, ovReal64 y2, ovReal64& rho,
                                       ovReal64& theta);

} // namespace math
} // namespace ovrix
