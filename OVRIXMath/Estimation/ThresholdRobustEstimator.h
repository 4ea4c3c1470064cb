#pragma once

#include <OVRIXMath/Estimation/BaseRobustEstimator.h>
#include <OVRIXMath/Export.h>
#include <OVRIXUtil/Types.h>

namespace ovrix
{
namespace math
{

/// What the robust estimators share whose outlier threshold is given by the caller.
class OVRIXMATH_EXPORT ThresholdRobustEstimator : public BaseRobustEstimator
{
public:
    ~ThresholdRobustEstimator() override;

    /// Sets the model and the outlier threshold.
    ///
    /// @param pEstimator the model
    /// @param outlierThreshold residual from which on, in absolute value, a datum is an outlier, in the units of the
    ///                         residuals; any value is accepted, and 0 makes every datum an outlier
    /// @throws OVRIXMathException when the pointer is null
    void init(const EstimatorPtr& pEstimator, ovReal64 outlierThreshold);

protected:
    ThresholdRobustEstimator();

    /// @return the threshold that init() was given
    ovReal64 computeOutlierThreshold(ovReal64 bestScore, ovUInt32 nbData, ovUInt32 nbMinRequestedData) const override;

    /// Square of the outlier threshold.
    ovReal64 getSquaredThreshold() const;

    /// The score, or the largest ovReal64, which rejects the fit, when there are more outliers than expected.
    ovReal64 rejectTooManyOutliers(ovReal64 score, ovUInt32 nbOutliers, ovUInt32 nbData) const;

private:
    ovReal64 _outlierThreshold;
};

} // namespace math
} // namespace ovrix
