#include <OVRIXMath/Geometry/3d/Transform/AnisotropicScale3d.h>
#include <OVRIXMath/Geometry/3d/Transform/ConcreteTransform3dBody.h>

namespace ovrix
{
namespace math
{
namespace transform
{

Vector AnisotropicScale3d::getIdentityParams()
{
    return getDefaultParams();
}

HomogenousMatrix3d AnisotropicScale3d::getInvHomogenousMatrix() const
{
    return getHomogenousMatrix();
}

template class details::ConcreteTransform<details::TransformFamily3d, AnisotropicScale3d,
                                          details::AnisotropicScaleModel>;
template class details::ConcreteTransform3d<AnisotropicScale3d, details::AnisotropicScaleModel>;

namespace
{

const TransformRegistrator3d<AnisotropicScale3d> g_transformRegistrator;

} // namespace

} // namespace transform
} // namespace math
} // namespace ovrix
