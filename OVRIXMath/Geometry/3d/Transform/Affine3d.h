#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Geometry/3d/Transform/ConcreteTransform3d.h>
#include <OVRIXMath/Geometry/Transform/AffineModel.h>
#include <OVRIXMath/Types.h>

namespace ovrix
{
namespace math
{
namespace transform
{

/// Affine map of space.
///
/// - Parameters: (a00, a01, a02, a10, a11, a12, a20, a21, a22, tx, ty, tz).
/// - Point: each row gives a_i0 x + a_i1 y + a_i2 z + t_i.
/// - Inverse: the inverse matrix L of luInverse(), then -L t.
class OVRIXMATH_EXPORT Affine3d : public details::ConcreteTransform3d<Affine3d, details::AffineModel>
{
public:
    /// Type under which the factory knows the class.
    static constexpr eGeometricTransform3dType s_type = eGT3DT_Affine;

    /// The neutral element (1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0), which is the default state, too.
    static Vector getIdentityParams();

    using ConcreteTransform3d::getInvParams;

    /// Replaces parameters by those of the inverse transform.
    ///
    /// @throws OVRIXMathException Transform3d message 3 when luInverse() calls the matrix singular, LinearAlgebra
    /// message 11 when it holds NaN or infinities cancel out in the decomposition; the parameters are untouched
    static void getInvParams(ovReal64& a00, ovReal64& a01, ovReal64& a02, ovReal64& a10, ovReal64& a11, ovReal64& a12,
                             ovReal64& a20, ovReal64& a21, ovReal64& a22, ovReal64& tx, ovReal64& ty, ovReal64& tz);

    /// The matrix of the inverse transform.
    ///
    /// @throws OVRIXMathException as getInvParams()
    HomogenousMatrix3d getInvHomogenousMatrix() const override;
};

} // namespace transform
} // namespace math
} // namespace ovrix
