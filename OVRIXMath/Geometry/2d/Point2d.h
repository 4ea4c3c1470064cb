#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXUtil/Types.h>

namespace ovrix
{
namespace math
{

/// Distance of the point p to the segment ab, and the point q of the segment that is closest.
///
/// Where p projects between the ends, everything is computed in double precision. The distance to an end is computed in
/// T: for `float` in single precision, for the integers in 32-bit arithmetic that wraps around. A wrapped sum of
/// squares that is negative as `int`, which can happen from 2^31 on, gives NaN.
///
/// A segment without length is its end a. Beside one that is shorter than epsilon there is no direction to project on:
/// a p between its ends has distance 0 and is q itself. So has any p where b is not a number; where p or a is not, the
/// distance and q are NaN.
///
/// @tparam T `int`, `unsigned int`, `float` or `double`
template <class T>
OVRIXMATH_EXPORT ovReal64 pointSegmentDistance(T px, T py, T ax, T ay, T bx, T by, ovReal64& qx, ovReal64& qy);

/// The distance alone.
template <class T>
OVRIXMATH_EXPORT ovReal64 pointSegmentDistance(T px, T py, T ax, T ay, T bx, T by);

extern template OVRIXMATH_EXPORT ovReal64 pointSegmentDistance(int, int, int, int, int, int, ovReal64&, ovReal64&);
extern template OVRIXMATH_EXPORT ovReal64 pointSegmentDistance(unsigned int, unsigned int, unsigned int, unsigned int,
                                                               unsigned int, unsigned int, ovReal64&, ovReal64&);
extern template OVRIXMATH_EXPORT ovReal64 pointSegmentDistance(float, float, float, float, float, float, ovReal64&,
                                                               ovReal64&);
extern template OVRIXMATH_EXPORT ovReal64 pointSegmentDistance(double, double, double, double, double, double,
                                                               ovReal64&, ovReal64&);

extern template OVRIXMATH_EXPORT ovReal64 pointSegmentDistance(int, int, int, int, int, int);
extern template OVRIXMATH_EXPORT ovReal64 pointSegmentDistance(unsigned int, unsigned int, unsigned int, unsigned int,
                                                               unsigned int, unsigned int);
extern template OVRIXMATH_EXPORT ovReal64 pointSegmentDistance(float, float, float, float, float, float);
extern template OVRIXMATH_EXPORT ovReal64 pointSegmentDistance(double, double, double, double, double, double);

} // namespace math
} // namespace ovrix
