#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Geometry/2d/Transform/TransformFamily2d.h>
#include <OVRIXMath/Geometry/Transform/ConcreteTransform.h>
#include <OVRIXUtil/Types.h>

namespace ovrix
{
namespace math
{
namespace transform
{
namespace details
{

/// What a concrete planar transform adds to ConcreteTransform: its type and the two coordinates of a point.
template <class Derived, template <class> class Model>
class OVRIXMATH_EXPORT ConcreteTransform2d : public ConcreteTransform<TransformFamily2d, Derived, Model>
{
public:
    using BaseGeometricTransform2d::apply;

    eGeometricTransform2dType getGeometricTransform2dType() const override;
    void apply(ovReal64& x, ovReal64& y) const override;
};

} // namespace details
} // namespace transform
} // namespace math
} // namespace ovrix
