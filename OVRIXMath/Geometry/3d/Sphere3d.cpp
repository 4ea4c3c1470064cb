#include <OVRIXMath/Geometry/3d/Sphere3d.h>
#include <OVRIXMath/Geometry/3d/Vector3d.h>

namespace ovrix
{
namespace math
{

namespace
{

using details::Point3d;

/// The sphere through p1 whose centre x solves a . x = da, b . x = db, c . x = dc, by Cramer's rule.
bool sphereFromPlanes(const Point3d& p1, const Point3d& a, ovReal64 da, const Point3d& b, ovReal64 db, const Point3d& c,
                      ovReal64 dc, ovReal64& cx, ovReal64& cy, ovReal64& cz, ovReal64& r)
{
    const Point3d bc = details::cross(b, c);
    const ovReal64 det = details::dot(a, bc);
    if (det == 0.0)
        return false;

    const Point3d ca = details::cross(c, a);
    const Point3d ab = details::cross(a, b);
    const Point3d centre{(da * bc[0] + db * ca[0] + dc * ab[0]) / det, //
                         (da * bc[1] + db * ca[1] + dc * ab[1]) / det, //
                         (da * bc[2] + db * ca[2] + dc * ab[2]) / det};
    r = details::norm(details::subtract(centre, p1));
    cx = centre[0];
    cy = centre[1];
    cz = centre[2];
    return true;
}

ovReal64 squaredNorm(const Point3d& p)
{
    return details::dot(p, p);
}

} // namespace

ovBool sphereFromPoints(ovReal64 x1, ovReal64 y1, ovReal64 z1, ovReal64 x2, ovReal64 y2, ovReal64 z2, ovReal64 x3,
                        ovReal64 y3, ovReal64 z3, ovReal64 x4, ovReal64 y4, ovReal64 z4, ovReal64& cx, ovReal64& cy,
                        ovReal64& cz, ovReal64& r)
{
    const Point3d p1{x1, y1, z1};
    const Point3d p2{x2, y2, z2};
    const Point3d p3{x3, y3, z3};
    const Point3d p4{x4, y4, z4};
    return sphereFromPlanes(p1, details::subtract(p1, p2), (squaredNorm(p1) - squaredNorm(p2)) / 2.0, //
                            details::subtract(p2, p3), (squaredNorm(p2) - squaredNorm(p3)) / 2.0,     //
                            details::subtract(p3, p4), (squaredNorm(p3) - squaredNorm(p4)) / 2.0, cx, cy, cz, r);
}

ovBool sphereFromPoints(ovReal64 x1, ovReal64 y1, ovReal64 z1, ovReal64 x2, ovReal64 y2, ovReal64 z2, ovReal64 x3,
                        ovReal64 y3, ovReal64 z3, ovReal64& cx, ovReal64& cy, ovReal64& cz, ovReal64& r)
{
    const Point3d p1{x1, y1, z1};
    const Point3d p2{x2, y2, z2};
    const Point3d p3{x3, y3, z3};
    const Point3d n = details::cross(details::subtract(p2, p1), details::subtract(p3, p1));
    return sphereFromPlanes(p1, details::subtract(p2, p1), (squaredNorm(p2) - squaredNorm(p1)) / 2.0, //
                            details::subtract(p3, p2), (squaredNorm(p3) - squaredNorm(p2)) / 2.0,     //
                            n, details::dot(n, p1), cx, cy, cz, r);
}

} // namespace math
} // namespace ovrix
