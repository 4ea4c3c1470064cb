#include <OVRIXMath/Estimation/ThresholdRobustEstimator.h>

namespace ovrix
{
namespace math
{

ThresholdRobustEstimator::ThresholdRobustEstimator() : _outlierThreshold(0.0) {}

ThresholdRobustEstimator::~ThresholdRobustEstimator() = default;

void ThresholdRobustEstimator::init(const EstimatorPtr& pEstimator, ovReal64 outlierThreshold)
{
    _outlierThreshold = outlierThreshold;
    initBase(pEstimator);
}

ovReal64 ThresholdRobustEstimator::computeOutlierThreshold(ovReal64, ovUInt32, ovUInt32) const
{
    return _outlierThreshold;
}

ovReal64 ThresholdRobustEstimator::getSquaredThreshold() const
{
    return _outlierThreshold * _outlierThreshold;
}

ovReal64 ThresholdRobustEstimator::rejectTooManyOutliers(ovReal64 score, ovUInt32 nbOutliers, ovUInt32 nbData) const
{
    const bool bAccepted =
        static_cast<ovReal64>(nbData) * getExpectedOutlierRatio() >= static_cast<ovReal64>(nbOutliers);
    return bAccepted ? score : NumericLimits<ovReal64>::s_max;
}

} // namespace math
} // namespace ovrix
