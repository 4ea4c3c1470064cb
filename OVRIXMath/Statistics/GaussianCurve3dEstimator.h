#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Statistics/BaseGaussianCurveEstimator.h>

namespace ovrix
{
namespace math
{

/// A Gaussian over two dimensions: a datum is (x0, x1, y), the parameters are
/// (amplitude, mean0, sigma0, mean1, sigma1).
class OVRIXMATH_EXPORT GaussianCurve3dEstimator : public BaseGaussianCurveEstimator
{
public:
    GaussianCurve3dEstimator();
    ~GaussianCurve3dEstimator() override;
};

} // namespace math
} // namespace ovrix
