#pragma once

#include <OVRIXMath/Clustering/ClusteringUtils.h>
#include <OVRIXMath/Clustering/KernelClusteringUtils.h>
#include <OVRIXMath/Clustering/KernelKMeansCentroid.h>
#include <OVRIXMath/Clustering/KernelKMeansClusteringConfig.h>
#include <OVRIXMath/Export.h>
#include <OVRIXMath/Types.h>

#include <iosfwd>
#include <vector>

namespace ovrix
{
namespace math
{
namespace clustering
{

/// k-means in the feature space of a kernel: several randomly seeded attempts, of which the one with the highest Dunn
/// index is kept.
///
/// ```cpp
/// const ovReal64 sigma = radialBasisKernelSigmaFromDynamic(samples, 0.1);
/// KernelKMeansClustering<RadialBasisKernel> clustering(RadialBasisKernel::createKernel(sigma));
/// if (clustering.compute(2, samples))
///     std::cout << clustering.getAssignments()[0] << " " << clustering.getSeparation() << std::endl;
/// ```
///
/// Each attempt starts from the samples that generateKernelKMeansPPInit() draws and runs computeKernelKMeansAttempt().
/// An attempt that did not stop before the last iteration counts as failed, also when it stopped in it. Clusters are
/// numbered by decreasing population.
///
/// The result depends on nothing but the samples, the kernel, the configuration and the state of
/// `RandomUniformGenerator::getGen()`, which is drawn from and never seeded here.
///
/// Precondition of `compute` with two or more clusters: the samples are finite, at least as many of them as there are
/// clusters differ in feature space, and their kernel values keep the weights of the seeding finite and their sum above
/// 0, see generateKernelKMeansPPInit(). The seeding draws a number below that sum and does not return for others.
///
/// While it runs, `compute` keeps up to 128 MB of kernel values, two copies of the samples, a number for each sample
/// and cluster, and two matrices for each cluster. These never shrink and grow by half at a time: together they take up
/// to 4.5 times the square of the largest size that the cluster's dictionary has had so far. The centroids of the best
/// attempt take as much again.
///
/// One object must not be used on two threads during `compute`, nor may two objects compute at the same time without
/// care for the generator, which all share. `computeAssignment` fills a cache of the centroids: threads may share it
/// after a first call.
///
/// @tparam KernelType LinearKernel, PolynomialKernel, RadialBasisKernel or SigmoidKernel
template <class KernelType>
class OVRIXMATH_EXPORT KernelKMeansClustering
{
public:
    /// Nothing done, the default configuration.
    explicit KernelKMeansClustering(const KernelType& kernel);

    const KernelType& getKernel() const; ///< the kernel that samples are compared by

    /// The configuration.
    const KernelKMeansClusteringConfig& getConfig() const;

    /// Replaces the configuration; what has been computed stays.
    void setConfig(const KernelKMeansClusteringConfig& config);

    /// Clusters the samples.
    ///
    /// The object is not done after a failure, a raise or any other exception, even if it was before.
    ///
    /// @param nbClusters in [1, number of samples], else raises Clustering message 11 for 0 and 5 above
    /// @param data samples of one size, not those of this object, which are cleared first; a copy is kept
    /// @return whether an attempt stopped before the last iteration with a Dunn index that is a number. It is none for
    /// clusters of one sample each, unless two of the samples all but coincide.
    bool compute(ovUInt32 nbClusters, const VectorColl& data);

    /// Whether the last `compute` succeeded.
    bool isClusteringDone() const;

    /// Empties samples, centroids and labels; the numbers keep their values.
    void clear();

    /// The label of the centroid nearest to `x`, see computeKernelAssignment(); `NumericLimits<ovUInt32>::s_max` while
    /// no clustering is done.
    ovUInt32 computeAssignment(const Vector& x) const;

    /// @name Results
    /// Each raises Clustering message 0 unless the clustering is done.
    /// @{

    /// Number of clusters.
    ovUInt32 getNbClusters() const;

    /// Number of coordinates of the first sample.
    ovUInt32 getDataSize() const;

    /// Number of samples.
    ovUInt32 getNbInputData() const;

    /// The samples.
    const VectorColl& getInputDataColl() const;

    /// Attempts that used up their iterations.
    ovUInt32 getNbFailedAttempts() const;

    /// Dunn index of the attempt that was kept, see computeValidityIndex(); it compares distances in the space of the
    /// samples.
    ovReal64 getSeparation() const;

    /// Iterations of the attempt that was kept.
    ovUInt32 getNbIteration() const;

    /// The centroids by label.
    const std::vector<KernelKMeansCentroid<KernelType>>& getClustersCentroids() const;

    /// The label of each sample.
    const UInt32Vector& getAssignments() const;

    /// Number of samples of a cluster; raises Clustering message 2 unless `clusterIdx` is below the number of clusters.
    ovUInt32 getClusterPopulation(ovUInt32 clusterIdx) const;

    /// Centroid of a cluster; raises as `getClusterPopulation`.
    const KernelKMeansCentroid<KernelType>& getCentroid(ovUInt32 clusterIdx) const;

    /// @}

private:
    KernelType _kernel;
    KernelKMeansClusteringConfig _config;
    VectorColl _inputDataColl;
    ovUInt32 _nbFailedAttempts;
    ovUInt32 _nbIteration;
    ovReal64 _separation;
    std::vector<KernelKMeansCentroid<KernelType>> _clustersCentroids;
    UInt32Vector _assignments;
};

/// Writes sizes, failed attempts and separation, then one line per cluster with population and size of the dictionary;
/// "Clustering not done" otherwise.
template <class KernelType>
OVRIXMATH_EXPORT std::ostream& operator<<(std::ostream& stream, const KernelKMeansClustering<KernelType>& clustering);

extern template class KernelKMeansClustering<LinearKernel>;
extern template class KernelKMeansClustering<PolynomialKernel>;
extern template class KernelKMeansClustering<RadialBasisKernel>;
extern template class KernelKMeansClustering<SigmoidKernel>;

extern template OVRIXMATH_EXPORT std::ostream& operator<<(std::ostream&, const KernelKMeansClustering<LinearKernel>&);
extern template OVRIXMATH_EXPORT std::ostream& operator<<(std::ostream&,
                                                          const KernelKMeansClustering<PolynomialKernel>&);
extern template OVRIXMATH_EXPORT std::ostream& operator<<(std::ostream&,
                                                          const KernelKMeansClustering<RadialBasisKernel>&);
extern template OVRIXMATH_EXPORT std::ostream& operator<<(std::ostream&, const KernelKMeansClustering<SigmoidKernel>&);

} // namespace clustering
} // namespace math
} // namespace ovrix
