#include <OVRIXMath/Geometry/3d/Transform/ConcreteTransform3dBody.h>
#include <OVRIXMath/Geometry/3d/Transform/Translation3d.h>

namespace ovrix
{
namespace math
{
namespace transform
{

Vector Translation3d::getIdentityParams()
{
    return getDefaultParams();
}

HomogenousMatrix3d Translation3d::getHomogenousMatrix() const
{
    return boost::numeric::ublas::identity_matrix<ovReal64>(3);
}

HomogenousMatrix3d Translation3d::getInvHomogenousMatrix() const
{
    return getHomogenousMatrix();
}

template class details::ConcreteTransform<details::TransformFamily3d, Translation3d, details::TranslationModel>;
template class details::ConcreteTransform3d<Translation3d, details::TranslationModel>;

namespace
{

const TransformRegistrator3d<Translation3d> g_transformRegistrator;

} // namespace

} // namespace transform
} // namespace math
} // namespace ovrix
