#include <OVRIXMath/Estimation/EstimationUtils.h>
#include <OVRIXMath/Statistics/Histogram.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <iomanip>
#include <limits>
#include <random>
#include <sstream>
#include <string>
#include <support/AllocationCount.h>
#include <support/ExpectFailure.h>
#include <support/HeaderExample.h>
#include <support/Histograms.h>
#include <support/LogCapture.h>
#include <support/TextOf.h>
#include <utility>
#include <vector>

namespace ovrix
{
namespace math
{

namespace
{

using test::expectMathRaises;
using test::makeHistogram;
using test::textOf;

const char* const g_notInitText = "Histogram class has not been initialized";
const double g_nan = std::numeric_limits<double>::quiet_NaN();
const ovUInt32 g_none = 4294967295u;

using Reals = std::vector<double>;
using BaseHistogramQuery = std::function<void(const BaseHistogram&)>;

/// Everything that reads bins.
const std::vector<BaseHistogramQuery>& getQueries()
{
    static const std::vector<BaseHistogramQuery> g_queries = {
        [](const BaseHistogram& histogram) { histogram.getMaxPopulationClassIdx(); },
        [](const BaseHistogram& histogram) { histogram.getQuantileClassIdx(0.5); },
        [](const BaseHistogram& histogram) { histogram.getBinMidValues(); },
        [](const BaseHistogram& histogram)
        {
            Reals out;
            histogram.getFrequencies(out);
        },
        [](const BaseHistogram& histogram)
        {
            Reals out;
            histogram.getCumulatedFrequencies(out);
        },
        [](const BaseHistogram& histogram) { histogram.findLocalMaxima(true, eEBP_Include, 0.0, 0); },
        [](const BaseHistogram& histogram) { histogram.findLocalMaxima(false, eEBP_Include, 0.0, 0); },
        [](const BaseHistogram& histogram) { histogram.findLocalMinima(true, eEBP_Include, 0.0, 0); },
        [](const BaseHistogram& histogram) { histogram.findLocalMinima(false, eEBP_Include, 0.0, 0); },
        [](const BaseHistogram& histogram) { histogram.findLocalDilatedMaxima(1, eEBP_Include, 0.0, 0); },
        [](const BaseHistogram& histogram) { histogram.findLocalDilatedMinima(1, eEBP_Include, 0.0, 0); },
        [](const BaseHistogram& histogram)
        {
            clustering::VectorColl data;
            histogram.collectClusteringData(false, data);
        },
        [](const BaseHistogram& histogram)
        { histogram.applyKMeansClustering(1, true, clustering::KMeansClusteringConfig()); },
        [](const BaseHistogram& histogram) { histogram.fitGaussianCurve(createNonRobustConfig(), true); },
    };
    return g_queries;
}

/// The values that need classes but no bins.
const std::vector<BaseHistogramQuery>& getValueGetters()
{
    static const std::vector<BaseHistogramQuery> g_getters = {
        [](const BaseHistogram& histogram) { histogram.getFirstHistoValue(); },
        [](const BaseHistogram& histogram) { histogram.getLastHistoValue(); },
        [](const BaseHistogram& histogram) { histogram.getBinWidth(); },
        [](const BaseHistogram& histogram) { histogram.getNbClasses(); },
        [](const BaseHistogram& histogram) { histogram.getNbBins(); },
        [](const BaseHistogram& histogram) { histogram.getLowerOutOfBoundsBinIdx(); },
        [](const BaseHistogram& histogram) { histogram.getUpperOutOfBoundsBinIdx(); },
        [](const BaseHistogram& histogram) { histogram.getInBoundsBinOffset(); },
        [](const BaseHistogram& histogram) { histogram.getHistogramPopulation(); },
        [](const BaseHistogram& histogram) { histogram.getCumulatedHistogramPopulation(); },
    };
    return g_getters;
}

void expectNotInit(const BaseHistogram& histogram)
{
    expectMathRaises(g_notInitText, [&] { histogram.checkInit(); });
    for (const BaseHistogramQuery& getter : getValueGetters())
        expectMathRaises(g_notInitText, [&] { getter(histogram); });
    for (const BaseHistogramQuery& query : getQueries())
        expectMathRaises(g_notInitText, [&] { query(histogram); });
}

// The queries as they are defined.

double plainMidValue(const BaseHistogram& histogram, ovUInt32 b)
{
    const ovUInt32 offset = histogram.getInBoundsBinOffset();
    const double k = static_cast<double>(b) - static_cast<double>(offset);
    if (b > offset && b - offset == histogram.getNbClasses() - 1)
        return (k * histogram.getBinWidth() + histogram.getFirstHistoValue() + histogram.getLastHistoValue()) * 0.5;
    return (k + 0.5) * histogram.getBinWidth() + histogram.getFirstHistoValue();
}

UInt64Vector plainCumulated(const BaseHistogram& histogram)
{
    UInt64Vector cumulated;
    unsigned long sum = 0;
    for (const unsigned long population : histogram.getHistogramPopulation())
    {
        sum += population;
        cumulated.push_back(sum);
    }
    return cumulated;
}

ovUInt32 plainMaxPopulationClassIdx(const BaseHistogram& histogram)
{
    ovUInt32 result = 0;
    unsigned long best = 0;
    for (ovUInt32 i = 0; i < histogram.getNbClasses(); ++i)
    {
        if (histogram.getHistogramPopulation()[i] > best)
        {
            best = histogram.getHistogramPopulation()[i];
            result = i;
        }
    }
    return result;
}

ovUInt32 plainQuantileClassIdx(const BaseHistogram& histogram, double q)
{
    const UInt64Vector cumulated = plainCumulated(histogram);
    const double total = static_cast<double>(cumulated.back());
    for (ovUInt32 i = 0; i < histogram.getNbClasses(); ++i)
    {
        if (total * q <= static_cast<double>(cumulated[i + histogram.getInBoundsBinOffset()]))
            return i;
    }
    return histogram.getNbClasses() - 1;
}

void expectSame(const Reals& actual, const Reals& expected)
{
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t i = 0; i < actual.size(); ++i)
    {
        if (std::isnan(expected[i]))
            EXPECT_TRUE(std::isnan(actual[i])) << i;
        else
            EXPECT_EQ(actual[i], expected[i]) << i;
    }
}

Reals plainShares(const UInt64Vector& populations, unsigned long total)
{
    Reals shares;
    for (const unsigned long population : populations)
        shares.push_back(static_cast<double>(population) / static_cast<double>(total));
    return shares;
}

std::string plainText(const BaseHistogram& histogram)
{
    const ovUInt32 lower = histogram.getLowerOutOfBoundsBinIdx();
    const ovUInt32 upper = histogram.getUpperOutOfBoundsBinIdx();
    const ovUInt32 offset = histogram.getInBoundsBinOffset();
    const ovUInt32 n = histogram.getNbClasses();
    const double first = histogram.getFirstHistoValue();
    const double width = histogram.getBinWidth();
    const UInt64Vector& population = histogram.getHistogramPopulation();
    std::ostringstream stream;
    stream << "ClassMin"
           << ";"
           << "ClassMax"
           << ";"
           << "Population"
           << ";" << std::endl;
    if (lower != g_none && lower != offset && lower != upper)
        stream << "LowerOutOfBoundsData;LowerOutOfBoundsData;" << population[lower] << ";" << std::endl;
    for (ovUInt32 i = 0; i < n; ++i)
    {
        stream << i * width + first << ";";
        if (i + 1 == n)
            stream << histogram.getLastHistoValue();
        else
            stream << (i + 1) * width + first;
        stream << ";" << population[offset + i] << ";" << std::endl;
    }
    if (upper != g_none && upper != offset + n - 1 && lower != upper)
        stream << "UpperOutOfBoundsData;UpperOutOfBoundsData;" << population[upper] << ";" << std::endl;
    else if (lower == upper && lower != g_none)
        stream << "OutOfBoundsData;OutOfBoundsData;" << population[lower] << ";" << std::endl;
    return stream.str();
}

template <bool bIntegral>
void expectPlainQueries(unsigned int seed)
{
    std::mt19937 generator(seed);
    for (int draw = 0; draw < 2000; ++draw)
    {
        const Histogram<bIntegral> histogram = test::randomHistogram<bIntegral>(generator);
        const double q = draw % 4 == 0 ? 1.0 : std::ldexp(static_cast<double>(generator()), -32);
        EXPECT_EQ(histogram.getQuantileClassIdx(q), plainQuantileClassIdx(histogram, q));
        EXPECT_EQ(histogram.getMaxPopulationClassIdx(), plainMaxPopulationClassIdx(histogram));
        EXPECT_EQ(textOf(histogram), plainText(histogram));

        const UInt64Vector cumulated = plainCumulated(histogram);
        EXPECT_EQ(histogram.getCumulatedHistogramPopulation(), cumulated);
        Reals shares = {7.0};
        histogram.getFrequencies(shares);
        expectSame(shares, plainShares(histogram.getHistogramPopulation(), cumulated.back()));
        histogram.getCumulatedFrequencies(shares);
        expectSame(shares, plainShares(cumulated, cumulated.back()));

        Reals midValues;
        for (ovUInt32 b = 0; b < histogram.getNbBins(); ++b)
            midValues.push_back(plainMidValue(histogram, b));
        EXPECT_EQ(histogram.getBinMidValues(), midValues);
    }
}

} // namespace

TEST(BaseHistogram, IsNotInitialisedAtFirst)
{
    expectNotInit(Histogram<true>());
    expectNotInit(Histogram<false>());
}

TEST(BaseHistogram, TheExampleOfTheDocumentationFindsTheMedian)
{
    const std::vector<unsigned char> pixels = {9, 3, 200, 4, 5};
    UInt64Vector population(256);
    for (const unsigned char grey : pixels)
        ++population[grey];
    Histogram<true> histogram;
    histogram.initFromExisting(0.0, 255.0, 1.0, population, eHOOBP_Ignored);
    const ovUInt32 median = histogram.getQuantileClassIdx(0.5);
    EXPECT_EQ(median, 5u);

    const std::string example = test::readExample("OVRIXMath/Statistics/BaseHistogram.h");
    EXPECT_THAT(test::readCode(__FILE__), testing::HasSubstr(example));
    EXPECT_THAT(test::readCode("docs/guides/histograms.md"), testing::HasSubstr(example));
}

TEST(BaseHistogram, QueriesOfIntegersAgreeWithTheirDefinitions)
{
    expectPlainQueries<true>(71);
}

TEST(BaseHistogram, QueriesOfRealNumbersAgreeWithTheirDefinitions)
{
    expectPlainQueries<false>(72);
}

TEST(BaseHistogram, AWidthSetsUpClasses)
{
    Histogram<false> histogram;
    histogram.updateHistogramParams(2.0, 12.0, 3.0, eHOOBP_Dedicated);
    EXPECT_EQ(histogram.getFirstHistoValue(), 2.0);
    EXPECT_EQ(histogram.getLastHistoValue(), 12.0);
    EXPECT_EQ(histogram.getBinWidth(), 3.0);
    EXPECT_EQ(histogram.getNbClasses(), 4u);
    EXPECT_EQ(histogram.getNbBins(), 6u);
    EXPECT_EQ(histogram.getLowerOutOfBoundsBinIdx(), 0u);
    EXPECT_EQ(histogram.getUpperOutOfBoundsBinIdx(), 5u);
    EXPECT_EQ(histogram.getInBoundsBinOffset(), 1u);
    EXPECT_EQ(histogram.getHistogramPopulation(), UInt64Vector(6, 0));
    EXPECT_EQ(histogram.getCumulatedHistogramPopulation(), UInt64Vector());
}

TEST(BaseHistogram, ANumberOfClassesSetsTheWidth)
{
    Histogram<false> reals;
    reals.updateHistogramParams(2.0, 12.0, 4u, eHOOBP_DedicatedUpper);
    EXPECT_EQ(reals.getBinWidth(), 2.5);
    EXPECT_EQ(reals.getNbClasses(), 4u);
    EXPECT_EQ(reals.getHistogramPopulation(), UInt64Vector(5, 0));
    Histogram<true> integers;
    integers.updateHistogramParams(2.0, 12.0, 4u, eHOOBP_Ignored);
    EXPECT_EQ(integers.getBinWidth(), 2.75);
    EXPECT_EQ(integers.getHistogramPopulation(), UInt64Vector(4, 0));
}

TEST(BaseHistogram, AnUnknownPolicyIgnoresWhatIsOutside)
{
    Histogram<false> histogram;
    histogram.updateHistogramParams(0.0, 4.0, 1.0, static_cast<eHistogramOutOfBoundsPolicy>(9));
    EXPECT_EQ(histogram.getLowerOutOfBoundsBinIdx(), g_none);
    EXPECT_EQ(histogram.getUpperOutOfBoundsBinIdx(), g_none);
    EXPECT_EQ(histogram.getNbBins(), 4u);
}

TEST(BaseHistogram, AnEmptyIntervalRaisesAndClears)
{
    const test::LogCapture log;
    const std::string text = "First histogram value 1.000000 should be greater than last one 1.000000";
    Histogram<false> histogram = makeHistogram(eHOOBP_Ignored, {1, 2});
    expectMathRaises(text, [&] { histogram.updateHistogramParams(1.0, 1.0, 1.0, eHOOBP_Ignored); });
    EXPECT_EQ(log.getTexts(), std::vector<std::string>{text});
    expectNotInit(histogram);

    histogram = makeHistogram(eHOOBP_Ignored, {1, 2});
    expectMathRaises(text, [&] { histogram.updateHistogramParams(1.0, 1.0, 1u, eHOOBP_Ignored); });
    expectNotInit(histogram);

    histogram = makeHistogram(eHOOBP_Ignored, {1, 2});
    expectMathRaises(text, [&] { histogram.initFromExisting(1.0, 1.0, 1.0, {1, 2}, eHOOBP_Ignored); });
    expectNotInit(histogram);
}

TEST(BaseHistogram, ABoundThatIsNotANumberRaises)
{
    Histogram<false> histogram;
    EXPECT_THROW(histogram.updateHistogramParams(g_nan, 1.0, 1.0, eHOOBP_Ignored), OVRIXMathException);
    EXPECT_THROW(histogram.updateHistogramParams(0.0, g_nan, 1u, eHOOBP_Ignored), OVRIXMathException);
}

TEST(BaseHistogram, AWidthThatIsNotPositiveRaisesAndClears)
{
    const std::pair<double, const char*> widths[] = {{0.0, "0.000000"}, {-0.5, "-0.500000"}, {g_nan, "nan"}};
    for (const auto& width : widths)
    {
        Histogram<false> histogram = makeHistogram(eHOOBP_Ignored, {1, 2});
        expectMathRaises("Histogram bin width " + std::string(width.second) + " should be greater than zero",
                         [&] { histogram.updateHistogramParams(0.0, 1.0, width.first, eHOOBP_Ignored); });
        expectNotInit(histogram);
    }
}

TEST(BaseHistogram, AnIntervalOfMoreClassesThanCanBeCountedRaisesAndClears)
{
    // Their number is cut to its low 32 bits, which are all set, and one more class is 0.
    for (const double first : {-1e300, -std::numeric_limits<double>::infinity()})
    {
        Histogram<false> histogram = makeHistogram(eHOOBP_Ignored, {1, 2});
        expectMathRaises("Histogram number of classes should not be null",
                         [&] { histogram.updateHistogramParams(first, 0.0, 1.0, eHOOBP_Ignored); });
        expectNotInit(histogram);
    }
}

TEST(BaseHistogram, NoClassesRaiseAndClear)
{
    Histogram<false> histogram = makeHistogram(eHOOBP_Ignored, {1, 2});
    expectMathRaises("Histogram number of classes should not be null",
                     [&] { histogram.updateHistogramParams(0.0, 1.0, 0u, eHOOBP_Ignored); });
    expectNotInit(histogram);
}

TEST(BaseHistogram, TheIntervalIsCheckedBeforeWidthAndClasses)
{
    const std::string text = "First histogram value 1.000000 should be greater than last one 0.000000";
    Histogram<false> histogram;
    expectMathRaises(text, [&] { histogram.updateHistogramParams(1.0, 0.0, 0.0, eHOOBP_Ignored); });
    expectMathRaises(text, [&] { histogram.updateHistogramParams(1.0, 0.0, 0u, eHOOBP_Ignored); });
}

TEST(BaseHistogram, APopulationHasOneEntryPerBin)
{
    Histogram<false> histogram;
    histogram.initFromExisting(0.0, 3.0, 1.0, {1, 2, 3, 4, 5}, eHOOBP_Dedicated);
    EXPECT_EQ(histogram.getHistogramPopulation(), UInt64Vector({1, 2, 3, 4, 5}));
}

TEST(BaseHistogram, APopulationOfAnotherSizeRaisesAndLeavesEmptyClasses)
{
    Histogram<false> histogram = makeHistogram(eHOOBP_Ignored, {1, 2});
    const std::string text = "Histogram population with expected size 5 mismatch from provided collection size 3";
    expectMathRaises(text, [&] { histogram.initFromExisting(0.0, 3.0, 1.0, {1, 2, 3}, eHOOBP_Dedicated); });
    EXPECT_EQ(histogram.getNbClasses(), 3u);
    EXPECT_EQ(histogram.getHistogramPopulation(), UInt64Vector(5, 0));
}

TEST(BaseHistogram, ANewPopulationIsCumulatedAnew)
{
    Histogram<false> histogram = makeHistogram(eHOOBP_Ignored, {1, 2});
    histogram.updateCumulated();
    EXPECT_EQ(histogram.getCumulatedHistogramPopulation(), UInt64Vector({1, 3}));
    histogram.initFromExisting(0.0, 2.0, 1.0, {4, 5}, eHOOBP_Ignored);
    EXPECT_EQ(histogram.getCumulatedHistogramPopulation(), UInt64Vector());
    histogram.getQuantileClassIdx(0.5);
    EXPECT_EQ(histogram.getCumulatedHistogramPopulation(), UInt64Vector({4, 9}));
}

TEST(BaseHistogram, SettingAHistogramUpAgainTakesNoMemory)
{
    const UInt64Vector population(100, 3);
    Histogram<false> histogram;
    histogram.initFromExisting(0.0, 100.0, 1.0, population, eHOOBP_Ignored);
    histogram.updateCumulated();
    const std::size_t nbAllocations = test::getNbAllocations();
    histogram.initFromExisting(0.0, 100.0, 1.0, population, eHOOBP_Ignored);
    histogram.updateCumulated();
    EXPECT_EQ(test::getNbAllocations(), nbAllocations);
}

TEST(BaseHistogram, QueriesTakeNoMemoryButForTheirResults)
{
    for (const std::size_t size : {100, 10000})
    {
        const Histogram<false> histogram = makeHistogram(eHOOBP_Ignored, UInt64Vector(size, 3));
        Reals shares;
        const auto query = [&]
        {
            histogram.updateCumulated();
            histogram.getMaxPopulationClassIdx();
            histogram.getQuantileClassIdx(0.9);
            histogram.getFrequencies(shares);
            histogram.getCumulatedFrequencies(shares);
        };
        EXPECT_EQ(test::countSteadyAllocations(query), 0u);
        EXPECT_EQ(test::countSteadyAllocations([&] { histogram.getBinMidValues(); }), 1u);
    }
}

TEST(BaseHistogram, ClearEndsTheInitialisation)
{
    Histogram<false> histogram = makeHistogram(eHOOBP_Dedicated, {1, 2, 3});
    histogram.clear();
    expectNotInit(histogram);
}

TEST(BaseHistogram, ClearDataDropsTheBinsOnly)
{
    Histogram<false> histogram = makeHistogram(eHOOBP_Dedicated, {1, 2, 3, 4});
    histogram.updateCumulated();
    histogram.clearData();
    EXPECT_NO_THROW(histogram.checkInit());
    EXPECT_EQ(histogram.getNbClasses(), 2u);
    EXPECT_EQ(histogram.getUpperOutOfBoundsBinIdx(), 3u);
    EXPECT_EQ(histogram.getNbBins(), 0u);
    EXPECT_EQ(histogram.getHistogramPopulation(), UInt64Vector());
    EXPECT_EQ(histogram.getCumulatedHistogramPopulation(), UInt64Vector());
}

TEST(BaseHistogram, QueriesOfDroppedBinsRaise)
{
    for (const eHistogramOutOfBoundsPolicy policy : test::g_outOfBoundsPolicies)
    {
        Histogram<false> histogram = makeHistogram(policy, {1, 2, 3, 4});
        histogram.clearData();
        for (const BaseHistogramQuery& query : getQueries())
            expectMathRaises(g_notInitText, [&] { query(histogram); });
        histogram.updateCumulated();
        EXPECT_EQ(histogram.getCumulatedHistogramPopulation(), UInt64Vector());
    }
}

TEST(BaseHistogram, QueriesOfALayoutThatWrappedAroundRaise)
{
    Histogram<false> histogram;
    histogram.updateHistogramParams(0.0, 1.0, 4294967295u, eHOOBP_Dedicated);
    EXPECT_EQ(histogram.getNbClasses(), 4294967295u);
    EXPECT_EQ(histogram.getNbBins(), 1u);
    for (const BaseHistogramQuery& query : getQueries())
        expectMathRaises(g_notInitText, [&] { query(histogram); });
    EXPECT_EQ(textOf(histogram), "Histogram not initialized\n");
}

TEST(BaseHistogram, AFailedQueryEmptiesItsOutput)
{
    const Histogram<false> histogram;
    Reals out = {1.0};
    EXPECT_THROW(histogram.getFrequencies(out), OVRIXMathException);
    EXPECT_EQ(out, Reals());
    out = {1.0};
    EXPECT_THROW(histogram.getCumulatedFrequencies(out), OVRIXMathException);
    EXPECT_EQ(out, Reals());
}

TEST(BaseHistogram, IndicesOfClassesAreChecked)
{
    const Histogram<false> histogram = makeHistogram(eHOOBP_Dedicated, {1, 2, 3, 4});
    EXPECT_NO_THROW(histogram.checkClassIdx(1));
    expectMathRaises("Histogram class index 2 is not valid for histogram with 2 classes",
                     [&] { histogram.checkClassIdx(2); });
    expectMathRaises("Histogram class index 0 is not valid for histogram with 0 classes",
                     [] { Histogram<true>().checkClassIdx(0); });
}

TEST(BaseHistogram, IndicesOfBinsAreChecked)
{
    const Histogram<false> histogram = makeHistogram(eHOOBP_Dedicated, {1, 2, 3, 4});
    EXPECT_NO_THROW(histogram.checkBinIdx(3));
    expectMathRaises("Histogram bin index 4 is not valid for histogram with 4 bins", [&] { histogram.checkBinIdx(4); });
    expectMathRaises("Histogram bin index 0 is not valid for histogram with 0 bins",
                     [] { Histogram<true>().checkBinIdx(0); });
}

TEST(BaseHistogram, TheCumulatedPopulationsAreComputedOnceAndKept)
{
    const Histogram<false> histogram = makeHistogram(eHOOBP_Ignored, {1, 2});
    EXPECT_EQ(histogram.getCumulatedHistogramPopulation(), UInt64Vector());
    histogram.getQuantileClassIdx(0.5);
    const unsigned long* const pTable = histogram.getCumulatedHistogramPopulation().data();
    Reals out;
    histogram.getFrequencies(out);
    EXPECT_EQ(histogram.getCumulatedHistogramPopulation(), UInt64Vector({1, 3}));
    EXPECT_EQ(histogram.getCumulatedHistogramPopulation().data(), pTable);
}

TEST(BaseHistogram, TheCumulatedPopulationsIncludeBinsOutsideOfTheInterval)
{
    const Histogram<false> histogram = makeHistogram(eHOOBP_Dedicated, {10, 2, 3, 40});
    histogram.updateCumulated();
    EXPECT_EQ(histogram.getCumulatedHistogramPopulation(), UInt64Vector({10, 12, 15, 55}));
}

TEST(BaseHistogram, TheFirstOfEqualPopulationsIsTheLargest)
{
    EXPECT_EQ(makeHistogram(eHOOBP_Ignored, {1, 5, 5, 2}).getMaxPopulationClassIdx(), 1u);
}

TEST(BaseHistogram, WithoutPopulationTheFirstClassIsTheLargest)
{
    EXPECT_EQ(makeHistogram(eHOOBP_Ignored, {0, 0, 0}).getMaxPopulationClassIdx(), 0u);
}

TEST(BaseHistogram, TheLargestPopulationIsSoughtFromTheFirstBinOn)
{
    // Bins: below the interval, three classes, above it. The search sees the first three.
    EXPECT_EQ(makeHistogram(eHOOBP_Dedicated, {9, 1, 2, 3, 0}).getMaxPopulationClassIdx(), 0u);
    EXPECT_EQ(makeHistogram(eHOOBP_Dedicated, {0, 1, 2, 8, 0}).getMaxPopulationClassIdx(), 2u);
    EXPECT_EQ(makeHistogram(eHOOBP_DedicatedUpper, {0, 1, 2, 8}).getMaxPopulationClassIdx(), 2u);
}

TEST(BaseHistogram, TheNullQuantileIsTheFirstClass)
{
    EXPECT_EQ(makeHistogram(eHOOBP_Ignored, {0, 0, 3}).getQuantileClassIdx(0.0), 0u);
    EXPECT_EQ(makeHistogram(eHOOBP_Ignored, {0, 0, 3}).getQuantileClassIdx(-0.0), 0u);
}

TEST(BaseHistogram, AQuantileIsReachedWhereTheShareIsMetExactly)
{
    const Histogram<false> histogram = makeHistogram(eHOOBP_Ignored, {1, 1, 1, 1});
    EXPECT_EQ(histogram.getQuantileClassIdx(0.5), 1u);
    EXPECT_EQ(histogram.getQuantileClassIdx(0.5000001), 2u);
    EXPECT_EQ(histogram.getQuantileClassIdx(1.0), 3u);
}

TEST(BaseHistogram, WhatIsBelowTheIntervalCountsForAQuantile)
{
    EXPECT_EQ(makeHistogram(eHOOBP_Dedicated, {6, 1, 1, 1, 0}).getQuantileClassIdx(0.5), 0u);
}

TEST(BaseHistogram, AQuantileAboveTheIntervalIsTheLastClass)
{
    EXPECT_EQ(makeHistogram(eHOOBP_Dedicated, {0, 1, 1, 1, 5}).getQuantileClassIdx(1.0), 2u);
    EXPECT_EQ(makeHistogram(eHOOBP_DedicatedUpper, {1, 1, 1, 5}).getQuantileClassIdx(1.0), 2u);
}

TEST(BaseHistogram, AQuantileOutsideOfItsRangeRaises)
{
    const Histogram<false> histogram = makeHistogram(eHOOBP_Ignored, {1, 2});
    expectMathRaises("Invalid quantile value 1.500000, should be in [0, 1]",
                     [&] { histogram.getQuantileClassIdx(1.5); });
    expectMathRaises("Invalid quantile value -0.100000, should be in [0, 1]",
                     [&] { histogram.getQuantileClassIdx(-0.1); });
    expectMathRaises("Invalid quantile value nan, should be in [0, 1]", [&] { histogram.getQuantileClassIdx(g_nan); });
}

TEST(BaseHistogram, TheQuantileIsCheckedBeforeTheHistogram)
{
    expectMathRaises("Invalid quantile value 2.000000, should be in [0, 1]",
                     [] { Histogram<true>().getQuantileClassIdx(2.0); });
}

TEST(BaseHistogram, FrequenciesAreSharesOfAllBins)
{
    const Histogram<false> histogram = makeHistogram(eHOOBP_Dedicated, {1, 2, 0, 1});
    Reals out = {5.0, 6.0};
    histogram.getFrequencies(out);
    EXPECT_EQ(out, Reals({0.25, 0.5, 0.0, 0.25}));
    histogram.getCumulatedFrequencies(out);
    EXPECT_EQ(out, Reals({0.25, 0.75, 0.75, 1.0}));
}

TEST(BaseHistogram, FrequenciesWithoutPopulationAreNotNumbers)
{
    const Histogram<false> histogram = makeHistogram(eHOOBP_Ignored, {0, 0});
    Reals out;
    histogram.getFrequencies(out);
    expectSame(out, {g_nan, g_nan});
    histogram.getCumulatedFrequencies(out);
    expectSame(out, {g_nan, g_nan});
}

TEST(BaseHistogram, MiddlesOfDedicatedBinsLieHalfAWidthOutside)
{
    Histogram<false> histogram;
    histogram.updateHistogramParams(10.0, 14.0, 2.0, eHOOBP_Dedicated);
    EXPECT_EQ(histogram.getBinMidValues(), Reals({9.0, 11.0, 13.0, 15.0}));
}

TEST(BaseHistogram, TheMiddleOfACommonOutsideBinLiesBehindTheClasses)
{
    Histogram<false> histogram;
    histogram.updateHistogramParams(10.0, 14.0, 2.0, eHOOBP_DedicatedUpper);
    EXPECT_EQ(histogram.getBinMidValues(), Reals({11.0, 13.0, 15.0}));
}

TEST(BaseHistogram, TheMiddleOfALastClassCutShortLiesInIt)
{
    Histogram<false> histogram;
    histogram.updateHistogramParams(0.0, 10.0, 3.0, eHOOBP_Dedicated);
    EXPECT_EQ(histogram.getBinMidValues(), Reals({-1.5, 1.5, 4.5, 7.5, 9.5, 13.5}));
}

TEST(BaseHistogram, TheMiddleOfASingleClassIsHalfAWidthFromItsStart)
{
    for (const eHistogramOutOfBoundsPolicy policy : {eHOOBP_Ignored, eHOOBP_Nearest})
    {
        Histogram<false> histogram;
        histogram.updateHistogramParams(0.0, 2.0, 3.0, policy);
        EXPECT_EQ(histogram.getBinMidValues(), Reals({1.5}));
    }
    Histogram<false> histogram;
    histogram.updateHistogramParams(0.0, 2.0, 3.0, eHOOBP_Dedicated);
    EXPECT_EQ(histogram.getBinMidValues(), Reals({-1.5, 1.5, 4.5}));
}

TEST(BaseHistogram, TheTextOfIgnoredDataHasTheClassesOnly)
{
    EXPECT_EQ(textOf(makeHistogram(eHOOBP_Ignored, {4, 5})), "ClassMin;ClassMax;Population;\n0;1;4;\n1;2;5;\n");
}

TEST(BaseHistogram, TheTextOfNearestDataHasTheClassesOnly)
{
    EXPECT_EQ(textOf(makeHistogram(eHOOBP_Nearest, {4, 5})), "ClassMin;ClassMax;Population;\n0;1;4;\n1;2;5;\n");
}

TEST(BaseHistogram, TheTextOfDedicatedBinsHasALineBeforeAndOneBehindTheClasses)
{
    EXPECT_EQ(textOf(makeHistogram(eHOOBP_Dedicated, {9, 4, 5, 8})),
              "ClassMin;ClassMax;Population;\nLowerOutOfBoundsData;LowerOutOfBoundsData;9;\n0;1;4;\n1;2;5;\n"
              "UpperOutOfBoundsData;UpperOutOfBoundsData;8;\n");
}

TEST(BaseHistogram, TheTextOfACommonOutsideBinHasALineBehindTheClasses)
{
    EXPECT_EQ(textOf(makeHistogram(eHOOBP_DedicatedUpper, {4, 5, 8})),
              "ClassMin;ClassMax;Population;\n0;1;4;\n1;2;5;\nOutOfBoundsData;OutOfBoundsData;8;\n");
}

TEST(BaseHistogram, TheTextOfASingleNearestClassRepeatsItAsOutside)
{
    EXPECT_EQ(textOf(makeHistogram(eHOOBP_Nearest, {4})),
              "ClassMin;ClassMax;Population;\n0;1;4;\nOutOfBoundsData;OutOfBoundsData;4;\n");
}

TEST(BaseHistogram, TheTextOfASingleClassUnderTheOtherPolicies)
{
    EXPECT_EQ(textOf(makeHistogram(eHOOBP_Ignored, {4})), "ClassMin;ClassMax;Population;\n0;1;4;\n");
    EXPECT_EQ(textOf(makeHistogram(eHOOBP_Dedicated, {9, 4, 8})),
              "ClassMin;ClassMax;Population;\nLowerOutOfBoundsData;LowerOutOfBoundsData;9;\n0;1;4;\n"
              "UpperOutOfBoundsData;UpperOutOfBoundsData;8;\n");
    EXPECT_EQ(textOf(makeHistogram(eHOOBP_DedicatedUpper, {4, 8})),
              "ClassMin;ClassMax;Population;\n0;1;4;\nOutOfBoundsData;OutOfBoundsData;8;\n");
}

TEST(BaseHistogram, TheTextEndsALastClassCutShortAtTheInterval)
{
    Histogram<false> histogram;
    histogram.updateHistogramParams(0.0, 10.0, 4.0, eHOOBP_Ignored);
    EXPECT_EQ(textOf(histogram), "ClassMin;ClassMax;Population;\n0;4;0;\n4;8;0;\n8;10;0;\n");
}

TEST(BaseHistogram, TheTextUsesTheFormatOfTheStream)
{
    Histogram<false> histogram;
    histogram.updateHistogramParams(0.0, 1.0 / 3.0, 1.0, eHOOBP_Ignored);
    std::ostringstream stream;
    stream << histogram << std::setprecision(3) << histogram;
    EXPECT_EQ(stream.str(),
              "ClassMin;ClassMax;Population;\n0;0.333333;0;\nClassMin;ClassMax;Population;\n0;0.333;0;\n");
}

TEST(BaseHistogram, TheTextWithoutBinsSaysSo)
{
    EXPECT_EQ(textOf(Histogram<true>()), "Histogram not initialized\n");
    Histogram<false> histogram = makeHistogram(eHOOBP_Dedicated, {9, 4, 8});
    histogram.clearData();
    EXPECT_EQ(textOf(histogram), "Histogram not initialized\n");
}

TEST(BaseHistogram, TotalsBeyondTheRangeWrapAround)
{
    const Histogram<false> histogram = makeHistogram(eHOOBP_Ignored, {18446744073709551615u, 3});
    histogram.updateCumulated();
    EXPECT_EQ(histogram.getCumulatedHistogramPopulation(), UInt64Vector({18446744073709551615u, 2}));
}

} // namespace math
} // namespace ovrix
