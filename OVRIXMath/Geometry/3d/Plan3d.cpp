#include <OVRIXMath/Geometry/3d/Plan3d.h>
#include <OVRIXMath/Geometry/3d/Vector3d.h>

namespace ovrix
{
namespace math
{

ovBool planFromPoints(ovReal64 x1, ovReal64 y1, ovReal64 z1, ovReal64 x2, ovReal64 y2, ovReal64 z2, ovReal64 x3,
                      ovReal64 y3, ovReal64 z3, ovReal64& rho, ovReal64& theta, ovReal64& phi)
{
    const details::Point3d p1{x1, y1, z1};
    const details::Point3d u = details::subtract({x2, y2, z2}, p1);
    const details::Point3d w = details::subtract({x3, y3, z3}, p1);
    const details::Point3d n = details::cross(u, w);
    const ovReal64 length = details::norm(n);

    phi = std::atan2(n[1], n[0]);
    if (length == 0.0)
    {
        theta = 0.0;
        return false;
    }
    theta = std::acos(n[2] / length);
    rho = details::dot(n, p1) / length;
    return true;
}

} // namespace math
} // namespace ovrix
