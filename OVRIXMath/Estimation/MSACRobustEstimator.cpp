#include <OVRIXMath/Estimation/MSACRobustEstimator.h>

namespace ovrix
{
namespace math
{

MSACRobustEstimator::MSACRobustEstimator() = default;

MSACRobustEstimator::~MSACRobustEstimator() = default;

ovReal64 MSACRobustEstimator::computeScore(const ResidualsSet& residuals)
{
    const ovReal64 squaredThreshold = getSquaredThreshold();
    const auto nbData = static_cast<ovUInt32>(residuals.size());
    const ovReal64* const r = residuals.data().begin();
    ovReal64 sum = 0.0;
    ovUInt32 nbOutliers = 0;
    for (ovUInt32 i = 0; i < nbData; ++i)
    {
        const ovReal64 squared = r[i] * r[i];
        if (squared < squaredThreshold)
            sum += squared;
        else if (squared >= squaredThreshold)
        {
            sum += squaredThreshold;
            ++nbOutliers;
        }
    }
    return rejectTooManyOutliers(sum, nbOutliers, nbData);
}

} // namespace math
} // namespace ovrix
