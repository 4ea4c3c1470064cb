#pragma once

#include <OVRIXMath/Clustering/Kernel/KernelTerms.h>
#include <OVRIXMath/Export.h>
#include <OVRIXMath/Types.h>

#include <cstddef>

namespace ovrix
{
namespace math
{
namespace clustering
{

/// What the four kernels share. A kernel `k(a, b)` is the scalar product of two samples in a feature space of its own,
/// and is a function of one sum over their coordinates.
///
/// @tparam Kernel the kernel, which has that function as `ovReal64 fromSum(ovReal64 sum) const`
/// @tparam KernelTerm what is summed: details::Product or details::SquaredDifference
template <class Kernel, class KernelTerm>
class OVRIXMATH_EXPORT BaseKernel
{
public:
    using Term = KernelTerm; ///< what is summed

    /// k(a, b). The sum runs over the coordinates of `a`, in their order; `b` has no fewer.
    ovReal64 operator()(const Vector& a, const Vector& b) const;

    /// The self value k(x, x).
    ovReal64 operator()(const Vector& x) const;

    /// Replaces sums of terms by the values of the kernel, for callers that form many sums at once.
    void evaluateSums(double* sums, std::size_t count) const;

protected:
    BaseKernel() = default;

private:
    const Kernel& derived() const
    {
        return static_cast<const Kernel&>(*this);
    }
};

} // namespace clustering
} // namespace math
} // namespace ovrix
