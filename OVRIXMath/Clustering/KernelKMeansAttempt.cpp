#include <OVRIXMath/Clustering/KernelKMeansAttempt.h>
#include <OVRIXMath/Clustering/NearestLabel.h>
#include <OVRIXMath/Clustering/RowSums.h>
#include <OVRIXMath/Tools/RoundingRules.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <boost/random/uniform_int_distribution.hpp>
#include <boost/random/uniform_real_distribution.hpp>

#include <algorithm>

namespace ovrix
{
namespace math
{
namespace clustering
{
namespace details
{

template <class KernelType>
void drawKernelSeeds(KernelSamples<KernelType>& samples, ovUInt32 nbClusters, UInt32Vector& seeds)
{
    const std::size_t nbData = samples.size();
    boost::random::mt19937& generator = RandomUniformGenerator::getGen();
    const ovUInt32 last = static_cast<ovUInt32>(nbData - 1);
    seeds.assign(1, boost::random::uniform_int_distribution<ovUInt32>(0, last)(generator));
    std::vector<double> leastDistances(nbData, NumericLimits<double>::s_max);
    std::vector<double> cumulated(nbData);
    std::vector<double> uncachedRow;
    while (seeds.size() < nbClusters)
    {
        const ovUInt32 seed = seeds.back();
        const double* row = samples.cacheRow(seed);
        if (row == nullptr)
        {
            uncachedRow.resize(nbData);
            samples.computeRow(samples.getData()[seed], 0, nbData, uncachedRow.data());
            row = uncachedRow.data();
        }
        const double seedSelfValue = samples.getSelfValue(seed);
        double total = 0.0;
        for (std::size_t i = 0; i < nbData; ++i)
        {
            const double distance = samples.getSelfValue(i) + seedSelfValue - 2.0 * row[i];
            if (leastDistances[i] > distance)
                leastDistances[i] = distance;
            total += leastDistances[i];
            cumulated[i] = total;
        }
        const double drawn = boost::random::uniform_real_distribution<double>(0.0, total)(generator);
        ovUInt32 i = 0;
        while (drawn > cumulated[i])
            ++i;
        seeds.push_back(i);
    }
}

template <class KernelType>
KernelKMeansAttempt<KernelType>::KernelKMeansAttempt(KernelSamples<KernelType>& samples)
    : _samples(samples), _rowParts(g_nbRowsOfAPass * g_nbSumsAtOnce)
{
}

template <class KernelType>
void KernelKMeansAttempt<KernelType>::start(const UInt32Vector& seeds, double accuracyThreshold,
                                            ovUInt32 maxDictionarySize)
{
    _bHasCentroids = false;
    _clusters.resize(seeds.size());
    _distances.resize(seeds.size() * _samples.size());
    for (std::size_t label = 0; label < seeds.size(); ++label)
    {
        Cluster& cluster = _clusters[label];
        cluster.mean.setAccuracyThreshold(accuracyThreshold);
        cluster.mean.setMaxDictionarySize(maxDictionarySize);
        clear(cluster);
        addSample(cluster, seeds[label]);
        cluster.bSamplesChanged = true;
        cluster.bMeanChanged = true;
    }
}

template <class KernelType>
void KernelKMeansAttempt<KernelType>::start(const std::vector<KernelKMeansCentroid<KernelType>>& centroids)
{
    _bHasCentroids = false;
    _clusters.resize(centroids.size());
    _distances.resize(centroids.size() * _samples.size());
    for (std::size_t label = 0; label < centroids.size(); ++label)
    {
        // The dictionary need not consist of samples; it is known by its distances until the first rebuilding.
        const VectorColl& dictionary = centroids[label].getDictionary();
        Cluster& cluster = _clusters[label];
        clear(cluster);
        cluster.mean = centroids[label]._mean;
        cluster.bSamplesChanged = true;
        cluster.bMeanChanged = false;
        computeDistances(cluster.mean, _distances.data() + label * _samples.size(),
                         [&](std::size_t i, std::size_t begin, std::size_t end, double* rowPart)
                         {
                             _samples.computeRow(dictionary[i], begin, end, rowPart);
                             return rowPart;
                         });
    }
}

template <class KernelType>
ovUInt32 KernelKMeansAttempt<KernelType>::run(ovUInt32 nbMaxIteration, double minChangeRatio, UInt32Vector& assignments)
{
    assignments.assign(_samples.size(), static_cast<ovUInt32>(_clusters.size()));
    const ovUInt32 minChanges =
        math::details::truncateTo<ovUInt32>(static_cast<double>(_samples.size()) * minChangeRatio);
    if (nbMaxIteration == 0 || minChanges == NumericLimits<ovUInt32>::s_max)
        return 0;
    if (_samples.size() == 0)
        return 1;
    ovUInt32 iteration = 0;
    while (true)
    {
        const ovUInt32 nbChanges = assignSamples(assignments);
        if (nbChanges == 0)
            return iteration + 1;
        rebuildClusters(assignments);
        ++iteration;
        if (iteration >= nbMaxIteration || minChanges >= nbChanges)
            return iteration;
    }
}

template <class KernelType>
void KernelKMeansAttempt<KernelType>::copyCentroids(std::vector<KernelKMeansCentroid<KernelType>>& centroids) const
{
    for (std::size_t label = 0; label < _clusters.size(); ++label)
    {
        KernelKMeansCentroid<KernelType>& centroid = centroids[label];
        centroid._mean = _clusters[label].mean;
        centroid._dictionary.clear();
        for (const ovUInt32 member : _clusters[label].members)
            centroid._dictionary.push_back(_samples.getData()[member]);
    }
}

template <class KernelType>
void KernelKMeansAttempt<KernelType>::clear(Cluster& cluster)
{
    cluster.mean.clear();
    cluster.members.clear();
    cluster.rows.clear();
}

template <class KernelType>
void KernelKMeansAttempt<KernelType>::addSample(Cluster& cluster, ovUInt32 sample)
{
    double* const kernelValues = cluster.mean.prepareKernelValues();
    for (std::size_t i = 0; i < cluster.members.size(); ++i)
    {
        const double* const row = cluster.rows[i];
        kernelValues[i] = row != nullptr ? row[sample] : _samples.getValue(cluster.members[i], sample);
    }
    const SparseKernelMean::Addition addition =
        cluster.mean.addSample(cluster.mean.projectSample(_samples.getSelfValue(sample)));
    if (addition.removed != addition.g_none)
    {
        const auto place = static_cast<std::ptrdiff_t>(addition.removed);
        cluster.members.erase(cluster.members.begin() + place);
        cluster.rows.erase(cluster.rows.begin() + place);
    }
    if (addition.bJoined)
    {
        cluster.members.push_back(sample);
        cluster.rows.push_back(_samples.cacheRow(sample));
    }
}

/// Gives each sample the label of its nearest mean, the lowest of equal ones.
///
/// @return number of labels that changed
template <class KernelType>
ovUInt32 KernelKMeansAttempt<KernelType>::assignSamples(UInt32Vector& assignments)
{
    updateDistances();
    const std::size_t nbSamples = _samples.size();
    ovUInt32 nbChanges = 0;
    for (std::size_t i = 0; i < nbSamples; ++i)
    {
        const ovUInt32 nearest =
            findNearestLabel(_clusters.size(), [&](std::size_t label) { return _distances[label * nbSamples + i]; });
        const ovUInt32 former = assignments[i];
        if (nearest == former)
            continue;
        for (const ovUInt32 label : {former, nearest})
        {
            if (label < _clusters.size())
                _clusters[label].bSamplesChanged = true;
        }
        assignments[i] = nearest;
        ++nbChanges;
    }
    return nbChanges;
}

template <class KernelType>
void KernelKMeansAttempt<KernelType>::updateDistances()
{
    makeRoomForRows();
    for (std::size_t label = 0; label < _clusters.size(); ++label)
    {
        Cluster& cluster = _clusters[label];
        if (!cluster.bMeanChanged)
            continue;
        cluster.bMeanChanged = false;
        for (std::size_t i = 0; i < cluster.members.size(); ++i)
            cluster.rows[i] = _samples.cacheRow(cluster.members[i]);
        computeDistances(cluster.mean, _distances.data() + label * _samples.size(),
                         [&](std::size_t i, std::size_t begin, std::size_t end, double* rowPart)
                         {
                             if (cluster.rows[i] != nullptr)
                                 return cluster.rows[i] + begin;
                             _samples.computeRow(_samples.getData()[cluster.members[i]], begin, end, rowPart);
                             return static_cast<const double*>(rowPart);
                         });
    }
}

/// Evicts rows outside of the dictionaries if there is no room for further ones.
template <class KernelType>
void KernelKMeansAttempt<KernelType>::makeRoomForRows()
{
    if (!_samples.isCacheFull())
        return;
    _bWanted.assign(_samples.size(), false);
    for (const Cluster& cluster : _clusters)
    {
        for (const ovUInt32 member : cluster.members)
            _bWanted[member] = true;
    }
    _samples.evictAllBut(_bWanted);
}

/// The squared distances of all samples to a mean.
///
/// @param rowOf gives `k(d_i, x_j)` for the j of [begin, end[, in the room offered or elsewhere
template <class KernelType>
template <class RowOf>
void KernelKMeansAttempt<KernelType>::computeDistances(const SparseKernelMean& mean, double* distances,
                                                       const RowOf& rowOf)
{
    const std::vector<double>& weights = mean.getWeights();
    const double clusterTerm = mean.getClusterTerm();
    for (std::size_t begin = 0; begin < _samples.size(); begin += g_nbSumsAtOnce)
    {
        const std::size_t end = std::min(begin + g_nbSumsAtOnce, _samples.size());
        std::fill(distances + begin, distances + end, 0.0);
        for (std::size_t first = 0; first < weights.size(); first += g_nbRowsOfAPass)
        {
            const std::size_t nbRows = std::min(g_nbRowsOfAPass, weights.size() - first);
            const double* rows[g_nbRowsOfAPass];
            for (std::size_t i = 0; i < nbRows; ++i)
                rows[i] = rowOf(first + i, begin, end, _rowParts.data() + i * g_nbSumsAtOnce);
            addRows<Product, const double* const*>(distances + begin, end - begin, weights.data() + first, nbRows,
                                                   rows);
        }
        for (std::size_t i = begin; i < end; ++i)
            distances[i] = _samples.getSelfValue(i) + clusterTerm - (distances[i] + distances[i]);
    }
}

/// Feeds the samples of each cluster that changed to its mean again, from nothing and in their order.
template <class KernelType>
void KernelKMeansAttempt<KernelType>::rebuildClusters(const UInt32Vector& assignments)
{
    _bHasCentroids = true;
    for (std::size_t label = 0; label < _clusters.size(); ++label)
    {
        Cluster& cluster = _clusters[label];
        if (!cluster.bSamplesChanged)
            continue;
        cluster.bSamplesChanged = false;
        cluster.bMeanChanged = true;
        clear(cluster);
        for (std::size_t i = 0; i < assignments.size(); ++i)
        {
            if (assignments[i] == label)
                addSample(cluster, static_cast<ovUInt32>(i));
        }
    }
}

template void drawKernelSeeds(KernelSamples<LinearKernel>&, ovUInt32, UInt32Vector&);
template void drawKernelSeeds(KernelSamples<PolynomialKernel>&, ovUInt32, UInt32Vector&);
template void drawKernelSeeds(KernelSamples<RadialBasisKernel>&, ovUInt32, UInt32Vector&);
template void drawKernelSeeds(KernelSamples<SigmoidKernel>&, ovUInt32, UInt32Vector&);

template class KernelKMeansAttempt<LinearKernel>;
template class KernelKMeansAttempt<PolynomialKernel>;
template class KernelKMeansAttempt<RadialBasisKernel>;
template class KernelKMeansAttempt<SigmoidKernel>;

} // namespace details
} // namespace clustering
} // namespace math
} // namespace ovrix
