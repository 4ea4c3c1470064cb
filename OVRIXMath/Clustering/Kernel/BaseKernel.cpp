#include <OVRIXMath/Clustering/Kernel/BaseKernel.h>
#include <OVRIXMath/Clustering/Kernel/LinearKernel.h>
#include <OVRIXMath/Clustering/Kernel/PolynomialKernel.h>
#include <OVRIXMath/Clustering/Kernel/RadialBasisKernel.h>
#include <OVRIXMath/Clustering/Kernel/SigmoidKernel.h>

namespace ovrix
{
namespace math
{
namespace clustering
{

template <class Kernel, class KernelTerm>
ovReal64 BaseKernel<Kernel, KernelTerm>::operator()(const Vector& a, const Vector& b) const
{
    return derived().fromSum(details::sumTerms<Term>(a.data().begin(), b.data().begin(), a.size()));
}

template <class Kernel, class KernelTerm>
ovReal64 BaseKernel<Kernel, KernelTerm>::operator()(const Vector& x) const
{
    return (*this)(x, x);
}

template <class Kernel, class KernelTerm>
void BaseKernel<Kernel, KernelTerm>::evaluateSums(double* sums, std::size_t count) const
{
    const Kernel kernel = derived();
    for (std::size_t i = 0; i < count; ++i)
        sums[i] = kernel.fromSum(sums[i]);
}

template class BaseKernel<LinearKernel, details::Product>;
template class BaseKernel<PolynomialKernel, details::Product>;
template class BaseKernel<RadialBasisKernel, details::SquaredDifference>;
template class BaseKernel<SigmoidKernel, details::Product>;

} // namespace clustering
} // namespace math
} // namespace ovrix
