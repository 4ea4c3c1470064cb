#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXUtil/Types.h>

namespace ovrix
{
namespace math
{

/// Distance of the point p to the segment ab, and a point q.
///
/// Where p projects to an end of the segment or beyond, q is that end and the distance is computed in T: for `float` in
/// single precision, for the integers in 32-bit arithmetic that wraps around. A wrapped sum of squares that is negative
/// as `int`, which can happen from 2^31 on, gives NaN. A segment without length is its end a.
///
/// Where p projects between the ends, the distance d is computed in double precision, but q is not the foot of the
/// perpendicular: with e = (b - a) / |b - a|, c = e x (p - a) and m = e x c, q is (px + mx d, py + my d) with the
/// second coordinate repeated as the third. This is meant and callers depend on it. The foot itself is p + m, or
/// a + e (e . (p - a)). Where a coordinate is not a number, d and q are NaN.
///
/// @tparam T `int`, `unsigned int`, `float` or `double`
template <class T>
OVRIXMATH_EXPORT ovReal64 pointSegmentDistance(T px, T py, T pz, T ax, T ay, T az, T bx, T by, T bz, ovReal64& qx,
                                               ovReal64& qy, ovReal64& qz);

/// The distance alone.
template <class T>
OVRIXMATH_EXPORT ovReal64 pointSegmentDistance(T px, T py, T pz, T ax, T ay, T az, T bx, T by, T bz);

extern template OVRIXMATH_EXPORT ovReal64 pointSegmentDistance(int, int, int, int, int, int, int, int, int, ovReal64&,
                                                               ovReal64&, ovReal64&);
extern template OVRIXMATH_EXPORT ovReal64 pointSegmentDistance(unsigned int, unsigned int, unsigned int, unsigned int,
                                                               unsigned int, unsigned int, unsigned int, unsigned int,
                                                               unsigned int, ovReal64&, ovReal64&, ovReal64&);
extern template OVRIXMATH_EXPORT ovReal64 pointSegmentDistance(float, float, float, float, float, float, float, float,
                                                               float, ovReal64&, ovReal64&, ovReal64&);
extern template OVRIXMATH_EXPORT ovReal64 pointSegmentDistance(double, double, double, double, double, double, double,
                                                               double, double, ovReal64&, ovReal64&, ovReal64&);

extern template OVRIXMATH_EXPORT ovReal64 pointSegmentDistance(int, int, int, int, int, int, int, int, int);
extern template OVRIXMATH_EXPORT ovReal64 pointSegmentDistance(unsigned int, unsigned int, unsigned int, unsigned int,
                                                               unsigned int, unsigned int, unsigned int, unsigned int,
                                                               unsigned int);
extern template OVRIXMATH_EXPORT ovReal64 pointSegmentDistance(float, float, float, float, float, float, float, float,
                                                               float);
extern template OVRIXMATH_EXPORT ovReal64 pointSegmentDistance(double, double, double, double, double, double, double,
                                                               double, double);

} // namespace math
} // namespace ovrix
