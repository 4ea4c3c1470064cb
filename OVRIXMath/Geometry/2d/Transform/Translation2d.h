#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Geometry/2d/Transform/ConcreteTransform2d.h>
#include <OVRIXMath/Geometry/Transform/TranslationModel.h>
#include <OVRIXMath/Types.h>

namespace ovrix
{
namespace math
{
namespace transform
{

/// Translation of the plane.
///
/// - Parameters: (tx, ty).
/// - Point: x' = x + tx, y' = y + ty.
/// - Inverse: (-tx, -ty).
class OVRIXMATH_EXPORT Translation2d : public details::ConcreteTransform2d<Translation2d, details::TranslationModel>
{
public:
    /// Type under which the factory knows the class.
    static constexpr eGeometricTransform2dType s_type = eGT2DT_Translation;

    /// The neutral element (0, 0), which is the default state, too.
    static Vector getIdentityParams();

    /// The matrix of the inverse transform.
    HomogenousMatrix2d getInvHomogenousMatrix() const override;
};

} // namespace transform
} // namespace math
} // namespace ovrix
