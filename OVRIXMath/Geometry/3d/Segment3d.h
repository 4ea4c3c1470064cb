#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXUtil/Types.h>

/// @file
/// Pairs of segments ab and cd of space.
///
/// `segmentsDistance<double>` with twelve variables fits both the form of space without closest points and the form of
/// the plane with them (Segment2d.h). Where both headers are included such a call does not compile, so that it never
/// chooses silently; for space it is then made with values in the place of variables, `+dz` instead of `dz` as the last
/// argument.

namespace ovrix
{
namespace math
{

/// Whether the segments have a point in common when seen along z; touching ends and overlaps count. Two segments of
/// length 0 intersect only when they are equal in z too.
///
/// The answer is that of the Cartesian strategy of `boost::geometry::intersection` in double precision, which decides
/// in the x-y plane and compares z only to tell a segment from a point, and a point from another. So segments that
/// cross in projection intersect whatever their heights; this is meant.
///
/// @tparam T `int`, `unsigned int`, `float` or `double`
template <class T>
OVRIXMATH_EXPORT ovBool segmentsIntersects(T ax, T ay, T az, T bx, T by, T bz, T cx, T cy, T cz, T dx, T dy, T dz);

/// Distance of two segments, with a point (x1, y1, z1) for ab and a point (x2, y2, z2) for cd.
///
/// Segments that segmentsIntersects() calls intersecting have distance 0, also when they are apart in z, and both
/// points are the first one that the strategy reports, at the height of ab. For all others the smallest
/// pointSegmentDistance<T>() of a to cd, b to cd, c to ab and d to ab is taken, of equal ones the first in this order;
/// its arithmetic and its point q, as they are told there, apply. A first distance of NaN stays, a later one never
/// replaces the best.
///
/// @tparam T `int`, `unsigned int`, `float` or `double`
template <class T>
OVRIXMATH_EXPORT ovReal64 segmentsDistance(T ax, T ay, T az, T bx, T by, T bz, T cx, T cy, T cz, T dx, T dy, T dz,
                                           ovReal64& x1, ovReal64& y1, ovReal64& z1, ovReal64& x2, ovReal64& y2,
                                           ovReal64& z2);

/// The distance alone.
template <class T>
OVRIXMATH_EXPORT ovReal64 segmentsDistance(T ax, T ay, T az, T bx, T by, T bz, T cx, T cy, T cz, T dx, T dy, T dz);

extern template OVRIXMATH_EXPORT ovBool segmentsIntersects(int, int, int, int, int, int, int, int, int, int, int, int);
extern template OVRIXMATH_EXPORT ovBool segmentsIntersects(unsigned int, unsigned int, unsigned int, unsigned int,
                                                           unsigned int, unsigned int, unsigned int, unsigned int,
                                                           unsigned int, unsigned int, unsigned int, unsigned int);
extern template OVRIXMATH_EXPORT ovBool segmentsIntersects(float, float, float, float, float, float, float, float,
                                                           float, float, float, float);
extern template OVRIXMATH_EXPORT ovBool segmentsIntersects(double, double, double, double, double, double, double,
                                                           double, double, double, double, double);

extern template OVRIXMATH_EXPORT ovReal64 segmentsDistance(int, int, int, int, int, int, int, int, int, int, int, int,
                                                           ovReal64&, ovReal64&, ovReal64&, ovReal64&, ovReal64&,
                                                           ovReal64&);
extern template OVRIXMATH_EXPORT ovReal64 segmentsDistance(unsigned int, unsigned int, unsigned int, unsigned int,
                                                           unsigned int, unsigned int, unsigned int, unsigned int,
                                                           unsigned int, unsigned int, unsigned int, unsigned int,
                                                           ovReal64&, ovReal64&, ovReal64&, ovReal64&, ovReal64&,
                                                           ovReal64&);
extern template OVRIXMATH_EXPORT ovReal64 segmentsDistance(float, float, float, float, float, float, float, float,
                                                           float, float, float, float, ovReal64&, ovReal64&, ovReal64&,
                                                           ovReal64&, ovReal64&, ovReal64&);
extern template OVRIXMATH_EXPORT ovReal64 segmentsDistance(double, double, double, double, double, double, double,
                                                           double, double, double, double, double, ovReal64&, ovReal64&,
                                                           ovReal64&, ovReal64&, ovReal64&, ovReal64&);

extern template OVRIXMATH_EXPORT ovReal64 segmentsDistance(int, int, int, int, int, int, int, int, int, int, int, int);
extern template OVRIXMATH_EXPORT ovReal64 segmentsDistance(unsigned int, unsigned int, unsigned int, unsigned int,
                                                           unsigned int, unsigned int, unsigned int, unsigned int,
                                                           unsigned int, unsigned int, unsigned int, unsigned int);
extern template OVRIXMATH_EXPORT ovReal64 segmentsDistance(float, float, float, float, float, float, float, float,
                                                           float, float, float, float);
extern template OVRIXMATH_EXPORT ovReal64 segmentsDistance(double, double, double, double, double, double, double,
                                                           double, double, double, double, double);

} // namespace math
} // namespace ovrix
