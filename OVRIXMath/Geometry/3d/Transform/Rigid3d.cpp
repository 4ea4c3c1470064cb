#include <OVRIXMath/Geometry/3d/Transform/ConcreteTransform3dBody.h>
#include <OVRIXMath/Geometry/3d/Transform/Rigid3d.h>

namespace ovrix
{
namespace math
{
namespace transform
{

Vector Rigid3d::getIdentityParams()
{
    return getDefaultParams();
}

void Rigid3d::getInvParams(ovReal64& rz, ovReal64& ry, ovReal64& rx, ovReal64& tx, ovReal64& ty, ovReal64& tz)
{
    invertInPlace(rz, ry, rx, tx, ty, tz);
}

HomogenousMatrix3d Rigid3d::getInvHomogenousMatrix() const
{
    return getHomogenousMatrix();
}

template class details::ConcreteTransform<details::TransformFamily3d, Rigid3d, details::RigidModel>;
template class details::ConcreteTransform3d<Rigid3d, details::RigidModel>;

namespace
{

const TransformRegistrator3d<Rigid3d> g_transformRegistrator;

} // namespace

} // namespace transform
} // namespace math
} // namespace ovrix
