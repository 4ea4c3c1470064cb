#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Geometry/2d/Transform/ConcreteTransform2d.h>
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
/// - Parameters: (theta, tx, ty), the angle in radians.
/// - Point: x' = (c x - s y) + tx, y' = (c y + s x) + ty, with c and s the cosine and sine of theta.
/// - Inverse: (-theta, -(c tx + s ty), -(c ty - s tx)).
class OVRIXMATH_EXPORT Rigid2d : public details::ConcreteTransform2d<Rigid2d, details::RigidModel>
{
public:
    /// Type under which the factory knows the class.
    static constexpr eGeometricTransform2dType s_type = eGT2DT_Rigid;

    /// The neutral element (0, 0, 0), which is the default state, too.
    static Vector getIdentityParams();

    /// The matrix of the inverse transform.
    HomogenousMatrix2d getInvHomogenousMatrix() const override;
};

} // namespace transform
} // namespace math
} // namespace ovrix
