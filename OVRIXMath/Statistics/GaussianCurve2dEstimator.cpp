#include <OVRIXMath/Statistics/GaussianCurve2dEstimator.h>

namespace ovrix
{
namespace math
{

GaussianCurve2dEstimator::GaussianCurve2dEstimator() : BaseGaussianCurveEstimator(1) {}

GaussianCurve2dEstimator::~GaussianCurve2dEstimator() = default;

} // namespace math
} // namespace ovrix
