// The primitives of space, each beside its formula written by hand, and where there is one beside Boost.Geometry.

#include "CallComparison.h"

#include <OVRIXMath/Geometry/3d/Angles3d.h>
#include <OVRIXMath/Geometry/3d/Ellipsoid3d.h>
#include <OVRIXMath/Geometry/3d/Plan3d.h>
#include <OVRIXMath/Geometry/3d/Point3d.h>
#include <OVRIXMath/Geometry/3d/Segment3d.h>
#include <OVRIXMath/Geometry/3d/Sphere3d.h>
#include <OVRIXMath/Geometry/3d/Tetrahedron3d.h>
#include <OVRIXMath/LinearAlgebra/EigenDecomposition.h>

#include <boost/geometry/algorithms/distance.hpp>
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

using GeometryPoint = boost::geometry::model::point<double, 3, boost::geometry::cs::cartesian>;
using GeometrySegment = boost::geometry::model::segment<GeometryPoint>;

/// What the formulas written by hand share.
struct Plain3d
{
    double x, y, z;
};

inline Plain3d operator-(const Plain3d& a, const Plain3d& b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

inline double dot(const Plain3d& a, const Plain3d& b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

inline Plain3d cross(const Plain3d& a, const Plain3d& b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

inline double norm(const Plain3d& a)
{
    return std::sqrt(dot(a, a));
}

[[gnu::noinline]] void plainQuaternion(double rz, double ry, double rx, double& q0, double& q1, double& q2, double& q3)
{
    const double cz = std::cos(rz / 2.0), sz = std::sin(rz / 2.0);
    const double cy = std::cos(ry / 2.0), sy = std::sin(ry / 2.0);
    const double cx = std::cos(rx / 2.0), sx = std::sin(rx / 2.0);
    q0 = cz * cy * cx + sz * sy * sx;
    q1 = cz * cy * sx - sz * sy * cx;
    q2 = cz * sy * cx + sz * cy * sx;
    q3 = sz * cy * cx - cz * sy * sx;
}

void quaternionOfAngles(benchmark::State& state)
{
    compareOnRows(
        state, drawRows<3>(-1.5, 1.5),
        [](const auto& v)
        {
            double q0, q1, q2, q3;
            eulerToQuaternion(v[0], v[1], v[2], q0, q1, q2, q3);
            return q0 + q1 + q2 + q3;
        },
        [](const auto& v)
        {
            double q0, q1, q2, q3;
            plainQuaternion(v[0], v[1], v[2], q0, q1, q2, q3);
            return q0 + q1 + q2 + q3;
        });
}
BENCHMARK(quaternionOfAngles)->Apply(bench::inRounds);

[[gnu::noinline]] void plainAngles(double q0, double q1, double q2, double q3, double& rz, double& ry, double& rx)
{
    rz = std::atan2(2.0 * (q0 * q3 + q1 * q2), 1.0 - 2.0 * (q2 * q2 + q3 * q3));
    ry = std::asin(2.0 * (q0 * q2 - q1 * q3));
    rx = std::atan2(2.0 * (q0 * q1 + q2 * q3), 1.0 - 2.0 * (q1 * q1 + q2 * q2));
}

void anglesOfQuaternion(benchmark::State& state)
{
    bench::Rows<double, 4> rows;
    for (const auto& v : drawRows<3>(-1.5, 1.5))
    {
        auto& row = rows.emplace_back();
        eulerToQuaternion(v[0], v[1], v[2], row[0], row[1], row[2], row[3]);
    }
    compareOnRows(
        state, rows,
        [](const auto& v)
        {
            double rz, ry, rx;
            quaternionToEuler(v[0], v[1], v[2], v[3], rz, ry, rx);
            return rz + ry + rx;
        },
        [](const auto& v)
        {
            double rz, ry, rx;
            plainAngles(v[0], v[1], v[2], v[3], rz, ry, rx);
            return rz + ry + rx;
        });
}
BENCHMARK(anglesOfQuaternion)->Apply(bench::inRounds);

/// Centre, angles and radii, each in a range of its own; the origin lies outside.
bench::Rows<double, 9> drawEllipsoids()
{
    auto rows = drawRows<9>(0.0, 1.0);
    for (auto& row : rows)
    {
        for (const int i : {0, 1, 2})
            row[i] += 3.0;
        for (const int i : {6, 7, 8})
            row[i] += 0.5;
    }
    return rows;
}

struct PlainSymmetric
{
    double xx, xy, xz, yy, yz, zz;
};

/// The sum of the three d u u^T, u being the columns of a rotation.
inline PlainSymmetric plainSymmetric(const Plain3d* u, const double* d)
{
    PlainSymmetric a{};
    for (int i = 0; i < 3; ++i)
    {
        a.xx += d[i] * u[i].x * u[i].x;
        a.xy += d[i] * u[i].x * u[i].y;
        a.xz += d[i] * u[i].x * u[i].z;
        a.yy += d[i] * u[i].y * u[i].y;
        a.yz += d[i] * u[i].y * u[i].z;
        a.zz += d[i] * u[i].z * u[i].z;
    }
    return a;
}

/// The columns of Rz(rz) Ry(ry) Rx(rx).
inline void plainRotation(double rz, double ry, double rx, Plain3d* u)
{
    const double cz = std::cos(rz), sz = std::sin(rz);
    const double cy = std::cos(ry), sy = std::sin(ry);
    const double cx = std::cos(rx), sx = std::sin(rx);
    u[0] = {cy * cz, cy * sz, -sy};
    u[1] = {sx * sy * cz - cx * sz, sx * sy * sz + cx * cz, sx * cy};
    u[2] = {cx * sy * cz + sx * sz, cx * sy * sz - sx * cz, cx * cy};
}

/// `q` gets the ten coefficients.
[[gnu::noinline]] bool plainToQuadratic(const double* v, double* q)
{
    if (v[6] <= 0.0 || v[7] <= 0.0 || v[8] <= 0.0)
        return false;
    Plain3d u[3];
    plainRotation(v[3], v[4], v[5], u);
    const double d[] = {1.0 / (v[6] * v[6]), 1.0 / (v[7] * v[7]), 1.0 / (v[8] * v[8])};
    const PlainSymmetric a = plainSymmetric(u, d);
    const double wx = a.xx * v[0] + a.xy * v[1] + a.xz * v[2];
    const double wy = a.xy * v[0] + a.yy * v[1] + a.yz * v[2];
    const double wz = a.xz * v[0] + a.yz * v[1] + a.zz * v[2];
    const double values[] = {a.xx, a.xy,      a.xz,      a.yy,      a.yz,
                             a.zz, -2.0 * wx, -2.0 * wy, -2.0 * wz, v[0] * wx + v[1] * wy + v[2] * wz};
    std::copy(std::begin(values), std::end(values), q);
    return true;
}

template <class Values>
double sum(const Values& values)
{
    double total = 0.0;
    for (const double value : values)
        total += value;
    return total;
}

/// The library multiplies three matrices by two calls of the BLAS.
void ellipsoidToQuadratic(benchmark::State& state)
{
    compareOnRows(
        state, drawEllipsoids(),
        [](const auto& v)
        {
            double q[10] = {};
            convertEllipsoidToQuadratic(v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8], q[0], q[1], q[2], q[3],
                                        q[4], q[5], q[6], q[7], q[8], q[9]);
            return sum(q);
        },
        [](const auto& v)
        {
            double q[10] = {};
            plainToQuadratic(v.data(), q);
            return sum(q);
        });
}
BENCHMARK(ellipsoidToQuadratic)->Apply(bench::inRounds);

/// With the library's own eigenvalues; `e` gets centre, angles and radii.
[[gnu::noinline]] bool plainFromQuadratic(const double* q, double* e)
{
    double l[3];
    eigenDecomposition<double>(q[0], q[1], q[2], q[3], q[4], q[5], l[0], l[1], l[2], e[3], e[4], e[5]);
    if (!(l[0] > 0.0))
        return false;
    Plain3d u[3];
    plainRotation(e[3], e[4], e[5], u);
    const double d[] = {1.0 / l[0], 1.0 / l[1], 1.0 / l[2]};
    // The axes are the rows.
    const Plain3d rows[] = {{u[0].x, u[1].x, u[2].x}, {u[0].y, u[1].y, u[2].y}, {u[0].z, u[1].z, u[2].z}};
    const PlainSymmetric b = plainSymmetric(rows, d);
    e[0] = -0.5 * (b.xx * q[6] + b.xy * q[7] + b.xz * q[8]);
    e[1] = -0.5 * (b.xy * q[6] + b.yy * q[7] + b.yz * q[8]);
    e[2] = -0.5 * (b.xz * q[6] + b.yz * q[7] + b.zz * q[8]);
    const double k = -0.5 * (q[6] * e[0] + q[7] * e[1] + q[8] * e[2]) - q[9];
    for (int i = 0; i < 3; ++i)
        e[6 + i] = std::sqrt(k / l[i]);
    return k > 0.0;
}

void ellipsoidFromQuadratic(benchmark::State& state)
{
    bench::Rows<double, 10> rows;
    for (const auto& v : drawEllipsoids())
    {
        plainToQuadratic(v.data(), rows.emplace_back().data());
        rows.back()[9] -= 1.0;
    }
    compareOnRows(
        state, rows,
        [](const auto& v)
        {
            double e[9] = {};
            convertEllipsoidFromQuadratic(v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8], v[9], e[0], e[1], e[2],
                                          e[3], e[4], e[5], e[6], e[7], e[8]);
            return sum(e);
        },
        [](const auto& v)
        {
            double e[9] = {};
            plainFromQuadratic(v.data(), e);
            return sum(e);
        });
}
BENCHMARK(ellipsoidFromQuadratic)->Apply(bench::inRounds);

[[gnu::noinline]] double plainArea(double r1, double r2, double r3)
{
    const double p = 1.6075;
    const double a = std::pow(r1, p), b = std::pow(r2, p), c = std::pow(r3, p);
    return 4.0 * M_PI * std::pow((a * b + a * c + b * c) / 3.0, 1.0 / p);
}

void areaOfEllipsoid(benchmark::State& state)
{
    compareOnRows(
        state, drawRows<3>(0.5, 1.5), [](const auto& v) { return ellipsoidArea(v[0], v[1], v[2]); },
        [](const auto& v) { return plainArea(v[0], v[1], v[2]); });
}
BENCHMARK(areaOfEllipsoid)->Apply(bench::inRounds);

[[gnu::noinline]] double plainVolume(double r1, double r2, double r3)
{
    return r1 * (4.0 * M_PI / 3.0) * r2 * r3;
}

[[gnu::noinline]] double plainExcentricity(double r1, double r2, double r3)
{
    const double big = std::max({r1, r2, r3});
    const double small = std::min({r1, r2, r3});
    return big <= 0.0 ? 0.0 : std::sqrt(big * big - small * small) / big;
}

/// Volume and excentricity.
void measuresOfEllipsoid(benchmark::State& state)
{
    compareOnRows(
        state, drawRows<3>(0.5, 1.5),
        [](const auto& v) { return ellipsoidVolume(v[0], v[1], v[2]) + ellipsoidExcentricity(v[0], v[1], v[2]); },
        [](const auto& v) { return plainVolume(v[0], v[1], v[2]) + plainExcentricity(v[0], v[1], v[2]); });
}
BENCHMARK(measuresOfEllipsoid)->Apply(bench::inRounds);

[[gnu::noinline]] double plainRadius(double r1, double r2, double r3, double theta, double phi)
{
    const double dx = std::sin(theta) * std::cos(phi) / r1;
    const double dy = std::sin(theta) * std::sin(phi) / r2;
    const double dz = std::cos(theta) / r3;
    return 1.0 / std::sqrt(dx * dx + dy * dy + dz * dz);
}

void radiusOfEllipsoid(benchmark::State& state)
{
    compareOnRows(
        state, drawRows<5>(0.5, 1.5), [](const auto& v) { return ellipsoidRadius(v[0], v[1], v[2], v[3], v[4]); },
        [](const auto& v) { return plainRadius(v[0], v[1], v[2], v[3], v[4]); });
}
BENCHMARK(radiusOfEllipsoid)->Apply(bench::inRounds);

/// The library goes from the direction to its angles and back, the peer does not.
void pointOfEllipsoid(benchmark::State& state)
{
    const boost::numeric::ublas::bounded_matrix<double, 3, 3> matrix =
        boost::numeric::ublas::identity_matrix<double>(3);
    compareOnRows(
        state, drawRows<5>(0.5, 1.5),
        [&matrix](const auto& v)
        {
            double x, y, z;
            ellipsoidPoint(1.0, 2.0, 3.0, v[0], v[1], v[2], matrix, v[3], v[4], x, y, z);
            return x + y + z;
        },
        [](const auto& v)
        {
            const double rad = plainRadius(v[0], v[1], v[2], v[3], v[4]);
            return 6.0 + rad * (std::sin(v[3]) * (std::cos(v[4]) + std::sin(v[4])) + std::cos(v[3]));
        });
}
BENCHMARK(pointOfEllipsoid)->Apply(bench::inRounds);

[[gnu::noinline]] bool plainPlan(const Plain3d& p1, const Plain3d& p2, const Plain3d& p3, double& rho, double& theta,
                                 double& phi)
{
    const Plain3d n = cross(p2 - p1, p3 - p1);
    const double length = norm(n);
    if (length == 0.0)
        return false;
    theta = std::acos(n.z / length);
    phi = std::atan2(n.y, n.x);
    rho = dot(n, p1) / length;
    return true;
}

void plan(benchmark::State& state)
{
    compareOnRows(
        state, drawRows<9>(-1.0, 1.0),
        [](const auto& v)
        {
            double rho = 0.0, theta = 0.0, phi = 0.0;
            planFromPoints(v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8], rho, theta, phi);
            return rho + theta + phi;
        },
        [](const auto& v)
        {
            double rho = 0.0, theta = 0.0, phi = 0.0;
            plainPlan({v[0], v[1], v[2]}, {v[3], v[4], v[5]}, {v[6], v[7], v[8]}, rho, theta, phi);
            return rho + theta + phi;
        });
}
BENCHMARK(plan)->Apply(bench::inRounds);

/// Cramer's rule, for the sphere through p whose centre c has a . c = da, b . c = db and e . c = de.
inline bool plainCentre(const Plain3d& p, const Plain3d& a, double da, const Plain3d& b, double db, const Plain3d& e,
                        double de, double& cx, double& cy, double& cz, double& r)
{
    const Plain3d be = cross(b, e), ea = cross(e, a), ab = cross(a, b);
    const double det = dot(a, be);
    if (det == 0.0)
        return false;
    cx = (da * be.x + db * ea.x + de * ab.x) / det;
    cy = (da * be.y + db * ea.y + de * ab.y) / det;
    cz = (da * be.z + db * ea.z + de * ab.z) / det;
    r = norm(Plain3d{cx, cy, cz} - p);
    return true;
}

[[gnu::noinline]] bool plainSphere(const Plain3d& p1, const Plain3d& p2, const Plain3d& p3, const Plain3d& p4,
                                   double& cx, double& cy, double& cz, double& r)
{
    const double n1 = dot(p1, p1), n2 = dot(p2, p2), n3 = dot(p3, p3), n4 = dot(p4, p4);
    return plainCentre(p1, p1 - p2, (n1 - n2) / 2.0, p2 - p3, (n2 - n3) / 2.0, p3 - p4, (n3 - n4) / 2.0, cx, cy, cz, r);
}

void sphereOfFourPoints(benchmark::State& state)
{
    compareOnRows(
        state, drawRows<12>(-1.0, 1.0),
        [](const auto& v)
        {
            double cx = 0.0, cy = 0.0, cz = 0.0, r = 0.0;
            sphereFromPoints(v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8], v[9], v[10], v[11], cx, cy, cz, r);
            return cx + cy + cz + r;
        },
        [](const auto& v)
        {
            double cx = 0.0, cy = 0.0, cz = 0.0, r = 0.0;
            plainSphere({v[0], v[1], v[2]}, {v[3], v[4], v[5]}, {v[6], v[7], v[8]}, {v[9], v[10], v[11]}, cx, cy, cz,
                        r);
            return cx + cy + cz + r;
        });
}
BENCHMARK(sphereOfFourPoints)->Apply(bench::inRounds);

[[gnu::noinline]] bool plainSphere(const Plain3d& p1, const Plain3d& p2, const Plain3d& p3, double& cx, double& cy,
                                   double& cz, double& r)
{
    const double n1 = dot(p1, p1), n2 = dot(p2, p2), n3 = dot(p3, p3);
    const Plain3d n = cross(p2 - p1, p3 - p1);
    return plainCentre(p1, p2 - p1, (n2 - n1) / 2.0, p3 - p2, (n3 - n2) / 2.0, n, dot(n, p1), cx, cy, cz, r);
}

void sphereOfThreePoints(benchmark::State& state)
{
    compareOnRows(
        state, drawRows<9>(-1.0, 1.0),
        [](const auto& v)
        {
            double cx = 0.0, cy = 0.0, cz = 0.0, r = 0.0;
            sphereFromPoints(v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8], cx, cy, cz, r);
            return cx + cy + cz + r;
        },
        [](const auto& v)
        {
            double cx = 0.0, cy = 0.0, cz = 0.0, r = 0.0;
            plainSphere({v[0], v[1], v[2]}, {v[3], v[4], v[5]}, {v[6], v[7], v[8]}, cx, cy, cz, r);
            return cx + cy + cz + r;
        });
}
BENCHMARK(sphereOfThreePoints)->Apply(bench::inRounds);

/// By the parameter of the projection, limited to the segment.
[[gnu::noinline]] double plainPointToSegment(const Plain3d& p, const Plain3d& a, const Plain3d& b)
{
    const Plain3d u = b - a;
    const double square = dot(u, u);
    const double t = square > 0.0 ? std::min(1.0, std::max(0.0, dot(p - a, u) / square)) : 0.0;
    return norm(p - Plain3d{a.x + t * u.x, a.y + t * u.y, a.z + t * u.z});
}

template <class T>
void pointToSegmentOfSpace(benchmark::State& state)
{
    compareOnRows(
        state, bench::convertRows<T>(drawRows<9>(0.0, 100.0)),
        [](const auto& v) { return pointSegmentDistance<T>(v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8]); },
        [](const auto& v)
        {
            return plainPointToSegment({double(v[0]), double(v[1]), double(v[2])},
                                       {double(v[3]), double(v[4]), double(v[5])},
                                       {double(v[6]), double(v[7]), double(v[8])});
        });
}
BENCHMARK_TEMPLATE(pointToSegmentOfSpace, double)->Apply(bench::inRounds);
BENCHMARK_TEMPLATE(pointToSegmentOfSpace, float)->Apply(bench::inRounds);
BENCHMARK_TEMPLATE(pointToSegmentOfSpace, int)->Apply(bench::inRounds);
BENCHMARK_TEMPLATE(pointToSegmentOfSpace, unsigned int)->Apply(bench::inRounds);

[[gnu::noinline]] double boostPointToSegment(const Plain3d& p, const Plain3d& a, const Plain3d& b)
{
    return boost::geometry::distance(GeometryPoint(p.x, p.y, p.z),
                                     GeometrySegment(GeometryPoint(a.x, a.y, a.z), GeometryPoint(b.x, b.y, b.z)));
}

void pointToSegmentOfSpaceBesideBoost(benchmark::State& state)
{
    compareOnRows(
        state, drawRows<9>(0.0, 100.0),
        [](const auto& v)
        { return pointSegmentDistance<double>(v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8]); },
        [](const auto& v) {
            return boostPointToSegment({v[0], v[1], v[2]}, {v[3], v[4], v[5]}, {v[6], v[7], v[8]});
        });
}
BENCHMARK(pointToSegmentOfSpaceBesideBoost)->Apply(bench::inRounds);

double signOfTurn(const Plain3d& a, const Plain3d& b, const Plain3d& c)
{
    const double turn = (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
    return turn > 0.0 ? 1.0 : turn < 0.0 ? -1.0 : 0.0;
}

/// Seen along z, by the turns of the ends, without the cases of collinear ends.
[[gnu::noinline]] bool plainIntersects(const Plain3d& a, const Plain3d& b, const Plain3d& c, const Plain3d& d)
{
    return signOfTurn(a, b, c) * signOfTurn(a, b, d) < 0.0 && signOfTurn(c, d, a) * signOfTurn(c, d, b) < 0.0;
}

[[gnu::noinline]] double plainSegments(const Plain3d& a, const Plain3d& b, const Plain3d& c, const Plain3d& d)
{
    if (plainIntersects(a, b, c, d))
        return 0.0;
    return std::min(std::min(plainPointToSegment(a, c, d), plainPointToSegment(b, c, d)),
                    std::min(plainPointToSegment(c, a, b), plainPointToSegment(d, a, b)));
}

/// Segments of which some intersect (0), or none do, by the distance of their centres.
bench::Rows<double, 12> drawSegments(double distance)
{
    auto rows = drawRows<12>(-1.0, 1.0);
    for (auto& row : rows)
    {
        row[6] += distance;
        row[9] += distance;
    }
    return rows;
}

void intersectionOfSegmentsOfSpace(benchmark::State& state)
{
    compareOnRows(
        state, drawSegments(static_cast<double>(state.range(0))),
        [](const auto& v) {
            return segmentsIntersects<double>(v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8], v[9], v[10], v[11]);
        },
        [](const auto& v) {
            return plainIntersects({v[0], v[1], v[2]}, {v[3], v[4], v[5]}, {v[6], v[7], v[8]}, {v[9], v[10], v[11]});
        });
}
BENCHMARK(intersectionOfSegmentsOfSpace)->Arg(0)->Arg(3)->Apply(bench::inRounds);

void distanceOfSegmentsOfSpace(benchmark::State& state)
{
    compareOnRows(
        state, drawSegments(static_cast<double>(state.range(0))),
        [](const auto& v)
        { return segmentsDistance<double>(v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8], v[9], v[10], v[11]); },
        [](const auto& v) {
            return plainSegments({v[0], v[1], v[2]}, {v[3], v[4], v[5]}, {v[6], v[7], v[8]}, {v[9], v[10], v[11]});
        });
}
BENCHMARK(distanceOfSegmentsOfSpace)->Arg(0)->Arg(3)->Apply(bench::inRounds);

[[gnu::noinline]] double plainSignedVolume(const Plain3d& a, const Plain3d& b, const Plain3d& c, const Plain3d& d)
{
    return dot(a - d, cross(b - d, c - d)) / 6.0;
}

[[gnu::noinline]] double plainTetrahedronArea(const Plain3d& a, const Plain3d& b, const Plain3d& c, const Plain3d& d)
{
    return (norm(cross(a - b, a - c)) + norm(cross(a - b, a - d)) + norm(cross(a - c, a - d)) +
            norm(cross(b - c, b - d))) /
           2.0;
}

/// Area and volume.
void measuresOfTetrahedron(benchmark::State& state)
{
    compareOnRows(
        state, drawRows<12>(-1.0, 1.0),
        [](const auto& v)
        {
            return tetrahedronArea(v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8], v[9], v[10], v[11]) +
                   tetrahedronVolume(v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8], v[9], v[10], v[11]);
        },
        [](const auto& v)
        {
            const Plain3d a{v[0], v[1], v[2]}, b{v[3], v[4], v[5]}, c{v[6], v[7], v[8]}, d{v[9], v[10], v[11]};
            return plainTetrahedronArea(a, b, c, d) + std::fabs(plainSignedVolume(a, b, c, d));
        });
}
BENCHMARK(measuresOfTetrahedron)->Apply(bench::inRounds);

/// `i` gets xx, xy, xz, yy, yz and zz.
[[gnu::noinline]] void plainInertia(const Plain3d& a, const Plain3d& b, const Plain3d& c, double* i)
{
    const double det = std::fabs(dot(a, cross(b, c)));
    const auto squares = [](double p, double q, double r) { return p * p + p * q + q * q + (p + q + r) * r; };
    const auto products = [](double p, double q, double r, double s, double t, double u)
    { return (2.0 * p + q + r) * s + (p + 2.0 * q + r) * t + (p + q + 2.0 * r) * u; };
    const double sx = squares(a.x, b.x, c.x), sy = squares(a.y, b.y, c.y), sz = squares(a.z, b.z, c.z);
    i[0] = det * (sy + sz) / 60.0;
    i[1] = products(a.x, b.x, c.x, a.y, b.y, c.y) / 120.0;
    i[2] = products(a.x, b.x, c.x, a.z, b.z, c.z) / 120.0;
    i[3] = det * (sx + sz) / 60.0;
    i[4] = products(a.y, b.y, c.y, a.z, b.z, c.z) / 120.0;
    i[5] = det * (sx + sy) / 60.0;
}

void inertiaOfTetrahedron(benchmark::State& state)
{
    compareOnRows(
        state, drawRows<9>(-1.0, 1.0),
        [](const auto& v)
        {
            double i[6];
            tetrahedronInertia(v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8], i[0], i[1], i[2], i[3], i[4],
                               i[5]);
            return sum(i);
        },
        [](const auto& v)
        {
            double i[6];
            plainInertia({v[0], v[1], v[2]}, {v[3], v[4], v[5]}, {v[6], v[7], v[8]}, i);
            return sum(i);
        });
}
BENCHMARK(inertiaOfTetrahedron)->Apply(bench::inRounds);

} // namespace

} // namespace math
} // namespace ovrix
