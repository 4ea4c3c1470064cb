#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Geometry/3d/Transform/ConcreteTransform3d.h>
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
/// - Parameters: (rz, ry, rx), in radians.
/// - Point: x' = R x, with R = Rz(rz) Ry(ry) Rx(rx), which has, with c and s the cosines and sines, the rows
///   (cy cz, sx sy cz - cx sz, cx sy cz + sx sz), (cy sz, sx sy sz + cx cz, cx sy sz - sx cz), (-sy, sx cy, cx cy).
/// - Inverse: the angles of R^T come from its entries. Where |R02| is within sqrt(epsilon) of 1, rz and rx cannot be
///   told apart; rz is then 0 and ry a right angle: pi/2 for a negative R02, -pi/2 for a positive one and for NaN.
class OVRIXMATH_EXPORT Rotation3d : public details::ConcreteTransform3d<Rotation3d, details::RotationModel>
{
public:
    /// Type under which the factory knows the class.
    static constexpr eGeometricTransform3dType s_type = eGT3DT_Rotation;

    /// The neutral element (0, 0, 0), which is the default state, too.
    static Vector getIdentityParams();

    using ConcreteTransform3d::getInvParams;

    /// Replaces parameters by those of the inverse transform.
    static void getInvParams(ovReal64& rz, ovReal64& ry, ovReal64& rx);

    /// getHomogenousMatrix() itself, not its inverse, which is meant.
    HomogenousMatrix3d getInvHomogenousMatrix() const override;
};

} // namespace transform
} // namespace math
} // namespace ovrix
