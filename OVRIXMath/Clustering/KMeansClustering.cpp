#include <OVRIXMath/Clustering/ClusterNumbering.h>
#include <OVRIXMath/Clustering/ClusteringLogMessages.h>
#include <OVRIXMath/Clustering/KMeansAttempt.h>
#include <OVRIXMath/Clustering/KMeansClustering.h>
#include <OVRIXMath/Clustering/KMeansSeeding.h>
#include <OVRIXMath/Clustering/SampleTable.h>
#include <OVRIXMath/OVRIXMathFailure.h>

#include <ostream>
#include <utility>

namespace ovrix
{
namespace math
{
namespace clustering
{

KMeansClustering::KMeansClustering() : _nbFailedAttempts(0), _nbIteration(0), _compactness(0.0) {}

const KMeansClusteringConfig& KMeansClustering::getConfig() const
{
    return _config;
}

void KMeansClustering::setConfig(const KMeansClusteringConfig& config)
{
    _config = config;
}

bool KMeansClustering::compute(ovUInt32 nbClusters, const VectorColl& data)
{
    clear();
    OVRIXMATH_RAISE_UNLESS(nbClusters != 0, eClusteringMessage, 11);
    _inputDataColl = data;
    _nbFailedAttempts = 0;
    _compactness = NumericLimits<ovReal64>::s_max;

    const details::SampleTable samples(_inputDataColl);
    details::KMeansSeeding seeding(samples);
    details::KMeansAttempt attempt(samples);
    UInt32Vector seeds;
    VectorColl centers;
    UInt32Vector assignments;
    VectorColl bestCenters;
    UInt32Vector bestAssignments;
    for (ovUInt32 i = 0; i < _config.getNbAttempts(); ++i)
    {
        seeding.draw(nbClusters, seeds);
        centers.resize(nbClusters);
        for (ovUInt32 k = 0; k < nbClusters; ++k)
            centers[k] = _inputDataColl[seeds[k]];
        const ovUInt32 nbIteration = attempt.run(_config.getNbMaxIteration(), centers, assignments);
        if (nbIteration >= _config.getNbMaxIteration())
        {
            ++_nbFailedAttempts;
            continue;
        }
        const ovReal64 compactness = computeCompactness(centers, _inputDataColl, assignments);
        if (_compactness > compactness)
        {
            _compactness = compactness;
            _nbIteration = nbIteration;
            bestCenters = centers;
            bestAssignments = assignments;
        }
    }
    if (bestCenters.empty())
        return false;
    const UInt32Vector formerLabels = details::numberByPopulation(nbClusters, bestAssignments);
    for (ovUInt32 label = 0; label < nbClusters; ++label)
        centers[label].swap(bestCenters[formerLabels[label]]);
    _clustersCenters.swap(centers);
    _assignments.swap(bestAssignments);
    return true;
}

bool KMeansClustering::isClusteringDone() const
{
    return !_clustersCenters.empty();
}

void KMeansClustering::clear()
{
    _inputDataColl.clear();
    _clustersCenters.clear();
    _assignments.clear();
}

ovUInt32 KMeansClustering::computeAssignment(const Vector& x) const
{
    return clustering::computeAssignment(_clustersCenters, x);
}

ovUInt32 KMeansClustering::getNbClusters() const
{
    OVRIXMATH_RAISE_UNLESS(isClusteringDone(), eClusteringMessage, 0);
    return static_cast<ovUInt32>(_clustersCenters.size());
}

ovUInt32 KMeansClustering::getNbInputData() const
{
    OVRIXMATH_RAISE_UNLESS(isClusteringDone(), eClusteringMessage, 0);
    return static_cast<ovUInt32>(_inputDataColl.size());
}

ovUInt32 KMeansClustering::getDataSize() const
{
    OVRIXMATH_RAISE_UNLESS(isClusteringDone(), eClusteringMessage, 0);
    return static_cast<ovUInt32>(_inputDataColl.front().size());
}

const VectorColl& KMeansClustering::getInputDataColl() const
{
    OVRIXMATH_RAISE_UNLESS(isClusteringDone(), eClusteringMessage, 0);
    return _inputDataColl;
}

ovUInt32 KMeansClustering::getNbFailedAttempts() const
{
    OVRIXMATH_RAISE_UNLESS(isClusteringDone(), eClusteringMessage, 0);
    return _nbFailedAttempts;
}

ovReal64 KMeansClustering::getCompactness() const
{
    OVRIXMATH_RAISE_UNLESS(isClusteringDone(), eClusteringMessage, 0);
    return _compactness;
}

ovUInt32 KMeansClustering::getNbIteration() const
{
    OVRIXMATH_RAISE_UNLESS(isClusteringDone(), eClusteringMessage, 0);
    return _nbIteration;
}

const VectorColl& KMeansClustering::getClustersCenters() const
{
    OVRIXMATH_RAISE_UNLESS(isClusteringDone(), eClusteringMessage, 0);
    return _clustersCenters;
}

const UInt32Vector& KMeansClustering::getAssignments() const
{
    OVRIXMATH_RAISE_UNLESS(isClusteringDone(), eClusteringMessage, 0);
    return _assignments;
}

ovReal64 KMeansClustering::computeValidityIndex(const eValidityIndexType& type) const
{
    OVRIXMATH_RAISE_UNLESS(isClusteringDone(), eClusteringMessage, 0);
    return clustering::computeValidityIndex(_clustersCenters, _inputDataColl, _assignments, type);
}

ovUInt32 KMeansClustering::getClusterPopulation(ovUInt32 clusterIdx) const
{
    OVRIXMATH_RAISE_UNLESS(clusterIdx < getNbClusters(), eClusteringMessage, 2, clusterIdx, getNbClusters());
    return computeClusterPopulation(clusterIdx, _assignments);
}

const Vector& KMeansClustering::getClusterCenter(ovUInt32 clusterIdx) const
{
    OVRIXMATH_RAISE_UNLESS(clusterIdx < getNbClusters(), eClusteringMessage, 2, clusterIdx, getNbClusters());
    return _clustersCenters[clusterIdx];
}

ovReal64 KMeansClustering::getClusterStdDev(ovUInt32 clusterIdx) const
{
    return computeClusterStdDev(clusterIdx, _inputDataColl, _assignments, getClusterCenter(clusterIdx));
}

std::ostream& operator<<(std::ostream& stream, const KMeansClustering& clustering)
{
    if (!clustering.isClusteringDone())
        return stream << "Clustering not done" << std::endl;

    stream << "Nb clusters=" << clustering.getNbClusters() << std::endl;
    stream << "Nb input data=" << clustering.getNbInputData() << std::endl;
    stream << "Data size=" << clustering.getDataSize() << std::endl;
    stream << "Nb failed attempts=" << clustering.getNbFailedAttempts() << std::endl;
    stream << "Compactness=" << clustering.getCompactness() << std::endl;

    const std::pair<eValidityIndexType, const char*> types[] = {{eVIT_Dunn, "eVIT_Dunn"},
                                                                {eVIT_DaviesBouldin, "eVIT_DaviesBouldin"},
                                                                {eVIT_RMSStd, "eVIT_RMSStd"},
                                                                {eVIT_RS, "eVIT_RS"},
                                                                {eVIT_SD, "eVIT_SD"}};
    for (const auto& type : types)
        stream << type.second << "=" << clustering.computeValidityIndex(type.first) << ";";

    stream << "ClusterIdx;Center;Population;StdDev" << std::endl;
    for (ovUInt32 label = 0; label < clustering.getNbClusters(); ++label)
    {
        stream << label << ";{";
        const Vector& center = clustering.getClusterCenter(label);
        for (std::size_t j = 0; j < center.size(); ++j)
            stream << (j == 0 ? "" : ",") << center[j];
        stream << "};" << clustering.getClusterPopulation(label) << ";" << clustering.getClusterStdDev(label)
               << std::endl;
    }
    return stream;
}

} // namespace clustering
} // namespace math
} // namespace ovrix
