// One attempt of kernel k-means from given seeds, beside dlib's kkmeans with the same kernel, the same threshold and
// the same seeds. Both run until no label changes.

#include "KernelSamplesOfTasks.h"

#include <OVRIXMath/Clustering/ClusteringUtils.h>

#include <benchmark/benchmark.h>

#include <cstddef>
#include <dlib/clustering.h>
#include <support/Comparison.h>
#include <vector>

namespace ovrix
{
namespace bench
{

namespace
{

using namespace math::clustering;

using DlibSample = dlib::matrix<double, 2, 1>;
using DlibKernel = dlib::radial_basis_kernel<DlibSample>;

void kernelKMeansAttempt(benchmark::State& state)
{
    const VectorColl data = makeRings(static_cast<std::size_t>(state.range(0)));
    const double sigma = static_cast<double>(state.range(1)) * 0.01;
    const RadialBasisKernel kernel(sigma);
    ovUInt32 nbIteration = 0;
    UInt32Vector assignments;
    std::vector<KernelKMeansCentroid<RadialBasisKernel>> centroids;

    std::vector<DlibSample> dlibData;
    for (const math::Vector& sample : data)
        dlibData.push_back({sample[0], sample[1]});
    const std::vector<DlibSample> dlibSeeds(dlibData.begin(), dlibData.begin() + 2);
    dlib::kkmeans<DlibKernel> dlibKMeans(
        dlib::kcentroid<DlibKernel>(DlibKernel(0.5 / (sigma * sigma)), 0.001, 1000000));
    dlibKMeans.set_number_of_centers(2);

    compareWithPeer(
        state,
        [&]
        {
            centroids.assign(2, KernelKMeansCentroid<RadialBasisKernel>(kernel));
            centroids[0].addSample(data[0]);
            centroids[1].addSample(data[1]);
            nbIteration = computeKernelKMeansAttempt(kernel, data, 1000, 0.0, centroids, assignments);
        },
        [&] { dlibKMeans.train(dlibData, dlibSeeds, 1000); });
    std::size_t nbEqual = 0;
    for (std::size_t i = 0; i < data.size(); ++i)
        nbEqual += assignments[i] == dlibKMeans(dlibData[i]) ? 1 : 0;
    state.counters["iterations"] = nbIteration;
    state.counters["dictionary"] = centroids[0].getDictionarySize();
    state.counters["peerDictionary"] = static_cast<double>(dlibKMeans.get_kcentroid(0).dictionary_size());
    state.counters["equal"] = static_cast<double>(nbEqual);
}
BENCHMARK(kernelKMeansAttempt)
    ->Args({500, 120})
    ->Args({2000, 120})
    ->Args({500, 40})
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

} // namespace

} // namespace bench
} // namespace ovrix
