#include <OVRIXMath/Geometry/3d/Transform/ConcreteTransform3dBody.h>
#include <OVRIXMath/Geometry/3d/Transform/Similarity3d.h>

namespace ovrix
{
namespace math
{
namespace transform
{

Vector Similarity3d::getIdentityParams()
{
    return getDefaultParams();
}

Vector Similarity3d::getInvParams() const
{
    Vector params = getParams();
    getInvParams(params(0), params(1), params(2), params(3), params(4), params(5), params(6));
    return params;
}

void Similarity3d::getInvParams(ovReal64& scale, ovReal64& rz, ovReal64& ry, ovReal64& rx, ovReal64& tx, ovReal64& ty,
                                ovReal64& tz)
{
    ovReal64 inverseScale = scale;
    invertInPlace(inverseScale, rz, ry, rx, tx, ty, tz);
}

HomogenousMatrix3d Similarity3d::getInvHomogenousMatrix() const
{
    return getHomogenousMatrix();
}

template class details::ConcreteTransform<details::TransformFamily3d, Similarity3d, details::SimilarityModel>;
template class details::ConcreteTransform3d<Similarity3d, details::SimilarityModel>;

namespace
{

const TransformRegistrator3d<Similarity3d> g_transformRegistrator;

} // namespace

} // namespace transform
} // namespace math
} // namespace ovrix
