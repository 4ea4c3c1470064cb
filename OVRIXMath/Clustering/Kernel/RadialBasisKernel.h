#pragma once

#include <OVRIXMath/Clustering/Kernel/BaseKernel.h>
#include <OVRIXMath/Export.h>
#include <OVRIXMath/Types.h>

#include <cmath>

namespace ovrix
{
namespace math
{
namespace clustering
{

/// `k(a, b) = exp(-|a - b|^2 / (2 sigma^2))`: samples are alike when they lie within a few `sigma` of each other.
///
/// radialBasisKernelSigmaFromDynamic() helps to choose `sigma`.
class OVRIXMATH_EXPORT RadialBasisKernel : public BaseKernel<RadialBasisKernel, details::SquaredDifference>
{
public:
    /// @param sigma width in units of the samples, above 0, else (also for NaN) raises Clustering message 9
    static RadialBasisKernel createKernel(ovReal64 sigma);

    /// As `createKernel`, without its check.
    explicit RadialBasisKernel(ovReal64 sigma);

    ovReal64 getSigma() const; ///< width of the bell

    using BaseKernel::operator();

    /// The self value: 1 for every sample, and never evaluated, so that a sample that holds a NaN has it too.
    ovReal64 operator()(const Vector& x) const;

private:
    friend class BaseKernel<RadialBasisKernel, details::SquaredDifference>;

    ovReal64 fromSum(ovReal64 squaredDistance) const
    {
        return std::exp(_gaussianCoef * squaredDistance);
    }

    ovReal64 _sigma;
    ovReal64 _gaussianCoef;
};

extern template class BaseKernel<RadialBasisKernel, details::SquaredDifference>;

} // namespace clustering
} // namespace math
} // namespace ovrix
