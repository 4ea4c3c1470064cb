#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXUtil/Types.h>

/// @file
/// Pairs of segments ab and cd of the plane.
///
/// `segmentsDistance<double>` with twelve variables fits both the form of the plane with closest points and the form of
/// space without them (Segment3d.h). Where both headers are included such a call does not compile, so that it never
/// chooses silently; for the plane it is then made through a pointer to the function that is meant.

namespace ovrix
{
namespace math
{

/// Whether the segments have a point in common; touching ends and overlaps count.
///
/// The answer is that of `boost::geometry::intersects` in double precision, which compares with a tolerance of
/// epsilon max(1, |a|, |b|).
///
/// @tparam T `int`, `unsigned int`, `float` or `double`
template <class T>
OVRIXMATH_EXPORT ovBool segmentsIntersects(T ax, T ay, T bx, T by, T cx, T cy, T dx, T dy);

/// Distance of two segments, with the closest points (x1, y1) on ab and (x2, y2) on cd.
///
/// Segments that `boost::geometry::intersection` calls intersecting have distance 0, and both points are the first one
/// that it reports. For all others the smallest pointSegmentDistance<T>() of a to cd, b to cd, c to ab and d to ab is
/// taken; of equal ones the first in this order. The arithmetic of T that is told there applies. A first distance of
/// NaN stays, a later one never replaces the best.
///
/// @tparam T `int`, `unsigned int`, `float` or `double`
template <class T>
OVRIXMATH_EXPORT ovReal64 segmentsDistance(T ax, T ay, T bx, T by, T cx, T cy, T dx, T dy, ovReal64& x1, ovReal64& y1,
                                           ovReal64& x2, ovReal64& y2);

/// The distance alone.
template <class T>
OVRIXMATH_EXPORT ovReal64 segmentsDistance(T ax, T ay, T bx, T by, T cx, T cy, T dx, T dy);

extern template OVRIXMATH_EXPORT ovBool segmentsIntersects(int, int, int, int, int, int, int, int);
extern template OVRIXMATH_EXPORT ovBool segmentsIntersects(unsigned int, unsigned int, unsigned int, unsigned int,
                                                           unsigned int, unsigned int, unsigned int, unsigned int);
extern template OVRIXMATH_EXPORT ovBool segmentsIntersects(float, float, float, float, float, float, float, float);
extern template OVRIXMATH_EXPORT ovBool segmentsIntersects(double, double, double, double, double, double, double,
                                                           double);

extern template OVRIXMATH_EXPORT ovReal64 segmentsDistance(int, int, int, int, int, int, int, int, ovReal64&, ovReal64&,
                                                           ovReal64&, ovReal64&);
extern template OVRIXMATH_EXPORT ovReal64 segmentsDistance(unsigned int, unsigned int, unsigned int, unsigned int,
                                                           unsigned int, unsigned int, unsigned int, unsigned int,
                                                           ovReal64&, ovReal64&, ovReal64&, ovReal64&);
extern template OVRIXMATH_EXPORT ovReal64 segmentsDistance(float, float, float, float, float, float, float, float,
                                                           ovReal64&, ovReal64&, ovReal64&, ovReal64&);
extern template OVRIXMATH_EXPORT ovReal64 segmentsDistance(double, double, double, double, double, double, double,
                                                           double, ovReal64&, ovReal64&, ovReal64&, ovReal64&);

extern template OVRIXMATH_EXPORT ovReal64 segmentsDistance(int, int, int, int, int, int, int, int);
extern template OVRIXMATH_EXPORT ovReal64 segmentsDistance(unsigned int, unsigned int, unsigned int, unsigned int,
                                                           unsigned int, unsigned int, unsigned int, unsigned int);
extern template OVRIXMATH_EXPORT ovReal64 segmentsDistance(float, float, float, float, float, float, float, float);
extern template OVRIXMATH_EXPORT ovReal64 segmentsDistance(double, double, double, double, double, double, double,
                                                           double);

} // namespace math
} // namespace ovrix
