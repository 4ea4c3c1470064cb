#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Geometry/3d/Transform/ConcreteTransform3d.h>
#include <OVRIXMath/Geometry/Transform/HomographyModel.h>
#include <OVRIXMath/Types.h>

namespace ovrix
{
namespace math
{
namespace transform
{

/// Projective map of space.
///
/// - Parameters: (h00, h01, h02, h03, h10, ..., h33), the matrix row by row.
/// - Point: the rows h_i0 x + h_i1 y + h_i2 z + h_i3, i below 3, divided by w = h30 x + h31 y + h32 z + h33. A point
///   with w exactly 0 stays where it is.
/// - Inverse: the inverse matrix of luInverse(), without any normalisation.
class OVRIXMATH_EXPORT Homography3d : public details::ConcreteTransform3d<Homography3d, details::HomographyModel>
{
public:
    /// Type under which the factory knows the class.
    static constexpr eGeometricTransform3dType s_type = eGT3DT_Homography;

    /// The neutral element of the 4 x 4 identity, which is the default state, too.
    static Vector getIdentityParams();

    using ConcreteTransform3d::getInvParams;

    /// Replaces parameters by those of the inverse transform.
    ///
    /// @throws OVRIXMathException Transform3d message 3 when luInverse() calls the matrix singular, LinearAlgebra
    /// message 11 when it holds NaN or infinities cancel out in the decomposition; the parameters are untouched
    static void getInvParams(ovReal64& h00, ovReal64& h01, ovReal64& h02, ovReal64& h03, ovReal64& h10, ovReal64& h11,
                             ovReal64& h12, ovReal64& h13, ovReal64& h20, ovReal64& h21, ovReal64& h22, ovReal64& h23,
                             ovReal64& h30, ovReal64& h31, ovReal64& h32, ovReal64& h33);

    /// Whether luInverse() inverts the matrix; there is no threshold.
    ///
    /// @throws OVRIXMathException LinearAlgebra message 11 for NaN as getInvParams()
    ovBool isInvertible() const override;

    /// Whether luInverse() inverts the matrix of these parameters.
    ///
    /// @throws OVRIXMathException LinearAlgebra message 11 for NaN as getInvParams()
    static ovBool isInvertible(ovReal64 h00, ovReal64 h01, ovReal64 h02, ovReal64 h03, ovReal64 h10, ovReal64 h11,
                               ovReal64 h12, ovReal64 h13, ovReal64 h20, ovReal64 h21, ovReal64 h22, ovReal64 h23,
                               ovReal64 h30, ovReal64 h31, ovReal64 h32, ovReal64 h33);

    /// The matrix of the inverse transform.
    ///
    /// @throws OVRIXMathException as getInvParams()
    HomogenousMatrix3d getInvHomogenousMatrix() const override;
};

} // namespace transform
} // namespace math
} // namespace ovrix
