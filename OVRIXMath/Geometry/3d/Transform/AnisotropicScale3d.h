#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Geometry/3d/Transform/ConcreteTransform3d.h>
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
/// - Parameters: (kx, ky, kz).
/// - Point: x' = kx x, y' = ky y, z' = kz z.
/// - Inverse: (1 / kx, 1 / ky, 1 / kz); 0 in the place of a scale that is exactly 0.
class OVRIXMATH_EXPORT AnisotropicScale3d
    : public details::ConcreteTransform3d<AnisotropicScale3d, details::AnisotropicScaleModel>
{
public:
    /// Type under which the factory knows the class.
    static constexpr eGeometricTransform3dType s_type = eGT3DT_AnisotropicScale;

    /// The neutral element (1, 1, 1), which is the default state, too.
    static Vector getIdentityParams();

    /// getHomogenousMatrix() itself, not its inverse, which is meant.
    HomogenousMatrix3d getInvHomogenousMatrix() const override;
};

} // namespace transform
} // namespace math
} // namespace ovrix
