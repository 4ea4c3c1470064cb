#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXUtil/Types.h>

namespace ovrix
{
namespace math
{

/// The circle through three points, with centre (cx, cy) and radius r, which have to be three variables: they are read
/// again once they are written.
///
/// @return `false` with the outputs untouched unless the absolute determinant of the points,
/// |(x1 - x2)(y2 - y3) - (x2 - x3)(y1 - y2)|, is above sqrt(epsilon). The threshold is absolute: it does not scale with
/// the coordinates, so that very small triangles are refused as well.
OVRIXMATH_EXPORT ovBool circleFromPoints(ovReal64 x1, ovReal64 y1, ovReal64 x2, ovReal64 y2, ovReal64 x3, ovReal64 y3,
                                         ovReal64& cx, ovReal64& cy, ovReal64& r);

} // namespace math
} // namespace ovrix
