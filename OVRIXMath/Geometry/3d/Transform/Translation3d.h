#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Geometry/3d/Transform/ConcreteTransform3d.h>
#include <OVRIXMath/Geometry/Transform/TranslationModel.h>
#include <OVRIXMath/Types.h>

namespace ovrix
{
namespace math
{
namespace transform
{

/// Translation of space.
///
/// - Parameters: (tx, ty, tz).
/// - Point: x' = x + tx, y' = y + ty, z' = z + tz.
/// - Inverse: (-tx, -ty, -tz).
class OVRIXMATH_EXPORT Translation3d : public details::ConcreteTransform3d<Translation3d, details::TranslationModel>
{
public:
    /// Type under which the factory knows the class.
    static constexpr eGeometricTransform3dType s_type = eGT3DT_Translation;

    /// The neutral element (0, 0, 0), which is the default state, too.
    static Vector getIdentityParams();

    /// The identity with 3 rows and 3 columns whatever the parameters, which is meant; apply() and getParams() tell the
    /// translation.
    HomogenousMatrix3d getHomogenousMatrix() const override;

    /// getHomogenousMatrix() itself, not its inverse, which is meant.
    HomogenousMatrix3d getInvHomogenousMatrix() const override;
};

} // namespace transform
} // namespace math
} // namespace ovrix
