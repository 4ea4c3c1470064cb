#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Geometry/2d/Transform/ConcreteTransform2d.h>
#include <OVRIXMath/Geometry/Transform/AnisotropicScaleModel.h>
#include <OVRIXMath/Types.h>

namespace ovrix
{
namespace math
{
namespace transform
{

/// Scaling of each axis about the origin.
///
/// - Parameters: (sx, sy).
/// - Point: x' = sx x, y' = sy y.
/// - Inverse: (1 / sx, 1 / sy); 0 in the place of a scale that is exactly 0.
class OVRIXMATH_EXPORT AnisotropicScale2d
    : public details::ConcreteTransform2d<AnisotropicScale2d, details::AnisotropicScaleModel>
{
public:
    /// Type under which the factory knows the class.
    static constexpr eGeometricTransform2dType s_type = eGT2DT_AnisotropicScale;

    /// The neutral element (1, 1), which is the default state, too.
    static Vector getIdentityParams();

    /// getHomogenousMatrix() itself, not its inverse, which is meant.
    HomogenousMatrix2d getInvHomogenousMatrix() const override;
};

} // namespace transform
} // namespace math
} // namespace ovrix
