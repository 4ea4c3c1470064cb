#include <OVRIXMath/Statistics/GaussianCurve3dEstimator.h>

namespace ovrix
{
namespace math
{

GaussianCurve3dEstimator::GaussianCurve3dEstimator() : BaseGaussianCurveEstimator(2) {}

GaussianCurve3dEstimator::~GaussianCurve3dEstimator() = default;

} // namespace math
} // namespace ovrix
