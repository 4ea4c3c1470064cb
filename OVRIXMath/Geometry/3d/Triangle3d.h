#pragma once

#include <OVRIXMath/Geometry/3d/Vector3d.h>
#include <OVRIXUtil/Types.h>

namespace ovrix
{
namespace math
{
namespace details
{

/// Area of a triangle, half of |(p - q) x (p - r)|.
inline ovReal64 triangleArea(const Point3d& p, const Point3d& q, const Point3d& r)
{
    return norm(cross(subtract(p, q), subtract(p, r))) / 2.0;
}

} // namespace details
} // namespace math
} // namespace ovrix
