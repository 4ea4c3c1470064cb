#include <OVRIXMath/Geometry/3d/Transform/BaseGeometricTransform3d.h>
#include <OVRIXMath/Geometry/3d/Transform/Transform3dFactory.h>
#include <OVRIXMath/Tools/MathUtils.h>

namespace ovrix
{
namespace math
{
namespace transform
{

BaseGeometricTransform3d::~BaseGeometricTransform3d() = default;

ovBool BaseGeometricTransform3d::isInvertible() const
{
    return true;
}

GeometricTransform3dPtr BaseGeometricTransform3d::createInverted() const
{
    GeometricTransform3dPtr pInverted = Transform3dFactory::createTransform(getGeometricTransform3dType());
    pInverted->setParams(getInvParams());
    return pInverted;
}

template <class T>
void BaseGeometricTransform3d::apply(T xIn, T yIn, T zIn, T& xOut, T& yOut, T& zOut) const
{
    ovReal64 x = static_cast<ovReal64>(xIn);
    ovReal64 y = static_cast<ovReal64>(yIn);
    ovReal64 z = static_cast<ovReal64>(zIn);
    apply(x, y, z);
    xOut = round<T, ovReal64>(x);
    yOut = round<T, ovReal64>(y);
    zOut = round<T, ovReal64>(z);
}

template void BaseGeometricTransform3d::apply(int, int, int, int&, int&, int&) const;
template void BaseGeometricTransform3d::apply(unsigned int, unsigned int, unsigned int, unsigned int&, unsigned int&,
                                              unsigned int&) const;
template void BaseGeometricTransform3d::apply(float, float, float, float&, float&, float&) const;
template void BaseGeometricTransform3d::apply(double, double, double, double&, double&, double&) const;

} // namespace transform
} // namespace math
} // namespace ovrix
