// A robust fit of a quadratic surface, and its parts one by one, each beside the plainest loop over contiguous arrays
// that does the same arithmetic.

#include <OVRIXMath/Estimation/DataPartition/AdaptiveGridPartition.h>
#include <OVRIXMath/Estimation/EstimationUtils.h>
#include <OVRIXMath/Estimation/LMSRobustEstimator.h>
#include <OVRIXMath/Estimation/MLESACRobustEstimator.h>
#include <OVRIXMath/Estimation/MSACRobustEstimator.h>
#include <OVRIXMath/Estimation/RANSACRobustEstimator.h>
#include <OVRIXMath/Tools/Polynomial2dSurfaceEstimator.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <boost/make_shared.hpp>
#include <boost/random/mersenne_twister.hpp>
#include <boost/random/uniform_int_distribution.hpp>
#include <boost/random/uniform_real_distribution.hpp>
#include <lapacke.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <support/Comparison.h>
#include <vector>

namespace ovrix
{
namespace math
{

namespace
{

using bench::compareWithPeer;

constexpr double g_threshold = 0.5;
constexpr double g_outlierRatio = 0.35;
constexpr double g_sigma = 0.2;

/// The model with its hooks open.
class SurfaceEstimator : public Polynomial2dSurfaceEstimator
{
public:
    using Polynomial2dSurfaceEstimator::processEstimation;
    using Polynomial2dSurfaceEstimator::processResiduals;
};

template <class Scorer>
class OpenScorer : public Scorer
{
public:
    using Scorer::computeScore;
    using Scorer::setExpectedOutlierRatio;
};

/// Points of a surface with noise, three in ten of them somewhere else.
std::vector<double> makePoints(std::size_t nbData)
{
    std::mt19937 generator(1);
    std::uniform_real_distribution<double> unit(-1.0, 1.0);
    std::normal_distribution<double> noise(0.0, 0.1);
    std::vector<double> points;
    points.reserve(3 * nbData);
    for (std::size_t i = 0; i < nbData; ++i)
    {
        const double x = unit(generator);
        const double y = unit(generator);
        const double surface = 1.5 * x * x - 0.5 * x * y + 0.7 * y * y + 2.0 * x - 3.0 * y + 4.0;
        const bool bOutlier = i % 10 < 3;
        points.insert(points.end(), {x, y, bOutlier ? 10.0 * unit(generator) : surface + noise(generator)});
    }
    return points;
}

DataSet makeDataSet(const std::vector<double>& points)
{
    DataSet dataSet;
    dataSet.reserve(points.size() / 3);
    Vector datum(3);
    for (std::size_t i = 0; i < points.size(); i += 3)
    {
        std::copy_n(points.begin() + static_cast<std::ptrdiff_t>(i), 3, datum.begin());
        dataSet.push_back(datum);
    }
    return dataSet;
}

Vector makeParams()
{
    Vector params(6);
    const double values[] = {1.5, -0.5, 0.7, 2.0, -3.0, 4.0};
    std::copy(std::begin(values), std::end(values), params.begin());
    return params;
}

void computePlainResiduals(const std::vector<double>& points, const double* c, std::vector<double>& residuals)
{
    const double* p = points.data();
    for (double& residual : residuals)
    {
        const double x = p[0];
        const double y = p[1];
        residual = p[2] - (c[0] * x * x + c[1] * x * y + c[2] * y * y + x * c[3] + y * c[4] + c[5]);
        p += 3;
    }
}

void robustFit(benchmark::State& state)
{
    const DataSet dataSet = makeDataSet(makePoints(static_cast<std::size_t>(state.range(0))));
    EstimationConfig config;
    config.initRANSAC(g_threshold, g_outlierRatio);
    const auto pEstimator = boost::make_shared<SurfaceEstimator>();
    EstimationResults results;
    for (auto _ : state)
    {
        RandomUniformGenerator::getGen().seed(1);
        processEstimation(config, pEstimator, dataSet, results);
    }
    state.counters["inliers"] = results.getInlierRatio();
}
BENCHMARK(robustFit)->Arg(10000)->Arg(1000000)->Unit(benchmark::kMillisecond);

/// Beside one sort of as many doubles for each axis.
void partitionInit(benchmark::State& state)
{
    const std::vector<double> points = makePoints(static_cast<std::size_t>(state.range(0)));
    const DataSet dataSet = makeDataSet(points);
    AdaptiveGridPartition partition;
    std::vector<double> axis(dataSet.size());
    compareWithPeer(
        state, [&] { benchmark::DoNotOptimize(static_cast<bool>(partition.init(6, dataSet))); },
        [&]
        {
            for (std::size_t k = 0; k < 3; ++k)
            {
                for (std::size_t i = 0; i < axis.size(); ++i)
                    axis[i] = points[3 * i + k];
                std::sort(axis.begin(), axis.end());
                benchmark::DoNotOptimize(axis.data());
            }
        });
}
BENCHMARK(partitionInit)->Arg(10000)->Arg(1000000)->UseManualTime()->Unit(benchmark::kMillisecond);

/// The cells of a partition in flat arrays, and the draw of one datum from each of six of them.
class PlainPartition
{
public:
    explicit PlainPartition(const DataSet& dataSet)
    {
        BaseGridPartition::BucketPopulation population;
        AdaptiveGridPartition().populateBuckets(dataSet, population);
        double share = 0.0;
        for (const auto& bucket : population)
        {
            share += static_cast<double>(bucket.second.size()) / static_cast<double>(dataSet.size());
            _shares.push_back(share);
            _buckets.push_back(bucket.second);
        }
        _shares.back() = 1.0;
    }

    void draw(const DataSet& dataSet, DataSet& subSet)
    {
        std::size_t used[6];
        for (std::size_t nbUsed = 0; nbUsed < 6;)
        {
            const double share = boost::random::uniform_real_distribution<double>(0.0, 1.0)(_generator);
            const auto bucket =
                static_cast<std::size_t>(std::upper_bound(_shares.begin(), _shares.end(), share) - _shares.begin());
            if (std::find(used, used + nbUsed, bucket) != used + nbUsed)
                continue;
            const std::vector<ovUInt32>& data = _buckets[bucket];
            const auto last = static_cast<ovUInt32>(data.size()) - 1;
            const ovUInt32 place = boost::random::uniform_int_distribution<ovUInt32>(0, last)(_generator);
            subSet[nbUsed] = dataSet[data[place]];
            used[nbUsed++] = bucket;
        }
    }

private:
    std::vector<double> _shares;
    std::vector<std::vector<ovUInt32>> _buckets;
    boost::random::mt19937 _generator;
};

/// Beside a draw from flat arrays that neither orders the data nor remembers earlier sub-sets. Each accepted sub-set
/// is remembered, which is what the allocations are: a node for each of its data and one for the set.
void draw(benchmark::State& state)
{
    const DataSet dataSet = makeDataSet(makePoints(static_cast<std::size_t>(state.range(0))));
    AdaptiveGridPartition partition;
    partition.init(6, dataSet);
    PlainPartition plainPartition(dataSet);
    DataSet subSet;
    DataSet plainSubSet(6, Vector(3));
    compareWithPeer(
        state, [&] { benchmark::DoNotOptimize(static_cast<bool>(partition.createSubSet(dataSet, subSet))); },
        [&]
        {
            plainPartition.draw(dataSet, plainSubSet);
            benchmark::DoNotOptimize(plainSubSet.data());
        },
        100);
}
BENCHMARK(draw)->Arg(10000)->Arg(1000000)->UseManualTime()->Iterations(1000)->Unit(benchmark::kMicrosecond);

/// Beside the bare LAPACK call on arrays of the stack.
void fitOfSixData(benchmark::State& state)
{
    const std::vector<double> points = makePoints(60);
    DataSet subSet = makeDataSet(points);
    subSet.erase(subSet.begin() + 6, subSet.end());
    SurfaceEstimator estimator;
    Vector params(6);
    compareWithPeer(
        state, [&] { benchmark::DoNotOptimize(static_cast<bool>(estimator.processEstimation(subSet, params))); },
        [&]
        {
            double a[36];
            double b[6];
            double s[6];
            for (std::size_t i = 0; i < 6; ++i)
            {
                const double x = points[3 * i];
                const double y = points[3 * i + 1];
                const double row[] = {x * x, x * y, y * y, x, y, 1.0};
                std::copy_n(row, 6, a + 6 * i);
                b[i] = points[3 * i + 2];
            }
            lapack_int rank = 0;
            benchmark::DoNotOptimize(
                LAPACKE_dgelss(LAPACK_ROW_MAJOR, 6, 6, 1, a, 6, b, 1, s, NumericLimits<double>::s_sqrt_eps, &rank));
        },
        100);
}
BENCHMARK(fitOfSixData)->UseManualTime()->Unit(benchmark::kMicrosecond);

void residualsOfAllData(benchmark::State& state)
{
    const std::vector<double> points = makePoints(static_cast<std::size_t>(state.range(0)));
    const DataSet dataSet = makeDataSet(points);
    const Vector params = makeParams();
    SurfaceEstimator estimator;
    Vector residuals(dataSet.size());
    std::vector<double> plainResiduals(dataSet.size());
    compareWithPeer(
        state,
        [&] { benchmark::DoNotOptimize(static_cast<bool>(estimator.processResiduals(dataSet, params, residuals))); },
        [&]
        {
            computePlainResiduals(points, params.data().begin(), plainResiduals);
            benchmark::DoNotOptimize(plainResiduals.data());
        });
}
BENCHMARK(residualsOfAllData)->Arg(10000)->Arg(1000000)->UseManualTime()->Unit(benchmark::kMicrosecond);

/// Residuals of the true surface at the benchmark's number of data.
std::vector<double> makeResiduals(const benchmark::State& state)
{
    const std::vector<double> points = makePoints(static_cast<std::size_t>(state.range(0)));
    std::vector<double> residuals(points.size() / 3);
    computePlainResiduals(points, makeParams().data().begin(), residuals);
    return residuals;
}

Vector toVector(const std::vector<double>& values)
{
    Vector vector(values.size());
    std::copy(values.begin(), values.end(), vector.begin());
    return vector;
}

template <class Scorer, class Peer>
void compareScore(benchmark::State& state, Scorer& scorer, Peer peer)
{
    scorer.setExpectedOutlierRatio(g_outlierRatio);
    const std::vector<double> plainResiduals = makeResiduals(state);
    const Vector residuals = toVector(plainResiduals);
    compareWithPeer(
        state, [&] { benchmark::DoNotOptimize(scorer.computeScore(residuals)); },
        [&] { benchmark::DoNotOptimize(peer(plainResiduals)); });
}

void scoreRANSAC(benchmark::State& state)
{
    OpenScorer<RANSACRobustEstimator> scorer;
    scorer.init(boost::make_shared<SurfaceEstimator>(), g_threshold);
    compareScore(state, scorer,
                 [](const std::vector<double>& residuals)
                 {
                     unsigned int nbOutliers = 0;
                     for (const double r : residuals)
                         nbOutliers += r * r >= g_threshold * g_threshold ? 1 : 0;
                     return static_cast<double>(nbOutliers);
                 });
}
BENCHMARK(scoreRANSAC)->Arg(10000)->Arg(1000000)->UseManualTime()->Unit(benchmark::kMicrosecond);

void scoreMSAC(benchmark::State& state)
{
    OpenScorer<MSACRobustEstimator> scorer;
    scorer.init(boost::make_shared<SurfaceEstimator>(), g_threshold);
    compareScore(state, scorer,
                 [](const std::vector<double>& residuals)
                 {
                     double sum = 0.0;
                     for (const double r : residuals)
                         sum += std::min(r * r, g_threshold * g_threshold);
                     return sum;
                 });
}
BENCHMARK(scoreMSAC)->Arg(10000)->Arg(1000000)->UseManualTime()->Unit(benchmark::kMicrosecond);

void scoreLMS(benchmark::State& state)
{
    OpenScorer<LMSRobustEstimator> scorer;
    scorer.init(boost::make_shared<SurfaceEstimator>());
    std::vector<double> squares;
    compareScore(state, scorer,
                 [&squares](const std::vector<double>& residuals)
                 {
                     squares.resize(residuals.size());
                     for (std::size_t i = 0; i < residuals.size(); ++i)
                         squares[i] = residuals[i] * residuals[i];
                     const auto median = squares.begin() + static_cast<std::ptrdiff_t>(squares.size() / 2);
                     std::nth_element(squares.begin(), median, squares.end());
                     return (*median + *std::max_element(squares.begin(), median)) * 0.5;
                 });
}
BENCHMARK(scoreLMS)->Arg(10000)->Arg(1000000)->UseManualTime()->Unit(benchmark::kMicrosecond);

void scoreMLESAC(benchmark::State& state)
{
    OpenScorer<MLESACRobustEstimator> scorer;
    const double rangeFactor = 100.0;
    scorer.init(boost::make_shared<SurfaceEstimator>(), g_sigma, g_threshold / g_sigma, rangeFactor);
    compareScore(state, scorer,
                 [=](const std::vector<double>& residuals)
                 {
                     const auto n = static_cast<double>(residuals.size());
                     double nbInliers = std::floor((1.0 - g_outlierRatio) * n + 0.5);
                     double nbPreviousInliers = n + 1.0;
                     double a = 0.0;
                     double b = 0.0;
                     for (int i = 0; nbInliers != nbPreviousInliers && i < 10; ++i)
                     {
                         a = nbInliers / n / std::sqrt(6.283185307179586 * g_sigma);
                         b = (n - nbInliers) / n / (g_sigma * rangeFactor);
                         double sum = 0.0;
                         for (const double r : residuals)
                         {
                             const double inlier = a * std::exp(r * r / (-2.0 * g_sigma * g_sigma));
                             sum += inlier / (b + inlier);
                         }
                         nbPreviousInliers = nbInliers;
                         nbInliers = std::floor(sum + 0.5);
                     }
                     double score = 0.0;
                     for (const double r : residuals)
                         score -= std::log(a * std::exp(r * r / (-2.0 * g_sigma * g_sigma)) + b);
                     return score;
                 });
}
BENCHMARK(scoreMLESAC)->Arg(10000)->Arg(1000000)->UseManualTime()->Unit(benchmark::kMicrosecond);

} // namespace

} // namespace math
} // namespace ovrix
