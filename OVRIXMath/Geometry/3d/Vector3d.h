#pragma once

#include <OVRIXMath/Geometry/Coordinates.h>
#include <OVRIXUtil/Types.h>

namespace ovrix
{
namespace math
{
namespace details
{

/// A point or a direction of space.
using Point3d = Coordinates<ovReal64, 3>;

/// a x b.
inline Point3d cross(const Point3d& a, const Point3d& b)
{
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

/// The unit vector of the polar angle theta from +z and the azimuth phi from +x.
inline Point3d makeDirection(ovReal64 theta, ovReal64 phi)
{
    ovReal64 cosTheta, sinTheta, cosPhi, sinPhi;
    sincos(theta, &sinTheta, &cosTheta);
    sincos(phi, &sinPhi, &cosPhi);
    return {sinTheta * cosPhi, sinTheta * sinPhi, cosTheta};
}

} // namespace details
} // namespace math
} // namespace ovrix
