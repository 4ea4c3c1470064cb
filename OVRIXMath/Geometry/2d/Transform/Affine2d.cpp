#include <OVRIXMath/Geometry/2d/Transform/Affine2d.h>
#include <OVRIXMath/Geometry/2d/Transform/ConcreteTransform2dBody.h>

namespace ovrix
{
namespace math
{
namespace transform
{

Vector Affine2d::getIdentityParams()
{
    return getDefaultParams();
}

void Affine2d::getInvParams(ovReal64& a00, ovReal64& a01, ovReal64& a10, ovReal64& a11, ovReal64& tx, ovReal64& ty)
{
    invertInPlace(a00, a01, a10, a11, tx, ty);
}

HomogenousMatrix2d Affine2d::getInvHomogenousMatrix() const
{
    return getMatrixOfInverse();
}

template class details::ConcreteTransform<details::TransformFamily2d, Affine2d, details::AffineModel>;
template class details::ConcreteTransform2d<Affine2d, details::AffineModel>;

namespace
{

const TransformRegistrator2d<Affine2d> g_transformRegistrator;

} // namespace

} // namespace transform
} // namespace math
} // namespace ovrix
