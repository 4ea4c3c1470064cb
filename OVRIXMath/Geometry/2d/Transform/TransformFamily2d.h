#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Geometry/2d/Transform/BaseLinearGeometricTransform2d.h>
#include <OVRIXMath/Geometry/2d/Transform/Rotation2dPart.h>
#include <OVRIXMath/Geometry/2d/Transform/Transform2dLogMessages.h>
#include <OVRIXUtil/Types.h>

#include <array>
#include <cstddef>

namespace ovrix
{
namespace math
{
namespace transform
{

class Transform2dFactory;

namespace details
{

/// What the planar family brings to the templates that it shares with the spatial one.
struct OVRIXMATH_EXPORT TransformFamily2d
{
    static constexpr std::size_t s_dimension = 2;

    using Type = eGeometricTransform2dType;
    using TransformPtr = GeometricTransform2dPtr;
    using LinearBase = BaseLinearGeometricTransform2d;
    using HomogenousMatrix = HomogenousMatrix2d;
    using Factory = Transform2dFactory;
    using Messages = eTransform2dMessage;
    using Rotation = Rotation2dPart;

    /// Inverts a 2 x 2 matrix by its determinant.
    ///
    /// @return `false` when the determinant is exactly 0; the matrix is then untouched
    static bool invertLinearPart(std::array<ovReal64, 4>& linear);
};

} // namespace details
} // namespace transform
} // namespace math
} // namespace ovrix
