#include <OVRIXMath/Geometry/2d/Transform/ConcreteTransform2dBody.h>
#include <OVRIXMath/Geometry/2d/Transform/Scale2d.h>

namespace ovrix
{
namespace math
{
namespace transform
{

Vector Scale2d::getIdentityParams()
{
    return Vector(1, 0.0);
}

HomogenousMatrix2d Scale2d::getInvHomogenousMatrix() const
{
    return getHomogenousMatrix();
}

template class details::ConcreteTransform<details::TransformFamily2d, Scale2d, details::ScaleModel>;
template class details::ConcreteTransform2d<Scale2d, details::ScaleModel>;

namespace
{

const TransformRegistrator2d<Scale2d> g_transformRegistrator;

} // namespace

} // namespace transform
} // namespace math
} // namespace ovrix
