#include <OVRIXMath/Geometry/2d/Point2d.h>
#include <OVRIXMath/Geometry/2d/Vector2d.h>
#include <OVRIXMath/Geometry/SegmentDistance.h>

namespace ovrix
{
namespace math
{

namespace
{

using details::Point2d;

/// Foot q = p - sd n of the perpendicular from p, with sd the signed distance of p to the left. Not a function, whose
/// address would be called: its own type lets the compiler inline it.
constexpr auto projectOnLine = [](const Point2d& p, const Point2d& u, const Point2d& w, Point2d& q)
{
    const Point2d n = details::leftNormal(u);
    const ovReal64 sd = details::dot(w, n);
    q = {p[0] - sd * n[0], p[1] - sd * n[1]};
    return std::fabs(sd);
};

} // namespace

template <class T>
ovReal64 pointSegmentDistance(T px, T py, T ax, T ay, T bx, T by, ovReal64& qx, ovReal64& qy)
{
    using Point = details::Coordinates<T, 2>;
    Point2d q;
    const ovReal64 distance =
        details::pointSegmentDistance(Point{px, py}, Point{ax, ay}, Point{bx, by}, q, projectOnLine);
    qx = q[0];
    qy = q[1];
    return distance;
}

template <class T>
ovReal64 pointSegmentDistance(T px, T py, T ax, T ay, T bx, T by)
{
    ovReal64 qx, qy;
    return pointSegmentDistance(px, py, ax, ay, bx, by, qx, qy);
}

template ovReal64 pointSegmentDistance(int, int, int, int, int, int, ovReal64&, ovReal64&);
template ovReal64 pointSegmentDistance(unsigned int, unsigned int, unsigned int, unsigned int, unsigned int,
                                       unsigned int, ovReal64&, ovReal64&);
template ovReal64 pointSegmentDistance(float, float, float, float, float, float, ovReal64&, ovReal64&);
template ovReal64 pointSegmentDistance(double, double, double, double, double, double, ovReal64&, ovReal64&);

template ovReal64 pointSegmentDistance(int, int, int, int, int, int);
template ovReal64 pointSegmentDistance(unsigned int, unsigned int, unsigned int, unsigned int, unsigned int,
                                       unsigned int);
template ovReal64 pointSegmentDistance(float, float, float, float, float, float);
template ovReal64 pointSegmentDistance(double, double, double, double, double, double);

} // namespace math
} // namespace ovrix
