#pragma once

#include <OVRIXMath/Estimation/BaseRobustEstimator.h>

namespace ovrix
{
namespace math
{

// The example of BaseRobustEstimator.h, word for word.

class MeanRobustEstimator : public BaseRobustEstimator
{
public:
    void init(const EstimatorPtr& pEstimator)
    {
        initBase(pEstimator);
    }

protected:
    ovReal64 computeOutlierThreshold(ovReal64 bestScore, ovUInt32, ovUInt32) const override
    {
        return 3.0 * bestScore;
    }

    ovReal64 computeScore(const ResidualsSet& residuals) override
    {
        return norm_1(residuals) / static_cast<ovReal64>(residuals.size());
    }
};

} // namespace math
} // namespace ovrix
