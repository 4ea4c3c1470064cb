#pragma once

#include <OVRIXMath/Clustering/Kernel/BaseKernel.h>
#include <OVRIXMath/Export.h>
#include <OVRIXUtil/Types.h>

namespace ovrix
{
namespace math
{
namespace clustering
{

/// `k(a, b) = a^T b`: the feature space is the space of the samples, and a kernel method does what the plain one does.
class OVRIXMATH_EXPORT LinearKernel : public BaseKernel<LinearKernel, details::Product>
{
public:
    /// There is nothing to choose.
    static LinearKernel createKernel();

private:
    friend class BaseKernel<LinearKernel, details::Product>;

    ovReal64 fromSum(ovReal64 product) const
    {
        return product;
    }
};

extern template class BaseKernel<LinearKernel, details::Product>;

} // namespace clustering
} // namespace math
} // namespace ovrix
