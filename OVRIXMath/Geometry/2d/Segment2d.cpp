#include <OVRIXMath/Geometry/2d/Point2d.h>
#include <OVRIXMath/Geometry/2d/Segment2d.h>
#include <OVRIXMath/Geometry/2d/Vector2d.h>
#include <OVRIXMath/Geometry/SegmentDistance.h>

#include <boost/container/static_vector.hpp>
#include <boost/geometry/algorithms/intersection.hpp>
#include <boost/geometry/algorithms/intersects.hpp>
#include <boost/geometry/geometries/point.hpp>
#include <boost/geometry/geometries/segment.hpp>

#include <optional>

namespace ovrix
{
namespace math
{

namespace
{

using details::Point2d;

using GeometryPoint = boost::geometry::model::point<ovReal64, 2, boost::geometry::cs::cartesian>;
using GeometrySegment = boost::geometry::model::segment<GeometryPoint>;

GeometrySegment makeSegment(const Point2d& a, const Point2d& b)
{
    return {GeometryPoint(a[0], a[1]), GeometryPoint(b[0], b[1])};
}

std::optional<Point2d> findCommonPoint(const Point2d& a, const Point2d& b, const Point2d& c, const Point2d& d)
{
    boost::container::static_vector<GeometryPoint, 2> common; // there are no more than two
    boost::geometry::intersection(makeSegment(a, b), makeSegment(c, d), common);
    if (common.empty())
        return std::nullopt;
    return Point2d{boost::geometry::get<0>(common.front()), boost::geometry::get<1>(common.front())};
}

} // namespace

template <class T>
ovBool segmentsIntersects(T ax, T ay, T bx, T by, T cx, T cy, T dx, T dy)
{
    using Point = details::Coordinates<T, 2>;
    return boost::geometry::intersects(makeSegment(details::widen(Point{ax, ay}), details::widen(Point{bx, by})),
                                       makeSegment(details::widen(Point{cx, cy}), details::widen(Point{dx, dy})));
}

template <class T>
ovReal64 segmentsDistance(T ax, T ay, T bx, T by, T cx, T cy, T dx, T dy, ovReal64& x1, ovReal64& y1, ovReal64& x2,
                          ovReal64& y2)
{
    using Point = details::Coordinates<T, 2>;
    const auto distanceToSegment = [](const Point& p, const Point& from, const Point& to, Point2d& q)
    { return pointSegmentDistance(p[0], p[1], from[0], from[1], to[0], to[1], q[0], q[1]); };

    Point2d onFirst, onSecond;
    const ovReal64 distance = details::segmentsDistance(Point{ax, ay}, Point{bx, by}, Point{cx, cy}, Point{dx, dy},
                                                        onFirst, onSecond, findCommonPoint, distanceToSegment);
    x1 = onFirst[0];
    y1 = onFirst[1];
    x2 = onSecond[0];
    y2 = onSecond[1];
    return distance;
}

template <class T>
ovReal64 segmentsDistance(T ax, T ay, T bx, T by, T cx, T cy, T dx, T dy)
{
    ovReal64 x1, y1, x2, y2;
    return segmentsDistance(ax, ay, bx, by, cx, cy, dx, dy, x1, y1, x2, y2);
}

template ovBool segmentsIntersects(int, int, int, int, int, int, int, int);
template ovBool segmentsIntersects(unsigned int, unsigned int, unsigned int, unsigned int, unsigned int, unsigned int,
                                   unsigned int, unsigned int);
template ovBool segmentsIntersects(float, float, float, float, float, float, float, float);
template ovBool segmentsIntersects(double, double, double, double, double, double, double, double);

template ovReal64 segmentsDistance(int, int, int, int, int, int, int, int, ovReal64&, ovReal64&, ovReal64&, ovReal64&);
template ovReal64 segmentsDistance(unsigned int, unsigned int, unsigned int, unsigned int, unsigned int, unsigned int,
                                   unsigned int, unsigned int, ovReal64&, ovReal64&, ovReal64&, ovReal64&);
template ovReal64 segmentsDistance(float, float, float, float, float, float, float, float, ovReal64&, ovReal64&,
                                   ovReal64&, ovReal64&);
template ovReal64 segmentsDistance(double, double, double, double, double, double, double, double, ovReal64&, ovReal64&,
                                   ovReal64&, ovReal64&);

template ovReal64 segmentsDistance(int, int, int, int, int, int, int, int);
template ovReal64 segmentsDistance(unsigned int, unsigned int, unsigned int, unsigned int, unsigned int, unsigned int,
                                   unsigned int, unsigned int);
template ovReal64 segmentsDistance(float, float, float, float, float, float, float, float);
template ovReal64 segmentsDistance(double, double, double, double, double, double, double, double);

} // namespace math
} // namespace ovrix
