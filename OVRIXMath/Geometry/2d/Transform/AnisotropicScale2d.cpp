#include <OVRIXMath/Geometry/2d/Transform/AnisotropicScale2d.h>
#include <OVRIXMath/Geometry/2d/Transform/ConcreteTransform2dBody.h>

namespace ovrix
{
namespace math
{
namespace transform
{

Vector AnisotropicScale2d::getIdentityParams()
{
    return getDefaultParams();
}

HomogenousMatrix2d AnisotropicScale2d::getInvHomogenousMatrix() const
{
    return getHomogenousMatrix();
}

template class details::ConcreteTransform<details::TransformFamily2d, AnisotropicScale2d,
                                          details::AnisotropicScaleModel>;
template class details::ConcreteTransform2d<AnisotropicScale2d, details::AnisotropicScaleModel>;

namespace
{

const TransformRegistrator2d<AnisotropicScale2d> g_transformRegistrator;

} // namespace

} // namespace transform
} // namespace math
} // namespace ovrix
