#pragma once

#include <OVRIXMath/Clustering/KernelKMeansCentroid.h>
#include <OVRIXMath/Clustering/KernelSamples.h>
#include <OVRIXMath/Clustering/SparseKernelMean.h>
#include <OVRIXMath/Types.h>

#include <cstddef>
#include <vector>

namespace ovrix
{
namespace math
{
namespace clustering
{
namespace details
{

/// Kernel values that the attempts on a collection of samples cache: 128 MB, enough for all pairs of 4096 samples.
constexpr std::size_t g_nbCachedKernelValues = std::size_t(1) << 24;

/// Draws samples as seeds, see generateKernelKMeansPPInit().
///
/// @param nbClusters at most the number of samples, which is above 0
/// @param[out] seeds places of the samples drawn
template <class KernelType>
void drawKernelSeeds(KernelSamples<KernelType>& samples, ovUInt32 nbClusters, UInt32Vector& seeds);

/// The working state of computeKernelKMeansAttempt(), for any number of attempts on the same samples.
///
/// A dictionary is a list of places of samples here, so that kernel values can be looked up. What stands still is not
/// computed again: a cluster that neither lost nor won a sample keeps its mean, and a mean that was kept has the same
/// distances to all samples as before.
template <class KernelType>
class KernelKMeansAttempt
{
public:
    /// @param samples must outlive the object
    explicit KernelKMeansAttempt(KernelSamples<KernelType>& samples);

    /// Starts from one sample for each cluster.
    void start(const UInt32Vector& seeds, double accuracyThreshold, ovUInt32 maxDictionarySize);

    /// Starts from centroids that have the kernel of the samples.
    void start(const std::vector<KernelKMeansCentroid<KernelType>>& centroids);

    /// Runs the iterations, see computeKernelKMeansAttempt().
    ovUInt32 run(ovUInt32 nbMaxIteration, double minChangeRatio, UInt32Vector& assignments);

    /// Whether an iteration has run since the start, so that there are centroids to be copied.
    bool hasCentroids() const
    {
        return _bHasCentroids;
    }

    /// Copies the centroids into a collection of as many.
    void copyCentroids(std::vector<KernelKMeansCentroid<KernelType>>& centroids) const;

private:
    /// A mean, with the places of its dictionary and their rows of kernel values, null where they are not cached.
    struct Cluster
    {
        SparseKernelMean mean;
        UInt32Vector members;
        std::vector<const double*> rows;
        bool bSamplesChanged = true;
        bool bMeanChanged = true;
    };

    void clear(Cluster& cluster);
    void addSample(Cluster& cluster, ovUInt32 sample);
    ovUInt32 assignSamples(UInt32Vector& assignments);
    void updateDistances();
    void makeRoomForRows();
    template <class RowOf>
    void computeDistances(const SparseKernelMean& mean, double* distances, const RowOf& rowOf);
    void rebuildClusters(const UInt32Vector& assignments);

    KernelSamples<KernelType>& _samples;
    std::vector<Cluster> _clusters;
    std::vector<double> _distances; ///< of all samples, cluster after cluster
    std::vector<double> _rowParts;
    std::vector<bool> _bWanted; ///< by sample: whether its row is to stay in the cache
    bool _bHasCentroids = false;
};

} // namespace details
} // namespace clustering
} // namespace math
} // namespace ovrix
