#include <OVRIXMath/Clustering/ClusteringUtils.h>
#include <OVRIXMath/Clustering/KMeansAttempt.h>
#include <OVRIXMath/Clustering/KMeansSeeding.h>
#include <OVRIXMath/Clustering/NearestLabel.h>
#include <OVRIXMath/Clustering/SampleTable.h>

#include <algorithm>
#include <cmath>

namespace ovrix
{
namespace math
{
namespace clustering
{

using details::squaredDistance;

ovReal64 computeCompactness(const VectorColl& centers, const VectorColl& data, const UInt32Vector& assignments)
{
    double compactness = 0.0;
    for (std::size_t i = 0; i < data.size(); ++i)
    {
        if (assignments[i] < centers.size())
            compactness += squaredDistance(data[i], centers[assignments[i]]);
    }
    return compactness;
}

ovUInt32 computeAssignment(const VectorColl& centers, const Vector& x)
{
    return details::findNearestLabel(centers.size(), [&](std::size_t k) { return squaredDistance(centers[k], x); });
}

ovUInt32 computeClusterPopulation(ovUInt32 clusterIdx, const UInt32Vector& assignments)
{
    return static_cast<ovUInt32>(std::count(assignments.begin(), assignments.end(), clusterIdx));
}

ovReal64 computeClusterStdDev(ovUInt32 clusterIdx, const VectorColl& data, const UInt32Vector& assignments,
                              const Vector& center)
{
    double sum = 0.0;
    std::size_t population = 0;
    for (std::size_t i = 0; i < data.size(); ++i)
    {
        if (assignments[i] == clusterIdx)
        {
            sum += squaredDistance(data[i], center);
            ++population;
        }
    }
    return population == 0 ? 0.0 : std::sqrt(sum / static_cast<double>(population));
}

Vector computeClusterCenter(ovUInt32, const VectorColl&, const UInt32Vector&)
{
    return Vector();
}

void computeClustersCenters(ovUInt32 nbClusters, const VectorColl& data, const UInt32Vector& assignments,
                            VectorColl& centers)
{
    const std::size_t dimension = data.empty() ? 0 : data.front().size();
    centers.assign(nbClusters, Vector(dimension, 0.0));
    std::vector<std::size_t> populations(nbClusters, 0);
    for (std::size_t i = 0; i < data.size(); ++i)
    {
        const ovUInt32 label = assignments[i];
        if (label >= nbClusters)
            continue;
        double* center = centers[label].data().begin();
        const double* sample = data[i].data().begin();
        for (std::size_t j = 0; j < dimension; ++j)
            center[j] += sample[j];
        ++populations[label];
    }
    for (std::size_t k = 0; k < nbClusters; ++k)
    {
        if (populations[k] > 0)
            centers[k] /= static_cast<double>(populations[k]);
    }
}

ovUInt32 computeKMeansAttempt(const VectorColl& data, ovUInt32 nbMaxIteration, VectorColl& centers,
                              UInt32Vector& assignments)
{
    const details::SampleTable samples(data);
    return details::KMeansAttempt(samples).run(nbMaxIteration, centers, assignments);
}

void generateKMeansPPInit(ovUInt32 nbClusters, const VectorColl& data, VectorColl& centers)
{
    centers.clear();
    const details::SampleTable samples(data);
    UInt32Vector seeds;
    details::KMeansSeeding(samples).draw(nbClusters, seeds);
    for (const ovUInt32 seed : seeds)
        centers.push_back(data[seed]);
}

ovReal64 radialBasisKernelSigmaFromDynamic(const VectorColl& data, ovReal64 factor)
{
    const std::size_t dimension = data.empty() ? 0 : data.front().size();
    double sum = 0.0;
    for (std::size_t j = 0; j < dimension; ++j)
    {
        double minimum = NumericLimits<double>::s_max;
        double maximum = NumericLimits<double>::s_min;
        for (const Vector& sample : data)
        {
            minimum = std::min(minimum, sample[j]);
            maximum = std::max(maximum, sample[j]);
        }
        sum += maximum - minimum;
    }
    return sum * factor;
}

} // namespace clustering
} // namespace math
} // namespace ovrix
