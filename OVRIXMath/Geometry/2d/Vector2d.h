#pragma once

#include <OVRIXMath/Geometry/Coordinates.h>
#include <OVRIXUtil/NumericLimits.h>
#include <OVRIXUtil/Types.h>

namespace ovrix
{
namespace math
{
namespace details
{

/// A point or a direction of the plane.
using Point2d = Coordinates<ovReal64, 2>;

/// The unit vector to the left of u; 0 for a u that is shorter than epsilon.
inline Point2d leftNormal(const Point2d& u)
{
    const ovReal64 length = norm(u);
    if (length >= NumericLimits<ovReal64>::s_eps)
        return {-u[1] / length, u[0] / length};
    return {0.0, 0.0};
}

} // namespace details
} // namespace math
} // namespace ovrix
