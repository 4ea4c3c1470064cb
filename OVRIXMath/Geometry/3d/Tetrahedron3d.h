#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXUtil/Types.h>

/// @file
/// Tetrahedra, given by four vertices, or by three with the fourth at the origin.

namespace ovrix
{
namespace math
{

/// Sum of the areas of the four faces.
OVRIXMATH_EXPORT ovReal64 tetrahedronArea(ovReal64 x1, ovReal64 y1, ovReal64 z1, ovReal64 x2, ovReal64 y2, ovReal64 z2,
                                          ovReal64 x3, ovReal64 y3, ovReal64 z3, ovReal64 x4, ovReal64 y4, ovReal64 z4);

/// (p1 - p4) . ((p2 - p4) x (p3 - p4)) / 6.
OVRIXMATH_EXPORT ovReal64 tetrahedronSignedVolume(ovReal64 x1, ovReal64 y1, ovReal64 z1, ovReal64 x2, ovReal64 y2,
                                                  ovReal64 z2, ovReal64 x3, ovReal64 y3, ovReal64 z3, ovReal64 x4,
                                                  ovReal64 y4, ovReal64 z4);

/// a . (b x c) / 6, the fourth vertex being the origin.
OVRIXMATH_EXPORT ovReal64 tetrahedronSignedVolume(ovReal64 ax, ovReal64 ay, ovReal64 az, ovReal64 bx, ovReal64 by,
                                                  ovReal64 bz, ovReal64 cx, ovReal64 cy, ovReal64 cz);

/// Absolute value of the signed volume.
OVRIXMATH_EXPORT ovReal64 tetrahedronVolume(ovReal64 x1, ovReal64 y1, ovReal64 z1, ovReal64 x2, ovReal64 y2,
                                            ovReal64 z2, ovReal64 x3, ovReal64 y3, ovReal64 z3, ovReal64 x4,
                                            ovReal64 y4, ovReal64 z4);

/// Inertia about the axes of the tetrahedron a, b, c and the origin with unit density.
///
/// With D = 6 |signed volume| and S = a^2 + a b + b^2 + a c + b c + c^2 on each axis:
/// ixx = D (Sy + Sz) / 60, iyy = D (Sx + Sz) / 60, izz = D (Sx + Sy) / 60.
///
/// The mixed terms have neither the factor D nor a minus sign, which is meant:
/// ixy = ((2 ax + bx + cx) ay + (ax + 2 bx + cx) by + (ax + bx + 2 cx) cy) / 120, ixz with z in the place of y, and iyz
/// with y in the place of x and z in that of y.
OVRIXMATH_EXPORT void tetrahedronInertia(ovReal64 ax, ovReal64 ay, ovReal64 az, ovReal64 bx, ovReal64 by, ovReal64 bz,
                                         ovReal64 cx, ovReal64 cy, ovReal64 cz, ovReal64& ixx, ovReal64& ixy,
                                         ovReal64& ixz, ovReal64& iyy, ovReal64& iyz, ovReal64& izz);

} // namespace math
} // namespace ovrix
