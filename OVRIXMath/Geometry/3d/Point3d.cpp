#include <OVRIXMath/Geometry/3d/Point3d.h>
#include <OVRIXMath/Geometry/3d/Vector3d.h>
#include <OVRIXMath/Geometry/SegmentDistance.h>

namespace ovrix
{
namespace math
{

namespace
{

using details::Point3d;

/// Distance of p to the line; what becomes of q is told in the header. Not a function, whose address would be called:
/// its own type lets the compiler inline it.
constexpr auto measureToLine = [](const Point3d& p, const Point3d& u, const Point3d& w, Point3d& q)
{
    const ovReal64 length = details::norm(u);
    const Point3d e{u[0] / length, u[1] / length, u[2] / length};
    const Point3d c = details::cross(e, w);
    const ovReal64 d = details::norm(c);
    const Point3d m = details::cross(e, c);
    const ovReal64 qy = p[1] + m[1] * d;
    q = {p[0] + m[0] * d, qy, qy};
    return d;
};

} // namespace

template <class T>
ovReal64 pointSegmentDistance(T px, T py, T pz, T ax, T ay, T az, T bx, T by, T bz, ovReal64& qx, ovReal64& qy,
                              ovReal64& qz)
{
    using Point = details::Coordinates<T, 3>;
    Point3d q;
    const ovReal64 distance =
        details::pointSegmentDistance(Point{px, py, pz}, Point{ax, ay, az}, Point{bx, by, bz}, q, measureToLine);
    qx = q[0];
    qy = q[1];
    qz = q[2];
    return distance;
}

template <class T>
ovReal64 pointSegmentDistance(T px, T py, T pz, T ax, T ay, T az, T bx, T by, T bz)
{
    ovReal64 qx, qy, qz;
    return pointSegmentDistance(px, py, pz, ax, ay, az, bx, by, bz, qx, qy, qz);
}

template ovReal64 pointSegmentDistance(int, int, int, int, int, int, int, int, int, ovReal64&, ovReal64&, ovReal64&);
template ovReal64 pointSegmentDistance(unsigned int, unsigned int, unsigned int, unsigned int, unsigned int,
                                       unsigned int, unsigned int, unsigned int, unsigned int, ovReal64&, ovReal64&,
                                       ovReal64&);
template ovReal64 pointSegmentDistance(float, float, float, float, float, float, float, float, float, ovReal64&,
                                       ovReal64&, ovReal64&);
template ovReal64 pointSegmentDistance(double, double, double, double, double, double, double, double, double,
                                       ovReal64&, ovReal64&, ovReal64&);

template ovReal64 pointSegmentDistance(int, int, int, int, int, int, int, int, int);
template ovReal64 pointSegmentDistance(unsigned int, unsigned int, unsigned int, unsigned int, unsigned int,
                                       unsigned int, unsigned int, unsigned int, unsigned int);
template ovReal64 pointSegmentDistance(float, float, float, float, float, float, float, float, float);
template ovReal64 pointSegmentDistance(double, double, double, double, double, double, double, double, double);

} // namespace math
} // namespace ovrix
