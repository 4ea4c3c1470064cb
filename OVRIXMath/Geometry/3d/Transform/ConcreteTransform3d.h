#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Geometry/3d/Transform/TransformFamily3d.h>
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

/// What a concrete spatial transform adds to ConcreteTransform: its type and the three coordinates of a point.
template <class Derived, template <class> class Model>
class OVRIXMATH_EXPORT ConcreteTransform3d : public ConcreteTransform<TransformFamily3d, Derived, Model>
{
public:
    using BaseGeometricTransform3d::apply;

    eGeometricTransform3dType getGeometricTransform3dType() const override;
    void apply(ovReal64& x, ovReal64& y, ovReal64& z) const override;
};

} // namespace details
} // namespace transform
} // namespace math
} // namespace ovrix
