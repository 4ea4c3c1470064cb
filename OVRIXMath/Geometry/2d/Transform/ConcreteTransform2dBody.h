#pragma once

#include <OVRIXMath/Geometry/2d/Transform/ConcreteTransform2d.h>
#include <OVRIXMath/Geometry/2d/Transform/TransformRegistrator2d.h>
#include <OVRIXMath/Geometry/Transform/ConcreteTransformBody.h>
#include <OVRIXMath/Geometry/Transform/HomogenousMatrix.h>
#include <OVRIXUtil/Types.h>

/// @file
/// Bodies of ConcreteTransform2d, for the source files of the concrete planar transforms.

namespace ovrix
{
namespace math
{
namespace transform
{
namespace details
{

template <class Derived, template <class> class Model>
eGeometricTransform2dType ConcreteTransform2d<Derived, Model>::getGeometricTransform2dType() const
{
    return Derived::s_type;
}

template <class Derived, template <class> class Model>
void ConcreteTransform2d<Derived, Model>::apply(ovReal64& x, ovReal64& y) const
{
    Coordinates<TransformFamily2d> point{x, y};
    this->_model.apply(point);
    x = point[0];
    y = point[1];
}

} // namespace details
} // namespace transform
} // namespace math
} // namespace ovrix
