#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXUtil/Types.h>

namespace ovrix
{
namespace math
{

/// The plane x . n = rho through three points, n being the unit vector along (p2 - p1) x (p3 - p1), given by its polar
/// angle theta from +z and its azimuth phi from +x. Rho can be negative.
///
/// @return `false` when the length of the cross product is exactly 0, as for collinear points, or underflows to it, as
/// for points within 1e-81 of each other; theta is then 0, phi the azimuth of the cross product, and rho untouched.
/// NaN passes: rho and theta are then NaN
OVRIXMATH_EXPORT ovBool planFromPoints(ovReal64 x1, ovReal64 y1, ovReal64 z1, ovReal64 x2, ovReal64 y2, ovReal64 z2,
                                       ovReal64 x3, ovReal64 y3, ovReal64 z3, ovReal64& rho, ovReal64& theta,
                                       ovReal64& phi);

} // namespace math
} // namespace ovrix
