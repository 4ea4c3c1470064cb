#include <OVRIXMath/Geometry/2d/Transform/ConcreteTransform2dBody.h>
#include <OVRIXMath/Geometry/2d/Transform/Homography2d.h>

namespace ovrix
{
namespace math
{
namespace transform
{

Vector Homography2d::getIdentityParams()
{
    Vector params = getDefaultParams();
    params(5) = 1.0;
    params(7) = 1.0;
    return params;
}

void Homography2d::getInvParams(ovReal64& h00, ovReal64& h01, ovReal64& h02, ovReal64& h10, ovReal64& h11,
                                ovReal64& h12, ovReal64& h20, ovReal64& h21, ovReal64& h22)
{
    invertInPlace(h00, h01, h02, h10, h11, h12, h20, h21, h22);
}

ovBool Homography2d::isInvertible() const
{
    return hasInverse();
}

ovBool Homography2d::isInvertible(ovReal64 h00, ovReal64 h01, ovReal64 h02, ovReal64 h10, ovReal64 h11, ovReal64 h12,
                                  ovReal64 h20, ovReal64 h21, ovReal64 h22)
{
    return areInvertible(h00, h01, h02, h10, h11, h12, h20, h21, h22);
}

HomogenousMatrix2d Homography2d::getInvHomogenousMatrix() const
{
    return getMatrixOfInverse();
}

template class details::ConcreteTransform<details::TransformFamily2d, Homography2d, details::HomographyModel>;
template class details::ConcreteTransform2d<Homography2d, details::HomographyModel>;

namespace
{

const TransformRegistrator2d<Homography2d> g_transformRegistrator;

} // namespace

} // namespace transform
} // namespace math
} // namespace ovrix
