#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Geometry/2d/Transform/ConcreteTransform2d.h>
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
/// - Parameters: (scale, theta, tx, ty), the angle in radians.
/// - Point: x' = scale (c x - s y) + tx, y' = scale (c y + s x) + ty, with c and s the cosine and sine of theta.
/// - Inverse: (r, -theta, -(c tx + s ty) r, -(c ty - s tx) r), with r = 1 / scale, and r = 0 for a scale of exactly 0.
class OVRIXMATH_EXPORT Similarity2d : public details::ConcreteTransform2d<Similarity2d, details::SimilarityModel>
{
public:
    /// Type under which the factory knows the class.
    static constexpr eGeometricTransform2dType s_type = eGT2DT_Similarity;

    /// The neutral element (1, 0, 0, 0), which is the default state, too.
    static Vector getIdentityParams();

    /// getHomogenousMatrix() itself, not its inverse, which is meant.
    HomogenousMatrix2d getInvHomogenousMatrix() const override;
};

} // namespace transform
} // namespace math
} // namespace ovrix
