// k-means beside dlib's, from the same centres.

#include "KMeansTasks.h"

#include <algorithm>
#include <dlib/clustering.h>
#include <functional>
#include <vector>

namespace ovrix
{
namespace bench
{

namespace
{

using namespace math::clustering;

using DlibSample = dlib::matrix<double, g_kMeansDimension, 1>;

std::vector<DlibSample> toDlib(const VectorColl& vectors)
{
    std::vector<DlibSample> samples(vectors.size());
    for (std::size_t i = 0; i < vectors.size(); ++i)
        std::copy(vectors[i].begin(), vectors[i].end(), samples[i].begin());
    return samples;
}

/// Runs dlib's k-means; the samples are converted once, before the time counts.
class DlibKMeans
{
public:
    void operator()(const VectorColl& data, const VectorColl& firstCenters, ovUInt32 nbIterations)
    {
        if (_samples.empty())
            _samples = toDlib(data);
        std::vector<DlibSample> centers = toDlib(firstCenters);
        dlib::find_clusters_using_kmeans(_samples, centers, nbIterations);
        benchmark::DoNotOptimize(centers.data());
    }

private:
    std::vector<DlibSample> _samples;
};

void kMeansUniformDlib(benchmark::State& state)
{
    DlibKMeans peer;
    compareKMeansOnUniform(state, std::ref(peer));
}
BENCHMARK(kMeansUniformDlib)->Arg(20)->UseManualTime()->Unit(benchmark::kMillisecond);

void kMeansBlobsDlib(benchmark::State& state)
{
    DlibKMeans peer;
    compareKMeansOnBlobs(state, std::ref(peer));
}
BENCHMARK(kMeansBlobsDlib)->Arg(20)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

} // namespace bench
} // namespace ovrix
