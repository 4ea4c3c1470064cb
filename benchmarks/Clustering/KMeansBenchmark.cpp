// k-means on 100,000 samples of 16 coordinates with 64 clusters, and the Dunn index, beside plain loops on contiguous
// memory. peers.py measures the same tasks in scikit-learn.

#include "KMeansTasks.h"

#include <OVRIXMath/Clustering/KMeansClustering.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace ovrix
{
namespace bench
{

namespace
{

using namespace math::clustering;

std::vector<double> flatten(const VectorColl& vectors)
{
    std::vector<double> numbers;
    for (const math::Vector& vector : vectors)
        numbers.insert(numbers.end(), vector.begin(), vector.end());
    return numbers;
}

double squaredDistance(const double* a, const double* b, std::size_t dimension)
{
    double sum = 0.0;
    for (std::size_t j = 0; j < dimension; ++j)
        sum += (a[j] - b[j]) * (a[j] - b[j]);
    return sum;
}

/// Lloyd's iteration.
void runPlainLoop(const VectorColl& data, const VectorColl& firstCenters, ovUInt32 nbIterations)
{
    const std::size_t dimension = data.front().size();
    const std::vector<double> samples = flatten(data);
    std::vector<double> centers = flatten(firstCenters);
    std::vector<std::size_t> labels(data.size(), firstCenters.size());
    for (ovUInt32 iteration = 0; iteration < nbIterations; ++iteration)
    {
        std::vector<double> sums(centers.size(), 0.0);
        std::vector<double> populations(firstCenters.size(), 0.0);
        bool bChanged = false;
        for (std::size_t i = 0; i < data.size(); ++i)
        {
            const double* const sample = samples.data() + i * dimension;
            double least = std::numeric_limits<double>::max();
            std::size_t label = 0;
            for (std::size_t k = 0; k < firstCenters.size(); ++k)
            {
                const double distance = squaredDistance(sample, centers.data() + k * dimension, dimension);
                if (distance < least)
                {
                    least = distance;
                    label = k;
                }
            }
            bChanged = bChanged || labels[i] != label;
            labels[i] = label;
            populations[label] += 1.0;
            for (std::size_t j = 0; j < dimension; ++j)
                sums[label * dimension + j] += sample[j];
        }
        if (!bChanged)
            break;
        for (std::size_t c = 0; c < centers.size(); ++c)
            centers[c] = sums[c] / std::max(1.0, populations[c / dimension]);
    }
    benchmark::DoNotOptimize(centers.data());
}

void kMeansUniform(benchmark::State& state)
{
    compareKMeansOnUniform(state, runPlainLoop);
}
BENCHMARK(kMeansUniform)->Arg(20)->UseManualTime()->Unit(benchmark::kMillisecond);

void kMeansBlobs(benchmark::State& state)
{
    compareKMeansOnBlobs(state, runPlainLoop);
}
BENCHMARK(kMeansBlobs)->Arg(20)->UseManualTime()->Unit(benchmark::kMillisecond);

/// The seeds of one attempt.
void kMeansSeeding(benchmark::State& state)
{
    const VectorColl data = makeUniform(g_nbKMeansSamples, g_kMeansDimension);
    VectorColl centers;
    for (auto _ : state)
    {
        generateKMeansPPInit(g_nbKMeansClusters, data, centers);
        benchmark::DoNotOptimize(centers.data());
    }
}
BENCHMARK(kMeansSeeding)->Unit(benchmark::kMillisecond);

/// All ten attempts on a smaller task.
void kMeansClustering(benchmark::State& state)
{
    const VectorColl data = makeBlobs(10000, g_kMeansDimension);
    KMeansClustering clustering;
    for (auto _ : state)
    {
        RandomUniformGenerator::getGen().seed(1);
        benchmark::DoNotOptimize(clustering.compute(g_nbKMeansClusters, data));
    }
    state.counters["compactness"] = clustering.getCompactness();
}
BENCHMARK(kMeansClustering)->Unit(benchmark::kMillisecond);

double computePlainDunn(const std::vector<double>& samples, std::size_t dimension, const UInt32Vector& labels)
{
    double minInter = std::numeric_limits<double>::max();
    double maxIntra = std::numeric_limits<double>::lowest();
    for (std::size_t i = 0; i < labels.size(); ++i)
    {
        for (std::size_t j = i + 1; j < labels.size(); ++j)
        {
            const double distance =
                squaredDistance(samples.data() + i * dimension, samples.data() + j * dimension, dimension);
            if (labels[i] == labels[j])
                maxIntra = std::max(maxIntra, distance);
            else
                minInter = std::min(minInter, distance);
        }
    }
    return std::sqrt(minInter / maxIntra);
}

/// 20,000 samples of some dimension.
void dunnIndex(benchmark::State& state)
{
    const std::size_t dimension = static_cast<std::size_t>(state.range(0));
    const VectorColl data = makeBlobs(20000, dimension);
    UInt32Vector labels;
    for (std::size_t i = 0; i < data.size(); ++i)
        labels.push_back(static_cast<ovUInt32>(i % g_nbKMeansClusters));
    const std::vector<double> samples = flatten(data);
    double index = 0.0;
    double plainIndex = 0.0;
    compareWithPeer(
        state, [&] { index = computeValidityIndex(VectorColl(), data, labels, eVIT_Dunn); },
        [&] { plainIndex = computePlainDunn(samples, dimension, labels); });
    if (index != plainIndex)
        state.SkipWithError("The indices differ");
}
BENCHMARK(dunnIndex)->Arg(2)->Arg(16)->UseManualTime()->Iterations(3)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace bench
} // namespace ovrix
