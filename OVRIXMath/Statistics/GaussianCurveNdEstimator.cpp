#include <OVRIXMath/Statistics/GaussianCurveNdEstimator.h>

namespace ovrix
{
namespace math
{

GaussianCurveNdEstimator::GaussianCurveNdEstimator(ovUInt32 nbDims) : BaseGaussianCurveEstimator(nbDims) {}

GaussianCurveNdEstimator::~GaussianCurveNdEstimator() = default;

} // namespace math
} // namespace ovrix
