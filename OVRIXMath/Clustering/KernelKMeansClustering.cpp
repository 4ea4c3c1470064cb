#include <OVRIXMath/Clustering/ClusterNumbering.h>
#include <OVRIXMath/Clustering/ClusteringLogMessages.h>
#include <OVRIXMath/Clustering/KernelKMeansAttempt.h>
#include <OVRIXMath/Clustering/KernelKMeansClustering.h>
#include <OVRIXMath/OVRIXMathFailure.h>

#include <ostream>
#include <utility>

namespace ovrix
{
namespace math
{
namespace clustering
{

template <class KernelType>
KernelKMeansClustering<KernelType>::KernelKMeansClustering(const KernelType& kernel)
    : _kernel(kernel), _nbFailedAttempts(0), _nbIteration(0), _separation(0.0)
{
}

template <class KernelType>
const KernelType& KernelKMeansClustering<KernelType>::getKernel() const
{
    return _kernel;
}

template <class KernelType>
const KernelKMeansClusteringConfig& KernelKMeansClustering<KernelType>::getConfig() const
{
    return _config;
}

template <class KernelType>
void KernelKMeansClustering<KernelType>::setConfig(const KernelKMeansClusteringConfig& config)
{
    _config = config;
}

template <class KernelType>
bool KernelKMeansClustering<KernelType>::compute(ovUInt32 nbClusters, const VectorColl& data)
{
    clear();
    const ovUInt32 nbData = static_cast<ovUInt32>(data.size());
    OVRIXMATH_RAISE_UNLESS(nbClusters != 0, eClusteringMessage, 11);
    OVRIXMATH_RAISE_UNLESS(nbClusters <= nbData, eClusteringMessage, 5, nbClusters, nbData);
    _inputDataColl = data;
    _nbFailedAttempts = 0;
    _separation = NumericLimits<ovReal64>::s_min;

    details::KernelSamples<KernelType> samples(_kernel, _inputDataColl, details::g_nbCachedKernelValues);
    details::KernelKMeansAttempt<KernelType> attempt(samples);
    UInt32Vector seeds;
    UInt32Vector assignments;
    std::vector<KernelKMeansCentroid<KernelType>> bestCentroids;
    UInt32Vector bestAssignments;
    for (ovUInt32 i = 0; i < _config.getNbAttempts(); ++i)
    {
        details::drawKernelSeeds(samples, nbClusters, seeds);
        attempt.start(seeds, _config.getAccuracyThreshold(), _config.getMaxDictionarySize());
        const ovUInt32 nbIteration = attempt.run(_config.getNbMaxIteration(), _config.getMinChangeRatio(), assignments);
        if (nbIteration >= _config.getNbMaxIteration())
        {
            ++_nbFailedAttempts;
            continue;
        }
        // The same partition has the same index, which is not above the one that stands.
        if (details::isSamePartition(nbClusters, assignments, bestAssignments))
            continue;
        const ovReal64 separation = computeValidityIndex(VectorColl(), _inputDataColl, assignments, eVIT_Dunn);
        if (separation > _separation)
        {
            _separation = separation;
            _nbIteration = nbIteration;
            bestCentroids.resize(nbClusters, KernelKMeansCentroid<KernelType>(_kernel));
            attempt.copyCentroids(bestCentroids);
            bestAssignments = assignments;
        }
    }
    if (bestCentroids.empty())
        return false;
    const UInt32Vector formerLabels = details::numberByPopulation(nbClusters, bestAssignments);
    std::vector<KernelKMeansCentroid<KernelType>> centroids;
    centroids.reserve(nbClusters);
    for (const ovUInt32 formerLabel : formerLabels)
        centroids.push_back(std::move(bestCentroids[formerLabel]));
    _clustersCentroids.swap(centroids);
    _assignments.swap(bestAssignments);
    return true;
}

template <class KernelType>
bool KernelKMeansClustering<KernelType>::isClusteringDone() const
{
    return !_clustersCentroids.empty();
}

template <class KernelType>
void KernelKMeansClustering<KernelType>::clear()
{
    _inputDataColl.clear();
    _clustersCentroids.clear();
    _assignments.clear();
}

template <class KernelType>
ovUInt32 KernelKMeansClustering<KernelType>::computeAssignment(const Vector& x) const
{
    return computeKernelAssignment(_clustersCentroids, x);
}

template <class KernelType>
ovUInt32 KernelKMeansClustering<KernelType>::getNbClusters() const
{
    OVRIXMATH_RAISE_UNLESS(isClusteringDone(), eClusteringMessage, 0);
    return static_cast<ovUInt32>(_clustersCentroids.size());
}

template <class KernelType>
ovUInt32 KernelKMeansClustering<KernelType>::getDataSize() const
{
    OVRIXMATH_RAISE_UNLESS(isClusteringDone(), eClusteringMessage, 0);
    return static_cast<ovUInt32>(_inputDataColl.front().size());
}

template <class KernelType>
ovUInt32 KernelKMeansClustering<KernelType>::getNbInputData() const
{
    OVRIXMATH_RAISE_UNLESS(isClusteringDone(), eClusteringMessage, 0);
    return static_cast<ovUInt32>(_inputDataColl.size());
}

template <class KernelType>
const VectorColl& KernelKMeansClustering<KernelType>::getInputDataColl() const
{
    OVRIXMATH_RAISE_UNLESS(isClusteringDone(), eClusteringMessage, 0);
    return _inputDataColl;
}

template <class KernelType>
ovUInt32 KernelKMeansClustering<KernelType>::getNbFailedAttempts() const
{
    OVRIXMATH_RAISE_UNLESS(isClusteringDone(), eClusteringMessage, 0);
    return _nbFailedAttempts;
}

template <class KernelType>
ovReal64 KernelKMeansClustering<KernelType>::getSeparation() const
{
    OVRIXMATH_RAISE_UNLESS(isClusteringDone(), eClusteringMessage, 0);
    return _separation;
}

template <class KernelType>
ovUInt32 KernelKMeansClustering<KernelType>::getNbIteration() const
{
    OVRIXMATH_RAISE_UNLESS(isClusteringDone(), eClusteringMessage, 0);
    return _nbIteration;
}

template <class KernelType>
const std::vector<KernelKMeansCentroid<KernelType>>& KernelKMeansClustering<KernelType>::getClustersCentroids() const
{
    OVRIXMATH_RAISE_UNLESS(isClusteringDone(), eClusteringMessage, 0);
    return _clustersCentroids;
}

template <class KernelType>
const UInt32Vector& KernelKMeansClustering<KernelType>::getAssignments() const
{
    OVRIXMATH_RAISE_UNLESS(isClusteringDone(), eClusteringMessage, 0);
    return _assignments;
}

template <class KernelType>
ovUInt32 KernelKMeansClustering<KernelType>::getClusterPopulation(ovUInt32 clusterIdx) const
{
    OVRIXMATH_RAISE_UNLESS(clusterIdx < getNbClusters(), eClusteringMessage, 2, clusterIdx, getNbClusters());
    return computeClusterPopulation(clusterIdx, _assignments);
}

template <class KernelType>
const KernelKMeansCentroid<KernelType>& KernelKMeansClustering<KernelType>::getCentroid(ovUInt32 clusterIdx) const
{
    OVRIXMATH_RAISE_UNLESS(clusterIdx < getNbClusters(), eClusteringMessage, 2, clusterIdx, getNbClusters());
    return _clustersCentroids[clusterIdx];
}

template <class KernelType>
std::ostream& operator<<(std::ostream& stream, const KernelKMeansClustering<KernelType>& clustering)
{
    if (!clustering.isClusteringDone())
        return stream << "Clustering not done" << std::endl;

    stream << "Nb clusters=" << clustering.getNbClusters() << std::endl;
    stream << "Nb input data=" << clustering.getNbInputData() << std::endl;
    stream << "Data size=" << clustering.getDataSize() << std::endl;
    stream << "Nb failed attempts=" << clustering.getNbFailedAttempts() << std::endl;
    stream << "Separation=" << clustering.getSeparation() << std::endl;
    stream << "ClusterIdx;Population;DictionarySize" << std::endl;
    for (ovUInt32 label = 0; label < clustering.getNbClusters(); ++label)
    {
        stream << label << ";" << clustering.getClusterPopulation(label) << ";"
               << clustering.getCentroid(label).getDictionarySize() << std::endl;
    }
    return stream;
}

template class KernelKMeansClustering<LinearKernel>;
template class KernelKMeansClustering<PolynomialKernel>;
template class KernelKMeansClustering<RadialBasisKernel>;
template class KernelKMeansClustering<SigmoidKernel>;

template std::ostream& operator<<(std::ostream&, const KernelKMeansClustering<LinearKernel>&);
template std::ostream& operator<<(std::ostream&, const KernelKMeansClustering<PolynomialKernel>&);
template std::ostream& operator<<(std::ostream&, const KernelKMeansClustering<RadialBasisKernel>&);
template std::ostream& operator<<(std::ostream&, const KernelKMeansClustering<SigmoidKernel>&);

} // namespace clustering
} // namespace math
} // namespace ovrix
