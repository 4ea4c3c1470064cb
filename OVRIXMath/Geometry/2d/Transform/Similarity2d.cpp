#include <OVRIXMath/Geometry/2d/Transform/ConcreteTransform2dBody.h>
#include <OVRIXMath/Geometry/2d/Transform/Similarity2d.h>

namespace ovrix
{
namespace math
{
namespace transform
{

Vector Similarity2d::getIdentityParams()
{
    return getDefaultParams();
}

HomogenousMatrix2d Similarity2d::getInvHomogenousMatrix() const
{
    return getHomogenousMatrix();
}

template class details::ConcreteTransform<details::TransformFamily2d, Similarity2d, details::SimilarityModel>;
template class details::ConcreteTransform2d<Similarity2d, details::SimilarityModel>;

namespace
{

const TransformRegistrator2d<Similarity2d> g_transformRegistrator;

} // namespace

} // namespace transform
} // namespace math
} // namespace ovrix
