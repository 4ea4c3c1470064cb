#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Geometry/3d/Transform/ConcreteTransform3d.h>
#include <OVRIXMath/Geometry/Transform/SimilarityModel.h>
#include <OVRIXMath/Types.h>

namespace ovrix
{
namespace math
{
namespace transform
{

/// Rotation about the origin and scaling, then translation.
///
/// - Parameters: (scale, rz, ry, rx, tx, ty, tz), the angles in radians.
/// - Point: x' = scale R x + t, with R as in Rotation3d.
/// - Inverse: (scale, the angles of R^T as in Rotation3d, -r R^T t), with r = 1 / scale, and r = 0 for a scale of
///   exactly 0. The scale stays as it was, which is meant: createInverted() is the true inverse for scales of 1 and -1
///   only.
class OVRIXMATH_EXPORT Similarity3d : public details::ConcreteTransform3d<Similarity3d, details::SimilarityModel>
{
public:
    /// Type under which the factory knows the class.
    static constexpr eGeometricTransform3dType s_type = eGT3DT_Similarity;

    /// The neutral element (1, 0, 0, 0, 0, 0, 0), which is the default state, too.
    static Vector getIdentityParams();

    /// The parameters that stand under Inverse above.
    Vector getInvParams() const override;

    /// Replaces all parameters but the scale by those that getInvParams() tells.
    static void getInvParams(ovReal64& scale, ovReal64& rz, ovReal64& ry, ovReal64& rx, ovReal64& tx, ovReal64& ty,
                             ovReal64& tz);

    /// getHomogenousMatrix() itself, not its inverse, which is meant.
    HomogenousMatrix3d getInvHomogenousMatrix() const override;
};

} // namespace transform
} // namespace math
} // namespace ovrix
