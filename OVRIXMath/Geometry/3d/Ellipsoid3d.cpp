#include <OVRIXMath/Geometry/3d/Ellipsoid3d.h>
#include <OVRIXMath/Geometry/3d/EulerMatrix.h>
#include <OVRIXMath/Geometry/3d/Vector3d.h>
#include <OVRIXMath/LinearAlgebra/EigenDecomposition.h>
#include <OVRIXMath/LinearAlgebra/LapackCall.h>
#include <OVRIXMath/Tools/MathUtils.h>

#include <cblas.h>

namespace ovrix
{
namespace math
{

namespace
{

using details::Matrix3d;
using details::Point3d;

Matrix3d multiply(const Matrix3d& a, const Matrix3d& b)
{
    Matrix3d product;
    details::callLapack(cblas_dgemm, CblasRowMajor, CblasNoTrans, CblasNoTrans, 3, 3, 3, 1.0, a.data(), 3, b.data(), 3,
                        0.0, product.data(), 3);
    return product;
}

Point3d multiply(const Matrix3d& a, const Point3d& x)
{
    return {a[0] * x[0] + a[1] * x[1] + a[2] * x[2], //
            a[3] * x[0] + a[4] * x[1] + a[5] * x[2], //
            a[6] * x[0] + a[7] * x[1] + a[8] * x[2]};
}

/// The radius in the direction v, by its angles.
ovReal64 radiusAlong(ovReal64 r1, ovReal64 r2, ovReal64 r3, const Point3d& v)
{
    const ovReal64 n = details::norm(v);
    return ellipsoidRadius(r1, r2, r3, n == 0.0 ? 0.0 : std::acos(v[2] / n), std::atan2(v[1], v[0]));
}

/// a diag(d1, d2, d3) b.
Matrix3d multiplyWithDiagonal(const Matrix3d& a, ovReal64 d1, ovReal64 d2, ovReal64 d3, const Matrix3d& b)
{
    const Matrix3d diagonal{d1, 0.0, 0.0, 0.0, d2, 0.0, 0.0, 0.0, d3};
    return multiply(multiply(a, diagonal), b);
}

} // namespace

ovBool convertEllipsoidFromQuadratic(ovReal64 qxx, ovReal64 qxy, ovReal64 qxz, ovReal64 qyy, ovReal64 qyz, ovReal64 qzz,
                                     ovReal64 qx, ovReal64 qy, ovReal64 qz, ovReal64 q0, ovReal64& cx, ovReal64& cy,
                                     ovReal64& cz, ovReal64& rz, ovReal64& ry, ovReal64& rx, ovReal64& r1, ovReal64& r2,
                                     ovReal64& r3)
{
    if (!(q0 > 0.0))
    {
        for (ovReal64* coefficient : {&qxx, &qxy, &qxz, &qyy, &qyz, &qzz, &qx, &qy, &qz, &q0})
            *coefficient = -*coefficient;
    }

    ovReal64 l1, l2, l3;
    eigenDecomposition<ovReal64>(qxx, qxy, qxz, qyy, qyz, qzz, l1, l2, l3, rz, ry, rx);
    if (!(l1 > 0.0))
        return false;

    // The angles describe the matrix whose rows are the eigenvectors, hence B = A^-1 = R^T diag(1 / l) R.
    const Matrix3d rotation = details::makeEulerMatrix(rz, ry, rx);
    const Matrix3d inverse = multiplyWithDiagonal(details::transpose(rotation), 1.0 / l1, 1.0 / l2, 1.0 / l3, rotation);
    const Point3d v{qx, qy, qz};
    const Point3d bv = multiply(inverse, v);
    cx = -0.5 * bv[0];
    cy = -0.5 * bv[1];
    cz = -0.5 * bv[2];

    const ovReal64 k = 0.25 * details::dot(v, bv) - q0;
    if (!(k > 0.0))
        return false;
    r1 = std::sqrt(k / l1);
    r2 = std::sqrt(k / l2);
    r3 = std::sqrt(k / l3);
    return true;
}

ovBool convertEllipsoidToQuadratic(ovReal64 cx, ovReal64 cy, ovReal64 cz, ovReal64 rz, ovReal64 ry, ovReal64 rx,
                                   ovReal64 r1, ovReal64 r2, ovReal64 r3, ovReal64& qxx, ovReal64& qxy, ovReal64& qxz,
                                   ovReal64& qyy, ovReal64& qyz, ovReal64& qzz, ovReal64& qx, ovReal64& qy,
                                   ovReal64& qz, ovReal64& q0)
{
    if (r1 <= 0.0 || r2 <= 0.0 || r3 <= 0.0)
        return false;

    const Matrix3d rotation = details::makeEulerMatrix(rz, ry, rx);
    const Matrix3d a =
        multiplyWithDiagonal(rotation, 1.0 / (r1 * r1), 1.0 / (r2 * r2), 1.0 / (r3 * r3), details::transpose(rotation));
    qxx = a[0];
    qxy = a[1];
    qxz = a[2];
    qyy = a[4];
    qyz = a[5];
    qzz = a[8];

    const Point3d c{cx, cy, cz};
    const Point3d w = multiply(a, c);
    qx = -2.0 * w[0];
    qy = -2.0 * w[1];
    qz = -2.0 * w[2];
    q0 = details::dot(c, w);
    return true;
}

ovReal64 ellipsoidArea(ovReal64 r1, ovReal64 r2, ovReal64 r3)
{
    if (r1 <= 0.0 || r2 <= 0.0 || r3 <= 0.0)
        return 0.0;

    constexpr ovReal64 fourPi = 12.566370614359172;
    constexpr ovReal64 p = 1.6075;
    constexpr ovReal64 inverseP = 0.6220839813374806;
    const ovReal64 a = std::pow(r1, p);
    const ovReal64 b = std::pow(r2, p);
    const ovReal64 c = std::pow(r3, p);
    return fourPi * std::pow((a * b + a * c + b * c) / 3.0, inverseP);
}

ovReal64 ellipsoidVolume(ovReal64 r1, ovReal64 r2, ovReal64 r3)
{
    constexpr ovReal64 fourThirdsPi = 4.1887902047863905;
    return r1 * fourThirdsPi * r2 * r3;
}

ovReal64 ellipsoidExcentricity(ovReal64 r1, ovReal64 r2, ovReal64 r3)
{
    ovReal64 small, middle, big;
    sort(r1, r2, r3, small, middle, big);
    if (big <= 0.0)
        return 0.0;
    return std::sqrt(big * big - small * small) / big;
}

ovReal64 ellipsoidRadius(ovReal64 r1, ovReal64 r2, ovReal64 r3, ovReal64 theta, ovReal64 phi)
{
    if (r1 <= 0.0 || r2 <= 0.0 || r3 <= 0.0)
        return 0.0;
    const Point3d direction = details::makeDirection(theta, phi);
    return 1.0 / details::norm(Point3d{direction[0] / r1, direction[1] / r2, direction[2] / r3});
}

ovReal64 ellipsoidRadius(ovReal64 r1, ovReal64 r2, ovReal64 r3,
                         const boost::numeric::ublas::bounded_matrix<ovReal64, 3, 3>& /*matrix*/, ovReal64 theta,
                         ovReal64 phi)
{
    return radiusAlong(r1, r2, r3, details::makeDirection(theta, phi));
}

void ellipsoidPoint(ovReal64 cx, ovReal64 cy, ovReal64 cz, ovReal64 r1, ovReal64 r2, ovReal64 r3,
                    const boost::numeric::ublas::bounded_matrix<ovReal64, 3, 3>& /*matrix*/, ovReal64 theta,
                    ovReal64 phi, ovReal64& x, ovReal64& y, ovReal64& z)
{
    const Point3d direction = details::makeDirection(theta, phi);
    const ovReal64 rad = radiusAlong(r1, r2, r3, direction);
    x = cx + rad * direction[0];
    y = cy + rad * direction[1];
    z = cz + rad * direction[2];
}

} // namespace math
} // namespace ovrix
