#pragma once

#include <OVRIXMath/Clustering/ClusteringUtils.h>
#include <OVRIXMath/Clustering/KMeansClusteringConfig.h>
#include <OVRIXMath/Export.h>
#include <OVRIXMath/Types.h>

#include <boost/shared_ptr.hpp>

#include <iosfwd>

namespace ovrix
{
namespace math
{
namespace clustering
{

/// Euclidean k-means: several randomly seeded attempts, of which the most compact is kept.
///
/// ```cpp
/// KMeansClustering clustering;
/// if (clustering.compute(3, samples))
///     std::cout << clustering.getAssignments()[0] << " " << clustering.getCompactness() << std::endl;
/// ```
///
/// Each attempt starts from the samples that generateKMeansPPInit() draws and runs computeKMeansAttempt(). An attempt
/// that did not settle before the last iteration counts as failed. Clusters are numbered by decreasing population.
///
/// The result depends on nothing but the samples, the configuration and the state of
/// `RandomUniformGenerator::getGen()`, which is drawn from and never seeded here.
///
/// Precondition of `compute` with two or more clusters: the samples are finite, and the sum of the squared distances of
/// all samples to any one of them is finite and above 0, so not all are equal. The seeding draws a number below such a
/// sum and does not return for others, see generateKMeansPPInit().
///
/// One object must not be used on two threads during `compute`, nor may two objects compute at the same time without
/// care for the generator, which all share.
class OVRIXMATH_EXPORT KMeansClustering
{
public:
    /// Nothing done, the default configuration.
    KMeansClustering();

    /// The configuration.
    const KMeansClusteringConfig& getConfig() const;

    /// Replaces the configuration; what has been computed stays.
    void setConfig(const KMeansClusteringConfig& config);

    /// Clusters the samples.
    ///
    /// The object is not done after a failure, a raise or any other exception, even if it was before.
    ///
    /// @param nbClusters in [1, number of samples], else raises Clustering message 11 for 0 and 5 above
    /// @param data samples of one size, not those of this object, which are cleared first; a copy is kept
    /// @return whether an attempt settled before the last iteration, with a compactness below the largest double
    bool compute(ovUInt32 nbClusters, const VectorColl& data);

    /// Whether the last `compute` succeeded.
    bool isClusteringDone() const;

    /// Empties samples, centres and labels; the numbers keep their values.
    void clear();

    /// The label of the centre nearest to `x`, see the free computeAssignment(); `NumericLimits<ovUInt32>::s_max` while
    /// no clustering is done.
    ovUInt32 computeAssignment(const Vector& x) const;

    /// @name Results
    /// Each raises Clustering message 0 unless the clustering is done.
    /// @{

    /// Number of clusters.
    ovUInt32 getNbClusters() const;

    /// Number of samples.
    ovUInt32 getNbInputData() const;

    /// Number of coordinates of the first sample.
    ovUInt32 getDataSize() const;

    /// The samples.
    const VectorColl& getInputDataColl() const;

    /// Attempts that used up their iterations.
    ovUInt32 getNbFailedAttempts() const;

    /// Sum of the squared distances of the samples to their centres, see computeCompactness().
    ovReal64 getCompactness() const;

    /// Iterations of the attempt that was kept.
    ovUInt32 getNbIteration() const;

    /// The centres by label.
    const VectorColl& getClustersCenters() const;

    /// The label of each sample.
    const UInt32Vector& getAssignments() const;

    /// See the free computeValidityIndex().
    ovReal64 computeValidityIndex(const eValidityIndexType& type) const;

    /// Number of samples of a cluster; raises Clustering message 2 unless `clusterIdx` is below the number of clusters.
    ovUInt32 getClusterPopulation(ovUInt32 clusterIdx) const;

    /// Centre of a cluster; raises as `getClusterPopulation`.
    const Vector& getClusterCenter(ovUInt32 clusterIdx) const;

    /// Standard deviation of a cluster about its centre, see computeClusterStdDev(); raises as `getClusterPopulation`.
    ovReal64 getClusterStdDev(ovUInt32 clusterIdx) const;

    /// @}

private:
    KMeansClusteringConfig _config;
    VectorColl _inputDataColl;
    ovUInt32 _nbFailedAttempts;
    ovUInt32 _nbIteration;
    ovReal64 _compactness;
    VectorColl _clustersCenters;
    UInt32Vector _assignments;
};

/// How k-means clusterings are held.
using KMeansClusteringPtr = boost::shared_ptr<KMeansClustering>;

/// Writes sizes, failed attempts, compactness and all validity indices, then one line per cluster with centre,
/// population and standard deviation; "Clustering not done" otherwise.
OVRIXMATH_EXPORT std::ostream& operator<<(std::ostream& stream, const KMeansClustering& clustering);

} // namespace clustering
} // namespace math
} // namespace ovrix
