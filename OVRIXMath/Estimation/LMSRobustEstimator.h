#pragma once

#include <OVRIXMath/Estimation/BaseRobustEstimator.h>
#include <OVRIXMath/Export.h>
#include <OVRIXMath/Types.h>

namespace ovrix
{
namespace math
{

/// Least median of squares: the best fit has the smallest median of squared residuals. It needs no threshold and
/// bears less than half of outliers.
///
/// P. J. Rousseeuw, "Least median of squares regression", Journal of the American Statistical Association 79 (1984).
class OVRIXMATH_EXPORT LMSRobustEstimator : public BaseRobustEstimator
{
public:
    LMSRobustEstimator();
    ~LMSRobustEstimator() override;

    /// Sets the model.
    ///
    /// @throws OVRIXMathException when the pointer is null
    void init(const EstimatorPtr& pEstimator);

protected:
    /// @return 0.5
    ovReal64 getMaxOutlierRatio() const override;

    /// 2.5 robust standard deviations, sigma = 1.4826 (1 + 5 / (nbData - nbMinRequestedData)) sqrt(bestScore), but at
    /// least the fourth root of machine epsilon.
    ovReal64 computeOutlierThreshold(ovReal64 bestScore, ovUInt32 nbData, ovUInt32 nbMinRequestedData) const override;

    /// Median of the squared residuals, the mean of the two middle ones for an even number of them; no fit is
    /// rejected. Residuals that are not numbers count as larger than all others.
    ///
    /// @param residuals at least one
    ovReal64 computeScore(const ResidualsSet& residuals) override;

    /// Zeroes the squared residuals.
    void clearDerived() override;

private:
    Vector _squaredResiduals;
};

} // namespace math
} // namespace ovrix
