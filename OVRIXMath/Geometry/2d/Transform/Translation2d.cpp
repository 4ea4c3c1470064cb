#include <OVRIXMath/Geometry/2d/Transform/ConcreteTransform2dBody.h>
#include <OVRIXMath/Geometry/2d/Transform/Translation2d.h>

namespace ovrix
{
namespace math
{
namespace transform
{

Vector Translation2d::getIdentityParams()
{
    return getDefaultParams();
}

HomogenousMatrix2d Translation2d::getInvHomogenousMatrix() const
{
    return getMatrixOfInverse();
}

template class details::ConcreteTransform<details::TransformFamily2d, Translation2d, details::TranslationModel>;
template class details::ConcreteTransform2d<Translation2d, details::TranslationModel>;

namespace
{

const TransformRegistrator2d<Translation2d> g_transformRegistrator;

} // namespace

} // namespace transform
} // namespace math
} // namespace ovrix
