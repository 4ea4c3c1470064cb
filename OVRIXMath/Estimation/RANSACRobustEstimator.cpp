#include <OVRIXMath/Estimation/RANSACRobustEstimator.h>

namespace ovrix
{
namespace math
{

RANSACRobustEstimator::RANSACRobustEstimator() = default;

RANSACRobustEstimator::~RANSACRobustEstimator() = default;

ovReal64 RANSACRobustEstimator::computeScore(const ResidualsSet& residuals)
{
    const ovReal64 squaredThreshold = getSquaredThreshold();
    const auto nbData = static_cast<ovUInt32>(residuals.size());
    const ovReal64* const r = residuals.data().begin();
    ovUInt32 nbOutliers = 0;
    for (ovUInt32 i = 0; i < nbData; ++i)
        nbOutliers += r[i] * r[i] >= squaredThreshold;
    return rejectTooManyOutliers(static_cast<ovReal64>(nbOutliers), nbOutliers, nbData);
}

} // namespace math
} // namespace ovrix
