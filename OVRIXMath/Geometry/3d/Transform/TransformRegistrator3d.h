#pragma once

#include <OVRIXMath/Geometry/3d/Transform/Transform3dFactory.h>

#include <boost/make_shared.hpp>

namespace ovrix
{
namespace math
{
namespace transform
{

/// Registers a spatial transform with the factory; each concrete class has one such object in its source file.
///
/// @tparam T class with a type `s_type` and a number of parameters `s_nbParams`
template <class T>
class TransformRegistrator3d
{
public:
    /// @throws OVRIXMathException Transform3d message 1 when the type is registered already
    TransformRegistrator3d()
    {
        Transform3dFactory::registerTransform(T::s_type, T::s_nbParams, &createShared);
    }

    /// A new default-constructed T.
    static GeometricTransform3dPtr createShared()
    {
        return boost::make_shared<T>();
    }
};

} // namespace transform
} // namespace math
} // namespace ovrix
