#pragma once

#include <OVRIXMath/Estimation/ThresholdRobustEstimator.h>
#include <OVRIXMath/Export.h>
#include <OVRIXMath/Types.h>

namespace ovrix
{
namespace math
{

/// M-estimator sample consensus: the best fit has the smallest sum of truncated squared residuals.
///
/// P. H. S. Torr and A. Zisserman, "MLESAC: a new robust estimator with application to estimating image geometry",
/// Computer Vision and Image Understanding 78 (2000).
class OVRIXMATH_EXPORT MSACRobustEstimator : public ThresholdRobustEstimator
{
public:
    MSACRobustEstimator();
    ~MSACRobustEstimator() override;

protected:
    /// Sum of min(r^2, T^2) over the residuals r for the outlier threshold T, in their order. A residual that is not a
    /// number adds nothing and counts as no outlier.
    ///
    /// @return the sum, or the largest ovReal64 when there are more residuals with r^2 >= T^2 than the expected share
    ovReal64 computeScore(const ResidualsSet& residuals) override;
};

} // namespace math
} // namespace ovrix
