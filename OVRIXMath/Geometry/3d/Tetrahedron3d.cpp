#include <OVRIXMath/Geometry/3d/Tetrahedron3d.h>
#include <OVRIXMath/Geometry/3d/Triangle3d.h>

namespace ovrix
{
namespace math
{

namespace
{

using details::Point3d;

ovReal64 signedVolume(const Point3d& a, const Point3d& b, const Point3d& c)
{
    return details::dot(a, details::cross(b, c)) / 6.0;
}

/// Sum of the six products of two of the three.
ovReal64 sumOfProducts(ovReal64 a, ovReal64 b, ovReal64 c)
{
    return a * a + a * b + b * b + a * c + b * c + c * c;
}

/// Mixed term of two axes, u and v being the coordinates of the three vertices on them.
ovReal64 mixedTerm(const Point3d& u, const Point3d& v)
{
    return ((2.0 * u[0] + u[1] + u[2]) * v[0] + (u[0] + 2.0 * u[1] + u[2]) * v[1] + (u[0] + u[1] + 2.0 * u[2]) * v[2]) /
           120.0;
}

} // namespace

ovReal64 tetrahedronArea(ovReal64 x1, ovReal64 y1, ovReal64 z1, ovReal64 x2, ovReal64 y2, ovReal64 z2, ovReal64 x3,
                         ovReal64 y3, ovReal64 z3, ovReal64 x4, ovReal64 y4, ovReal64 z4)
{
    const Point3d p1{x1, y1, z1};
    const Point3d p2{x2, y2, z2};
    const Point3d p3{x3, y3, z3};
    const Point3d p4{x4, y4, z4};
    return details::triangleArea(p1, p2, p3) + details::triangleArea(p1, p2, p4) + details::triangleArea(p1, p3, p4) +
           details::triangleArea(p2, p3, p4);
}

ovReal64 tetrahedronSignedVolume(ovReal64 x1, ovReal64 y1, ovReal64 z1, ovReal64 x2, ovReal64 y2, ovReal64 z2,
                                 ovReal64 x3, ovReal64 y3, ovReal64 z3, ovReal64 x4, ovReal64 y4, ovReal64 z4)
{
    const Point3d p4{x4, y4, z4};
    return signedVolume(details::subtract(Point3d{x1, y1, z1}, p4), details::subtract(Point3d{x2, y2, z2}, p4),
                        details::subtract(Point3d{x3, y3, z3}, p4));
}

ovReal64 tetrahedronSignedVolume(ovReal64 ax, ovReal64 ay, ovReal64 az, ovReal64 bx, ovReal64 by, ovReal64 bz,
                                 ovReal64 cx, ovReal64 cy, ovReal64 cz)
{
    return signedVolume({ax, ay, az}, {bx, by, bz}, {cx, cy, cz});
}

ovReal64 tetrahedronVolume(ovReal64 x1, ovReal64 y1, ovReal64 z1, ovReal64 x2, ovReal64 y2, ovReal64 z2, ovReal64 x3,
                           ovReal64 y3, ovReal64 z3, ovReal64 x4, ovReal64 y4, ovReal64 z4)
{
    return std::fabs(tetrahedronSignedVolume(x1, y1, z1, x2, y2, z2, x3, y3, z3, x4, y4, z4));
}

void tetrahedronInertia(ovReal64 ax, ovReal64 ay, ovReal64 az, ovReal64 bx, ovReal64 by, ovReal64 bz, ovReal64 cx,
                        ovReal64 cy, ovReal64 cz, ovReal64& ixx, ovReal64& ixy, ovReal64& ixz, ovReal64& iyy,
                        ovReal64& iyz, ovReal64& izz)
{
    const ovReal64 D = 6.0 * std::fabs(tetrahedronSignedVolume(ax, ay, az, bx, by, bz, cx, cy, cz));
    const ovReal64 sx = sumOfProducts(ax, bx, cx);
    const ovReal64 sy = sumOfProducts(ay, by, cy);
    const ovReal64 sz = sumOfProducts(az, bz, cz);
    ixx = D * (sy + sz) / 60.0;
    iyy = D * (sx + sz) / 60.0;
    izz = D * (sx + sy) / 60.0;

    const Point3d x{ax, bx, cx};
    const Point3d y{ay, by, cy};
    const Point3d z{az, bz, cz};
    ixy = mixedTerm(x, y);
    ixz = mixedTerm(x, z);
    iyz = mixedTerm(y, z);
}

} // namespace math
} // namespace ovrix
