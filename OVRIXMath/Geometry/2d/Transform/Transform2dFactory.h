#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Geometry/2d/Transform/TransformFamily2d.h>
#include <OVRIXMath/Geometry/Transform/TransformFactory.h>

namespace ovrix
{
namespace math
{
namespace transform
{

extern template class OVRIXMATH_EXPORT TransformFactory<details::TransformFamily2d>;

/// Creates planar transforms from their type; the operations are those of TransformFactory, all static.
///
/// ```cpp
/// const GeometricTransform2dPtr pScale = Transform2dFactory::createTransform(eGT2DT_Scale);
/// ```
class OVRIXMATH_EXPORT Transform2dFactory : public TransformFactory<details::TransformFamily2d>
{
private:
    friend class TransformFactory<details::TransformFamily2d>;
    Transform2dFactory() = default;
};

} // namespace transform
} // namespace math
} // namespace ovrix
