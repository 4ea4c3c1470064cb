#include <OVRIXMath/Geometry/2d/Transform/ConcreteTransform2dBody.h>
#include <OVRIXMath/Geometry/2d/Transform/Rotation2d.h>

namespace ovrix
{
namespace math
{
namespace transform
{

Vector Rotation2d::getIdentityParams()
{
    return getDefaultParams();
}

HomogenousMatrix2d Rotation2d::getInvHomogenousMatrix() const
{
    return getMatrixOfInverse();
}

template class details::ConcreteTransform<details::TransformFamily2d, Rotation2d, details::RotationModel>;
template class details::ConcreteTransform2d<Rotation2d, details::RotationModel>;

namespace
{

const TransformRegistrator2d<Rotation2d> g_transformRegistrator;

} // namespace

} // namespace transform
} // namespace math
} // namespace ovrix
