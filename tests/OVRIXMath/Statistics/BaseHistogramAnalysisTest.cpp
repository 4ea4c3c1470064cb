#include <OVRIXMath/Estimation/EstimationUtils.h>
#include <OVRIXMath/Statistics/GaussianCurve2dEstimator.h>
#include <OVRIXMath/Statistics/Histogram.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <random>
#include <string>
#include <support/Builders.h>
#include <support/ExpectFailure.h>
#include <support/Histograms.h>
#include <vector>

namespace ovrix
{
namespace math
{

namespace
{

using clustering::KMeansClusteringConfig;
using clustering::KMeansClusteringPtr;
using clustering::UInt32Vector;
using clustering::VectorColl;
using test::expectFailure;
using test::expectMathRaises;
using test::makeHistogram;

using Extrema = std::vector<HistogramExtrema>;

const eExtremaBorderPolicy g_policies[] = {eEBP_Include, eEBP_Exclude, eEBP_Periodic};
const eExtremaType g_types[] = {eET_Minima, eET_Maxima};

/// A histogram whose populations all differ, so that one of two extrema is always the stronger one.
Histogram<false> makeDistinct(std::mt19937& generator)
{
    Histogram<false> histogram = test::randomHistogram<false>(generator);
    UInt64Vector population(histogram.getNbBins());
    std::iota(population.begin(), population.end(), generator() % 3);
    std::shuffle(population.begin(), population.end(), generator);
    const ovUInt32 lower = histogram.getLowerOutOfBoundsBinIdx();
    const bool bDedicated = histogram.getInBoundsBinOffset() == 1;
    const bool bUpper = lower == histogram.getNbClasses();
    const bool bNearest = !bDedicated && lower == 0;
    const eHistogramOutOfBoundsPolicy policy = bDedicated ? eHOOBP_Dedicated
                                               : bUpper   ? eHOOBP_DedicatedUpper
                                               : bNearest ? eHOOBP_Nearest
                                                          : eHOOBP_Ignored;
    histogram.initFromExisting(histogram.getFirstHistoValue(), histogram.getLastHistoValue(), histogram.getBinWidth(),
                               population, policy);
    return histogram;
}

UInt32Vector findExtrema(const BaseHistogram& histogram, eExtremaType type, bool bStrict, eExtremaBorderPolicy policy,
                         double minDistance, unsigned long threshold)
{
    return type == eET_Maxima ? histogram.findLocalMaxima(bStrict, policy, minDistance, threshold)
                              : histogram.findLocalMinima(bStrict, policy, minDistance, threshold);
}

Extrema findDilated(const BaseHistogram& histogram, eExtremaType type, unsigned long dilateFactor,
                    eExtremaBorderPolicy policy, double minDistance, unsigned long threshold)
{
    return type == eET_Maxima ? histogram.findLocalDilatedMaxima(dilateFactor, policy, minDistance, threshold)
                              : histogram.findLocalDilatedMinima(dilateFactor, policy, minDistance, threshold);
}

// The analyses as they are defined, on top of the extrema searches, which have tests of their own.

/// The candidates that are strong enough and far enough from stronger ones, in their order.
template <class Candidate>
std::vector<Candidate> plainFilter(eExtremaType type, double minDistance, unsigned long threshold,
                                   const std::vector<Candidate>& candidates)
{
    std::vector<Candidate> sorted = candidates;
    std::stable_sort(sorted.begin(), sorted.end(),
                     [type](const Candidate& a, const Candidate& b)
                     { return type == eET_Maxima ? a._population > b._population : a._population < b._population; });
    std::vector<double> kept;
    for (const Candidate& candidate : sorted)
    {
        const bool bWeak = type == eET_Maxima ? threshold >= candidate._population : candidate._population >= threshold;
        const bool bClose = std::any_of(
            kept.begin(), kept.end(), [&](double coord) { return minDistance >= std::fabs(coord - candidate._coord); });
        if (!bWeak && !(minDistance > 0.0 && bClose))
            kept.push_back(candidate._coord);
    }
    std::vector<Candidate> result;
    for (const Candidate& candidate : candidates)
    {
        if (std::find(kept.begin(), kept.end(), candidate._coord) != kept.end())
            result.push_back(candidate);
    }
    return result;
}

UInt32Vector plainExtrema(const BaseHistogram& histogram, eExtremaType type, bool bStrict, eExtremaBorderPolicy policy,
                          double minDistance, unsigned long threshold)
{
    UInt32Vector bins;
    if (bStrict)
        findLocalStrictExtrema(histogram.getHistogramPopulation(), policy, type, bins);
    else
        findLocalExtrema(histogram.getHistogramPopulation(), policy, type, bins);
    Extrema candidates;
    for (const unsigned int b : bins)
        candidates.push_back({b, histogram.getBinMidValues()[b], histogram.getHistogramPopulation()[b]});
    UInt32Vector result;
    for (const HistogramExtrema& extrema : plainFilter(type, minDistance, threshold, candidates))
        result.push_back(extrema._binIdx);
    std::sort(result.begin(), result.end());
    // With a distance asked for, the last element is too close to itself to be kept twice.
    if (minDistance > 0.0)
        result.erase(std::unique(result.begin(), result.end()), result.end());
    return result;
}

ovUInt32 plainBin(const BaseHistogram& histogram, double coord)
{
    if (histogram.getFirstHistoValue() > coord)
        return histogram.getLowerOutOfBoundsBinIdx();
    if (coord > histogram.getLastHistoValue())
        return histogram.getUpperOutOfBoundsBinIdx();
    auto k = static_cast<ovUInt32>((coord - histogram.getFirstHistoValue()) / histogram.getBinWidth());
    if (k == histogram.getNbClasses())
        --k;
    return k + histogram.getInBoundsBinOffset();
}

/// Whether a range runs across the end of the table.
bool hasRangeAcrossTheEnd(const BaseHistogram& histogram, const ExtremaRangeColl& ranges)
{
    return std::any_of(ranges.begin(), ranges.end(),
                       [&histogram](const ExtremaRange& range)
                       { return range.first + range.second > histogram.getNbBins(); });
}

Extrema plainDilated(const BaseHistogram& histogram, eExtremaType type, const ExtremaRangeColl& ranges,
                     double minDistance, unsigned long threshold)
{
    Extrema candidates;
    for (const ExtremaRange& range : ranges)
    {
        double weighted = 0.0;
        unsigned long sum = 0;
        for (unsigned long b = range.first; b < range.first + range.second; ++b)
        {
            const unsigned long population = histogram.getHistogramPopulation()[b];
            sum += population;
            weighted += static_cast<double>(population) * histogram.getBinMidValues()[b];
        }
        const double coord = sum == 0 ? weighted : weighted / static_cast<double>(sum);
        candidates.push_back({plainBin(histogram, coord), coord, sum});
    }
    return plainFilter(type, minDistance, threshold, candidates);
}

template <bool bIntegral>
std::vector<double> plainSamples(const Histogram<bIntegral>& histogram, bool bIncludeOutOfBounds)
{
    std::vector<double> samples;
    for (ovUInt32 b = 0; b < histogram.getNbBins(); ++b)
    {
        const ovUInt32 offset = histogram.getInBoundsBinOffset();
        if (!bIncludeOutOfBounds && (b < offset || b >= offset + histogram.getNbClasses()))
            continue;
        for (unsigned long i = 0; i < histogram.getHistogramPopulation()[b]; ++i)
            samples.push_back(histogram.getBinMidValues()[b]);
    }
    return samples;
}

std::vector<double> collect(const BaseHistogram& histogram, bool bIncludeOutOfBounds)
{
    VectorColl data(3);
    histogram.collectClusteringData(bIncludeOutOfBounds, data);
    std::vector<double> samples;
    for (const Vector& sample : data)
    {
        EXPECT_EQ(sample.size(), 1u);
        samples.push_back(sample(0));
    }
    return samples;
}

EstimationConfig makePlainConfig()
{
    return createNonRobustConfig();
}

EstimationConfig makeRobustConfig(bool bAllowSimple)
{
    EstimationConfig config;
    config.initRANSAC(5.0, 0.4);
    config.setAllowSimpleEstimation(bAllowSimple);
    return config;
}

/// 1000 exp(-(x - 6)^2 / (2 2^2)) over [0, 12] in twelve classes, rounded, with dedicated bins of 40 around them.
Histogram<false> makeBell()
{
    UInt64Vector population(14, 40);
    for (std::size_t i = 0; i < 12; ++i)
    {
        const double x = static_cast<double>(i) + 0.5 - 6.0;
        population[i + 1] = static_cast<unsigned long>(1000.0 * std::exp(-x * x / 8.0) + 0.5);
    }
    return makeHistogram(eHOOBP_Dedicated, population);
}

} // namespace

TEST(BaseHistogramAnalysis, ExtremaAgreeWithTheirDefinition)
{
    std::mt19937 generator(81);
    for (int draw = 0; draw < 400; ++draw)
    {
        const Histogram<false> histogram = makeDistinct(generator);
        const double minDistance = 0.5 * static_cast<double>(generator() % 12);
        const unsigned long threshold = generator() % 15;
        for (const eExtremaBorderPolicy policy : g_policies)
            for (const eExtremaType type : g_types)
                for (const bool bStrict : {false, true})
                    EXPECT_EQ(findExtrema(histogram, type, bStrict, policy, minDistance, threshold),
                              plainExtrema(histogram, type, bStrict, policy, minDistance, threshold));
    }
}

TEST(BaseHistogramAnalysis, PlateausAgreeWithTheirDefinition)
{
    std::mt19937 generator(82);
    for (int draw = 0; draw < 400; ++draw)
    {
        const Histogram<true> histogram = test::randomHistogram<true>(generator);
        const unsigned long threshold = generator() % 9;
        for (const eExtremaBorderPolicy policy : g_policies)
            for (const eExtremaType type : g_types)
                for (const bool bStrict : {false, true})
                    EXPECT_EQ(findExtrema(histogram, type, bStrict, policy, 0.0, threshold),
                              plainExtrema(histogram, type, bStrict, policy, 0.0, threshold));
    }
}

TEST(BaseHistogramAnalysis, DilatedExtremaAgreeWithTheirDefinition)
{
    std::mt19937 generator(83);
    int nbAcross = 0;
    for (int draw = 0; draw < 2000; ++draw)
    {
        const Histogram<false> histogram = makeDistinct(generator);
        const double minDistance = 0.5 * static_cast<double>(generator() % 12);
        const unsigned long threshold = generator() % 40;
        const unsigned long dilateFactor = generator() % 6;
        const eExtremaBorderPolicy policy = g_policies[generator() % 3];
        const eExtremaType type = g_types[generator() % 2];
        ExtremaRangeColl ranges;
        findLocalDilatedExtrema(histogram.getHistogramPopulation(), policy, type, dilateFactor, ranges);
        if (hasRangeAcrossTheEnd(histogram, ranges))
        {
            ++nbAcross;
            continue;
        }
        // Sums may be equal, and which of two equally strong extrema is kept is not defined.
        const Extrema all = plainDilated(histogram, type, ranges, 0.0, type == eET_Maxima ? 0 : 1000);
        const bool bTie = std::any_of(all.begin(), all.end(),
                                      [&all](const HistogramExtrema& a)
                                      {
                                          return std::count_if(all.begin(), all.end(),
                                                               [&a](const HistogramExtrema& b)
                                                               { return a._population == b._population; }) > 1;
                                      });
        if (bTie)
            continue;
        EXPECT_EQ(findDilated(histogram, type, dilateFactor, policy, minDistance, threshold),
                  plainDilated(histogram, type, ranges, minDistance, threshold));
    }
    EXPECT_GT(nbAcross, 0);
}

TEST(BaseHistogramAnalysis, AMaximumOfTheThresholdIsDropped)
{
    const Histogram<false> histogram = makeHistogram(eHOOBP_Ignored, {0, 4, 0, 5, 0, 6, 0, 0});
    EXPECT_EQ(histogram.findLocalMaxima(true, eEBP_Exclude, 0.0, 4), UInt32Vector({3, 5}));
    EXPECT_EQ(histogram.findLocalMaxima(false, eEBP_Exclude, 0.0, 5), UInt32Vector({5}));
}

TEST(BaseHistogramAnalysis, AMinimumOfTheThresholdIsDropped)
{
    const Histogram<false> histogram = makeHistogram(eHOOBP_Ignored, {9, 4, 9, 5, 9, 6, 9, 9});
    EXPECT_EQ(histogram.findLocalMinima(true, eEBP_Exclude, 0.0, 5), UInt32Vector({1}));
    EXPECT_EQ(histogram.findLocalMinima(false, eEBP_Exclude, 0.0, 6), UInt32Vector({1, 3}));
}

TEST(BaseHistogramAnalysis, TheDistanceOfExtremaIsMeasuredInValues)
{
    Histogram<false> histogram;
    histogram.initFromExisting(0.0, 20.0, 2.5, {0, 4, 0, 5, 0, 6, 0, 0}, eHOOBP_Ignored);
    // The peaks stand two classes, that is 5, apart.
    EXPECT_EQ(histogram.findLocalMaxima(true, eEBP_Exclude, 4.99, 0), UInt32Vector({1, 3, 5}));
    EXPECT_EQ(histogram.findLocalMaxima(true, eEBP_Exclude, 5.0, 0), UInt32Vector({1, 5}));
}

TEST(BaseHistogramAnalysis, BinsOutsideOfTheIntervalCanBeExtrema)
{
    const Histogram<false> histogram = makeHistogram(eHOOBP_Dedicated, {9, 1, 5, 1, 8});
    EXPECT_EQ(histogram.findLocalMaxima(false, eEBP_Include, 0.0, 0), UInt32Vector({0, 2, 4}));
}

TEST(BaseHistogramAnalysis, TheLastBinIsAStrictExtremumTwiceUnlessADistanceIsAskedFor)
{
    const Histogram<false> histogram = makeHistogram(eHOOBP_Ignored, {1, 0, 1, 0, 2});
    EXPECT_EQ(histogram.findLocalMaxima(true, eEBP_Include, 0.0, 0), UInt32Vector({0, 2, 4, 4}));
    EXPECT_EQ(histogram.findLocalMaxima(true, eEBP_Include, 0.1, 0), UInt32Vector({0, 2, 4}));
}

TEST(BaseHistogramAnalysis, ADilatedMaximumLiesAtTheMeanOfItsBins)
{
    const Histogram<false> histogram = makeHistogram(eHOOBP_Ignored, {0, 5, 4, 6, 0});
    // (5 * 1.5 + 4 * 2.5 + 6 * 3.5) / 15 = 38.5 / 15
    EXPECT_EQ(histogram.findLocalDilatedMaxima(2, eEBP_Include, 0.0, 0), Extrema({{2, 38.5 / 15.0, 15}}));
    EXPECT_EQ(histogram.findLocalDilatedMaxima(0, eEBP_Include, 0.0, 0), Extrema({{1, 1.5, 5}, {3, 3.5, 6}}));
}

TEST(BaseHistogramAnalysis, TheThresholdOfADilatedExtremumIsComparedWithItsWholePopulation)
{
    const Histogram<false> histogram = makeHistogram(eHOOBP_Ignored, {0, 5, 4, 6, 0, 7, 0});
    EXPECT_EQ(histogram.findLocalDilatedMaxima(2, eEBP_Include, 0.0, 14), Extrema({{2, 38.5 / 15.0, 15}}));
    EXPECT_EQ(histogram.findLocalDilatedMaxima(2, eEBP_Include, 0.0, 15), Extrema());
}

TEST(BaseHistogramAnalysis, ARangeOfEmptyBinsLiesAtZero)
{
    Histogram<false> histogram;
    histogram.initFromExisting(-10.0, 10.0, 4.0, {5, 0, 0, 5, 5}, eHOOBP_Ignored);
    EXPECT_EQ(histogram.findLocalDilatedMinima(0, eEBP_Exclude, 0.0, 1), Extrema({{2, 0.0, 0}}));
}

TEST(BaseHistogramAnalysis, AnEmptyRangeOutsideOfTheIntervalHasTheBinOutsideOfIt)
{
    Histogram<false> above;
    above.initFromExisting(1.0, 4.0, 1.0, {5, 0, 5}, eHOOBP_Ignored);
    EXPECT_EQ(above.findLocalDilatedMinima(0, eEBP_Exclude, 0.0, 1), Extrema({{4294967295u, 0.0, 0}}));
    above.initFromExisting(1.0, 4.0, 1.0, {9, 5, 0, 5, 9}, eHOOBP_Dedicated);
    EXPECT_EQ(above.findLocalDilatedMinima(0, eEBP_Exclude, 0.0, 1), Extrema({{0, 0.0, 0}}));
    Histogram<false> below;
    below.initFromExisting(-4.0, -1.0, 1.0, {9, 5, 0, 5, 9}, eHOOBP_Dedicated);
    EXPECT_EQ(below.findLocalDilatedMinima(0, eEBP_Exclude, 0.0, 1), Extrema({{4, 0.0, 0}}));
}

TEST(BaseHistogramAnalysis, ExtremaOutsideOfTheIntervalHaveTheirBins)
{
    const Histogram<false> histogram = makeHistogram(eHOOBP_Dedicated, {9, 1, 5, 1, 8});
    EXPECT_EQ(histogram.findLocalDilatedMaxima(1, eEBP_Include, 0.0, 0),
              Extrema({{0, -0.5, 9}, {2, 1.5, 5}, {4, 3.5, 8}}));
}

TEST(BaseHistogramAnalysis, ACoordinateAtTheEndOfTheIntervalBelongsToTheLastClass)
{
    // The last class and the bin above it, equally filled, have their mean at 2, where class 2 would begin.
    const Histogram<false> histogram = makeHistogram(eHOOBP_DedicatedUpper, {1, 4, 4});
    EXPECT_EQ(histogram.findLocalDilatedMaxima(0, eEBP_Include, 0.0, 0), Extrema({{1, 2.0, 8}}));
}

TEST(BaseHistogramAnalysis, ACoordinateAtTheStartOfTheIntervalBelongsToTheFirstClass)
{
    // The bin below and the first class, equally filled, have their mean at 0, where the interval begins.
    const Histogram<false> histogram = makeHistogram(eHOOBP_Dedicated, {4, 4, 1, 0});
    EXPECT_EQ(histogram.findLocalDilatedMaxima(0, eEBP_Include, 0.0, 0), Extrema({{1, 0.0, 8}}));
}

TEST(BaseHistogramAnalysis, ARangeAcrossTheEndOfACircleRaises)
{
    const Histogram<false> histogram = makeHistogram(eHOOBP_Ignored, {9, 2, 9, 3, 9, 2, 9});
    expectMathRaises("Histogram bin index 7 is not valid for histogram with 7 bins",
                     [&] { histogram.findLocalDilatedMaxima(0, eEBP_Periodic, 0.0, 0); });
    EXPECT_EQ(histogram.findLocalMaxima(false, eEBP_Periodic, 0.0, 0), UInt32Vector({0, 2, 4, 6}));
}

TEST(BaseHistogramAnalysis, SamplesAgreeWithTheirDefinition)
{
    std::mt19937 generator(84);
    for (int draw = 0; draw < 500; ++draw)
    {
        const Histogram<true> histogram = test::randomHistogram<true>(generator);
        EXPECT_EQ(collect(histogram, false), plainSamples(histogram, false));
        EXPECT_EQ(collect(histogram, true), plainSamples(histogram, true));
    }
}

TEST(BaseHistogramAnalysis, EveryCountedItemIsASampleAtTheMiddleOfItsBin)
{
    const Histogram<false> histogram = makeHistogram(eHOOBP_Dedicated, {1, 2, 0, 1, 2});
    EXPECT_EQ(collect(histogram, false), (std::vector<double>{0.5, 0.5, 2.5}));
    EXPECT_EQ(collect(histogram, true), (std::vector<double>{-0.5, 0.5, 0.5, 2.5, 3.5, 3.5}));
}

TEST(BaseHistogramAnalysis, SamplesAreReservedForTheWholePopulation)
{
    VectorColl data;
    makeHistogram(eHOOBP_Dedicated, {3, 2, 0, 1, 4}).collectClusteringData(false, data);
    EXPECT_EQ(data.size(), 3u);
    EXPECT_EQ(data.capacity(), 10u);
}

TEST(BaseHistogramAnalysis, AFailedCollectionEmptiesItsOutput)
{
    VectorColl data(3);
    EXPECT_THROW(Histogram<true>().collectClusteringData(true, data), OVRIXMathException);
    EXPECT_TRUE(data.empty());
}

TEST(BaseHistogramAnalysis, KMeansFindsTwoHeapsOfValues)
{
    RandomUniformGenerator::getGen().seed(85);
    const Histogram<false> histogram = makeHistogram(eHOOBP_Ignored, {4, 8, 4, 0, 0, 0, 0, 1, 2, 1});
    const KMeansClusteringPtr pClustering = histogram.applyKMeansClustering(2, false, KMeansClusteringConfig());
    ASSERT_TRUE(pClustering->isClusteringDone());
    EXPECT_EQ(pClustering->getClusterCenter(0)(0), 1.5);
    EXPECT_EQ(pClustering->getClusterCenter(1)(0), 8.5);
    EXPECT_EQ(pClustering->getClusterPopulation(0), 16u);
    EXPECT_EQ(pClustering->getClusterPopulation(1), 4u);
}

TEST(BaseHistogramAnalysis, KMeansRunsOnTheSamplesWithTheConfiguration)
{
    std::mt19937 generator(86);
    KMeansClusteringConfig config;
    config.setNbAttempts(3);
    config.setNbMaxIteration(50);
    for (const bool bIncludeOutOfBounds : {false, true})
    {
        const Histogram<false> histogram = makeHistogram(eHOOBP_Dedicated, {3, 1, 7, 2, 9, 4, 0, 5});
        VectorColl samples;
        for (const double sample : plainSamples(histogram, bIncludeOutOfBounds))
            samples.push_back(test::makeVector({sample}));
        RandomUniformGenerator::getGen().seed(87);
        clustering::KMeansClustering expected;
        expected.setConfig(config);
        ASSERT_TRUE(expected.compute(3, samples));
        RandomUniformGenerator::getGen().seed(87);
        const KMeansClusteringPtr pClustering = histogram.applyKMeansClustering(3, bIncludeOutOfBounds, config);
        EXPECT_EQ(pClustering->getConfig().getNbAttempts(), 3u);
        EXPECT_EQ(pClustering->getConfig().getNbMaxIteration(), 50u);
        EXPECT_EQ(pClustering->getAssignments(), expected.getAssignments());
        EXPECT_EQ(pClustering->getCompactness(), expected.getCompactness());
    }
}

TEST(BaseHistogramAnalysis, AClusteringWhoseAttemptsAllFailIsNotDone)
{
    KMeansClusteringConfig config;
    config.setNbMaxIteration(1);
    const KMeansClusteringPtr pClustering =
        makeHistogram(eHOOBP_Ignored, {3, 0, 4}).applyKMeansClustering(2, false, config);
    ASSERT_NE(pClustering, nullptr);
    EXPECT_FALSE(pClustering->isClusteringDone());
}

TEST(BaseHistogramAnalysis, AsManyClustersAsSamplesAreAccepted)
{
    RandomUniformGenerator::getGen().seed(88);
    KMeansClusteringConfig config;
    const KMeansClusteringPtr pClustering =
        makeHistogram(eHOOBP_Ignored, {1, 1}).applyKMeansClustering(2, false, config);
    EXPECT_TRUE(pClustering->isClusteringDone());
}

TEST(BaseHistogramAnalysis, MoreClustersThanSamplesRaise)
{
    expectMathRaises(
        "Number of clusters {4} should not be greater than number of used histogram bins {3}",
        [] {
            makeHistogram(eHOOBP_Ignored, {1, 0, 2}).applyKMeansClustering(4, false, KMeansClusteringConfig());
        });
}

TEST(BaseHistogramAnalysis, APopulationOutsideOfTheIntervalGivesNoSamples)
{
    const Histogram<false> histogram = makeHistogram(eHOOBP_Dedicated, {6, 0, 0, 7});
    expectMathRaises("Number of clusters {1} should not be greater than number of used histogram bins {0}",
                     [&] { histogram.applyKMeansClustering(1, false, KMeansClusteringConfig()); });
    RandomUniformGenerator::getGen().seed(89);
    EXPECT_TRUE(histogram.applyKMeansClustering(2, true, KMeansClusteringConfig())->isClusteringDone());
}

TEST(BaseHistogramAnalysis, NoClustersRaise)
{
    expectMathRaises(
        "Target number of clusters should not be null",
        [] {
            makeHistogram(eHOOBP_Ignored, {1, 2}).applyKMeansClustering(0, false, KMeansClusteringConfig());
        });
}

TEST(BaseHistogramAnalysis, TheCurveIsFittedToTheClasses)
{
    const HistogramGaussianCurveFit fit = makeBell().fitGaussianCurve(makePlainConfig(), false);
    EXPECT_TRUE(fit._estimationResults.getEstimationStatus());
    EXPECT_EQ(fit._estimationResults.getNbInputData(), 12u);
    // Populations are rounded to integers, the least of them from 22.8 to 23.
    EXPECT_NEAR(fit._csteA, 1000.0, 5.0);
    EXPECT_NEAR(fit._csteMu, 6.0, 1e-12);
    EXPECT_NEAR(fit._csteSigma, 2.0, 0.005);
}

TEST(BaseHistogramAnalysis, TheCurveIsThatOfTheEstimator)
{
    for (const bool bIncludeOutOfBounds : {false, true})
    {
        const Histogram<false> histogram = makeBell();
        DataSet samples;
        for (ovUInt32 b = 0; b < 14; ++b)
        {
            if (bIncludeOutOfBounds || (b > 0 && b < 13))
                samples.push_back(test::makeVector(
                    {histogram.getBinMidValues()[b], static_cast<double>(histogram.getHistogramPopulation()[b])}));
        }
        EstimationResults expected;
        processEstimation(makePlainConfig(), boost::make_shared<GaussianCurve2dEstimator>(), samples, expected);
        const HistogramGaussianCurveFit fit = histogram.fitGaussianCurve(makePlainConfig(), bIncludeOutOfBounds);
        EXPECT_EQ(test::toStd(fit._estimationResults.getEstimParams()), test::toStd(expected.getEstimParams()));
        EXPECT_EQ(test::toStd(fit._estimationResults.getResidualsSet()), test::toStd(expected.getResidualsSet()));
        EXPECT_EQ((std::vector<double>{fit._csteA, fit._csteMu, fit._csteSigma}),
                  test::toStd(expected.getEstimParams()));
    }
}

TEST(BaseHistogramAnalysis, EmptyBinsAreNoPointsOfTheCurve)
{
    const Histogram<false> histogram = makeHistogram(eHOOBP_Ignored, {0, 10, 0, 20, 10, 0});
    const HistogramGaussianCurveFit fit = histogram.fitGaussianCurve(makePlainConfig(), false);
    EXPECT_EQ(fit._estimationResults.getNbInputData(), 3u);
    EXPECT_TRUE(fit._estimationResults.getEstimationStatus());
}

TEST(BaseHistogramAnalysis, TooFewPointsFailInTheResults)
{
    const Histogram<false> histogram = makeHistogram(eHOOBP_Ignored, {0, 10, 0, 20, 0});
    for (const EstimationConfig& config : {makePlainConfig(), makeRobustConfig(true)})
    {
        const HistogramGaussianCurveFit fit = histogram.fitGaussianCurve(config, true);
        expectFailure("Data set with size 2 do no contains enough data to ensure processing (needs at least 3 data)",
                      fit._estimationResults.getEstimationStatus());
        EXPECT_EQ(fit._csteA, 0.0);
        EXPECT_EQ(fit._csteMu, 0.0);
        EXPECT_EQ(fit._csteSigma, 0.0);
    }
}

TEST(BaseHistogramAnalysis, TooFewPointsForARobustCurveThatMustNotBePlainRaise)
{
    const Histogram<false> histogram = makeHistogram(eHOOBP_Ignored, {0, 10, 20, 10, 0});
    expectMathRaises("Estimation results have not been initialized",
                     [&] { histogram.fitGaussianCurve(makeRobustConfig(false), true); });
}

TEST(BaseHistogramAnalysis, AValleyIsNoCurve)
{
    const HistogramGaussianCurveFit fit =
        makeHistogram(eHOOBP_Ignored, {9, 4, 1, 4, 9}).fitGaussianCurve(makePlainConfig(), false);
    expectFailure("Gaussian curve estimation leads to an invalid solution for estimated parameters",
                  fit._estimationResults.getEstimationStatus());
    EXPECT_EQ(fit._csteSigma, 0.0);
}

TEST(BaseHistogramAnalysis, AConfigurationThatIsNotInitialisedRaises)
{
    expectMathRaises("Estimation configuration has not been initialized",
                     [] { makeBell().fitGaussianCurve(EstimationConfig(), false); });
}

} // namespace math
} // namespace ovrix
