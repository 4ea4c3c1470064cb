#include <OVRIXMath/Clustering/ClusteringLogMessages.h>
#include <OVRIXMath/Clustering/KernelClusteringUtils.h>
#include <OVRIXMath/Clustering/KernelKMeansAttempt.h>
#include <OVRIXMath/Clustering/NearestLabel.h>
#include <OVRIXMath/OVRIXMathFailure.h>

#include <cstddef>

namespace ovrix
{
namespace math
{
namespace clustering
{

template <class KernelType>
ovReal64 computeKernelCompactness(const std::vector<KernelKMeansCentroid<KernelType>>& centroids,
                                  const VectorColl& data, const UInt32Vector& assignments)
{
    double compactness = 0.0;
    for (std::size_t i = 0; i < data.size(); ++i)
    {
        if (assignments[i] < centroids.size())
            compactness += centroids[assignments[i]].comparable_distance(data[i]);
    }
    return compactness;
}

template <class KernelType>
ovUInt32 computeKernelAssignment(const std::vector<KernelKMeansCentroid<KernelType>>& centroids, const Vector& x)
{
    return details::findNearestLabel(centroids.size(),
                                     [&](std::size_t k) { return centroids[k].comparable_distance(x); });
}

template <class KernelType>
ovUInt32 computeKernelKMeansAttempt(const KernelType& kernel, const VectorColl& data, ovUInt32 nbMaxIteration,
                                    ovReal64 minChangeRatio, std::vector<KernelKMeansCentroid<KernelType>>& centroids,
                                    UInt32Vector& assignments)
{
    details::KernelSamples<KernelType> samples(kernel, data, details::g_nbCachedKernelValues);
    details::KernelKMeansAttempt<KernelType> attempt(samples);
    attempt.start(centroids);
    const ovUInt32 nbIteration = attempt.run(nbMaxIteration, minChangeRatio, assignments);
    if (attempt.hasCentroids())
    {
        // Those of the caller stay whole where there is no memory for the copies.
        std::vector<KernelKMeansCentroid<KernelType>> copies(centroids);
        attempt.copyCentroids(copies);
        centroids.swap(copies);
    }
    return nbIteration;
}

template <class KernelType>
void generateKernelKMeansPPInit(const KernelType& kernel, ovUInt32 nbClusters, const VectorColl& data,
                                VectorColl& seeds)
{
    seeds.clear();
    const ovUInt32 nbData = static_cast<ovUInt32>(data.size());
    OVRIXMATH_RAISE_UNLESS(nbClusters <= nbData, eClusteringMessage, 5, nbClusters, nbData);
    if (nbData == 0)
        return;
    details::KernelSamples<KernelType> samples(kernel, data);
    UInt32Vector places;
    details::drawKernelSeeds(samples, nbClusters, places);
    seeds.reserve(places.size());
    for (const ovUInt32 place : places)
        seeds.push_back(data[place]);
}

template ovReal64 computeKernelCompactness(const std::vector<KernelKMeansCentroid<LinearKernel>>&, const VectorColl&,
                                           const UInt32Vector&);
template ovReal64 computeKernelCompactness(const std::vector<KernelKMeansCentroid<PolynomialKernel>>&,
                                           const VectorColl&, const UInt32Vector&);
template ovReal64 computeKernelCompactness(const std::vector<KernelKMeansCentroid<RadialBasisKernel>>&,
                                           const VectorColl&, const UInt32Vector&);
template ovReal64 computeKernelCompactness(const std::vector<KernelKMeansCentroid<SigmoidKernel>>&, const VectorColl&,
                                           const UInt32Vector&);

template ovUInt32 computeKernelAssignment(const std::vector<KernelKMeansCentroid<LinearKernel>>&, const Vector&);
template ovUInt32 computeKernelAssignment(const std::vector<KernelKMeansCentroid<PolynomialKernel>>&, const Vector&);
template ovUInt32 computeKernelAssignment(const std::vector<KernelKMeansCentroid<RadialBasisKernel>>&, const Vector&);
template ovUInt32 computeKernelAssignment(const std::vector<KernelKMeansCentroid<SigmoidKernel>>&, const Vector&);

template ovUInt32 computeKernelKMeansAttempt(const LinearKernel&, const VectorColl&, ovUInt32, ovReal64,
                                             std::vector<KernelKMeansCentroid<LinearKernel>>&, UInt32Vector&);
template ovUInt32 computeKernelKMeansAttempt(const PolynomialKernel&, const VectorColl&, ovUInt32, ovReal64,
                                             std::vector<KernelKMeansCentroid<PolynomialKernel>>&, UInt32Vector&);
template ovUInt32 computeKernelKMeansAttempt(const RadialBasisKernel&, const VectorColl&, ovUInt32, ovReal64,
                                             std::vector<KernelKMeansCentroid<RadialBasisKernel>>&, UInt32Vector&);
template ovUInt32 computeKernelKMeansAttempt(const SigmoidKernel&, const VectorColl&, ovUInt32, ovReal64,
                                             std::vector<KernelKMeansCentroid<SigmoidKernel>>&, UInt32Vector&);

template void generateKernelKMeansPPInit(const LinearKernel&, ovUInt32, const VectorColl&, VectorColl&);
template void generateKernelKMeansPPInit(const PolynomialKernel&, ovUInt32, const VectorColl&, VectorColl&);
template void generateKernelKMeansPPInit(const RadialBasisKernel&, ovUInt32, const VectorColl&, VectorColl&);
template void generateKernelKMeansPPInit(const SigmoidKernel&, ovUInt32, const VectorColl&, VectorColl&);

} // namespace clustering
} // namespace math
} // namespace ovrix
