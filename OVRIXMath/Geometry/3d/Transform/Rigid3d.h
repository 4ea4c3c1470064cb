#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Geometry/3d/Transform/ConcreteTransform3d.h>
#include <OVRIXMath/Geometry/Transform/RigidModel.h>
#include <OVRIXMath/Types.h>

namespace ovrix
{
namespace math
{
namespace transform
{

/// Rotation about the origin, then translation.
///
/// - Parameters: (rz, ry, rx, tx, ty, tz), the angles in radians.
/// - Point: x' = R x + t, with R as in Rotation3d.
/// - Inverse: the angles of R^T as in Rotation3d, then -R^T t.
class OVRIXMATH_EXPORT Rigid3d : public details::ConcreteTransform3d<Rigid3d, details::RigidModel>
{
public:
    /// Type under which the factory knows the class.
    static constexpr eGeometricTransform3dType s_type = eGT3DT_Rigid;

    /// The neutral element of six zeros, which is the default state, too.
    static Vector getIdentityParams();

    using ConcreteTransform3d::getInvParams;

    /// Replaces parameters by those of the inverse transform.
    static void getInvParams(ovReal64& rz, ovReal64& ry, ovReal64& rx, ovReal64& tx, ovReal64& ty, ovReal64& tz);

    /// getHomogenousMatrix() itself, not its inverse, which is meant.
    HomogenousMatrix3d getInvHomogenousMatrix() const override;
};

} // namespace transform
} // namespace math
} // namespace ovrix
