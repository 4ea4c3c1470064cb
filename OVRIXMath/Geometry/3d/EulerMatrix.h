#pragma once

#include <OVRIXMath/Types.h>

#include <array>
#include <cmath>

namespace ovrix
{
namespace math
{
namespace details
{

/// 3 x 3 matrix, row by row.
using Matrix3d = std::array<ovReal64, 9>;

/// Rz(rz) Ry(ry) Rx(rx), each factor being right-handed.
inline Matrix3d makeEulerMatrix(ovReal64 rz, ovReal64 ry, ovReal64 rx)
{
    ovReal64 cz, sz, cy, sy, cx, sx;
    sincos(rz, &sz, &cz);
    sincos(ry, &sy, &cy);
    sincos(rx, &sx, &cx);
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

/// The transpose.
inline Matrix3d transpose(const Matrix3d& m)
{
    return {m[0], m[3], m[6], //
            m[1], m[4], m[7], //
            m[2], m[5], m[8]};
}

} // namespace details
} // namespace math
} // namespace ovrix
