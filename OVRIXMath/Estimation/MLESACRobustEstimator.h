#pragma once

#include <OVRIXMath/Estimation/BaseRobustEstimator.h>
#include <OVRIXMath/Export.h>
#include <OVRIXMath/Types.h>

namespace ovrix
{
namespace math
{

/// Maximum likelihood sample consensus: the best fit has the likeliest residuals under a mixture of a Gaussian for the
/// inliers and a uniform density for the outliers.
///
/// P. H. S. Torr and A. Zisserman, "MLESAC: a new robust estimator with application to estimating image geometry",
/// Computer Vision and Image Understanding 78 (2000).
class OVRIXMATH_EXPORT MLESACRobustEstimator : public BaseRobustEstimator
{
public:
    MLESACRobustEstimator();
    ~MLESACRobustEstimator() override;

    /// Sets the model and the mixture.
    ///
    /// @param pEstimator the model
    /// @param gaussianSigma standard deviation of the inliers' residuals, in their units, above 0
    /// @param outlierThresholdFactor outlier threshold in standard deviations, above 0
    /// @param outlierRangeFactor range of the outliers' residuals in standard deviations, above
    ///                           `outlierThresholdFactor`
    /// @throws OVRIXMathException for a value out of its range, in the order of the arguments, before anything is
    ///         changed; then when the pointer is null
    void init(const EstimatorPtr& pEstimator, ovReal64 gaussianSigma, ovReal64 outlierThresholdFactor,
              ovReal64 outlierRangeFactor);

protected:
    /// @return outlierThresholdFactor * gaussianSigma
    ovReal64 computeOutlierThreshold(ovReal64 bestScore, ovUInt32 nbData, ovUInt32 nbMinRequestedData) const override;

    /// Negative log-likelihood of the residuals, after at most ten rounds of estimating the share of inliers.
    ///
    /// The Gaussian is normalised by sqrt(2 pi sigma), with sigma itself and not its square: meant, and part of what
    /// scores are compared by.
    ///
    /// @return the likelihood, 0 without residuals, or the largest ovReal64 when there are more outliers than expected
    ovReal64 computeScore(const ResidualsSet& residuals) override;

private:
    ovReal64 _gaussianSigma;
    ovReal64 _outlierThresholdFactor;
    ovReal64 _outlierRangeFactor;
};

} // namespace math
} // namespace ovrix
