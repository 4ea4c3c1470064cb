#pragma once

#include <OVRIXMath/Clustering/KernelKMeansCentroid.h>
#include <OVRIXMath/Export.h>
#include <OVRIXMath/Types.h>

#include <vector>

/// @file
/// The steps of k-means in the feature space of a kernel, see ClusteringUtils.h for those in the space of the samples.
///
/// `KernelType` is LinearKernel, PolynomialKernel, RadialBasisKernel or SigmoidKernel. Distances are squared ones in
/// feature space, `KernelKMeansCentroid::comparable_distance`, and are not clamped. A sample that has no finite
/// distance to any centroid, such as one that holds a NaN, belongs to none and has the label
/// `NumericLimits<ovUInt32>::s_max`.

namespace ovrix
{
namespace math
{
namespace clustering
{

/// The sum, over the samples, of the squared distance between the sample and the centroid of its label; 0 for no
/// sample. Samples without a label add nothing.
template <class KernelType>
OVRIXMATH_EXPORT ovReal64 computeKernelCompactness(const std::vector<KernelKMeansCentroid<KernelType>>& centroids,
                                                   const VectorColl& data, const UInt32Vector& assignments);

/// The label of the centroid nearest to `x`, the lowest of equally near ones; `NumericLimits<ovUInt32>::s_max` if no
/// squared distance is below `NumericLimits<ovReal64>::s_max`, as without centroids.
template <class KernelType>
OVRIXMATH_EXPORT ovUInt32 computeKernelAssignment(const std::vector<KernelKMeansCentroid<KernelType>>& centroids,
                                                  const Vector& x);

/// One attempt of kernel k-means from given centroids.
///
/// An iteration gives each sample the label of its nearest centroid and, if a label changed, clears the centroids and
/// feeds each sample to that of its label, in the order of the samples, which decides the dictionaries. The attempt
/// ends with the iteration that changes no label, which counts; after one that changed no more than
/// `minChangeRatio * number of samples` labels, truncated; or after `nbMaxIteration` iterations.
///
/// @param kernel that of the centroids
/// @param nbMaxIteration with 0 nothing is done
/// @param minChangeRatio at least 0; where the number of labels exceeds 32 bits nothing is done
/// @param[in,out] centroids start and end of the centroids; the number of clusters is theirs
/// @param[out] assignments label of each sample; the number of centroids, which is no label, where nothing was done
/// @return number of iterations used, 0 where nothing was done, 1 for no sample
template <class KernelType>
OVRIXMATH_EXPORT ovUInt32 computeKernelKMeansAttempt(const KernelType& kernel, const VectorColl& data,
                                                     ovUInt32 nbMaxIteration, ovReal64 minChangeRatio,
                                                     std::vector<KernelKMeansCentroid<KernelType>>& centroids,
                                                     UInt32Vector& assignments);

/// Draws samples as seeds from `RandomUniformGenerator::getGen()`: k-means++ (Arthur and Vassilvitskii, 2007) in
/// feature space.
///
/// The first is drawn uniformly, each further one with a probability proportional to its least squared distance
/// `k(x, x) + k(c, c) - 2 k(x, c)` to the seeds c drawn so far. That is not the weight of generateKMeansPPInit(), which
/// looks at the latest seed alone; the two differ on purpose.
///
/// Precondition for two or more clusters: at each draw the sum of the weights is finite and above 0. So the samples are
/// finite, and at least `nbClusters` of them differ in feature space. Each further seed takes a number drawn from the
/// interval [0, sum), which is empty for a sum of 0, as it is once every distinct sample is a seed, and is none for a
/// negative sum, an infinite one or a NaN: the draw does not return then; it goes on for ever, or, for an infinite sum,
/// until the stack is exhausted.
///
/// @param nbClusters at most the number of samples, else raises Clustering message 5; with 0 one sample is drawn all
/// the same, if there is any
/// @param[out] seeds emptied, then filled with the samples drawn
template <class KernelType>
OVRIXMATH_EXPORT void generateKernelKMeansPPInit(const KernelType& kernel, ovUInt32 nbClusters, const VectorColl& data,
                                                 VectorColl& seeds);

extern template OVRIXMATH_EXPORT ovReal64 computeKernelCompactness(
    const std::vector<KernelKMeansCentroid<LinearKernel>>&, const VectorColl&, const UInt32Vector&);
extern template OVRIXMATH_EXPORT ovReal64 computeKernelCompactness(
    const std::vector<KernelKMeansCentroid<PolynomialKernel>>&, const VectorColl&, const UInt32Vector&);
extern template OVRIXMATH_EXPORT ovReal64 computeKernelCompactness(
    const std::vector<KernelKMeansCentroid<RadialBasisKernel>>&, const VectorColl&, const UInt32Vector&);
extern template OVRIXMATH_EXPORT ovReal64 computeKernelCompactness(
    const std::vector<KernelKMeansCentroid<SigmoidKernel>>&, const VectorColl&, const UInt32Vector&);

extern template OVRIXMATH_EXPORT ovUInt32
computeKernelAssignment(const std::vector<KernelKMeansCentroid<LinearKernel>>&, const Vector&);
extern template OVRIXMATH_EXPORT ovUInt32
computeKernelAssignment(const std::vector<KernelKMeansCentroid<PolynomialKernel>>&, const Vector&);
extern template OVRIXMATH_EXPORT ovUInt32
computeKernelAssignment(const std::vector<KernelKMeansCentroid<RadialBasisKernel>>&, const Vector&);
extern template OVRIXMATH_EXPORT ovUInt32
computeKernelAssignment(const std::vector<KernelKMeansCentroid<SigmoidKernel>>&, const Vector&);

extern template OVRIXMATH_EXPORT ovUInt32 computeKernelKMeansAttempt(const LinearKernel&, const VectorColl&, ovUInt32,
                                                                     ovReal64,
                                                                     std::vector<KernelKMeansCentroid<LinearKernel>>&,
                                                                     UInt32Vector&);
extern template OVRIXMATH_EXPORT ovUInt32
computeKernelKMeansAttempt(const PolynomialKernel&, const VectorColl&, ovUInt32, ovReal64,
                           std::vector<KernelKMeansCentroid<PolynomialKernel>>&, UInt32Vector&);
extern template OVRIXMATH_EXPORT ovUInt32
computeKernelKMeansAttempt(const RadialBasisKernel&, const VectorColl&, ovUInt32, ovReal64,
                           std::vector<KernelKMeansCentroid<RadialBasisKernel>>&, UInt32Vector&);
extern template OVRIXMATH_EXPORT ovUInt32 computeKernelKMeansAttempt(const SigmoidKernel&, const VectorColl&, ovUInt32,
                                                                     ovReal64,
                                                                     std::vector<KernelKMeansCentroid<SigmoidKernel>>&,
                                                                     UInt32Vector&);

extern template OVRIXMATH_EXPORT void generateKernelKMeansPPInit(const LinearKernel&, ovUInt32, const VectorColl&,
                                                                 VectorColl&);
extern template OVRIXMATH_EXPORT void generateKernelKMeansPPInit(const PolynomialKernel&, ovUInt32, const VectorColl&,
                                                                 VectorColl&);
extern template OVRIXMATH_EXPORT void generateKernelKMeansPPInit(const RadialBasisKernel&, ovUInt32, const VectorColl&,
                                                                 VectorColl&);
extern template OVRIXMATH_EXPORT void generateKernelKMeansPPInit(const SigmoidKernel&, ovUInt32, const VectorColl&,
                                                                 VectorColl&);

} // namespace clustering
} // namespace math
} // namespace ovrix
