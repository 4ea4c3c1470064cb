#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Geometry/3d/Transform/BaseLinearGeometricTransform3d.h>
#include <OVRIXMath/Geometry/3d/Transform/Rotation3dPart.h>
#include <OVRIXMath/Geometry/3d/Transform/Transform3dLogMessages.h>
#include <OVRIXUtil/Types.h>

#include <array>
#include <cstddef>

namespace ovrix
{
namespace math
{
namespace transform
{

class Transform3dFactory;

namespace details
{

/// What the spatial family brings to the templates that it shares with the planar one.
struct OVRIXMATH_EXPORT TransformFamily3d
{
    static constexpr std::size_t s_dimension = 3;

    using Type = eGeometricTransform3dType;
    using TransformPtr = GeometricTransform3dPtr;
    using LinearBase = BaseLinearGeometricTransform3d;
    using HomogenousMatrix = HomogenousMatrix3d;
    using Factory = Transform3dFactory;
    using Messages = eTransform3dMessage;
    using Rotation = Rotation3dPart;

    /// Inverts a 3 x 3 matrix with luInverse().
    ///
    /// @return `false` when luInverse() calls the matrix singular; the matrix is then untouched
    static bool invertLinearPart(std::array<ovReal64, 9>& linear);
};

} // namespace details
} // namespace transform
} // namespace math
} // namespace ovrix
