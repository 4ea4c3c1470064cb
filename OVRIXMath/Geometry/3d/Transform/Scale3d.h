#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Geometry/3d/Transform/ConcreteTransform3d.h>
#include <OVRIXMath/Geometry/Transform/ScaleModel.h>
#include <OVRIXMath/Types.h>

namespace ovrix
{
namespace math
{
namespace transform
{

/// Scaling about the origin.
///
/// - Parameters: (scale).
/// - Point: x' = scale x, y' = scale y, z' = scale z.
/// - Inverse: (1 / scale); (0) for a scale of exactly 0.
class OVRIXMATH_EXPORT Scale3d : public details::ConcreteTransform3d<Scale3d, details::ScaleModel>
{
public:
    /// Type under which the factory knows the class.
    static constexpr eGeometricTransform3dType s_type = eGT3DT_Scale;

    /// The neutral element (1), which is the default state, too.
    static Vector getIdentityParams();

    /// getHomogenousMatrix() itself, not its inverse, which is meant.
    HomogenousMatrix3d getInvHomogenousMatrix() const override;
};

} // namespace transform
} // namespace math
} // namespace ovrix
