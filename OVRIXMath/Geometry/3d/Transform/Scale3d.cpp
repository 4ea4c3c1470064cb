#include <OVRIXMath/Geometry/3d/Transform/ConcreteTransform3dBody.h>
#include <OVRIXMath/Geometry/3d/Transform/Scale3d.h>

namespace ovrix
{
namespace math
{
namespace transform
{

Vector Scale3d::getIdentityParams()
{
    return getDefaultParams();
}

HomogenousMatrix3d Scale3d::getInvHomogenousMatrix() const
{
    return getHomogenousMatrix();
}

template class details::ConcreteTransform<details::TransformFamily3d, Scale3d, details::ScaleModel>;
template class details::ConcreteTransform3d<Scale3d, details::ScaleModel>;

namespace
{

const TransformRegistrator3d<Scale3d> g_transformRegistrator;

} // namespace

} // namespace transform
} // namespace math
} // namespace ovrix
