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

/// `k(a, b) = (alpha a^T b + beta)^degree`: the features are products of up to `degree` coordinates.
///
/// Where the base is negative and the degree no integer, the value is NaN.
class OVRIXMATH_EXPORT PolynomialKernel : public BaseKernel<PolynomialKernel, details::Product>
{
public:
    /// @param alpha above 0, else (also for NaN) raises Clustering message 6
    /// @param beta not below 0, else raises Clustering message 7; NaN passes
    /// @param degree above 0, else (also for NaN) raises Clustering message 8
    static PolynomialKernel createKernel(ovReal64 alpha, ovReal64 beta, ovReal64 degree);

    /// As `createKernel`, without its checks.
    PolynomialKernel(ovReal64 alpha, ovReal64 beta, ovReal64 degree);

    ovReal64 getAlpha() const;  ///< factor of the scalar product
    ovReal64 getBeta() const;   ///< what is added to it
    ovReal64 getDegree() const; ///< exponent

private:
    friend class BaseKernel<PolynomialKernel, details::Product>;

    ovReal64 fromSum(ovReal64 product) const
    {
        return std::pow(_alpha * product + _beta, _degree);
    }

    ovReal64 _alpha;
    ovReal64 _beta;
    ovReal64 _degree;
};

extern template class BaseKernel<PolynomialKernel, details::Product>;

} // namespace clustering
} // namespace math
} // namespace ovrix
