// Kernel values, kernel k-means and spectral clustering. Kernel values stand beside a plain loop over pairs of samples,
// clusterings beside the same steps with every value computed when it is needed. peers.py measures the same tasks in
// scikit-learn.

#include "KernelSamplesOfTasks.h"

#include <OVRIXMath/Clustering/KernelKMeansClustering.h>
#include <OVRIXMath/Clustering/KernelSamples.h>
#include <OVRIXMath/Clustering/SpectralClustering.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <benchmark/benchmark.h>

#include <cstddef>
#include <support/Comparison.h>
#include <support/Kernels.h>
#include <support/PlainKernelKMeans.h>
#include <vector>

namespace ovrix
{
namespace bench
{

namespace
{

using math::Vector;
using namespace math::clustering;

/// All kernel values between 2000 samples, row by row.
template <class KernelType>
void kernelMatrix(benchmark::State& state)
{
    const VectorColl data = makeCube(2000, static_cast<std::size_t>(state.range(0)));
    const KernelType kernel = test::makeKernel<KernelType>();
    std::vector<double> values(data.size() * data.size());
    compareWithPeer(
        state,
        [&]
        {
            const math::clustering::details::KernelSamples<KernelType> samples(kernel, data);
            for (std::size_t i = 0; i < data.size(); ++i)
                samples.computeRow(data[i], 0, data.size(), values.data() + i * data.size());
            benchmark::DoNotOptimize(values.data());
        },
        [&]
        {
            for (std::size_t i = 0; i < data.size(); ++i)
            {
                for (std::size_t j = 0; j < data.size(); ++j)
                    values[i * data.size() + j] = kernel(data[i], data[j]);
            }
            benchmark::DoNotOptimize(values.data());
        });
}

void kernelMatrixLinear(benchmark::State& state)
{
    kernelMatrix<LinearKernel>(state);
}
BENCHMARK(kernelMatrixLinear)->Arg(2)->Arg(16)->Arg(64)->UseManualTime()->Unit(benchmark::kMillisecond);

void kernelMatrixPolynomial(benchmark::State& state)
{
    kernelMatrix<PolynomialKernel>(state);
}
BENCHMARK(kernelMatrixPolynomial)->Arg(2)->Arg(64)->UseManualTime()->Unit(benchmark::kMillisecond);

void kernelMatrixRadialBasis(benchmark::State& state)
{
    kernelMatrix<RadialBasisKernel>(state);
}
BENCHMARK(kernelMatrixRadialBasis)->Arg(2)->Arg(16)->Arg(64)->UseManualTime()->Unit(benchmark::kMillisecond);

void kernelMatrixSigmoid(benchmark::State& state)
{
    kernelMatrix<SigmoidKernel>(state);
}
BENCHMARK(kernelMatrixSigmoid)->Arg(2)->Arg(64)->UseManualTime()->Unit(benchmark::kMillisecond);

/// Ten attempts on two rings, with a kernel of this width in hundredths.
void kernelKMeans(benchmark::State& state)
{
    const VectorColl data = makeRings(static_cast<std::size_t>(state.range(0)));
    const RadialBasisKernel kernel(static_cast<double>(state.range(1)) * 0.01);
    const KernelKMeansClusteringConfig config;
    ovUInt32 dictionarySize = 0;
    compareWithPeer(
        state,
        [&]
        {
            RandomUniformGenerator::getGen().seed(1);
            KernelKMeansClustering<RadialBasisKernel> clustering(kernel);
            benchmark::DoNotOptimize(clustering.compute(2, data));
            dictionarySize = clustering.getCentroid(0).getDictionarySize();
        },
        [&]
        {
            RandomUniformGenerator::getGen().seed(1);
            test::PlainKernelKMeans<RadialBasisKernel> clustering(kernel);
            benchmark::DoNotOptimize(clustering.compute(2, data, config));
        });
    state.counters["dictionary"] = dictionarySize;
}
BENCHMARK(kernelKMeans)
    ->Args({500, 120})
    ->Args({2000, 120})
    ->Args({500, 40})
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

/// Time is that of the eigenvalues for the most part; peers.py has the peer.
void spectralClustering(benchmark::State& state)
{
    const VectorColl data = makeRings(static_cast<std::size_t>(state.range(0)));
    SpectralClustering<RadialBasisKernel> clustering(RadialBasisKernel::createKernel(0.3));
    for (auto _ : state)
    {
        RandomUniformGenerator::getGen().seed(1);
        benchmark::DoNotOptimize(clustering.compute(2, data));
    }
    state.counters["first"] = clustering.getClusterPopulation(0);
}
BENCHMARK(spectralClustering)->Arg(500)->Arg(1000)->Arg(2000)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace bench
} // namespace ovrix
