#pragma once

#include <OVRIXMath/Geometry/2d/Transform/Affine2d.h>
#include <OVRIXMath/Geometry/2d/Transform/AnisotropicScale2d.h>
#include <OVRIXMath/Geometry/2d/Transform/Homography2d.h>
#include <OVRIXMath/Geometry/2d/Transform/Rigid2d.h>
#include <OVRIXMath/Geometry/2d/Transform/Rotation2d.h>
#include <OVRIXMath/Geometry/2d/Transform/Scale2d.h>
#include <OVRIXMath/Geometry/2d/Transform/Similarity2d.h>
#include <OVRIXMath/Geometry/2d/Transform/Translation2d.h>
#include <OVRIXMath/Geometry/3d/Transform/Affine3d.h>
#include <OVRIXMath/Geometry/3d/Transform/AnisotropicScale3d.h>
#include <OVRIXMath/Geometry/3d/Transform/Homography3d.h>
#include <OVRIXMath/Geometry/3d/Transform/Rigid3d.h>
#include <OVRIXMath/Geometry/3d/Transform/Rotation3d.h>
#include <OVRIXMath/Geometry/3d/Transform/Scale3d.h>
#include <OVRIXMath/Geometry/3d/Transform/Similarity3d.h>
#include <OVRIXMath/Geometry/3d/Transform/Translation3d.h>

#include <cmath>

/// @file
/// The formulas of the sixteen transforms as they are written down by hand, each with the class that it stands beside.

namespace ovrix
{
namespace bench
{

using math::Vector;

struct PlainTranslation2d
{
    using Transform = math::transform::Translation2d;
    static constexpr const char* s_name = "Translation2d";

    explicit PlainTranslation2d(const Vector& p) : tx(p(0)), ty(p(1)) {}

    void apply(double& x, double& y) const
    {
        x += tx;
        y += ty;
    }

    double tx, ty;
};

struct PlainRotation2d
{
    using Transform = math::transform::Rotation2d;
    static constexpr const char* s_name = "Rotation2d";

    explicit PlainRotation2d(const Vector& p) : c(std::cos(p(0))), s(std::sin(p(0))) {}

    void apply(double& x, double& y) const
    {
        const double turned = c * x - s * y;
        y = s * x + c * y;
        x = turned;
    }

    double c, s;
};

struct PlainRigid2d
{
    using Transform = math::transform::Rigid2d;
    static constexpr const char* s_name = "Rigid2d";

    explicit PlainRigid2d(const Vector& p) : c(std::cos(p(0))), s(std::sin(p(0))), tx(p(1)), ty(p(2)) {}

    void apply(double& x, double& y) const
    {
        const double turned = c * x - s * y + tx;
        y = s * x + c * y + ty;
        x = turned;
    }

    double c, s, tx, ty;
};

struct PlainScale2d
{
    using Transform = math::transform::Scale2d;
    static constexpr const char* s_name = "Scale2d";

    explicit PlainScale2d(const Vector& p) : scale(p(0)) {}

    void apply(double& x, double& y) const
    {
        x *= scale;
        y *= scale;
    }

    double scale;
};

struct PlainSimilarity2d
{
    using Transform = math::transform::Similarity2d;
    static constexpr const char* s_name = "Similarity2d";

    explicit PlainSimilarity2d(const Vector& p) : scale(p(0)), c(std::cos(p(1))), s(std::sin(p(1))), tx(p(2)), ty(p(3))
    {
    }

    void apply(double& x, double& y) const
    {
        const double turned = scale * (c * x - s * y) + tx;
        y = scale * (s * x + c * y) + ty;
        x = turned;
    }

    double scale, c, s, tx, ty;
};

struct PlainAnisotropicScale2d
{
    using Transform = math::transform::AnisotropicScale2d;
    static constexpr const char* s_name = "AnisotropicScale2d";

    explicit PlainAnisotropicScale2d(const Vector& p) : sx(p(0)), sy(p(1)) {}

    void apply(double& x, double& y) const
    {
        x *= sx;
        y *= sy;
    }

    double sx, sy;
};

struct PlainAffine2d
{
    using Transform = math::transform::Affine2d;
    static constexpr const char* s_name = "Affine2d";

    explicit PlainAffine2d(const Vector& p) : a00(p(0)), a01(p(1)), a10(p(2)), a11(p(3)), tx(p(4)), ty(p(5)) {}

    void apply(double& x, double& y) const
    {
        const double moved = a00 * x + a01 * y + tx;
        y = a10 * x + a11 * y + ty;
        x = moved;
    }

    double a00, a01, a10, a11, tx, ty;
};

struct PlainHomography2d
{
    using Transform = math::transform::Homography2d;
    static constexpr const char* s_name = "Homography2d";

    explicit PlainHomography2d(const Vector& p)
        : h00(p(0)), h01(p(1)), h02(p(2)), h10(p(3)), h11(p(4)), h12(p(5)), h20(p(6)), h21(p(7)), h22(p(8))
    {
    }

    void apply(double& x, double& y) const
    {
        const double w = h20 * x + h21 * y + h22;
        if (w == 0.0)
            return;
        const double moved = (h00 * x + h01 * y + h02) / w;
        y = (h10 * x + h11 * y + h12) / w;
        x = moved;
    }

    double h00, h01, h02, h10, h11, h12, h20, h21, h22;
};

struct PlainTranslation3d
{
    using Transform = math::transform::Translation3d;
    static constexpr const char* s_name = "Translation3d";

    explicit PlainTranslation3d(const Vector& p) : tx(p(0)), ty(p(1)), tz(p(2)) {}

    void apply(double& x, double& y, double& z) const
    {
        x += tx;
        y += ty;
        z += tz;
    }

    double tx, ty, tz;
};

/// A 3 x 3 matrix.
struct PlainMatrix3d
{
    void multiply(double& x, double& y, double& z) const
    {
        const double px = m00 * x + m01 * y + m02 * z;
        const double py = m10 * x + m11 * y + m12 * z;
        z = m20 * x + m21 * y + m22 * z;
        x = px;
        y = py;
    }

    double m00, m01, m02, m10, m11, m12, m20, m21, m22;
};

/// Rz(rz) Ry(ry) Rx(rx).
inline PlainMatrix3d makePlainRotation(double rz, double ry, double rx)
{
    const double cz = std::cos(rz), sz = std::sin(rz);
    const double cy = std::cos(ry), sy = std::sin(ry);
    const double cx = std::cos(rx), sx = std::sin(rx);
    return {cy * cz,
            sx * sy * cz - cx * sz,
            cx * sy * cz + sx * sz, //
            cy * sz,
            sx * sy * sz + cx * cz,
            cx * sy * sz - sx * cz, //
            -sy,
            sx * cy,
            cx * cy};
}

struct PlainRotation3d
{
    using Transform = math::transform::Rotation3d;
    static constexpr const char* s_name = "Rotation3d";

    explicit PlainRotation3d(const Vector& p) : r(makePlainRotation(p(0), p(1), p(2))) {}

    void apply(double& x, double& y, double& z) const
    {
        r.multiply(x, y, z);
    }

    PlainMatrix3d r;
};

struct PlainRigid3d
{
    using Transform = math::transform::Rigid3d;
    static constexpr const char* s_name = "Rigid3d";

    explicit PlainRigid3d(const Vector& p) : r(makePlainRotation(p(0), p(1), p(2))), tx(p(3)), ty(p(4)), tz(p(5)) {}

    void apply(double& x, double& y, double& z) const
    {
        r.multiply(x, y, z);
        x += tx;
        y += ty;
        z += tz;
    }

    PlainMatrix3d r;
    double tx, ty, tz;
};

struct PlainScale3d
{
    using Transform = math::transform::Scale3d;
    static constexpr const char* s_name = "Scale3d";

    explicit PlainScale3d(const Vector& p) : scale(p(0)) {}

    void apply(double& x, double& y, double& z) const
    {
        x *= scale;
        y *= scale;
        z *= scale;
    }

    double scale;
};

struct PlainSimilarity3d
{
    using Transform = math::transform::Similarity3d;
    static constexpr const char* s_name = "Similarity3d";

    explicit PlainSimilarity3d(const Vector& p)
        : scale(p(0)), r(makePlainRotation(p(1), p(2), p(3))), tx(p(4)), ty(p(5)), tz(p(6))
    {
    }

    void apply(double& x, double& y, double& z) const
    {
        r.multiply(x, y, z);
        x = scale * x + tx;
        y = scale * y + ty;
        z = scale * z + tz;
    }

    double scale;
    PlainMatrix3d r;
    double tx, ty, tz;
};

struct PlainAnisotropicScale3d
{
    using Transform = math::transform::AnisotropicScale3d;
    static constexpr const char* s_name = "AnisotropicScale3d";

    explicit PlainAnisotropicScale3d(const Vector& p) : kx(p(0)), ky(p(1)), kz(p(2)) {}

    void apply(double& x, double& y, double& z) const
    {
        x *= kx;
        y *= ky;
        z *= kz;
    }

    double kx, ky, kz;
};

struct PlainAffine3d
{
    using Transform = math::transform::Affine3d;
    static constexpr const char* s_name = "Affine3d";

    explicit PlainAffine3d(const Vector& p)
        : a{p(0), p(1), p(2), p(3), p(4), p(5), p(6), p(7), p(8)}, tx(p(9)), ty(p(10)), tz(p(11))
    {
    }

    void apply(double& x, double& y, double& z) const
    {
        a.multiply(x, y, z);
        x += tx;
        y += ty;
        z += tz;
    }

    PlainMatrix3d a;
    double tx, ty, tz;
};

struct PlainHomography3d
{
    using Transform = math::transform::Homography3d;
    static constexpr const char* s_name = "Homography3d";

    explicit PlainHomography3d(const Vector& p)
    {
        for (int i = 0; i < 16; ++i)
            h[i / 4][i % 4] = p(static_cast<std::size_t>(i));
    }

    void apply(double& x, double& y, double& z) const
    {
        const double w = h[3][0] * x + h[3][1] * y + h[3][2] * z + h[3][3];
        if (w == 0.0)
            return;
        const double px = (h[0][0] * x + h[0][1] * y + h[0][2] * z + h[0][3]) / w;
        const double py = (h[1][0] * x + h[1][1] * y + h[1][2] * z + h[1][3]) / w;
        z = (h[2][0] * x + h[2][1] * y + h[2][2] * z + h[2][3]) / w;
        x = px;
        y = py;
    }

    double h[4][4];
};

} // namespace bench
} // namespace ovrix
