#include <OVRIXMath/Geometry/3d/Transform/ConcreteTransform3dBody.h>
#include <OVRIXMath/Geometry/3d/Transform/Homography3d.h>

namespace ovrix
{
namespace math
{
namespace transform
{

Vector Homography3d::getIdentityParams()
{
    return getDefaultParams();
}

void Homography3d::getInvParams(ovReal64& h00, ovReal64& h01, ovReal64& h02, ovReal64& h03, ovReal64& h10,
                                ovReal64& h11, ovReal64& h12, ovReal64& h13, ovReal64& h20, ovReal64& h21,
                                ovReal64& h22, ovReal64& h23, ovReal64& h30, ovReal64& h31, ovReal64& h32,
                                ovReal64& h33)
{
    invertInPlace(h00, h01, h02, h03, h10, h11, h12, h13, h20, h21, h22, h23, h30, h31, h32, h33);
}

ovBool Homography3d::isInvertible() const
{
    return hasInverse();
}

ovBool Homography3d::isInvertible(ovReal64 h00, ovReal64 h01, ovReal64 h02, ovReal64 h03, ovReal64 h10, ovReal64 h11,
                                  ovReal64 h12, ovReal64 h13, ovReal64 h20, ovReal64 h21, ovReal64 h22, ovReal64 h23,
                                  ovReal64 h30, ovReal64 h31, ovReal64 h32, ovReal64 h33)
{
    return areInvertible(h00, h01, h02, h03, h10, h11, h12, h13, h20, h21, h22, h23, h30, h31, h32, h33);
}

HomogenousMatrix3d Homography3d::getInvHomogenousMatrix() const
{
    return getMatrixOfInverse();
}

template class details::ConcreteTransform<details::TransformFamily3d, Homography3d, details::HomographyModel>;
template class details::ConcreteTransform3d<Homography3d, details::HomographyModel>;

namespace
{

const TransformRegistrator3d<Homography3d> g_transformRegistrator;

} // namespace

} // namespace transform
} // namespace math
} // namespace ovrix
