#include <OVRIXMath/Geometry/3d/Transform/ConcreteTransform3dBody.h>
#include <OVRIXMath/Geometry/3d/Transform/Rotation3d.h>

namespace ovrix
{
namespace math
{
namespace transform
{

Vector Rotation3d::getIdentityParams()
{
    return getDefaultParams();
}

void Rotation3d::getInvParams(ovReal64& rz, ovReal64& ry, ovReal64& rx)
{
    invertInPlace(rz, ry, rx);
}

HomogenousMatrix3d Rotation3d::getInvHomogenousMatrix() const
{
    return getHomogenousMatrix();
}

template class details::ConcreteTransform<details::TransformFamily3d, Rotation3d, details::RotationModel>;
template class details::ConcreteTransform3d<Rotation3d, details::RotationModel>;

namespace
{

const TransformRegistrator3d<Rotation3d> g_transformRegistrator;

} // namespace

} // namespace transform
} // namespace math
} // namespace ovrix
