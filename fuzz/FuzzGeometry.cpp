#include <OVRIXMath/Geometry/2d/Circle2d.h>
#include <OVRIXMath/Geometry/2d/Ellipse2d.h>
#include <OVRIXMath/Geometry/2d/Line2d.h>
#include <OVRIXMath/Geometry/2d/Point2d.h>
#include <OVRIXMath/Geometry/2d/Segment2d.h>
#include <OVRIXMath/Geometry/3d/Angles3d.h>
#include <OVRIXMath/Geometry/3d/Ellipsoid3d.h>
#include <OVRIXMath/Geometry/3d/Plan3d.h>
#include <OVRIXMath/Geometry/3d/Point3d.h>
#include <OVRIXMath/Geometry/3d/Segment3d.h>
#include <OVRIXMath/Geometry/3d/Sphere3d.h>
#include <OVRIXMath/Geometry/3d/Tetrahedron3d.h>
#include <OVRIXMath/Geometry/3d/UniformOrientations3d.h>
#include <OVRIXMath/Tools/NormalDistribution.h>
#include <OVRIXMath/Tools/Polynomial.h>

#include <FuzzInput.h>
#include <array>
#include <iterator>

// The input is coordinates and sizes of any kind for each primitive. What is called a success of tame ones is one.

namespace ovrix
{
namespace fuzz
{

namespace
{

using namespace math;

/// Value of outputs that are to stay untouched.
constexpr double g_untouched = 12345.0;

template <std::size_t Size, class T = double>
std::array<T, Size> read(FuzzInput& input)
{
    std::array<T, Size> values;
    for (T& value : values)
        value = input.number<T>();
    return values;
}

template <std::size_t Size>
std::array<double, Size> untouched()
{
    std::array<double, Size> values;
    values.fill(g_untouched);
    return values;
}

template <std::size_t Size>
bool areUntouched(const std::array<double, Size>& values)
{
    return values == untouched<Size>();
}

bool isNear(double a, double b, double tolerance)
{
    return std::fabs(a - b) <= tolerance * (1.0 + std::fabs(b));
}

void useCircleAndLine(FuzzInput& input)
{
    const auto p = read<6>(input);
    auto c = untouched<3>();
    if (!circleFromPoints(p[0], p[1], p[2], p[3], p[4], p[5], c[0], c[1], c[2]))
        require(areUntouched(c), "no circle leaves the outputs alone");
    else if (areTame(p))
    {
        for (std::size_t i = 0; i < 6; i += 2)
            require(isNear(std::hypot(p[i] - c[0], p[i + 1] - c[1]), c[2], 1e-6), "the points lie on the circle");
    }
    auto line = untouched<2>();
    if (!lineFromPoints(p[0], p[1], p[2], p[3], line[0], line[1]))
        require(areUntouched(line) && p[0] == p[2] && p[1] == p[3], "equal points have no line");
    else if (areTame(p))
        require(isNear(p[2] * std::cos(line[1]) + p[3] * std::sin(line[1]), line[0], 1e-9), "the point is on the line");
}

void useEllipse(FuzzInput& input)
{
    const auto q = read<6>(input);
    auto e = untouched<5>();
    if (!convertEllipseFromQuadratic(q[0], q[1], q[2], q[3], q[4], q[5], e[0], e[1], e[2], e[3], e[4]))
        require(areUntouched(e), "no ellipse leaves the outputs alone");
    else
        require(!(e[2] < -1.5707964) && !(e[2] > 1.5707964), "the axis is folded to half a turn");
    auto back = untouched<6>();
    const bool bEllipse =
        convertEllipseToQuadratic(q[0], q[1], q[2], q[3], q[4], back[0], back[1], back[2], back[3], back[4], back[5]);
    require(bEllipse == !(q[3] <= 0.0 || q[4] <= 0.0) && (bEllipse || areUntouched(back)), "radii are above 0");

    const auto r = read<6>(input);
    const double lower = ellipsePerimeterLowerBound(r[0], r[1]);
    require(!(lower > ellipsePerimeterUpperBound(r[0], r[1])), "the bounds are a lower and an upper one");
    ellipseArea(r[0], r[1]);
    const double excentricity = ellipseExcentricity(r[0], r[1]);
    if (areTame(r) && r[0] >= 0.0 && r[1] >= 0.0)
        require(excentricity >= 0.0 && excentricity <= 1.0, "excentricities are up to 1");
    auto radii = untouched<2>();
    if (!equivalentEllipse(r[0], r[1], radii[0], radii[1]))
        require(areUntouched(radii), "no ellipse leaves the outputs alone");
    else
        require(!(radii[0] < radii[1]), "the first radius is the larger one");
    double x, y;
    ellipsePoint(r[0], r[1], r[2], r[3], r[4], r[5], x, y);
    if (areTame(r))
        require(isNear(std::hypot(x - r[0], y - r[1]), ellipseRadius(r[2], r[3], r[4], r[5]), 1e-9),
                "the point has its distance from the centre");
}

template <class T>
void usePlanarSegments(FuzzInput& input)
{
    const auto s = read<8, T>(input);
    double qx, qy;
    const double distance = pointSegmentDistance(s[0], s[1], s[2], s[3], s[4], s[5], qx, qy);
    require(isSame(pointSegmentDistance(s[0], s[1], s[2], s[3], s[4], s[5]), distance), "both forms tell a distance");
    const bool bIntersect = segmentsIntersects(s[0], s[1], s[2], s[3], s[4], s[5], s[6], s[7]);
    double (*const between)(T, T, T, T, T, T, T, T, double&, double&, double&, double&) = segmentsDistance<T>;
    double x1, y1, x2, y2;
    const double apart = between(s[0], s[1], s[2], s[3], s[4], s[5], s[6], s[7], x1, y1, x2, y2);
    require(isSame(segmentsDistance(s[0], s[1], s[2], s[3], s[4], s[5], s[6], s[7]), apart), "both forms agree");
    if (!areTame(s))
        return;
    const double tolerance = std::is_same<T, float>::value ? 1e-5 : 1e-9;
    require(isNear(std::hypot(double(s[0]) - qx, double(s[1]) - qy), distance, tolerance), "the closest point is near");
    require(bIntersect == (apart == 0.0) || isNear(apart, 0.0, tolerance), "segments that meet have distance 0");
    require(isNear(std::hypot(x1 - x2, y1 - y2), apart, tolerance), "the closest points have the distance");
}

template <class T>
void useSpatialSegments(FuzzInput& input)
{
    const auto s = read<12, T>(input);
    double q[3];
    const double distance =
        pointSegmentDistance(s[0], s[1], s[2], s[3], s[4], s[5], s[6], s[7], s[8], q[0], q[1], q[2]);
    require(isSame(pointSegmentDistance(s[0], s[1], s[2], s[3], s[4], s[5], s[6], s[7], s[8]), distance),
            "both forms tell a distance");
    const bool bIntersect =
        segmentsIntersects(s[0], s[1], s[2], s[3], s[4], s[5], s[6], s[7], s[8], s[9], s[10], s[11]);
    double p[6];
    const double apart = segmentsDistance(s[0], s[1], s[2], s[3], s[4], s[5], s[6], s[7], s[8], s[9], s[10], s[11],
                                          p[0], p[1], p[2], p[3], p[4], p[5]);
    require(!bIntersect || apart == 0.0, "segments that meet have distance 0");
}

void useAngles(FuzzInput& input)
{
    const auto a = read<3>(input);
    std::array<double, 4> q;
    eulerToQuaternion(a[0], a[1], a[2], q[0], q[1], q[2], q[3]);
    if (areTame(a))
        require(isNear(std::hypot(std::hypot(q[0], q[1]), std::hypot(q[2], q[3])), 1.0, 1e-14), "it has unit length");
    double rz, ry, rx;
    quaternionToEuler(q[0], q[1], q[2], q[3], rz, ry, rx);
    require(!(std::fabs(ry) > 1.5707964), "the middle angle is a quarter of a turn at most");
    const auto any = read<4>(input);
    quaternionToEuler(any[0], any[1], any[2], any[3], rz, ry, rx);
}

void useEllipsoid(FuzzInput& input)
{
    const auto q = read<10>(input);
    auto e = untouched<9>();
    if (!convertEllipsoidFromQuadratic(q[0], q[1], q[2], q[3], q[4], q[5], q[6], q[7], q[8], q[9], e[0], e[1], e[2],
                                       e[3], e[4], e[5], e[6], e[7], e[8]))
        require(e[6] == g_untouched && e[7] == g_untouched && e[8] == g_untouched, "no ellipsoid has no radii");
    auto back = untouched<10>();
    const bool bEllipsoid =
        convertEllipsoidToQuadratic(q[0], q[1], q[2], q[3], q[4], q[5], q[6], q[7], q[8], back[0], back[1], back[2],
                                    back[3], back[4], back[5], back[6], back[7], back[8], back[9]);
    require(bEllipsoid == !(q[6] <= 0.0 || q[7] <= 0.0 || q[8] <= 0.0) && (bEllipsoid || areUntouched(back)),
            "radii are above 0");
    ellipsoidArea(q[0], q[1], q[2]);
    ellipsoidVolume(q[0], q[1], q[2]);
    ellipsoidExcentricity(q[0], q[1], q[2]);
    boost::numeric::ublas::bounded_matrix<ovReal64, 3, 3> matrix(3, 3);
    std::fill(matrix.data().begin(), matrix.data().end(), q[9]);
    double x, y, z;
    ellipsoidPoint(q[5], q[6], q[7], q[0], q[1], q[2], matrix, q[3], q[4], x, y, z);
    if (areTame(q))
    {
        const double radius = ellipsoidRadius(q[0], q[1], q[2], q[3], q[4]);
        require(isNear(ellipsoidRadius(q[0], q[1], q[2], matrix, q[3], q[4]), radius, 1e-9), "the matrix is not read");
        require(isNear(std::hypot(std::hypot(x - q[5], y - q[6]), z - q[7]), radius, 1e-9),
                "the point is at the radius");
    }
}

void usePlaneAndSpheres(FuzzInput& input)
{
    const auto p = read<12>(input);
    double rho, theta, phi;
    if (planFromPoints(p[0], p[1], p[2], p[3], p[4], p[5], p[6], p[7], p[8], rho, theta, phi) && areTame(p))
    {
        const double n[] = {std::sin(theta) * std::cos(phi), std::sin(theta) * std::sin(phi), std::cos(theta)};
        for (std::size_t i = 0; i < 9; i += 3)
            require(isNear(p[i] * n[0] + p[i + 1] * n[1] + p[i + 2] * n[2], rho, 1e-6), "the points are on the plane");
    }
    const auto checkSphere = [&](bool bSphere, const std::array<double, 4>& s, std::size_t nbPoints)
    {
        require(bSphere || areUntouched(s), "no sphere leaves the outputs alone");
        for (std::size_t i = 0; i < 3 * nbPoints && bSphere && areTame(p); i += 3)
            require(isNear(std::hypot(std::hypot(p[i] - s[0], p[i + 1] - s[1]), p[i + 2] - s[2]), s[3], 1e-6),
                    "the points lie on the sphere");
    };
    auto four = untouched<4>();
    const bool bFour = sphereFromPoints(p[0], p[1], p[2], p[3], p[4], p[5], p[6], p[7], p[8], p[9], p[10], p[11],
                                        four[0], four[1], four[2], four[3]);
    checkSphere(bFour, four, 4);
    auto three = untouched<4>();
    const bool bThree =
        sphereFromPoints(p[0], p[1], p[2], p[3], p[4], p[5], p[6], p[7], p[8], three[0], three[1], three[2], three[3]);
    checkSphere(bThree, three, 3);

    const double area = tetrahedronArea(p[0], p[1], p[2], p[3], p[4], p[5], p[6], p[7], p[8], p[9], p[10], p[11]);
    require(!(area < 0.0), "an area is not negative");
    const double volume =
        tetrahedronSignedVolume(p[0], p[1], p[2], p[3], p[4], p[5], p[6], p[7], p[8], p[9], p[10], p[11]);
    require(isSame(tetrahedronVolume(p[0], p[1], p[2], p[3], p[4], p[5], p[6], p[7], p[8], p[9], p[10], p[11]),
                   std::fabs(volume)),
            "the volume has no sign");
    double inertia[6];
    tetrahedronInertia(p[0], p[1], p[2], p[3], p[4], p[5], p[6], p[7], p[8], inertia[0], inertia[1], inertia[2],
                       inertia[3], inertia[4], inertia[5]);
}

void useOrientations(FuzzInput& input)
{
    const unsigned long nbOrientations = 2ul * input.integer(0, 255);
    require(computeUniformlyDistOrientations3d(nbOrientations).size() == nbOrientations, "there are as many as asked");
    const bool bDone = attempt([&] { solveThomsonProblem(nbOrientations); });
    require(bDone == (nbOrientations <= 400), "the tables go up to 400");
}

void useFunctions(FuzzInput& input)
{
    const auto c = read<3>(input);
    auto x = untouched<2>();
    const ovUInt32 nbRoots = solveQuadratic(c[0], c[1], c[2], x[0], x[1]);
    require(nbRoots <= 2 && (nbRoots > 0 || areUntouched(x)), "up to two roots");
    for (std::size_t i = 0; i < 2 && nbRoots > 0 && areTame(c); ++i)
    {
        const double size = std::fabs(c[0]) * x[i] * x[i] + std::fabs(c[1] * x[i]) + std::fabs(c[2]);
        require(std::fabs((c[0] * x[i] + c[1]) * x[i] + c[2]) <= 1e-9 * (1.0 + size), "they are roots");
    }
    const double density = normalDistribution(c[0], c[1], c[2]);
    require(!(density < 0.0) && (!(c[1] <= 0.0) || density == 0.0), "a density is not negative");
    normalDistributionFirstDerivative(c[0], c[1], c[2]);
    normalDistributionSecondDerivative(c[0], c[1], c[2]);
    cumulativeNormalDistribution(c[0], c[1], c[2]);
}

} // namespace

} // namespace fuzz
} // namespace ovrix

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t size)
{
    using namespace ovrix::fuzz;
    constexpr void (*useEach[])(FuzzInput&) = {useCircleAndLine,
                                               useEllipse,
                                               usePlanarSegments<int>,
                                               usePlanarSegments<unsigned int>,
                                               usePlanarSegments<float>,
                                               usePlanarSegments<double>,
                                               useSpatialSegments<int>,
                                               useSpatialSegments<unsigned int>,
                                               useSpatialSegments<float>,
                                               useSpatialSegments<double>,
                                               useAngles,
                                               useEllipsoid,
                                               usePlaneAndSpheres,
                                               useOrientations,
                                               useFunctions};
    FuzzInput input(pData, size);
    useEach[input.integer(0, std::size(useEach) - 1)](input);
    return 0;
}
