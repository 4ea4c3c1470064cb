#pragma once

#include <OVRIXMath/Clustering/KernelClusteringUtils.h>
#include <OVRIXMath/Clustering/ValidityIndex.h>
#include <OVRIXMath/Export.h>
#include <OVRIXMath/Types.h>

/// @file
/// The steps of k-means. Those of kernel k-means stand in KernelClusteringUtils.h, the indices that rate a partition of
/// samples into clusters in ValidityIndex.h.
///
/// Samples and centres are collections of vectors of one size; labels stand one per sample, in the order of the
/// samples, each the index of a centre. Neither is checked: the caller guarantees it. A squared distance is the sum of
/// the squared differences in the order of the coordinates.
///
/// A sample that has no finite squared distance to any centre, such as one that holds a NaN, belongs to none and has
/// the label `NumericLimits<ovUInt32>::s_max`. Such samples add nothing where the sums below run over the samples of a
/// cluster or need the centre of a label.

namespace ovrix
{
namespace math
{
namespace clustering
{

/// The sum, over the samples, of the squared distance between the sample and the centre of its label: neither divided
/// by the number of samples nor rooted, 0 for no sample.
OVRIXMATH_EXPORT ovReal64 computeCompactness(const VectorColl& centers, const VectorColl& data,
                                             const UInt32Vector& assignments);

/// The label of the centre nearest to `x`, the lowest of equally near ones; `NumericLimits<ovUInt32>::s_max` if no
/// squared distance is below `NumericLimits<ovReal64>::s_max`, as without centres.
OVRIXMATH_EXPORT ovUInt32 computeAssignment(const VectorColl& centers, const Vector& x);

/// The number of labels equal to `clusterIdx`.
OVRIXMATH_EXPORT ovUInt32 computeClusterPopulation(ovUInt32 clusterIdx, const UInt32Vector& assignments);

/// The square root of the mean squared distance to `center` over the samples labelled `clusterIdx`; 0 without any.
OVRIXMATH_EXPORT ovReal64 computeClusterStdDev(ovUInt32 clusterIdx, const VectorColl& data,
                                               const UInt32Vector& assignments, const Vector& center);

/// An empty vector, whatever the arguments.
///
/// The function keeps its place in the interface but forms no mean: those come from computeClustersCenters().
OVRIXMATH_EXPORT Vector computeClusterCenter(ovUInt32 clusterIdx, const VectorColl& data,
                                             const UInt32Vector& assignments);

/// The mean of the samples of each cluster.
///
/// A cluster without samples gets a centre at the origin.
///
/// @param[out] centers emptied, then filled with `nbClusters` vectors of the first sample's size
OVRIXMATH_EXPORT void computeClustersCenters(ovUInt32 nbClusters, const VectorColl& data,
                                             const UInt32Vector& assignments, VectorColl& centers);

/// One attempt of k-means from given centres (Lloyd's iteration).
///
/// An iteration gives each sample the label of its nearest centre and, if a label changed, moves the centres to the
/// means of their samples. The attempt ends with the iteration that changes no label, which counts, or after
/// `nbMaxIteration` iterations. A cluster that lost its samples goes on from the origin.
///
/// @param nbMaxIteration with 0 nothing is done
/// @param[in,out] centers start and end of the centres; the number of clusters is theirs
/// @param[out] assignments label of each sample; the number of centres, which is no label, where nothing was done
/// @return number of iterations used, 0 for `nbMaxIteration == 0`, else 1 for no sample
OVRIXMATH_EXPORT ovUInt32 computeKMeansAttempt(const VectorColl& data, ovUInt32 nbMaxIteration, VectorColl& centers,
                                               UInt32Vector& assignments);

/// Draws samples as first centres from `RandomUniformGenerator::getGen()`.
///
/// The first is drawn uniformly, each further one with a probability proportional to its squared distance to the centre
/// drawn last, and to that one only: a variant of k-means++ (Arthur and Vassilvitskii, 2007) of its own. A sample can
/// therefore be drawn twice.
///
/// Precondition for two or more clusters: the sum of the squared distances of all samples to any one of them is finite
/// and above 0. Each further centre takes a number drawn from the interval [0, sum), which is empty for a sum of 0, as
/// identical samples have it, and is none for an infinite sum or a NaN: the draw does not return then; it goes on for
/// ever, or, for an infinite sum, until the stack is exhausted.
///
/// @param nbClusters at most the number of samples, else raises Clustering message 5; with 0 one sample is drawn all
/// the same, if there is any
/// @param[out] centers emptied, then filled with the samples drawn
OVRIXMATH_EXPORT void generateKMeansPPInit(ovUInt32 nbClusters, const VectorColl& data, VectorColl& centers);

/// `factor` times the sum over the coordinates of (maximum - minimum) over the samples: a width for a RadialBasisKernel
/// that fits the range of the data. Without samples or coordinates it is `0.0 * factor`.
OVRIXMATH_EXPORT ovReal64 radialBasisKernelSigmaFromDynamic(const VectorColl& data, ovReal64 factor);

} // namespace clustering
} // namespace math
} // namespace ovrix
