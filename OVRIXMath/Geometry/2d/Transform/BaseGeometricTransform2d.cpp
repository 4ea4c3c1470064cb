#include <OVRIXMath/Geometry/2d/Transform/BaseGeometricTransform2d.h>
#include <OVRIXMath/Geometry/2d/Transform/Transform2dFactory.h>
#include <OVRIXMath/Tools/MathUtils.h>

namespace ovrix
{
namespace math
{
namespace transform
{

BaseGeometricTransform2d::~BaseGeometricTransform2d() = default;

ovBool BaseGeometricTransform2d::isInvertible() const
{
    return true;
}

GeometricTransform2dPtr BaseGeometricTransform2d::createInverted() const
{
    GeometricTransform2dPtr pInverted = Transform2dFactory::createTransform(getGeometricTransform2dType());
    pInverted->setParams(getInvParams());
    return pInverted;
}

template <class T>
void BaseGeometricTransform2d::apply(T xIn, T yIn, T& xOut, T& yOut) const
{
    ovReal64 x = static_cast<ovReal64>(xIn);
    ovReal64 y = static_cast<ovReal64>(yIn);
    apply(x, y);
    xOut = round<T, ovReal64>(x);
    yOut = round<T, ovReal64>(y);
}

template void BaseGeometricTransform2d::apply(int, int, int&, int&) const;
template void BaseGeometricTransform2d::apply(unsigned int, unsigned int, unsigned int&, unsigned int&) const;
template void BaseGeometricTransform2d::apply(float, float, float&, float&) const;
template void BaseGeometricTransform2d::apply(double, double, double&, double&) const;

} // namespace transform
} // namespace math
} // namespace ovrix
