#include <OVRIXMath/Statistics/Histogram.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <string>
#include <support/Histograms.h>
#include <vector>

/// @file
/// Histograms of the grey values of two photographs: a man with a camera in a dark coat before a bright sky, and coins
/// under uneven light.

namespace ovrix
{
namespace math
{

namespace
{

using clustering::KernelKMeansClusteringConfig;
using clustering::KMeansClusteringConfig;
using clustering::KMeansClusteringPtr;
using clustering::LinearKernel;
using clustering::RadialBasisKernel;
using clustering::UInt32Vector;

const char* const g_camera = "camera.pgm";
const char* const g_coins = "coins.pgm";

Histogram<true> makeGreyHistogram(const std::string& fileName)
{
    Histogram<true> histogram;
    histogram.initFromExisting(0.0, 255.0, 1.0, test::countGreyValues(fileName), eHOOBP_Ignored);
    return histogram;
}

std::vector<ovUInt32> binsOf(const std::vector<HistogramExtrema>& extrema)
{
    std::vector<ovUInt32> bins;
    for (const HistogramExtrema& extremum : extrema)
        bins.push_back(extremum._binIdx);
    return bins;
}

/// Sum of the squared distances of the grey values in [begin, end) to their mean, from sums over all grey values.
class Spread
{
public:
    explicit Spread(const BaseHistogram& histogram) : _count(257, 0.0), _sum(257, 0.0), _squares(257, 0.0)
    {
        const std::vector<double> midValues = histogram.getBinMidValues();
        for (std::size_t b = 0; b < 256; ++b)
        {
            const double population = static_cast<double>(histogram.getHistogramPopulation()[b]);
            _count[b + 1] = _count[b] + population;
            _sum[b + 1] = _sum[b] + population * midValues[b];
            _squares[b + 1] = _squares[b] + population * midValues[b] * midValues[b];
        }
    }

    double operator()(std::size_t begin, std::size_t end) const
    {
        const double count = _count[end] - _count[begin];
        const double sum = _sum[end] - _sum[begin];
        return count == 0.0 ? 0.0 : _squares[end] - _squares[begin] - sum * sum / count;
    }

private:
    std::vector<double> _count;
    std::vector<double> _sum;
    std::vector<double> _squares;
};

/// The least compactness of all ways to cut the grey values in two or in three.
double findLeastCompactness(const BaseHistogram& histogram, ovUInt32 nbClusters)
{
    const Spread spread(histogram);
    double least = spread(0, 256);
    for (std::size_t first = 0; first < 256; ++first)
    {
        for (std::size_t second = nbClusters == 2 ? 256 : first; second <= 256; ++second)
            least = std::min(least, spread(0, first) + spread(first, second) + spread(second, 256));
    }
    return least;
}

KMeansClusteringPtr findClusters(const std::string& fileName, ovUInt32 nbClusters)
{
    RandomUniformGenerator::getGen().seed(97);
    KMeansClusteringConfig config;
    config.setNbAttempts(4);
    return makeGreyHistogram(fileName).applyKMeansClustering(nbClusters, false, config);
}

/// The centres in grey values, ascending.
std::vector<double> centersOf(const KMeansClusteringPtr& pClustering)
{
    std::vector<double> centers;
    for (const Vector& center : pClustering->getClustersCenters())
        centers.push_back(center(0));
    std::sort(centers.begin(), centers.end());
    return centers;
}

/// Classes of eight grey values with one sample for 512 pixels, as the kernel methods build matrices of all samples.
Histogram<false> makeThinned(const std::string& fileName)
{
    const UInt64Vector greys = test::countGreyValues(fileName);
    UInt64Vector population(32, 0);
    for (std::size_t grey = 0; grey < greys.size(); ++grey)
        population[grey / 8] += greys[grey];
    for (unsigned long& count : population)
        count = (count + 256) / 512;
    Histogram<false> histogram;
    histogram.initFromExisting(0.0, 256.0, 8.0, population, eHOOBP_Ignored);
    return histogram;
}

/// The grey values between samples of different labels, the samples being those of a histogram, in ascending order.
std::vector<double> findCuts(const BaseHistogram& histogram, const UInt32Vector& labels)
{
    clustering::VectorColl samples;
    histogram.collectClusteringData(false, samples);
    std::vector<double> cuts;
    for (std::size_t i = 1; i < labels.size(); ++i)
        if (labels[i] != labels[i - 1])
            cuts.push_back(0.5 * (samples[i - 1](0) + samples[i](0)));
    return cuts;
}

/// Expects cuts of the same number that are at most two classes of makeThinned() away.
void expectNear(const std::vector<double>& cuts, const std::vector<double>& expected)
{
    ASSERT_EQ(cuts.size(), expected.size());
    for (std::size_t i = 0; i < cuts.size(); ++i)
        EXPECT_NEAR(cuts[i], expected[i], 16.0);
}

/// The surroundings of the highest peak, down to half of its height, on an axis on which they have the length 1 and the
/// peak stands near 0: the powers of far larger numbers would leave the fit without digits.
struct PeakSurroundings
{
    explicit PeakSurroundings(const std::string& fileName)
    {
        const UInt64Vector population = test::countGreyValues(fileName);
        const auto peak = std::max_element(population.begin(), population.end());
        auto begin = peak;
        auto end = peak;
        while (begin != population.begin() && 2 * *std::prev(begin) >= *peak)
            --begin;
        while (end != population.end() && 2 * *end >= *peak)
            ++end;
        height = static_cast<double>(*peak);
        grey = static_cast<double>(peak - population.begin());
        unit = static_cast<double>(end - begin);
        const double first = (static_cast<double>(begin - population.begin()) - grey) / unit;
        histogram.updateHistogramParams(first, first + 1.0, static_cast<ovUInt32>(end - begin), eHOOBP_Ignored);
        histogram.initFromExisting(first, first + 1.0, histogram.getBinWidth(), UInt64Vector(begin, end),
                                   eHOOBP_Ignored);
    }

    /// The fitted mean as a grey value; the middle of the class of a grey value is half a class above it.
    double greyOf(double mu) const
    {
        return mu * unit + grey - 0.5;
    }

    double height;
    double grey;
    double unit;
    Histogram<false> histogram;
};

HistogramGaussianCurveFit fitPeak(const PeakSurroundings& surroundings, const EstimationConfig& config)
{
    RandomUniformGenerator::getGen().seed(98);
    return surroundings.histogram.fitGaussianCurve(config, false);
}

EstimationConfig makeRANSAC(double threshold)
{
    EstimationConfig config;
    config.initRANSAC(threshold, 0.3);
    return config;
}

EstimationConfig makeLMS()
{
    EstimationConfig config;
    config.initLMS(0.3);
    return config;
}

/// Root mean square of the distances between a Gaussian and the classes that are no outliers.
double computeInlierDistance(const PeakSurroundings& surroundings, const HistogramGaussianCurveFit& fit)
{
    const std::vector<double> midValues = surroundings.histogram.getBinMidValues();
    const UInt64Vector& population = surroundings.histogram.getHistogramPopulation();
    const OutlierFlags& flags = fit._estimationResults.getOutlierFlags();
    double sum = 0.0;
    for (std::size_t b = 0; b < population.size(); ++b)
    {
        const double z = (midValues[b] - fit._csteMu) / fit._csteSigma;
        const double residual = static_cast<double>(population[b]) - fit._csteA * std::exp(-0.5 * z * z);
        if (!flags[b])
            sum += residual * residual;
    }
    return std::sqrt(sum / static_cast<double>(population.size()));
}

} // namespace

TEST(HistogramOfPhotograph, EveryPixelIsCounted)
{
    const Histogram<true> camera = makeGreyHistogram(g_camera);
    camera.updateCumulated();
    EXPECT_EQ(camera.getCumulatedHistogramPopulation().back(), 512u * 512u);
    const Histogram<true> coins = makeGreyHistogram(g_coins);
    coins.updateCumulated();
    EXPECT_EQ(coins.getCumulatedHistogramPopulation().back(), 384u * 303u);
}

TEST(HistogramOfPhotograph, TheCoatIsTheMostFrequentGrey)
{
    EXPECT_EQ(makeGreyHistogram(g_camera).getMaxPopulationClassIdx(), 27u);
    EXPECT_EQ(makeGreyHistogram(g_coins).getMaxPopulationClassIdx(), 36u);
}

TEST(HistogramOfPhotograph, HalfOfThePixelsAreNotAboveTheMedian)
{
    for (const char* const fileName : {g_camera, g_coins})
    {
        const Histogram<true> histogram = makeGreyHistogram(fileName);
        const UInt64Vector& population = histogram.getHistogramPopulation();
        const ovUInt32 median = histogram.getQuantileClassIdx(0.5);
        const unsigned long total = std::accumulate(population.begin(), population.end(), 0ul);
        const unsigned long below = std::accumulate(population.begin(), population.begin() + median, 0ul);
        EXPECT_LT(2 * below, total);
        EXPECT_GE(2 * (below + population[median]), total);
    }
}

TEST(HistogramOfPhotograph, ThePeaksThatStandOutAreFew)
{
    const Histogram<true> camera = makeGreyHistogram(g_camera);
    EXPECT_EQ(binsOf(camera.findLocalDilatedMaxima(1600, eEBP_Include, 0.0, 0)),
              (std::vector<ovUInt32>{5, 27, 153, 208}));
    EXPECT_EQ(binsOf(camera.findLocalDilatedMinima(1600, eEBP_Exclude, 0.0, 100000)),
              (std::vector<ovUInt32>{14, 97, 179}));
    const Histogram<true> coins = makeGreyHistogram(g_coins);
    EXPECT_EQ(binsOf(coins.findLocalDilatedMaxima(100, eEBP_Include, 0.0, 0)),
              (std::vector<ovUInt32>{36, 88, 122, 159}));
    EXPECT_EQ(binsOf(coins.findLocalDilatedMinima(100, eEBP_Exclude, 0.0, 100000)),
              (std::vector<ovUInt32>{78, 109, 140}));
}

TEST(HistogramOfPhotograph, TheHigherAPeakMustRiseTheFewerThereAre)
{
    for (const char* const fileName : {g_camera, g_coins})
    {
        const Histogram<true> histogram = makeGreyHistogram(fileName);
        std::size_t nbPeaks = histogram.findLocalDilatedMaxima(0, eEBP_Include, 0.0, 0).size();
        EXPECT_GT(nbPeaks, 30u);
        for (unsigned long factor = 1; factor < 5000; factor *= 2)
        {
            const std::size_t nbHigher = histogram.findLocalDilatedMaxima(factor, eEBP_Include, 0.0, 0).size();
            EXPECT_LE(nbHigher, nbPeaks) << factor;
            nbPeaks = nbHigher;
        }
        EXPECT_LE(nbPeaks, 2u);
    }
}

TEST(HistogramOfPhotograph, PeaksFarApartAreTheHighestOfTheirSurroundings)
{
    const Histogram<true> histogram = makeGreyHistogram(g_camera);
    const UInt64Vector& population = histogram.getHistogramPopulation();
    const UInt32Vector peaks = histogram.findLocalMaxima(true, eEBP_Include, 20.0, 300);
    ASSERT_FALSE(peaks.empty());
    EXPECT_EQ(std::count(peaks.begin(), peaks.end(), 27u), 1);
    for (std::size_t i = 0; i < peaks.size(); ++i)
    {
        EXPECT_GT(population[peaks[i]], 300u);
        EXPECT_GT(population[peaks[i]], population[peaks[i] - 1]);
        EXPECT_GT(population[peaks[i]], population[peaks[i] + 1]);
        if (i > 0)
        {
            EXPECT_GT(peaks[i] - peaks[i - 1], 20u);
        }
    }
}

TEST(HistogramOfPhotograph, TwoClustersAreTheBestCut)
{
    for (const char* const fileName : {g_camera, g_coins})
    {
        const KMeansClusteringPtr pClustering = findClusters(fileName, 2);
        ASSERT_TRUE(pClustering->isClusteringDone());
        const double least = findLeastCompactness(makeGreyHistogram(fileName), 2);
        // Some hundred thousand roundings.
        EXPECT_NEAR(pClustering->getCompactness(), least, 1e-9 * least);
    }
}

TEST(HistogramOfPhotograph, ThreeClustersAreTheBestCut)
{
    for (const char* const fileName : {g_camera, g_coins})
    {
        const KMeansClusteringPtr pClustering = findClusters(fileName, 3);
        ASSERT_TRUE(pClustering->isClusteringDone());
        const double least = findLeastCompactness(makeGreyHistogram(fileName), 3);
        // Each attempt ends in a cut that no single pixel improves, a few pixels away from the best one.
        EXPECT_GE(pClustering->getCompactness(), (1.0 - 1e-9) * least);
        EXPECT_LE(pClustering->getCompactness(), 1.01 * least);
    }
}

TEST(HistogramOfPhotograph, TheClustersAreCoatBuildingsAndSky)
{
    const std::vector<double> centers = centersOf(findClusters(g_camera, 3));
    EXPECT_NEAR(centers[0], 28.0, 2.0);
    EXPECT_NEAR(centers[1], 148.0, 2.0);
    EXPECT_NEAR(centers[2], 205.0, 2.0);
}

TEST(HistogramOfPhotograph, TheClustersAreBackgroundAndCoins)
{
    const KMeansClusteringPtr pClustering = findClusters(g_coins, 2);
    EXPECT_NEAR(pClustering->getClusterCenter(0)(0), 61.0, 2.0);
    EXPECT_NEAR(pClustering->getClusterCenter(1)(0), 155.0, 2.0);
    EXPECT_GT(pClustering->getClusterPopulation(0), pClustering->getClusterPopulation(1));
}

TEST(HistogramOfPhotograph, TheThreeMethodsCutTheGreyValuesAlike)
{
    for (const char* const fileName : {g_camera, g_coins})
        for (const ovUInt32 nbClusters : {2, 3})
        {
            RandomUniformGenerator::getGen().seed(96);
            const Histogram<false> histogram = makeThinned(fileName);
            const KMeansClusteringPtr pKMeans =
                histogram.applyKMeansClustering(nbClusters, false, KMeansClusteringConfig());
            ASSERT_TRUE(pKMeans->isClusteringDone());
            const std::vector<double> cuts = findCuts(histogram, pKMeans->getAssignments());
            ASSERT_EQ(cuts.size(), nbClusters - 1);

            // About the size of a cluster.
            const auto pKernelKMeans = histogram.applyKernelKMeansClustering(
                nbClusters, RadialBasisKernel::createKernel(60.0), false, KernelKMeansClusteringConfig());
            ASSERT_TRUE(pKernelKMeans->isClusteringDone());
            expectNear(findCuts(histogram, pKernelKMeans->getAssignments()), cuts);

            // Some classes wide, which joins neighbours and little else.
            const auto pSpectral = histogram.applySpectralClustering(nbClusters, RadialBasisKernel::createKernel(20.0),
                                                                     false, KernelKMeansClusteringConfig());
            ASSERT_TRUE(pSpectral->isClusteringDone());
            expectNear(findCuts(histogram, pSpectral->getAssignments()), cuts);
        }
}

TEST(HistogramOfPhotograph, WithALinearKernelTwoClustersAreThoseOfKMeans)
{
    for (const char* const fileName : {g_camera, g_coins})
    {
        RandomUniformGenerator::getGen().seed(95);
        const Histogram<false> histogram = makeThinned(fileName);
        const KMeansClusteringPtr pKMeans = histogram.applyKMeansClustering(2, false, KMeansClusteringConfig());
        const auto pKernelKMeans = histogram.applyKernelKMeansClustering(2, LinearKernel::createKernel(), false,
                                                                         KernelKMeansClusteringConfig());
        EXPECT_EQ(pKernelKMeans->getAssignments(), pKMeans->getAssignments());
    }
}

TEST(HistogramOfPhotograph, RANSACFitsTheHighestPeak)
{
    const PeakSurroundings camera(g_camera);
    const HistogramGaussianCurveFit fit = fitPeak(camera, makeRANSAC(0.1 * camera.height));
    ASSERT_TRUE(fit._estimationResults.getEstimationStatus());
    EXPECT_TRUE(fit._estimationResults.hasRobustEstimationDone());
    EXPECT_NEAR(fit._csteA, camera.height, 0.05 * camera.height);
    EXPECT_NEAR(camera.greyOf(fit._csteMu), camera.grey, 1.0);
    EXPECT_NEAR(fit._csteSigma * camera.unit, 3.5, 0.5);
    EXPECT_EQ(fit._estimationResults.getEstimOutlierThreshold(), 0.1 * camera.height);
    EXPECT_NEAR(fit._estimationResults.getInliersRms(), computeInlierDistance(camera, fit), 1e-6);
}

TEST(HistogramOfPhotograph, LMSFitsTheHighestPeak)
{
    const PeakSurroundings camera(g_camera);
    const HistogramGaussianCurveFit fit = fitPeak(camera, makeLMS());
    ASSERT_TRUE(fit._estimationResults.getEstimationStatus());
    EXPECT_NEAR(fit._csteA, camera.height, 0.05 * camera.height);
    EXPECT_NEAR(camera.greyOf(fit._csteMu), camera.grey, 1.0);
    EXPECT_NEAR(fit._csteSigma * camera.unit, 3.5, 0.5);
    EXPECT_LT(fit._estimationResults.getEstimOutlierThreshold(), 0.1 * camera.height);
    EXPECT_NEAR(fit._estimationResults.getInliersRms(), computeInlierDistance(camera, fit), 1e-6);
}

TEST(HistogramOfPhotograph, ABroadPeakIsFittedToATenthOfItsHeight)
{
    const PeakSurroundings coins(g_coins);
    for (const EstimationConfig& config : {makeRANSAC(0.1 * coins.height), makeLMS()})
    {
        const HistogramGaussianCurveFit fit = fitPeak(coins, config);
        ASSERT_TRUE(fit._estimationResults.getEstimationStatus());
        EXPECT_LT(fit._estimationResults.getInliersRms(), 0.1 * coins.height);
        EXPECT_LT(fit._estimationResults.getOutlierRatio(), 0.3);
        EXPECT_NEAR(fit._estimationResults.getInliersRms(), computeInlierDistance(coins, fit), 1e-6);
    }
}

TEST(HistogramOfPhotograph, GreyValuesAsTheyAreLeaveTheFitWithoutDigits)
{
    EstimationConfig config;
    config.initNonRobust();
    const HistogramGaussianCurveFit fit = makeGreyHistogram(g_camera).fitGaussianCurve(config, false);
    EXPECT_FALSE(fit._estimationResults.getEstimationStatus());
    EXPECT_EQ(fit._estimationResults.getEstimationStatus().getMessage(),
              "Invalid matrix rank 2 for gaussian curve estimation, expecting a full matrix rank [3]");
}

} // namespace math
} // namespace ovrix
