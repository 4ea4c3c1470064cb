#include <OVRIXMath/Clustering/ClusteringUtils.h>
#include <OVRIXMath/Clustering/DunnIndex.h>
#include <OVRIXMath/Clustering/SampleTable.h>
#include <OVRIXMath/Clustering/ValidityIndex.h>

#include <algorithm>
#include <cmath>

namespace ovrix
{
namespace math
{
namespace clustering
{

namespace
{

using details::squaredDistance;

constexpr double g_min = NumericLimits<double>::s_min;
constexpr double g_max = NumericLimits<double>::s_max;

double distance(const Vector& a, const Vector& b)
{
    return std::sqrt(squaredDistance(a, b));
}

/// A partition with what several indices read.
struct Partition
{
    const VectorColl& centers;
    const VectorColl& data;
    const UInt32Vector& assignments;

    bool hasCenter(std::size_t i) const
    {
        return assignments[i] < centers.size();
    }

    const Vector& centerOf(std::size_t i) const
    {
        return centers[assignments[i]];
    }

    std::vector<ovUInt32> populations() const
    {
        std::vector<ovUInt32> counts(centers.size(), 0);
        for (std::size_t i = 0; i < data.size(); ++i)
        {
            if (hasCenter(i))
                ++counts[assignments[i]];
        }
        return counts;
    }

    double compactness() const
    {
        return computeCompactness(centers, data, assignments);
    }
};

double daviesBouldin(const Partition& partition)
{
    if (partition.data.empty())
        return 0.0;
    const std::size_t nbClusters = partition.centers.size();
    std::vector<double> scatters(nbClusters, 0.0);
    for (std::size_t i = 0; i < partition.data.size(); ++i)
    {
        if (partition.hasCenter(i))
            scatters[partition.assignments[i]] += distance(partition.data[i], partition.centerOf(i));
    }
    const std::vector<ovUInt32> populations = partition.populations();
    for (std::size_t k = 0; k < nbClusters; ++k)
    {
        if (populations[k] > 0)
            scatters[k] /= populations[k];
    }
    if (nbClusters <= 1)
        return 0.0;

    double sum = 0.0;
    for (std::size_t i = 0; i < nbClusters; ++i)
    {
        double largest = g_min;
        for (std::size_t j = 0; j < nbClusters; ++j)
        {
            if (j == i)
                continue;
            const double d = distance(partition.centers[i], partition.centers[j]);
            if (d == 0.0)
                return g_max;
            // The scatter beside that of cluster i is that of cluster 0, whatever j.
            largest = std::max(largest, (scatters[0] + scatters[i]) / d);
        }
        sum += largest;
    }
    return sum / static_cast<double>(nbClusters);
}

double rmsStd(const Partition& partition)
{
    const double error = partition.compactness();
    double freedom = 0.0;
    // Unsigned on purpose: an empty cluster adds 4294967295.
    for (const ovUInt32 population : partition.populations())
        freedom += static_cast<double>(population - 1u);
    if (!partition.data.empty())
        freedom *= static_cast<double>(partition.data.front().size());
    return freedom != 0.0 ? std::sqrt(error / freedom) : 0.0;
}

double rSquared(const Partition& partition)
{
    if (partition.data.empty())
        return 0.0;
    Vector mean(partition.data.front().size(), 0.0);
    for (const Vector& sample : partition.data)
        boost::numeric::ublas::noalias(mean) += sample;
    mean /= static_cast<double>(partition.data.size());
    double total = 0.0;
    for (const Vector& sample : partition.data)
        total += squaredDistance(sample, mean);
    const double within = partition.compactness();
    return total != 0.0 ? (total - within) / total : 0.0;
}

/// The norm of `count` elements, each divided by `divisor` first.
double normOfQuotients(const double* elements, std::size_t count, double divisor)
{
    double sum = 0.0;
    for (std::size_t j = 0; j < count; ++j)
    {
        const double quotient = elements[j] / divisor;
        sum += quotient * quotient;
    }
    return std::sqrt(sum);
}

double sd(const Partition& partition)
{
    if (partition.data.empty())
        return 0.0;
    const std::size_t nbClusters = partition.centers.size();
    const std::size_t dimension = partition.data.front().size();
    std::vector<double> sums(dimension, 0.0);
    std::vector<double> squaredSums(dimension, 0.0);
    std::vector<double> scatters(nbClusters * dimension, 0.0);
    for (std::size_t i = 0; i < partition.data.size(); ++i)
    {
        const double* sample = partition.data[i].data().begin();
        for (std::size_t j = 0; j < dimension; ++j)
        {
            sums[j] += sample[j];
            squaredSums[j] += sample[j] * sample[j];
        }
        if (!partition.hasCenter(i))
            continue;
        const double* center = partition.centerOf(i).data().begin();
        double* scatter = scatters.data() + partition.assignments[i] * dimension;
        for (std::size_t j = 0; j < dimension; ++j)
        {
            const double difference = sample[j] - center[j];
            scatter[j] += difference * difference;
        }
    }

    const double nbData = static_cast<double>(partition.data.size());
    std::vector<double> variances(dimension);
    for (std::size_t j = 0; j < dimension; ++j)
    {
        const double mean = sums[j] / nbData;
        variances[j] = squaredSums[j] / nbData - mean * mean;
    }
    const double sigma = normOfQuotients(variances.data(), dimension, 1.0);
    const double divisor = sigma * static_cast<double>(nbClusters);
    if (divisor == 0.0)
        return g_max;

    const std::vector<ovUInt32> populations = partition.populations();
    double scatterSum = 0.0;
    for (std::size_t k = 0; k < nbClusters; ++k)
    {
        if (populations[k] > 0)
            scatterSum += normOfQuotients(scatters.data() + k * dimension, dimension, populations[k]);
    }

    double dMax = g_min;
    double dMin = g_max;
    double inverseSum = 0.0;
    for (std::size_t i = 0; i < nbClusters; ++i)
    {
        for (std::size_t j = 0; j < nbClusters; ++j)
        {
            if (j == i)
                continue;
            const double d = distance(partition.centers[i], partition.centers[j]);
            dMax = std::max(dMax, d);
            dMin = std::min(dMin, d);
            if (d == 0.0)
                return g_max;
            inverseSum += 1.0 / d;
        }
    }
    const double separation = inverseSum * (dMax / dMin);
    return (scatterSum / divisor + 1.0) * separation;
}

} // namespace

ovReal64 computeValidityIndex(const VectorColl& centers, const VectorColl& data, const UInt32Vector& assignments,
                              const eValidityIndexType& type)
{
    const Partition partition{centers, data, assignments};
    switch (type)
    {
    case eVIT_DaviesBouldin:
        return daviesBouldin(partition);
    case eVIT_RMSStd:
        return rmsStd(partition);
    case eVIT_RS:
        return rSquared(partition);
    case eVIT_SD:
        return sd(partition);
    case eVIT_Dunn:
    default:
        return details::computeDunnIndex(data, assignments);
    }
}

} // namespace clustering
} // namespace math
} // namespace ovrix
