#include <OVRIXMath/Geometry/3d/Transform/Affine3d.h>
#include <OVRIXMath/Geometry/3d/Transform/ConcreteTransform3dBody.h>

namespace ovrix
{
namespace math
{
namespace transform
{

Vector Affine3d::getIdentityParams()
{
    return getDefaultParams();
}

void Affine3d::getInvParams(ovReal64& a00, ovReal64& a01, ovReal64& a02, ovReal64& a10, ovReal64& a11, ovReal64& a12,
                            ovReal64& a20, ovReal64& a21, ovReal64& a22, ovReal64& tx, ovReal64& ty, ovReal64& tz)
{
    invertInPlace(a00, a01, a02, a10, a11, a12, a20, a21, a22, tx, ty, tz);
}

HomogenousMatrix3d Affine3d::getInvHomogenousMatrix() const
{
    return getMatrixOfInverse();
}

template class details::ConcreteTransform<details::TransformFamily3d, Affine3d, details::AffineModel>;
template class details::ConcreteTransform3d<Affine3d, details::AffineModel>;

namespace
{

const TransformRegistrator3d<Affine3d> g_transformRegistrator;

} // namespace

} // namespace transform
} // namespace math
} // namespace ovrix
