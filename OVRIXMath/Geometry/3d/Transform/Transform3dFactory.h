#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Geometry/3d/Transform/TransformFamily3d.h>
#include <OVRIXMath/Geometry/Transform/TransformFactory.h>

namespace ovrix
{
namespace math
{
namespace transform
{

extern template class OVRIXMATH_EXPORT TransformFactory<details::TransformFamily3d>;

/// Creates spatial transforms from their type; the operations are those of TransformFactory, all static.
///
/// ```cpp
/// const GeometricTransform3dPtr pScale = Transform3dFactory::createTransform(eGT3DT_Scale);
/// ```
class OVRIXMATH_EXPORT Transform3dFactory : public TransformFactory<details::TransformFamily3d>
{
private:
    friend class TransformFactory<details::TransformFamily3d>;
    Transform3dFactory() = default;
};

} // namespace transform
} // namespace math
} // namespace ovrix
