#pragma once

#include <OVRIXMath/Geometry/2d/Transform/Transform2dFactory.h>

#include <boost/make_shared.hpp>

namespace ovrix
{
namespace math
{
namespace transform
{

/// Registers a planar transform with the factory; each concrete class has one such object in its source file.
///
/// @tparam T class with a type `s_type` and a number of parameters `s_nbParams`
template <class T>
class TransformRegistrator2d
{
public:
    /// @throws OVRIXMathException Transform2d message 1 when the type is registered already
    TransformRegistrator2d()
    {
        Transform2dFactory::registerTransform(T::s_type, T::s_nbParams, &createShared);
    }

    /// A new default-constructed T.
    static GeometricTransform2dPtr createShared()
    {
        return boost::make_shared<T>();
    }
};

} // namespace transform
} // namespace math
} // namespace ovrix
