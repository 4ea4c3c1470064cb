#pragma once

#include <OVRIXMath/Geometry/3d/Transform/ConcreteTransform3d.h>
#include <OVRIXMath/Geometry/3d/Transform/TransformRegistrator3d.h>
#include <OVRIXMath/Geometry/Transform/ConcreteTransformBody.h>
#include <OVRIXMath/Geometry/Transform/HomogenousMatrix.h>
#include <OVRIXUtil/Types.h>

/// @file
/// Bodies of ConcreteTransform3d, for the source files of the concrete spatial transforms.

namespace ovrix
{
namespace math
{
namespace transform
{
namespace details
{

template <class Derived, template <class> class Model>
eGeometricTransform3dType ConcreteTransform3d<Derived, Model>::getGeometricTransform3dType() const
{
    return Derived::s_type;
}

template <class Derived, template <class> class Model>
void ConcreteTransform3d<Derived, Model>::apply(ovReal64& x, ovReal64& y, ovReal64& z) const
{
    Coordinates<TransformFamily3d> point{x, y, z};
    this->_model.apply(point);
    x = point[0];
    y = point[1];
    z = point[2];
}

} // namespace details
} // namespace transform
} // namespace math
} // namespace ovrix
