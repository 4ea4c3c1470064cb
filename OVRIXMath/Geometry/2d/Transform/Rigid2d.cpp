#include <OVRIXMath/Geometry/2d/Transform/ConcreteTransform2dBody.h>
#include <OVRIXMath/Geometry/2d/Transform/Rigid2d.h>

namespace ovrix
{
namespace math
{
namespace transform
{

Vector Rigid2d::getIdentityParams()
{
    return getDefaultParams();
}

HomogenousMatrix2d Rigid2d::getInvHomogenousMatrix() const
{
    return getMatrixOfInverse();
}

template class details::ConcreteTransform<details::TransformFamily2d, Rigid2d, details::RigidModel>;
template class details::ConcreteTransform2d<Rigid2d, details::RigidModel>;

namespace
{

const TransformRegistrator2d<Rigid2d> g_transformRegistrator;

} // namespace

} // namespace transform
} // namespace math
} // namespace ovrix
