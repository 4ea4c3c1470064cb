#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Geometry/2d/Transform/ConcreteTransform2d.h>
#include <OVRIXMath/Geometry/Transform/ScaleModel.h>
#include <OVRIXMath/Types.h>

namespace ovrix
{
namespace math
{
namespace transform
{

/// Scaling about the origin. A default-constructed Scale2d has scale 1.
///
/// - Parameters: (scale).
/// - Point: x' = scale x, y' = scale y.
/// - Inverse: (1 / scale); (0) for a scale of exactly 0.
class OVRIXMATH_EXPORT Scale2d : public details::ConcreteTransform2d<Scale2d, details::ScaleModel>
{
public:
    /// Type under which the factory knows the class.
    static constexpr eGeometricTransform2dType s_type = eGT2DT_Scale;

    /// (0), which is meant and not the neutral element: after setIdentity() every point collapses to the origin.
    static Vector getIdentityParams();

    /// getHomogenousMatrix() itself, not its inverse, which is meant.
    HomogenousMatrix2d getInvHomogenousMatrix() const override;
};

} // namespace transform
} // namespace math
} // namespace ovrix
