#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Geometry/2d/Transform/ConcreteTransform2d.h>
#include <OVRIXMath/Geometry/Transform/RotationModel.h>
#include <OVRIXMath/Types.h>

namespace ovrix
{
namespace math
{
namespace transform
{

/// Rotation about the origin.
///
/// - Parameters: (theta), in radians.
/// - Point: x' = c x - s y, y' = s x + c y, with c and s the cosine and sine of theta.
/// - Inverse: (-theta).
class OVRIXMATH_EXPORT Rotation2d : public details::ConcreteTransform2d<Rotation2d, details::RotationModel>
{
public:
    /// Type under which the factory knows the class.
    static constexpr eGeometricTransform2dType s_type = eGT2DT_Rotation;

    /// The neutral element (0), which is the default state, too.
    static Vector getIdentityParams();

    /// The matrix of the inverse transform.
    HomogenousMatrix2d getInvHomogenousMatrix() const override;
};

} // namespace transform
} // namespace math
} // namespace ovrix
