// k-means beside OpenCV's, which works on numbers of single precision, from the labels of the same centres.

#include "KMeansTasks.h"

#include <functional>
#include <opencv2/core.hpp>

namespace ovrix
{
namespace bench
{

namespace
{

using namespace math::clustering;

/// Runs OpenCV's k-means; samples and first labels are made once, before the time counts.
class OpenCvKMeans
{
public:
    void operator()(const VectorColl& data, const VectorColl& firstCenters, ovUInt32 nbIterations)
    {
        if (_samples.empty())
            prepare(data, firstCenters);
        cv::Mat labels = _firstLabels.clone();
        cv::Mat centers;
        cv::kmeans(_samples, static_cast<int>(firstCenters.size()), labels,
                   cv::TermCriteria(cv::TermCriteria::COUNT, static_cast<int>(nbIterations), 0.0), 1,
                   cv::KMEANS_USE_INITIAL_LABELS, centers);
        benchmark::DoNotOptimize(centers.data);
    }

private:
    void prepare(const VectorColl& data, const VectorColl& firstCenters)
    {
        cv::setNumThreads(1);
        const int nbSamples = static_cast<int>(data.size());
        _samples.create(nbSamples, static_cast<int>(data.front().size()), CV_32F);
        _firstLabels.create(nbSamples, 1, CV_32S);
        for (int i = 0; i < nbSamples; ++i)
        {
            const math::Vector& sample = data[static_cast<std::size_t>(i)];
            for (std::size_t j = 0; j < sample.size(); ++j)
                _samples.at<float>(i, static_cast<int>(j)) = static_cast<float>(sample[j]);
            _firstLabels.at<int>(i) = static_cast<int>(computeAssignment(firstCenters, sample));
        }
    }

    cv::Mat _samples;
    cv::Mat _firstLabels;
};

void kMeansUniformOpenCv(benchmark::State& state)
{
    OpenCvKMeans peer;
    compareKMeansOnUniform(state, std::ref(peer));
}
BENCHMARK(kMeansUniformOpenCv)->Arg(20)->UseManualTime()->Unit(benchmark::kMillisecond);

void kMeansBlobsOpenCv(benchmark::State& state)
{
    OpenCvKMeans peer;
    compareKMeansOnBlobs(state, std::ref(peer));
}
BENCHMARK(kMeansBlobsOpenCv)->Arg(20)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

} // namespace bench
} // namespace ovrix
