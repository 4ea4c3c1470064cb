#pragma once

#include <OVRIXMath/Clustering/Kernel/LinearKernel.h>
#include <OVRIXMath/Clustering/Kernel/PolynomialKernel.h>
#include <OVRIXMath/Clustering/Kernel/RadialBasisKernel.h>
#include <OVRIXMath/Clustering/Kernel/SigmoidKernel.h>
#include <OVRIXMath/Clustering/SparseKernelMean.h>
#include <OVRIXMath/Export.h>
#include <OVRIXMath/Types.h>

#include <cstdint>
#include <vector>

namespace ovrix
{
namespace math
{
namespace clustering
{

namespace details
{
template <class KernelType>
class KernelKMeansAttempt;
}

/// The mean of samples in the feature space of a kernel.
///
/// Such a mean cannot be written down. It is held as `sum_i w_i phi(d_i)`, a weighted sum over a small dictionary of
/// the samples themselves. Each further sample is tested for approximate linear dependence on the dictionary (Engel,
/// Mannor and Meir, "The Kernel Recursive Least-Squares Algorithm", 2004): a dependent one only shifts the weights, an
/// independent one joins, and takes the place of the weakest member when the dictionary is full.
///
/// ```cpp
/// KernelKMeansCentroid<RadialBasisKernel> centroid(RadialBasisKernel::createKernel(0.5));
/// for (const Vector& sample : samples)
///     centroid.addSample(sample);
/// std::cout << centroid.distance(samples[0]) << " " << centroid.getDictionarySize() << std::endl;
/// ```
///
/// All samples have the same size. A sample costs time quadratic in the size of the dictionary, one that replaces a
/// member cubic. Nothing is allocated while the dictionary does not grow, nor by clearing and filling a centroid again
/// and again.
///
/// Copies are deep. An assignment that fails for want of memory leaves a centroid that can only be cleared, assigned to
/// or destroyed; all other functions that fail change nothing.
///
/// `distance`, `comparable_distance` and `getClusterTerm` fill a cache although they are `const`:
/// threads may share a centroid only after one of them was called.
///
/// @tparam KernelType LinearKernel, PolynomialKernel, RadialBasisKernel or SigmoidKernel
template <class KernelType>
class OVRIXMATH_EXPORT KernelKMeansCentroid
{
public:
    /// An empty centroid with the default threshold and limit.
    explicit KernelKMeansCentroid(const KernelType& kernel);

    const KernelType& getKernel() const; ///< the kernel whose feature space the mean lies in

    /// 0.001
    static ovReal64 getDefaultAccuracyThreshold();

    /// The squared distance in feature space up to which a sample counts as dependent on the dictionary.
    ovReal64 getAccuracyThreshold() const;

    /// @param accuracyThreshold above 0, else (also for NaN) raises Clustering message 1 and keeps the value. It counts
    /// from the next sample on.
    void setAccuracyThreshold(ovReal64 accuracyThreshold);

    /// `NumericLimits<ovUInt32>::s_max`
    static ovUInt32 getDefaultMaxDictionarySize();

    /// The size at which an independent sample replaces a member.
    ovUInt32 getMaxDictionarySize() const;

    /// @param maxDictionarySize above 0, else raises Clustering message 3 and keeps the value. A dictionary that is
    /// larger already is not cut, never has that size again and goes on growing.
    void setMaxDictionarySize(ovUInt32 maxDictionarySize);

    /// Number of samples since the last `clear`, without leading ones that did not count, see `addSample`.
    std::uint64_t getNbSamples() const;

    ovUInt32 getDictionarySize() const; ///< number of samples that the mean is kept as

    /// The members, in the order in which they joined.
    const VectorColl& getDictionary() const;

    /// The weight of each member.
    const std::vector<double>& getWeights() const;

    /// Forgets all samples; threshold and limit stay.
    void clear();

    /// Adds a sample to the mean: with it as sample n, the former weights are scaled by (1 - 1/n) and it counts 1/n.
    ///
    /// With `delta = k(x, x) - k^T K^-1 k` the squared distance between the sample and the span of the dictionary, the
    /// sample joins if `delta` is above both the accuracy threshold and the lowest strength of a member, which is what
    /// `delta` would be for the member if it were offered again. That strength counts as 0 until the first removal or
    /// `updateMinStrength`. Otherwise the sample is added as its projection on the dictionary.
    ///
    /// While the dictionary is empty a sample whose self value does not exceed `NumericLimits<ovReal64>::s_eps` in
    /// absolute value is dropped and not counted, such as the zero vector under the LinearKernel.
    void addSample(const Vector& x);

    /// The squared distance between a sample and the mean, `k(x, x) + clusterTerm - 2 sum_i w_i k(d_i, x)`.
    ///
    /// It is not clamped: rounding, or a kernel that is not positive definite, can make it negative. For an empty
    /// centroid it is k(x, x).
    ovReal64 comparable_distance(const Vector& x) const;

    /// The square root of `comparable_distance`, 0 where that is not above 0.
    ovReal64 distance(const Vector& x) const;

    /// `sum_i sum_j w_i w_j k(d_i, d_j)`, the squared length of the mean; 0 for an empty centroid.
    ovReal64 getClusterTerm() const;

    /// Brings the value of `getClusterTerm` up to date, if it is not.
    void updateClusterTerm() const;

    /// Finds the weakest member, which the next removal takes: the one of lowest strength, of equal ones the first.
    ///
    /// Runs by itself where it is needed. A call raises the threshold that a further sample has to exceed to the
    /// lowest strength. The cost is cubic in the size of the dictionary.
    void updateMinStrength();

private:
    friend class details::KernelKMeansAttempt<KernelType>;

    KernelType _kernel;
    details::SparseKernelMean _mean;
    VectorColl _dictionary;
    VectorColl _spareSamples; ///< former members, whose memory the next ones take
};

extern template class KernelKMeansCentroid<LinearKernel>;
extern template class KernelKMeansCentroid<PolynomialKernel>;
extern template class KernelKMeansCentroid<RadialBasisKernel>;
extern template class KernelKMeansCentroid<SigmoidKernel>;

} // namespace clustering
} // namespace math
} // namespace ovrix
