#pragma once

#include <OVRIXMath/Clustering/Kernel/BaseKernel.h>
#include <OVRIXMath/Export.h>
#include <OVRIXUtil/Types.h>

#include <cmath>

namespace ovrix
{
namespace math
{
namespace clustering
{

/// `k(a, b) = tanh(alpha a^T b + beta)`
///
/// The kernel is not positive definite, so squared distances in its feature space may be negative.
class OVRIXMATH_EXPORT SigmoidKernel : public BaseKernel<SigmoidKernel, details::Product>
{
public:
    /// Takes all values.
    static SigmoidKernel createKernel(ovReal64 alpha, ovReal64 beta);

    SigmoidKernel(ovReal64 alpha, ovReal64 beta); ///< Takes all values, too.

    ovReal64 getAlpha() const; ///< factor of the scalar product
    ovReal64 getBeta() const;  ///< what is added to it

private:
    friend class BaseKernel<SigmoidKernel, details::Product>;

    ovReal64 fromSum(ovReal64 product) const
    {
        return std::tanh(_alpha * product + _beta);
    }

    ovReal64 _alpha;
    ovReal64 _beta;
};

extern template class BaseKernel<SigmoidKernel, details::Product>;

} // namespace clustering
} // namespace math
} // namespace ovrix
