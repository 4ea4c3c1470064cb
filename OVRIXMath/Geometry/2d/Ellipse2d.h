#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXUtil/Types.h>

/// @file
/// Ellipses of the plane: centre (cx, cy), angle theta of the axis of the first radius in radians, radii r1 and r2.

namespace ovrix
{
namespace math
{

/// The ellipse a x^2 + 2 b x y + c y^2 + d x + e y + f = 0, with r1 >= r2 and theta in [-pi/2, pi/2).
///
/// The coefficient of x y is 2 b here and b in convertEllipseToQuadratic(): a caller who goes there and back halves b.
///
/// The coefficients are not checked for a real ellipse: those of an imaginary one give NaN radii and `true`.
///
/// The outputs have to be five variables: they are read again once they are written.
///
/// @return `false` with the outputs untouched when a c - b^2 <= 0; a NaN passes
OVRIXMATH_EXPORT ovBool convertEllipseFromQuadratic(ovReal64 a, ovReal64 b, ovReal64 c, ovReal64 d, ovReal64 e,
                                                    ovReal64 f, ovReal64& cx, ovReal64& cy, ovReal64& theta,
                                                    ovReal64& r1, ovReal64& r2);

/// The coefficients of a x^2 + b x y + c y^2 + d x + e y + f = 0, scaled so that a c - b^2 / 4 = (r1 r2)^2.
///
/// The coefficient of x y is b here and 2 b in convertEllipseFromQuadratic().
///
/// @return `false` with the outputs untouched when r1 <= 0 or r2 <= 0; a NaN passes
OVRIXMATH_EXPORT ovBool convertEllipseToQuadratic(ovReal64 cx, ovReal64 cy, ovReal64 theta, ovReal64 r1, ovReal64 r2,
                                                  ovReal64& a, ovReal64& b, ovReal64& c, ovReal64& d, ovReal64& e,
                                                  ovReal64& f);

/// 4 sqrt(r1^2 + r2^2), which the perimeter is never below.
OVRIXMATH_EXPORT ovReal64 ellipsePerimeterLowerBound(ovReal64 r1, ovReal64 r2);

/// pi sqrt(2 (r1^2 + r2^2)), which the perimeter is never above.
OVRIXMATH_EXPORT ovReal64 ellipsePerimeterUpperBound(ovReal64 r1, ovReal64 r2);

/// pi r1 r2.
OVRIXMATH_EXPORT ovReal64 ellipseArea(ovReal64 r1, ovReal64 r2);

/// sqrt(big^2 - small^2) / big of the two radii in any order; 0 when the big one is <= 0. A NaN gives NaN, but 0 as r1
/// beside r2 <= 0.
OVRIXMATH_EXPORT ovReal64 ellipseExcentricity(ovReal64 r1, ovReal64 r2);

/// The ellipse with this area whose ellipsePerimeterUpperBound() is this perimeter; r1 >= r2.
///
/// @return `false` with the outputs untouched when one of the two is negative, or the perimeter too small for the area
OVRIXMATH_EXPORT ovBool equivalentEllipse(ovReal64 perimeter, ovReal64 area, ovReal64& r1, ovReal64& r2);

/// Distance from the centre to the ellipse in the direction `angle` from the axis of r1:
/// r1 r2 / sqrt(r2^2 cos^2(angle) + r1^2 sin^2(angle)); 0 when r1 <= 0 or r2 <= 0.
OVRIXMATH_EXPORT ovReal64 ellipseRadius(ovReal64 r1, ovReal64 r2, ovReal64 angle);

/// The same with an angle from the x axis, for an ellipse that is turned by theta.
OVRIXMATH_EXPORT ovReal64 ellipseRadius(ovReal64 r1, ovReal64 r2, ovReal64 theta, ovReal64 angle);

/// The point of the ellipse in the direction `angle` from its centre. This is the polar angle in the plane, not the
/// parameter of the ellipse.
OVRIXMATH_EXPORT void ellipsePoint(ovReal64 cx, ovReal64 cy, ovReal64 r1, ovReal64 r2, ovReal64 theta, ovReal64 angle,
                                   ovReal64& x, ovReal64& y);

} // namespace math
} // namespace ovrix
