#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Statistics/BaseGaussianCurveEstimator.h>

namespace ovrix
{
namespace math
{

/// A Gaussian over one dimension: a datum is (x, y), the parameters are (amplitude, mean, sigma).
class OVRIXMATH_EXPORT GaussianCurve2dEstimator : public BaseGaussianCurveEstimator
{
public:
    GaussianCurve2dEstimator();
    ~GaussianCurve2dEstimator() override;
};

} // namespace math
} // namespace ovrix
