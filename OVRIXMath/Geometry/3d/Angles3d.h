#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXUtil/Types.h>

/// @file
/// Angles of a rotation Rz(rz) Ry(ry) Rx(rx) in radians, each factor being right-handed, and unit quaternions
/// (q0, q1, q2, q3) with the scalar part q0 first, then x, y and z.

namespace ovrix
{
namespace math
{

/// The unit quaternion of a rotation.
OVRIXMATH_EXPORT void eulerToQuaternion(ovReal64 rz, ovReal64 ry, ovReal64 rx, ovReal64& q0, ovReal64& q1, ovReal64& q2,
                                        ovReal64& q3);

/// The angles of a unit quaternion; ry lies in [-pi/2, pi/2].
///
/// The quaternion is not normalised, nor is the argument 2 (q0 q2 - q1 q3) of the arc sine limited: where it comes out
/// above 1 or below -1, ry is NaN.
OVRIXMATH_EXPORT void quaternionToEuler(ovReal64 q0, ovReal64 q1, ovReal64 q2, ovReal64 q3, ovReal64& rz, ovReal64& ry,
                                        ovReal64& rx);

} // namespace math
} // namespace ovrix
