#pragma once

#include <OVRIXMath/Estimation/ThresholdRobustEstimator.h>
#include <OVRIXMath/Export.h>
#include <OVRIXMath/Types.h>

namespace ovrix
{
namespace math
{

/// Random sample consensus: the best fit has the fewest outliers.
///
/// M. A. Fischler and R. C. Bolles, "Random sample consensus", Communications of the ACM 24 (1981).
class OVRIXMATH_EXPORT RANSACRobustEstimator : public ThresholdRobustEstimator
{
public:
    RANSACRobustEstimator();
    ~RANSACRobustEstimator() override;

protected:
    /// Number of residuals r with r^2 >= T^2 for the outlier threshold T. A residual that is not a number counts as no
    /// outlier.
    ///
    /// @return the count, or the largest ovReal64 when it is above the expected share of all residuals
    ovReal64 computeScore(const ResidualsSet& residuals) override;
};

} // namespace math
} // namespace ovrix
