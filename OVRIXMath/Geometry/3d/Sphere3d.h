#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXUtil/Types.h>

/// @file
/// Spheres with centre (cx, cy, cz) and radius r.

namespace ovrix
{
namespace math
{

/// The sphere through four points.
///
/// @return `false` with the outputs untouched when (p1 - p2) . ((p2 - p3) x (p3 - p4)) is exactly 0, as for coplanar
/// points; no tolerance is applied, and a NaN passes
OVRIXMATH_EXPORT ovBool sphereFromPoints(ovReal64 x1, ovReal64 y1, ovReal64 z1, ovReal64 x2, ovReal64 y2, ovReal64 z2,
                                         ovReal64 x3, ovReal64 y3, ovReal64 z3, ovReal64 x4, ovReal64 y4, ovReal64 z4,
                                         ovReal64& cx, ovReal64& cy, ovReal64& cz, ovReal64& r);

/// The smallest sphere through three points: its centre lies in their plane.
///
/// @return `false` with the outputs untouched when ((p3 - p2) x n) . (p2 - p1) is exactly 0, with
/// n = (p2 - p1) x (p3 - p1), as for collinear points; no tolerance is applied, and a NaN passes
OVRIXMATH_EXPORT ovBool sphereFromPoints(ovReal64 x1, ovReal64 y1, ovReal64 z1, ovReal64 x2, ovReal64 y2, ovReal64 z2,
                                         ovReal64 x3, ovReal64 y3, ovReal64 z3, ovReal64& cx, ovReal64& cy,
                                         ovReal64& cz, ovReal64& r);

} // namespace math
} // namespace ovrix
