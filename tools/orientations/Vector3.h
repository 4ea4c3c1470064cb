#pragma once

#include "PointSet.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

/// @file
/// Single points of space.

namespace ovrix
{
namespace orientations
{

using Vector3 = std::array<double, 3>;

constexpr double g_pi = 3.141592653589793;

inline Vector3 getPoint(const PointSet& points, std::size_t i)
{
    return {points.x()[i], points.y()[i], points.z()[i]};
}

inline double dot(const Vector3& a, const Vector3& b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

inline Vector3 cross(const Vector3& a, const Vector3& b)
{
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

/// The angle in radians between unit vectors of that dot product, which rounding may have taken out of [-1, 1].
inline double toAngle(double product)
{
    return std::acos(std::clamp(product, -1.0, 1.0));
}

} // namespace orientations
} // namespace ovrix
