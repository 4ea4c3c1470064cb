#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXUtil/Types.h>

#include <boost/numeric/ublas/matrix.hpp>

/// @file
/// Ellipsoids: centre c, rotation R = Rz(rz) Ry(ry) Rx(rx) in radians, radii r1, r2 and r3. Directions are given by the
/// polar angle theta from +z and the azimuth phi from +x, in radians.

namespace ovrix
{
namespace math
{

/// The ellipsoid x^T A x + v . x + q0 = 0, with A the symmetric matrix of qxx to qzz, v = (qx, qy, qz), r1 >= r2 >= r3.
///
/// The angles are those that eigenDecomposition() gives for A: the rows of R are the axes, in the order of the radii.
/// (In convertEllipsoidToQuadratic() the columns are.)
///
/// Unless q0 > 0 all coefficients are negated first. The sign of the constant alone decides, which is meant: an
/// ellipsoid is found when q0 and A are positive, the origin being outside of it, or q0 is 0 and A negative, the origin
/// being on it; by (1, 0, 0, 1, 0, 1, 0, 0, 0, -1), the unit sphere, none is.
///
/// The tolerances of eigenDecomposition() are absolute: eigenvalues of A that differ by less than about 1e-4 may have
/// wrong axes, from which a wrong centre, wrong radii and `false` follow. So differ those of
/// convertEllipsoidToQuadratic() for radii of about 100 and up, and for nearly equal ones earlier. Multiply all ten
/// coefficients by a positive factor first, so that the elements of A are of the order of 1 and the differences of its
/// eigenvalues not tiny.
///
/// The outputs are written as they become known: on `false` the angles are written, and the centre may be. They have to
/// be nine variables: they are read again once they are written.
///
/// @return `false` unless the eigenvalues of A are positive and 0.25 v^T A^-1 v - q0 is
OVRIXMATH_EXPORT ovBool convertEllipsoidFromQuadratic(ovReal64 qxx, ovReal64 qxy, ovReal64 qxz, ovReal64 qyy,
                                                      ovReal64 qyz, ovReal64 qzz, ovReal64 qx, ovReal64 qy, ovReal64 qz,
                                                      ovReal64 q0, ovReal64& cx, ovReal64& cy, ovReal64& cz,
                                                      ovReal64& rz, ovReal64& ry, ovReal64& rx, ovReal64& r1,
                                                      ovReal64& r2, ovReal64& r3);

/// The coefficients of the polynomial that is 1 on the ellipsoid: A = R diag(1 / r1^2, 1 / r2^2, 1 / r3^2) R^T,
/// v = -2 A c, q0 = c^T A c.
///
/// The other conversion looks for the value 0, so that the two are no inverses of each other: what this one gives has
/// no ellipsoid there, up to rounding, which may leave a tiny one; this is meant. A caller who goes there and back
/// subtracts 1 from q0.
///
/// @return `false` with the outputs untouched when a radius is <= 0; a NaN passes
OVRIXMATH_EXPORT ovBool convertEllipsoidToQuadratic(ovReal64 cx, ovReal64 cy, ovReal64 cz, ovReal64 rz, ovReal64 ry,
                                                    ovReal64 rx, ovReal64 r1, ovReal64 r2, ovReal64 r3, ovReal64& qxx,
                                                    ovReal64& qxy, ovReal64& qxz, ovReal64& qyy, ovReal64& qyz,
                                                    ovReal64& qzz, ovReal64& qx, ovReal64& qy, ovReal64& qz,
                                                    ovReal64& q0);

/// Area of the surface by Thomsen's approximation: 4 pi ((a b + a c + b c) / 3)^(1 / p) with a, b, c the radii to the
/// power p = 1.6075; its relative error is at most about 1.1 %. 0 when a radius is <= 0.
OVRIXMATH_EXPORT ovReal64 ellipsoidArea(ovReal64 r1, ovReal64 r2, ovReal64 r3);

/// 4 pi / 3 r1 r2 r3.
OVRIXMATH_EXPORT ovReal64 ellipsoidVolume(ovReal64 r1, ovReal64 r2, ovReal64 r3);

/// sqrt(big^2 - small^2) / big of the largest and the smallest radius; 0 when the largest is <= 0. They are those of
/// sort(), which can leave NaN in the middle, where it plays no part: (3, NaN, 5) gives 0.8, (5, 3, NaN) gives NaN.
OVRIXMATH_EXPORT ovReal64 ellipsoidExcentricity(ovReal64 r1, ovReal64 r2, ovReal64 r3);

/// Distance from the centre to the ellipsoid in the direction d = (theta, phi) of its own frame:
/// 1 / sqrt((dx / r1)^2 + (dy / r2)^2 + (dz / r3)^2); 0 when a radius is <= 0.
OVRIXMATH_EXPORT ovReal64 ellipsoidRadius(ovReal64 r1, ovReal64 r2, ovReal64 r3, ovReal64 theta, ovReal64 phi);

/// The same within rounding for every matrix: the matrix is not read, which is meant.
OVRIXMATH_EXPORT ovReal64 ellipsoidRadius(ovReal64 r1, ovReal64 r2, ovReal64 r3,
                                          const boost::numeric::ublas::bounded_matrix<ovReal64, 3, 3>& matrix,
                                          ovReal64 theta, ovReal64 phi);

/// The point in the direction (theta, phi) from the centre, at the distance of ellipsoidRadius(). The matrix is not
/// read, which is meant.
OVRIXMATH_EXPORT void ellipsoidPoint(ovReal64 cx, ovReal64 cy, ovReal64 cz, ovReal64 r1, ovReal64 r2, ovReal64 r3,
                                     const boost::numeric::ublas::bounded_matrix<ovReal64, 3, 3>& matrix,
                                     ovReal64 theta, ovReal64 phi, ovReal64& x, ovReal64& y, ovReal64& z);

} // namespace math
} // namespace ovrix
