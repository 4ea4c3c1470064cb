#include <OVRIXMath/Geometry/3d/Point3d.h>
#include <OVRIXMath/Geometry/3d/Segment3d.h>
#include <OVRIXMath/Geometry/3d/Vector3d.h>
#include <OVRIXMath/Geometry/SegmentDistance.h>

#include <boost/geometry/geometries/point.hpp>
#include <boost/geometry/geometries/segment.hpp>
#include <boost/geometry/policies/relate/intersection_points.hpp>
#include <boost/geometry/strategies/cartesian/intersection.hpp>
#include <boost/geometry/strategies/cartesian/point_in_point.hpp>
#include <boost/geometry/strategies/intersection_result.hpp>

#include <optional>

namespace ovrix
{
namespace math
{

namespace
{

using details::Point3d;

using GeometryPoint = boost::geometry::model::point<ovReal64, 3, boost::geometry::cs::cartesian>;

/// A segment as the intersection strategy takes it. The one that Boost.Geometry makes of a segment leaves z unset,
/// which the strategy compares.
class GeometrySegment
{
public:
    using point_type = GeometryPoint;

    GeometrySegment(const Point3d& a, const Point3d& b) : _ends{makePoint(a), makePoint(b)} {}

    const GeometryPoint& at(std::size_t index) const
    {
        return _ends[index];
    }

private:
    static GeometryPoint makePoint(const Point3d& point)
    {
        return GeometryPoint(point[0], point[1], point[2]);
    }

    GeometryPoint _ends[2];
};

/// z of the segment ab where it passes over (x, y), along the longer of its extents; that of a where ab is vertical.
ovReal64 heightAt(const Point3d& a, const Point3d& b, ovReal64 x, ovReal64 y)
{
    const ovReal64 dx = b[0] - a[0];
    const ovReal64 dy = b[1] - a[1];
    const bool bAlongX = std::fabs(dx) >= std::fabs(dy);
    const ovReal64 extent = bAlongX ? dx : dy;
    if (extent == 0.0)
        return a[2];
    const ovReal64 passed = bAlongX ? x - a[0] : y - a[1];
    return a[2] + passed / extent * (b[2] - a[2]);
}

/// The first common point of ab and cd that the intersection strategy reports, at the height of ab.
std::optional<Point3d> findCommonPoint(const Point3d& a, const Point3d& b, const Point3d& c, const Point3d& d)
{
    using Points = boost::geometry::segment_intersection_points<GeometryPoint>;
    using Policy = boost::geometry::policies::relate::segments_intersection_points<Points>;
    using Strategy = boost::geometry::strategy::intersection::cartesian_segments<>;

    const Points common = Strategy::apply(GeometrySegment(a, b), GeometrySegment(c, d), Policy());
    if (common.count == 0)
        return std::nullopt;
    // The strategy fills x and y only.
    const ovReal64 x = boost::geometry::get<0>(common.intersections[0]);
    const ovReal64 y = boost::geometry::get<1>(common.intersections[0]);
    return Point3d{x, y, heightAt(a, b, x, y)};
}

} // namespace

template <class T>
ovBool segmentsIntersects(T ax, T ay, T az, T bx, T by, T bz, T cx, T cy, T cz, T dx, T dy, T dz)
{
    using Point = details::Coordinates<T, 3>;
    return findCommonPoint(details::widen(Point{ax, ay, az}), details::widen(Point{bx, by, bz}),
                           details::widen(Point{cx, cy, cz}), details::widen(Point{dx, dy, dz}))
        .has_value();
}

template <class T>
ovReal64 segmentsDistance(T ax, T ay, T az, T bx, T by, T bz, T cx, T cy, T cz, T dx, T dy, T dz, ovReal64& x1,
                          ovReal64& y1, ovReal64& z1, ovReal64& x2, ovReal64& y2, ovReal64& z2)
{
    using Point = details::Coordinates<T, 3>;
    const auto distanceToSegment = [](const Point& p, const Point& from, const Point& to, Point3d& q) {
        return pointSegmentDistance(p[0], p[1], p[2], from[0], from[1], from[2], to[0], to[1], to[2], q[0], q[1], q[2]);
    };

    Point3d onFirst, onSecond;
    const ovReal64 distance =
        details::segmentsDistance(Point{ax, ay, az}, Point{bx, by, bz}, Point{cx, cy, cz}, Point{dx, dy, dz}, onFirst,
                                  onSecond, findCommonPoint, distanceToSegment);
    x1 = onFirst[0];
    y1 = onFirst[1];
    z1 = onFirst[2];
    x2 = onSecond[0];
    y2 = onSecond[1];
    z2 = onSecond[2];
    return distance;
}

template <class T>
ovReal64 segmentsDistance(T ax, T ay, T az, T bx, T by, T bz, T cx, T cy, T cz, T dx, T dy, T dz)
{
    ovReal64 x1, y1, z1, x2, y2, z2;
    return segmentsDistance(ax, ay, az, bx, by, bz, cx, cy, cz, dx, dy, dz, x1, y1, z1, x2, y2, z2);
}

template ovBool segmentsIntersects(int, int, int, int, int, int, int, int, int, int, int, int);
template ovBool segmentsIntersects(unsigned int, unsigned int, unsigned int, unsigned int, unsigned int, unsigned int,
                                   unsigned int, unsigned int, unsigned int, unsigned int, unsigned int, unsigned int);
template ovBool segmentsIntersects(float, float, float, float, float, float, float, float, float, float, float, float);
template ovBool segmentsIntersects(double, double, double, double, double, double, double, double, double, double,
                                   double, double);

template ovReal64 segmentsDistance(int, int, int, int, int, int, int, int, int, int, int, int, ovReal64&, ovReal64&,
                                   ovReal64&, ovReal64&, ovReal64&, ovReal64&);
template ovReal64 segmentsDistance(unsigned int, unsigned int, unsigned int, unsigned int, unsigned int, unsigned int,
                                   unsigned int, unsigned int, unsigned int, unsigned int, unsigned int, unsigned int,
                                   ovReal64&, ovReal64&, ovReal64&, ovReal64&, ovReal64&, ovReal64&);
template ovReal64 segmentsDistance(float, float, float, float, float, float, float, float, float, float, float, float,
                                   ovReal64&, ovReal64&, ovReal64&, ovReal64&, ovReal64&, ovReal64&);
template ovReal64 segmentsDistance(double, double, double, double, double, double, double, double, double, double,
                                   double, double, ovReal64&, ovReal64&, ovReal64&, ovReal64&, ovReal64&, ovReal64&);

template ovReal64 segmentsDistance(int, int, int, int, int, int, int, int, int, int, int, int);
template ovReal64 segmentsDistance(unsigned int, unsigned int, unsigned int, unsigned int, unsigned int, unsigned int,
                                   unsigned int, unsigned int, unsigned int, unsigned int, unsigned int, unsigned int);
template ovReal64 segmentsDistance(float, float, float, float, float, float, float, float, float, float, float, float);
template ovReal64 segmentsDistance(double, double, double, double, double, double, double, double, double, double,
                                   double, double);

} // namespace math
} // namespace ovrix
