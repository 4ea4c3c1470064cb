#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Statistics/BaseGaussianCurveEstimator.h>
#include <OVRIXUtil/Types.h>

namespace ovrix
{
namespace math
{

/// A Gaussian over any number of dimensions, see BaseGaussianCurveEstimator.
class OVRIXMATH_EXPORT GaussianCurveNdEstimator : public BaseGaussianCurveEstimator
{
public:
    /// @param nbDims number of dimensions; 0 makes a model of a constant
    explicit GaussianCurveNdEstimator(ovUInt32 nbDims);
    ~GaussianCurveNdEstimator() override;
};

} // namespace math
} // namespace ovrix
