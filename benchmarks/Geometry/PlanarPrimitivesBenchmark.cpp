// The primitives of the plane, each beside its formula written by hand, and where there is one beside Boost.Geometry.

#include "CallComparison.h"

#include <OVRIXMath/Geometry/2d/Circle2d.h>
#include <OVRIXMath/Geometry/2d/Ellipse2d.h>
#include <OVRIXMath/Geometry/2d/Line2d.h>
#include <OVRIXMath/Geometry/2d/Point2d.h>
#include <OVRIXMath/Geometry/2d/Segment2d.h>

#include <boost/geometry/algorithms/distance.hpp>
#include <boost/geometry/algorithms/intersects.hpp>
#include <boost/geometry/geometries/point.hpp>
#include <boost/geometry/geometries/segment.hpp>
#include <boost/geometry/strategies/strategies.hpp>

#include <algorithm>
#include <cmath>

namespace ovrix
{
namespace math
{

namespace
{

using bench::compareOnRows;
using bench::drawRows;

using GeometryPoint = boost::geometry::model::point<double, 2, boost::geometry::cs::cartesian>;
using GeometrySegment = boost::geometry::model::segment<GeometryPoint>;

[[gnu::noinline]] bool plainCircle(double x1, double y1, double x2, double y2, double x3, double y3, double& cx,
                                   double& cy, double& r)
{
    const double det = (x1 - x2) * (y2 - y3) - (x2 - x3) * (y1 - y2);
    if (!(std::fabs(det) > 1.4901161193847656e-08))
        return false;
    const double p = (x1 * x1 + y1 * y1 - x2 * x2 - y2 * y2) / 2.0;
    const double q = (x2 * x2 + y2 * y2 - x3 * x3 - y3 * y3) / 2.0;
    cx = ((y2 - y3) * p - (y1 - y2) * q) / det;
    cy = ((x1 - x2) * q - (x2 - x3) * p) / det;
    r = std::sqrt((cx - x1) * (cx - x1) + (cy - y1) * (cy - y1));
    return true;
}

void circle(benchmark::State& state)
{
    compareOnRows(
        state, drawRows<6>(-1.0, 1.0),
        [](const auto& v)
        {
            double cx = 0.0, cy = 0.0, r = 0.0;
            circleFromPoints(v[0], v[1], v[2], v[3], v[4], v[5], cx, cy, r);
            return cx + cy + r;
        },
        [](const auto& v)
        {
            double cx = 0.0, cy = 0.0, r = 0.0;
            plainCircle(v[0], v[1], v[2], v[3], v[4], v[5], cx, cy, r);
            return cx + cy + r;
        });
}
BENCHMARK(circle)->Apply(bench::inRounds);

/// Centre, angle and radii of an ellipse, each in a range of its own.
bench::Rows<double, 5> drawEllipses()
{
    auto rows = drawRows<5>(0.0, 1.0);
    for (auto& row : rows)
    {
        row[2] *= 3.0;
        row[3] += 0.5;
        row[4] += 0.5;
    }
    return rows;
}

[[gnu::noinline]] bool plainToQuadratic(double cx, double cy, double theta, double r1, double r2, double& a, double& b,
                                        double& c, double& d, double& e, double& f)
{
    if (r1 <= 0.0 || r2 <= 0.0)
        return false;
    const double cosT = std::cos(theta), sinT = std::sin(theta);
    const double p = r1 * r1, q = r2 * r2;
    a = q * cosT * cosT + p * sinT * sinT;
    b = 2.0 * cosT * sinT * (q - p);
    c = p * cosT * cosT + q * sinT * sinT;
    d = -2.0 * a * cx - b * cy;
    e = -b * cx - 2.0 * c * cy;
    f = a * cx * cx + b * cx * cy + c * cy * cy - p * q;
    return true;
}

void ellipseToQuadratic(benchmark::State& state)
{
    compareOnRows(
        state, drawEllipses(),
        [](const auto& v)
        {
            double a = 0.0, b = 0.0, c = 0.0, d = 0.0, e = 0.0, f = 0.0;
            convertEllipseToQuadratic(v[0], v[1], v[2], v[3], v[4], a, b, c, d, e, f);
            return a + b + c + d + e + f;
        },
        [](const auto& v)
        {
            double a = 0.0, b = 0.0, c = 0.0, d = 0.0, e = 0.0, f = 0.0;
            plainToQuadratic(v[0], v[1], v[2], v[3], v[4], a, b, c, d, e, f);
            return a + b + c + d + e + f;
        });
}
BENCHMARK(ellipseToQuadratic)->Apply(bench::inRounds);

[[gnu::noinline]] bool plainFromQuadratic(double a, double b, double c, double d, double e, double f, double& cx,
                                          double& cy, double& theta, double& r1, double& r2)
{
    const double disc = a * c - b * b;
    if (disc <= 0.0)
        return false;
    cx = (b * e - c * d) / (2.0 * disc);
    cy = (b * d - a * e) / (2.0 * disc);
    const double g = 1.0 / (a * cx * cx + 2.0 * b * cx * cy + c * cy * cy - f);
    a *= g;
    b *= g;
    c *= g;
    const double root = std::sqrt(4.0 * b * b + (a - c) * (a - c));
    const double l2 = (a + c + root) / 2.0;
    r1 = 1.0 / std::sqrt((a + c - root) / 2.0);
    r2 = 1.0 / std::sqrt(l2);
    const double phi = a >= c ? std::atan2(b, l2 - c) : std::atan2(l2 - a, b);
    theta = std::fmod(phi + M_PI_2, M_PI);
    if (theta >= M_PI_2)
        theta -= M_PI;
    if (theta < -M_PI_2)
        theta += M_PI;
    return true;
}

void ellipseFromQuadratic(benchmark::State& state)
{
    bench::Rows<double, 6> rows;
    for (const auto& v : drawEllipses())
    {
        auto& row = rows.emplace_back();
        convertEllipseToQuadratic(v[0], v[1], v[2], v[3], v[4], row[0], row[1], row[2], row[3], row[4], row[5]);
        row[1] /= 2.0;
    }
    compareOnRows(
        state, rows,
        [](const auto& v)
        {
            double cx = 0.0, cy = 0.0, theta = 0.0, r1 = 0.0, r2 = 0.0;
            convertEllipseFromQuadratic(v[0], v[1], v[2], v[3], v[4], v[5], cx, cy, theta, r1, r2);
            return cx + cy + theta + r1 + r2;
        },
        [](const auto& v)
        {
            double cx = 0.0, cy = 0.0, theta = 0.0, r1 = 0.0, r2 = 0.0;
            plainFromQuadratic(v[0], v[1], v[2], v[3], v[4], v[5], cx, cy, theta, r1, r2);
            return cx + cy + theta + r1 + r2;
        });
}
BENCHMARK(ellipseFromQuadratic)->Apply(bench::inRounds);

[[gnu::noinline]] double plainLowerBound(double r1, double r2)
{
    return 4.0 * std::sqrt(r1 * r1 + r2 * r2);
}

[[gnu::noinline]] double plainUpperBound(double r1, double r2)
{
    return M_PI * std::sqrt(2.0 * (r1 * r1 + r2 * r2));
}

[[gnu::noinline]] double plainArea(double r1, double r2)
{
    return M_PI * r1 * r2;
}

[[gnu::noinline]] double plainExcentricity(double r1, double r2)
{
    const double big = std::max(r1, r2);
    const double small = std::min(r1, r2);
    return big <= 0.0 ? 0.0 : std::sqrt(big * big - small * small) / big;
}

/// Area, both bounds of the perimeter and excentricity.
void ellipseMeasures(benchmark::State& state)
{
    compareOnRows(
        state, drawRows<2>(0.5, 1.5),
        [](const auto& v)
        {
            return ellipseArea(v[0], v[1]) + ellipsePerimeterLowerBound(v[0], v[1]) +
                   ellipsePerimeterUpperBound(v[0], v[1]) + ellipseExcentricity(v[0], v[1]);
        },
        [](const auto& v)
        {
            return plainArea(v[0], v[1]) + plainLowerBound(v[0], v[1]) + plainUpperBound(v[0], v[1]) +
                   plainExcentricity(v[0], v[1]);
        });
}
BENCHMARK(ellipseMeasures)->Apply(bench::inRounds);

[[gnu::noinline]] bool plainEquivalent(double perimeter, double area, double& r1, double& r2)
{
    const double sum = perimeter * perimeter / (2.0 * M_PI * M_PI);
    const double product = area / M_PI;
    const double disc = sum * sum / 4.0 - product * product;
    if (perimeter < 0.0 || area < 0.0 || disc < 0.0)
        return false;
    r1 = std::sqrt(sum / 2.0 + std::sqrt(disc));
    r2 = std::sqrt(sum / 2.0 - std::sqrt(disc));
    return true;
}

void ellipseOfMeasures(benchmark::State& state)
{
    auto rows = drawRows<2>(0.5, 1.5);
    for (auto& row : rows)
        row = {ellipsePerimeterUpperBound(row[0], row[1]), ellipseArea(row[0], row[1])};
    compareOnRows(
        state, rows,
        [](const auto& v)
        {
            double r1 = 0.0, r2 = 0.0;
            equivalentEllipse(v[0], v[1], r1, r2);
            return r1 + r2;
        },
        [](const auto& v)
        {
            double r1 = 0.0, r2 = 0.0;
            plainEquivalent(v[0], v[1], r1, r2);
            return r1 + r2;
        });
}
BENCHMARK(ellipseOfMeasures)->Apply(bench::inRounds);

[[gnu::noinline]] void plainPoint(double cx, double cy, double r1, double r2, double theta, double angle, double& x,
                                  double& y)
{
    const double c = std::cos(angle - theta), s = std::sin(angle - theta);
    const double rad = r1 * r2 / std::sqrt(r2 * r2 * c * c + r1 * r1 * s * s);
    x = cx + rad * std::cos(angle);
    y = cy + rad * std::sin(angle);
}

void pointOfEllipse(benchmark::State& state)
{
    compareOnRows(
        state, drawEllipses(),
        [](const auto& v)
        {
            double x = 0.0, y = 0.0;
            ellipsePoint(v[0], v[1], v[3], v[4], v[2], v[0], x, y);
            return x + y;
        },
        [](const auto& v)
        {
            double x = 0.0, y = 0.0;
            plainPoint(v[0], v[1], v[3], v[4], v[2], v[0], x, y);
            return x + y;
        });
}
BENCHMARK(pointOfEllipse)->Apply(bench::inRounds);

[[gnu::noinline]] bool plainLine(double x1, double y1, double x2, double y2, double& rho, double& theta)
{
    if (x1 == x2 && y1 == y2)
        return false;
    theta = std::atan2(x1 - x2, y2 - y1);
    rho = x1 * std::cos(theta) + y1 * std::sin(theta);
    return true;
}

void line(benchmark::State& state)
{
    compareOnRows(
        state, drawRows<4>(-1.0, 1.0),
        [](const auto& v)
        {
            double rho = 0.0, theta = 0.0;
            lineFromPoints(v[0], v[1], v[2], v[3], rho, theta);
            return rho + theta;
        },
        [](const auto& v)
        {
            double rho = 0.0, theta = 0.0;
            plainLine(v[0], v[1], v[2], v[3], rho, theta);
            return rho + theta;
        });
}
BENCHMARK(line)->Apply(bench::inRounds);

/// By the parameter of the projection, limited to the segment.
[[gnu::noinline]] double plainPointToSegment(double px, double py, double ax, double ay, double bx, double by,
                                             double& qx, double& qy)
{
    const double ux = bx - ax, uy = by - ay;
    const double square = ux * ux + uy * uy;
    const double along = (px - ax) * ux + (py - ay) * uy;
    const double t = square > 0.0 ? std::min(1.0, std::max(0.0, along / square)) : 0.0;
    qx = ax + t * ux;
    qy = ay + t * uy;
    return std::sqrt((px - qx) * (px - qx) + (py - qy) * (py - qy));
}

template <class T>
void pointToSegment(benchmark::State& state)
{
    compareOnRows(
        state, bench::convertRows<T>(drawRows<6>(0.0, 100.0)),
        [](const auto& v)
        {
            double qx = 0.0, qy = 0.0;
            return pointSegmentDistance<T>(v[0], v[1], v[2], v[3], v[4], v[5], qx, qy) + qx + qy;
        },
        [](const auto& v)
        {
            double qx = 0.0, qy = 0.0;
            return plainPointToSegment(v[0], v[1], v[2], v[3], v[4], v[5], qx, qy) + qx + qy;
        });
}
BENCHMARK_TEMPLATE(pointToSegment, double)->Apply(bench::inRounds);
BENCHMARK_TEMPLATE(pointToSegment, float)->Apply(bench::inRounds);
BENCHMARK_TEMPLATE(pointToSegment, int)->Apply(bench::inRounds);
BENCHMARK_TEMPLATE(pointToSegment, unsigned int)->Apply(bench::inRounds);

[[gnu::noinline]] double boostPointToSegment(double px, double py, double ax, double ay, double bx, double by)
{
    return boost::geometry::distance(GeometryPoint(px, py),
                                     GeometrySegment(GeometryPoint(ax, ay), GeometryPoint(bx, by)));
}

void pointToSegmentBesideBoost(benchmark::State& state)
{
    compareOnRows(
        state, drawRows<6>(0.0, 100.0),
        [](const auto& v) { return pointSegmentDistance<double>(v[0], v[1], v[2], v[3], v[4], v[5]); },
        [](const auto& v) { return boostPointToSegment(v[0], v[1], v[2], v[3], v[4], v[5]); });
}
BENCHMARK(pointToSegmentBesideBoost)->Apply(bench::inRounds);

/// Segments of which about half intersect (0), or of which all or none do, by the distance of their centres.
bench::Rows<double, 8> drawSegments(double distance)
{
    auto rows = drawRows<8>(-1.0, 1.0);
    for (auto& row : rows)
    {
        if (distance == 0.0)
            continue;
        row[4] += distance;
        row[6] += distance;
    }
    return rows;
}

double signOfTurn(double ax, double ay, double bx, double by, double cx, double cy)
{
    const double turn = (bx - ax) * (cy - ay) - (by - ay) * (cx - ax);
    return turn > 0.0 ? 1.0 : turn < 0.0 ? -1.0 : 0.0;
}

/// By the turns of the ends, without the cases of collinear ends.
[[gnu::noinline]] bool plainIntersects(double ax, double ay, double bx, double by, double cx, double cy, double dx,
                                       double dy)
{
    return signOfTurn(ax, ay, bx, by, cx, cy) * signOfTurn(ax, ay, bx, by, dx, dy) < 0.0 &&
           signOfTurn(cx, cy, dx, dy, ax, ay) * signOfTurn(cx, cy, dx, dy, bx, by) < 0.0;
}

[[gnu::noinline]] bool boostIntersects(double ax, double ay, double bx, double by, double cx, double cy, double dx,
                                       double dy)
{
    return boost::geometry::intersects(GeometrySegment(GeometryPoint(ax, ay), GeometryPoint(bx, by)),
                                       GeometrySegment(GeometryPoint(cx, cy), GeometryPoint(dx, dy)));
}

const auto g_intersects = [](const auto& v)
{ return segmentsIntersects<double>(v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7]); };

void intersectionOfSegments(benchmark::State& state)
{
    compareOnRows(state, drawSegments(static_cast<double>(state.range(0))), g_intersects,
                  [](const auto& v) { return plainIntersects(v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7]); });
}
BENCHMARK(intersectionOfSegments)->Arg(0)->Arg(3)->Apply(bench::inRounds);

void intersectionOfSegmentsBesideBoost(benchmark::State& state)
{
    compareOnRows(state, drawSegments(static_cast<double>(state.range(0))), g_intersects,
                  [](const auto& v) { return boostIntersects(v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7]); });
}
BENCHMARK(intersectionOfSegmentsBesideBoost)->Arg(0)->Arg(3)->Apply(bench::inRounds);

[[gnu::noinline]] double plainSegments(double ax, double ay, double bx, double by, double cx, double cy, double dx,
                                       double dy)
{
    if (plainIntersects(ax, ay, bx, by, cx, cy, dx, dy))
        return 0.0;
    double qx, qy;
    return std::min(std::min(plainPointToSegment(ax, ay, cx, cy, dx, dy, qx, qy),
                             plainPointToSegment(bx, by, cx, cy, dx, dy, qx, qy)),
                    std::min(plainPointToSegment(cx, cy, ax, ay, bx, by, qx, qy),
                             plainPointToSegment(dx, dy, ax, ay, bx, by, qx, qy)));
}

[[gnu::noinline]] double boostSegments(double ax, double ay, double bx, double by, double cx, double cy, double dx,
                                       double dy)
{
    return boost::geometry::distance(GeometrySegment(GeometryPoint(ax, ay), GeometryPoint(bx, by)),
                                     GeometrySegment(GeometryPoint(cx, cy), GeometryPoint(dx, dy)));
}

const auto g_segmentsDistance = [](const auto& v)
{ return segmentsDistance<double>(v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7]); };

void distanceOfSegments(benchmark::State& state)
{
    compareOnRows(state, drawSegments(static_cast<double>(state.range(0))), g_segmentsDistance,
                  [](const auto& v) { return plainSegments(v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7]); });
}
BENCHMARK(distanceOfSegments)->Arg(0)->Arg(3)->Apply(bench::inRounds);

void distanceOfSegmentsBesideBoost(benchmark::State& state)
{
    compareOnRows(state, drawSegments(static_cast<double>(state.range(0))), g_segmentsDistance,
                  [](const auto& v) { return boostSegments(v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7]); });
}
BENCHMARK(distanceOfSegmentsBesideBoost)->Arg(0)->Arg(3)->Apply(bench::inRounds);

} // namespace

} // namespace math
} // namespace ovrix
