#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Geometry/2d/Transform/ConcreteTransform2d.h>
#include <OVRIXMath/Geometry/Transform/AffineModel.h>
#include <OVRIXMath/Types.h>

namespace ovrix
{
namespace math
{
namespace transform
{

/// Affine map of the plane.
///
/// - Parameters: (a00, a01, a10, a11, tx, ty).
/// - Point: x' = a00 x + a01 y + tx, y' = a10 x + a11 y + ty.
/// - Inverse: the matrix by its determinant, then the translation; no tolerance is applied.
class OVRIXMATH_EXPORT Affine2d : public details::ConcreteTransform2d<Affine2d, details::AffineModel>
{
public:
    /// Type under which the factory knows the class.
    static constexpr eGeometricTransform2dType s_type = eGT2DT_Affine;

    /// The neutral element (1, 0, 0, 1, 0, 0), which is the default state, too.
    static Vector getIdentityParams();

    using ConcreteTransform2d::getInvParams;

    /// Replaces parameters by those of the inverse transform.
    ///
    /// @throws OVRIXMathException Transform2d message 3 when a00 a11 - a10 a01 is exactly 0; the parameters are
    /// untouched
    static void getInvParams(ovReal64& a00, ovReal64& a01, ovReal64& a10, ovReal64& a11, ovReal64& tx, ovReal64& ty);

    /// The matrix of the inverse transform.
    ///
    /// @throws OVRIXMathException as getInvParams()
    HomogenousMatrix2d getInvHomogenousMatrix() const override;
};

} // namespace transform
} // namespace math
} // namespace ovrix
