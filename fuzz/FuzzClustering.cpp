#include <OVRIXMath/Clustering/KMeansClustering.h>
#include <OVRIXMath/Clustering/KernelKMeansClustering.h>
#include <OVRIXMath/Clustering/SpectralClustering.h>
#include <OVRIXMath/Clustering/ValidityIndex.h>

#include <FuzzInput.h>
#include <Seeding.h>
#include <optional>
#include <sstream>
#include <support/PlainKMeans.h>
#include <support/PlainKernelKMeans.h>

// The input is samples, configurations and a kernel. Samples from which the seeding does not return are clustered into
// one cluster only, and handed to the steps behind the seeding. What the plain methods give is to be met to the bit.

namespace ovrix
{
namespace fuzz
{

namespace
{

using namespace math;
using namespace math::clustering;

constexpr ovUInt32 g_noLabel = NumericLimits<ovUInt32>::s_max;

KernelKMeansClusteringConfig readConfig(FuzzInput& input)
{
    KernelKMeansClusteringConfig config;
    attempt([&] { config.setNbAttempts(input.integer(0, 3)); });
    attempt([&] { config.setNbMaxIteration(input.integer(0, 12)); });
    attempt([&] { config.setMinChangeRatio(input.number()); });
    attempt([&] { config.setAccuracyThreshold(input.number()); });
    attempt([&] { config.setMaxDictionarySize(input.integer(0, 8)); });
    return config;
}

/// Some samples repeat earlier ones.
VectorColl readSamples(FuzzInput& input)
{
    const unsigned int nbSamples = input.integer(0, 24);
    VectorColl data = input.dataSet(nbSamples, input.integer(0, 4));
    if (input.flag())
    {
        for (std::size_t i = 1; i < data.size(); i += 3)
            data[i] = data[input.integer(0, 255) % i];
    }
    return data;
}

bool areTame(const VectorColl& data)
{
    return std::all_of(data.begin(), data.end(), [](const Vector& sample) { return fuzz::areTame(sample); });
}

void checkLabels(const UInt32Vector& labels, std::size_t nbSamples, std::size_t nbClusters)
{
    require(labels.size() == nbSamples, "each sample has a label");
    for (const ovUInt32 label : labels)
        require(label < nbClusters || label == g_noLabel, "labels are those of clusters");
}

/// What every clustering tells once it is done.
template <class Clustering>
void checkDone(const Clustering& clustering, std::size_t nbSamples, ovUInt32 nbClusters)
{
    checkLabels(clustering.getAssignments(), nbSamples, nbClusters);
    for (ovUInt32 k = 0; k < nbClusters; ++k)
    {
        const ovUInt32 population = clustering.getClusterPopulation(k);
        require(population == computeClusterPopulation(k, clustering.getAssignments()), "samples are counted");
        require(k == 0 || population <= clustering.getClusterPopulation(k - 1), "populations fall");
    }
    require(!attempt([&] { clustering.getClusterPopulation(nbClusters); }), "there are no more clusters");
    std::ostringstream text;
    text << clustering;
}

void useKMeans(ovUInt32 nbClusters, const VectorColl& data, const KernelKMeansClusteringConfig& limits)
{
    KMeansClusteringConfig config;
    config.setNbAttempts(limits.getNbAttempts());
    config.setNbMaxIteration(limits.getNbMaxIteration());
    KMeansClustering clustering;
    clustering.setConfig(config);
    RandomUniformGenerator::getGen().seed(1);
    bool bSuccess = false;
    const bool bDone = attempt([&] { bSuccess = clustering.compute(nbClusters, data); });
    require(bDone == (nbClusters >= 1 && nbClusters <= data.size()), "a number of clusters in range is accepted");
    require(bSuccess == clustering.isClusteringDone(), "a success is done");
    if (bDone && areTame(data))
    {
        test::PlainKMeans plain;
        RandomUniformGenerator::getGen().seed(1);
        require(plain.compute(nbClusters, data, config) == bSuccess, "k-means succeeds where the plain method does");
        require(!bSuccess || (clustering.getAssignments() == plain.assignments &&
                              clustering.getCompactness() == plain.compactness),
                "k-means gives what the plain method gives");
    }
    if (!bSuccess)
        return;
    checkDone(clustering, data.size(), nbClusters);
    const ovReal64 compactness = computeCompactness(clustering.getClustersCenters(), data, clustering.getAssignments());
    require(isSame(compactness, clustering.getCompactness()), "the compactness is that of the centres");
    for (int type = -1; type <= 5; ++type)
        clustering.computeValidityIndex(static_cast<eValidityIndexType>(type));
}

template <class KernelType>
void useKernelKMeans(ovUInt32 nbClusters, const VectorColl& data, const KernelType& kernel,
                     const KernelKMeansClusteringConfig& config)
{
    KernelKMeansClustering<KernelType> clustering(kernel);
    clustering.setConfig(config);
    RandomUniformGenerator::getGen().seed(1);
    bool bSuccess = false;
    attempt([&] { bSuccess = clustering.compute(nbClusters, data); });
    require(bSuccess == clustering.isClusteringDone(), "a success is done");
    if (nbClusters >= 1 && nbClusters <= data.size() && areTame(data))
    {
        test::PlainKernelKMeans<KernelType> plain(kernel);
        RandomUniformGenerator::getGen().seed(1);
        require(plain.compute(nbClusters, data, config) == bSuccess,
                "kernel k-means succeeds where the plain one does");
        require(!bSuccess || (clustering.getAssignments() == plain.assignments &&
                              isSame(clustering.getSeparation(), plain.separation)),
                "kernel k-means gives what the plain one gives");
    }
    if (!bSuccess)
        return;
    checkDone(clustering, data.size(), nbClusters);
    require(clustering.getClustersCentroids().size() == nbClusters, "each cluster has a centroid");
    for (const auto& centroid : clustering.getClustersCentroids())
        require(centroid.getDictionarySize() <= config.getMaxDictionarySize(), "dictionaries have a largest size");
}

/// The rows that spectral clustering seeds from; empty where their eigenvectors are refused.
template <class KernelType>
VectorColl embed(ovUInt32 nbClusters, const VectorColl& data, const KernelType& kernel)
{
    Vector eigenValues(nbClusters);
    Matrix eigenVectors(data.size(), nbClusters);
    VectorColl rows;
    attempt(
        [&]
        {
            eigenPartialDecomposition(test::PlainSpectral<KernelType>::affinities(kernel, data), eigenValues,
                                      eigenVectors);
            rows = test::PlainSpectral<KernelType>::makeUnitRows(eigenVectors);
        });
    return rows;
}

template <class KernelType>
void useSpectral(ovUInt32 nbClusters, const VectorColl& data, const KernelType& kernel,
                 const KernelKMeansClusteringConfig& config)
{
    if (nbClusters > 1 && nbClusters <= data.size() &&
        !canSeedFrom(embed(nbClusters, data, kernel), kernel, nbClusters))
        return;
    SpectralClustering<KernelType> clustering(kernel);
    clustering.setConfig(config);
    bool bSuccess = false;
    attempt([&] { bSuccess = clustering.compute(nbClusters, data); });
    require(bSuccess == clustering.isClusteringDone(), "a success is done");
    if (!bSuccess)
        return;
    checkDone(clustering, data.size(), nbClusters);
    require(clustering.getEigenVectors().size1() == data.size(), "each sample has a row");
    for (const Vector& sample : data)
    {
        const ovUInt32 label = clustering.computeAssignment(sample);
        require(label < nbClusters || label == g_noLabel, "labels are those of clusters");
    }
}

/// The steps behind the seeding, which take any samples.
template <class KernelType>
void useSteps(ovUInt32 nbClusters, const VectorColl& data, const KernelType& kernel,
              const KernelKMeansClusteringConfig& config)
{
    VectorColl centers(data.begin(), data.begin() + std::min<std::ptrdiff_t>(nbClusters, std::ptrdiff_t(data.size())));
    UInt32Vector labels;
    require(computeKMeansAttempt(data, config.getNbMaxIteration(), centers, labels) <= config.getNbMaxIteration(),
            "an attempt keeps to its iterations");
    checkLabels(labels, data.size(), centers.size());
    for (int type = -1; type <= 5; ++type)
        computeValidityIndex(centers, data, labels, static_cast<eValidityIndexType>(type));
    const ovReal64 dunn = computeValidityIndex(centers, data, labels, eVIT_Dunn);
    require(isSame(dunn, test::PlainKMeans::dunn(data, labels)), "the Dunn index is that of all pairs");

    KernelKMeansCentroid<KernelType> empty(kernel);
    empty.setAccuracyThreshold(config.getAccuracyThreshold());
    empty.setMaxDictionarySize(config.getMaxDictionarySize());
    std::vector<KernelKMeansCentroid<KernelType>> centroids(centers.size(), empty);
    for (std::size_t k = 0; k < centroids.size(); ++k)
    {
        centroids[k].addSample(data[k]);
        centroids[k].updateMinStrength();
    }
    computeKernelKMeansAttempt(kernel, data, config.getNbMaxIteration(), config.getMinChangeRatio(), centroids, labels);
    checkLabels(labels, data.size(), centroids.size());
    computeKernelCompactness(centroids, data, labels);
    for (const auto& centroid : centroids)
    {
        require(centroid.getWeights().size() == centroid.getDictionarySize(), "each member has a weight");
        require(centroid.getDictionarySize() <= config.getMaxDictionarySize(), "dictionaries have a largest size");
        require(centroid.getNbSamples() <= data.size(), "samples are counted once");
        centroid.distance(data[0]);
    }
}

template <class KernelType>
void useAll(FuzzInput& input, const KernelType& kernel)
{
    const KernelKMeansClusteringConfig config = readConfig(input);
    const ovUInt32 nbClusters = input.integer(0, 6);
    const VectorColl data = readSamples(input);
    const bool bSeedless = nbClusters < 2 || nbClusters > data.size();
    useSteps(nbClusters, data, kernel, config);
    if (bSeedless || canSeedFrom(data))
        useKMeans(nbClusters, data, config);
    if (bSeedless || canSeedFrom(data, kernel, nbClusters))
        useKernelKMeans(nbClusters, data, kernel, config);
    useSpectral(nbClusters, data, kernel, config);
}

/// @param create makes a kernel, or refuses its parameters
template <class Create>
void useKernel(FuzzInput& input, const Create& create)
{
    std::optional<decltype(create())> kernel;
    if (attempt([&] { kernel = create(); }))
        useAll(input, *kernel);
}

} // namespace

} // namespace fuzz
} // namespace ovrix

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t size)
{
    using namespace ovrix::fuzz;
    FuzzInput input(pData, size);
    const unsigned int kernel = input.integer(0, 3);
    const double first = input.number();
    const double second = input.number();
    const double third = input.number();
    if (kernel == 0)
        useKernel(input, [] { return LinearKernel::createKernel(); });
    else if (kernel == 1)
        useKernel(input, [=] { return PolynomialKernel::createKernel(first, second, third); });
    else if (kernel == 2)
        useKernel(input, [=] { return RadialBasisKernel::createKernel(first); });
    else
        useKernel(input, [=] { return SigmoidKernel::createKernel(first, second); });
    return 0;
}
