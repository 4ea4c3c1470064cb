#include <OVRIXMath/Clustering/ClusteringUtils.h>
#include <OVRIXMath/Clustering/ValidityIndex.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <random>
#include <support/AllocationCount.h>
#include <support/Bits.h>
#include <support/Builders.h>
#include <support/PlainKMeans.h>
#include <support/PlainValidity.h>
#include <support/RandomData.h>
#include <support/Tables.h>

namespace ovrix
{
namespace math
{
namespace clustering
{

namespace
{

using test::makeDataSet;
using test::PlainKMeans;

constexpr double g_largest = NumericLimits<double>::s_max;

/// Two clusters on a line: {0, 2} around 1 and {10, 11, 15} around 12.
const VectorColl g_data = makeDataSet({{0.0}, {2.0}, {10.0}, {11.0}, {15.0}});
const VectorColl g_centers = makeDataSet({{1.0}, {12.0}});
const UInt32Vector g_labels = {0, 0, 1, 1, 1};

double index(eValidityIndexType type)
{
    return computeValidityIndex(g_centers, g_data, g_labels, type);
}

double dunn(const VectorColl& data, const UInt32Vector& labels)
{
    return computeValidityIndex(VectorColl(), data, labels, eVIT_Dunn);
}

void expectPlainDunn(const VectorColl& data, const UInt32Vector& labels)
{
    const double expected = PlainKMeans::dunn(data, labels);
    const double actual = dunn(data, labels);
    if (std::isnan(expected))
    {
        EXPECT_TRUE(std::isnan(actual)) << actual;
    }
    else
    {
        EXPECT_EQ(actual, expected);
    }
}

void expectPlainDunns(unsigned int nbRepeats, std::size_t maxNbSamples, std::size_t maxDimension,
                      ovUInt32 maxNbClusters, const std::function<double(std::mt19937&)>& coordinate)
{
    std::mt19937 generator(1);
    for (unsigned int repeat = 0; repeat < nbRepeats && !testing::Test::HasFailure(); ++repeat)
    {
        VectorColl data(generator() % (maxNbSamples + 1), Vector(1 + generator() % maxDimension));
        for (Vector& sample : data)
            std::generate(sample.begin(), sample.end(), [&] { return coordinate(generator); });
        UInt32Vector labels(data.size());
        const ovUInt32 nbClusters = 1 + static_cast<ovUInt32>(generator() % maxNbClusters);
        std::generate(labels.begin(), labels.end(), [&] { return static_cast<ovUInt32>(generator() % nbClusters); });
        expectPlainDunn(data, labels);
        // Labels by place make clusters that lie apart, so that few pairs matter.
        for (std::size_t i = 0; i < data.size(); ++i)
            labels[i] = std::floor(4.0 * data[i][0]) > 0.0 ? static_cast<ovUInt32>(std::min(7.0, 4.0 * data[i][0])) : 0;
        expectPlainDunn(data, labels);
    }
}

/// Expects all indices but Dunn's to the bit on random partitions, some with empty clusters or samples without a label,
/// around their means or other centres.
void expectPlainIndices(double shift)
{
    test::RandomData random(1);
    for (int repeat = 0; repeat < 200 && !testing::Test::HasFailure(); ++repeat)
    {
        const std::size_t dimension = random.integer(1, 6);
        const ovUInt32 nbClusters = random.integer(1, 7);
        const VectorColl data = random.dataSet(random.integer(2, 120), dimension, shift - 1.0, shift + 1.0);
        UInt32Vector labels(data.size());
        for (ovUInt32& label : labels)
            label = random.integer(0, 20) == 0 ? NumericLimits<ovUInt32>::s_max : random.integer(0, nbClusters - 1);
        VectorColl centers = random.dataSet(nbClusters, dimension, shift - 1.0, shift + 1.0);
        if (random.integer(0, 1) == 0)
            computeClustersCenters(nbClusters, data, labels, centers);
        const auto actual = [&](eValidityIndexType type)
        { return test::bitsOf(computeValidityIndex(centers, data, labels, type)); };
        const test::PlainValidity plain{centers, data, labels};
        EXPECT_EQ(actual(eVIT_DaviesBouldin), test::bitsOf(plain.daviesBouldin()));
        EXPECT_EQ(actual(eVIT_RMSStd), test::bitsOf(plain.rmsStd()));
        EXPECT_EQ(actual(eVIT_RS), test::bitsOf(plain.rSquared()));
        EXPECT_EQ(actual(eVIT_SD), test::bitsOf(plain.sd()));
    }
}

} // namespace

TEST(ValidityIndex, DunnComparesDistancesBetweenSamples)
{
    // Nearest samples of two clusters: 2 and 10. Farthest of one: 10 and 15.
    EXPECT_EQ(index(eVIT_Dunn), std::sqrt(64.0 / 25.0));
}

TEST(ValidityIndex, DunnReadsNoCenters)
{
    EXPECT_EQ(computeValidityIndex(VectorColl(), g_data, g_labels, eVIT_Dunn), index(eVIT_Dunn));
}

TEST(ValidityIndex, DunnOfOneClusterStartsFromTheLargestValue)
{
    EXPECT_EQ(dunn(makeDataSet({{0.0}, {3.0}}), {0, 0}), std::sqrt(g_largest / 9.0));
}

TEST(ValidityIndex, DunnOfClustersOfOneSampleDividesByTheLeastValue)
{
    EXPECT_TRUE(std::isnan(dunn(makeDataSet({{0.0}, {3.0}}), {0, 1})));
    const double ofEqualSamples = dunn(makeDataSet({{3.0}, {3.0}}), {0, 1});
    EXPECT_EQ(ofEqualSamples, 0.0);
    EXPECT_TRUE(std::signbit(ofEqualSamples));
}

TEST(ValidityIndex, DunnIsZeroWhenAllClustersArePoints)
{
    EXPECT_EQ(dunn(makeDataSet({{1.0}, {1.0}, {5.0}, {5.0}}), {0, 0, 1, 1}), 0.0);
}

TEST(ValidityIndex, DunnOfNoPairIsTheRootOfTheStartingValues)
{
    EXPECT_TRUE(std::isnan(dunn(VectorColl(), UInt32Vector())));
    EXPECT_TRUE(std::isnan(dunn(makeDataSet({{1.0}}), {0})));
}

TEST(ValidityIndex, DunnIsThePlainOneOnReals)
{
    expectPlainDunns(300, 120, 12, 6,
                     [](std::mt19937& generator) { return std::normal_distribution<double>()(generator); });
}

TEST(ValidityIndex, DunnIsThePlainOneOnTies)
{
    expectPlainDunns(1000, 60, 4, 6, [](std::mt19937& generator) { return double(generator() % 5) * 0.1; });
}

TEST(ValidityIndex, DunnIsThePlainOneWithAsManyClustersAsSamples)
{
    expectPlainDunns(200, 60, 4, 1000,
                     [](std::mt19937& generator) { return std::normal_distribution<double>()(generator); });
}

TEST(ValidityIndex, DunnIsThePlainOneOnHugeRanges)
{
    expectPlainDunns(300, 60, 4, 5,
                     [](std::mt19937& generator)
                     {
                         const double mantissa = std::uniform_real_distribution<double>(-1.0, 1.0)(generator);
                         return std::ldexp(mantissa, std::uniform_int_distribution<int>(-560, 520)(generator));
                     });
}

TEST(ValidityIndex, DunnIsThePlainOneBesideValuesThatAreNotFinite)
{
    const std::vector<double> odd = {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
                                     -std::numeric_limits<double>::infinity(), 1e200};
    expectPlainDunns(500, 40, 3, 5,
                     [&](std::mt19937& generator)
                     {
                         return generator() % 20 == 0 ? odd[generator() % odd.size()]
                                                      : std::uniform_real_distribution<double>()(generator);
                     });
}

TEST(ValidityIndex, DunnIsThePlainOneFarFromTheOrigin)
{
    expectPlainDunns(300, 60, 4, 5,
                     [](std::mt19937& generator)
                     { return std::uniform_real_distribution<double>(1e8, 1e8 + 1e-5)(generator); });
}

TEST(ValidityIndex, DunnIsThePlainOneOnLargerData)
{
    std::mt19937 generator(6);
    std::uniform_real_distribution<double> uniform;
    for (const std::size_t dimension : {1u, 2u, 3u, 16u})
    {
        VectorColl data(1500, Vector(dimension));
        UInt32Vector labels;
        for (Vector& sample : data)
        {
            std::generate(sample.begin(), sample.end(), [&] { return uniform(generator); });
            labels.push_back(static_cast<ovUInt32>(8.0 * sample[0]));
        }
        expectPlainDunn(data, labels);
    }
}

TEST(ValidityIndex, DunnIsThePlainOneInManyDimensions)
{
    std::mt19937 generator(7);
    std::uniform_real_distribution<double> uniform;
    for (const std::size_t dimension : {127u, 128u, 129u, 300u})
    {
        VectorColl data(150, Vector(dimension));
        UInt32Vector labels;
        for (Vector& sample : data)
        {
            std::generate(sample.begin(), sample.end(), [&] { return uniform(generator); });
            labels.push_back(static_cast<ovUInt32>(generator() % 3));
        }
        expectPlainDunn(data, labels);
    }
}

TEST(ValidityIndex, DunnReadsLabelsOfAnyValue)
{
    const VectorColl data = makeDataSet({{0.0}, {3.0}, {10.0}, {11.0}, {20.0}});
    const ovUInt32 largest = NumericLimits<ovUInt32>::s_max;
    EXPECT_EQ(dunn(data, {largest, largest, 7, 7, 0}), std::sqrt(49.0 / 9.0));
}

TEST(ValidityIndex, DunnAllocatesNothing)
{
    std::mt19937 generator(8);
    std::uniform_real_distribution<double> uniform;
    VectorColl data(200, Vector(130));
    UInt32Vector labels;
    for (Vector& sample : data)
    {
        std::generate(sample.begin(), sample.end(), [&] { return uniform(generator); });
        labels.push_back(static_cast<ovUInt32>(generator() % 3));
    }
    EXPECT_EQ(test::countSteadyAllocations([&] { dunn(data, labels); }), 0u);
}

TEST(ValidityIndex, DunnIsThePlainOneOnMeasurements)
{
    for (const char* name : {"iris.csv", "wine.csv"})
    {
        const test::MeasurementTable table = test::readMeasurements(name);
        EXPECT_EQ(dunn(table.samples, table.classes), PlainKMeans::dunn(table.samples, table.classes));
    }
}

TEST(ValidityIndex, DaviesBouldinAddsTheScatterOfClusterZero)
{
    // S_0 = 1, S_1 = (2 + 1 + 3) / 3 = 2: R_0 = (1 + 1) / 11, R_1 = (1 + 2) / 11.
    EXPECT_EQ(index(eVIT_DaviesBouldin), (2.0 / 11.0 + 3.0 / 11.0) / 2.0);
}

TEST(ValidityIndex, DaviesBouldinNeverAddsTheScatterOfTheOtherCluster)
{
    // S = 1, 2, 4; the published index has R_1 = max(3 / 10, 6 / 20) and R_2 = max(5 / 30, 6 / 20).
    const VectorColl data = makeDataSet({{-1.0}, {1.0}, {8.0}, {12.0}, {26.0}, {34.0}});
    const VectorColl centers = makeDataSet({{0.0}, {10.0}, {30.0}});
    const double expected = ((0.0 + 2.0 / 10.0) + 3.0 / 10.0) + 5.0 / 20.0;
    EXPECT_EQ(computeValidityIndex(centers, data, {0, 0, 1, 1, 2, 2}, eVIT_DaviesBouldin), expected / 3.0);
}

TEST(ValidityIndex, DaviesBouldinOfNoSampleOrOneClusterIsZero)
{
    EXPECT_EQ(computeValidityIndex(g_centers, VectorColl(), UInt32Vector(), eVIT_DaviesBouldin), 0.0);
    EXPECT_EQ(computeValidityIndex(makeDataSet({{1.0}}), makeDataSet({{0.0}, {2.0}}), {0, 0}, eVIT_DaviesBouldin), 0.0);
    EXPECT_EQ(computeValidityIndex(VectorColl(), makeDataSet({{0.0}}), {0}, eVIT_DaviesBouldin), 0.0);
}

TEST(ValidityIndex, DaviesBouldinOfCoincidentCentersIsTheLargestValue)
{
    const VectorColl centers = makeDataSet({{1.0}, {5.0}, {1.0}});
    EXPECT_EQ(computeValidityIndex(centers, g_data, g_labels, eVIT_DaviesBouldin), g_largest);
    EXPECT_EQ(computeValidityIndex(VectorColl(2, Vector(0)), VectorColl(2, Vector(0)), {0, 1}, eVIT_DaviesBouldin),
              g_largest);
}

TEST(ValidityIndex, DaviesBouldinTakesAnEmptyClusterAsWithoutScatter)
{
    const VectorColl centers = makeDataSet({{1.0}, {11.0}});
    EXPECT_EQ(computeValidityIndex(centers, makeDataSet({{0.0}, {2.0}}), {0, 0}, eVIT_DaviesBouldin),
              (2.0 / 10.0 + 1.0 / 10.0) / 2.0);
}

TEST(ValidityIndex, RMSStdDividesByTheDegreesOfFreedom)
{
    // E = 1 + 1 + 4 + 1 + 9, F = (2 - 1) + (3 - 1).
    EXPECT_EQ(index(eVIT_RMSStd), std::sqrt(16.0 / 3.0));
}

TEST(ValidityIndex, RMSStdCountsEachCoordinate)
{
    const VectorColl data = makeDataSet({{0.0, 0.0}, {2.0, 2.0}});
    EXPECT_EQ(computeValidityIndex(makeDataSet({{1.0, 1.0}}), data, {0, 0}, eVIT_RMSStd), std::sqrt(4.0 / 2.0));
}

TEST(ValidityIndex, RMSStdOfAnEmptyClusterWrapsRound)
{
    const double freedom = 1.0 + 4294967295.0;
    EXPECT_EQ(computeValidityIndex(makeDataSet({{1.0}, {0.0}}), makeDataSet({{0.0}, {2.0}}), {0, 0}, eVIT_RMSStd),
              std::sqrt(2.0 / freedom));
}

TEST(ValidityIndex, RMSStdIsZeroWithoutFreedom)
{
    EXPECT_EQ(computeValidityIndex(makeDataSet({{1.0}, {7.0}}), makeDataSet({{0.0}, {2.0}}), {0, 1}, eVIT_RMSStd), 0.0);
    EXPECT_EQ(computeValidityIndex(VectorColl(), VectorColl(), UInt32Vector(), eVIT_RMSStd), 0.0);
}

TEST(ValidityIndex, RMSStdOfNoSampleIsZero)
{
    EXPECT_EQ(computeValidityIndex(g_centers, VectorColl(), UInt32Vector(), eVIT_RMSStd), 0.0);
}

TEST(ValidityIndex, RSIsTheShareThatTheClustersExplain)
{
    // Mean 7.6.
    const double total = 7.6 * 7.6 + 5.6 * 5.6 + 2.4 * 2.4 + 3.4 * 3.4 + 7.4 * 7.4;
    EXPECT_NEAR(index(eVIT_RS), (total - 16.0) / total, 1e-15);
}

TEST(ValidityIndex, RSOfNoSampleOrEqualSamplesIsZero)
{
    EXPECT_EQ(computeValidityIndex(g_centers, VectorColl(), UInt32Vector(), eVIT_RS), 0.0);
    EXPECT_EQ(computeValidityIndex(makeDataSet({{5.0}}), makeDataSet({{3.0}, {3.0}}), {0, 0}, eVIT_RS), 0.0);
}

TEST(ValidityIndex, SDMultipliesScatterAndSeparation)
{
    // One coordinate: m = 2, q = 8, sigma = 8 - 4. v = (2, 2), A = 2 / 2 + 2 / 2, D = 4 * 2.
    // d = 4 both ways: B = 2 / 4, dMax / dMin = 1.
    const VectorColl data = makeDataSet({{-1.0}, {1.0}, {3.0}, {5.0}});
    const double m = 8.0 / 4.0;
    const double sigma = 36.0 / 4.0 - m * m;
    EXPECT_EQ(computeValidityIndex(makeDataSet({{0.0}, {4.0}}), data, {0, 0, 1, 1}, eVIT_SD),
              (2.0 / (sigma * 2.0) + 1.0) * 0.5);
}

TEST(ValidityIndex, SDTakesNormsOverTheCoordinates)
{
    // Variances (3, 4): sigma 5. v = (6, 8) over two samples: A = |(3, 4)| = 5 in one cluster, 0 in the empty one.
    const double x = std::sqrt(3.0);
    const VectorColl data = makeDataSet({{-x, -2.0}, {x, 2.0}});
    const VectorColl centers = makeDataSet({{0.0, 0.0}, {3.0, 4.0}});
    EXPECT_NEAR(computeValidityIndex(centers, data, {0, 0}, eVIT_SD), (5.0 / (5.0 * 2.0) + 1.0) * (2.0 / 5.0), 1e-14);
}

TEST(ValidityIndex, SDCountsEachPairOfCentersTwice)
{
    const VectorColl centers = makeDataSet({{0.0}, {2.0}, {10.0}});
    const VectorColl data = makeDataSet({{0.0}, {2.0}, {10.0}});
    const double b = (((((0.0 + 1.0 / 2.0) + 1.0 / 10.0) + 1.0 / 2.0) + 1.0 / 8.0) + 1.0 / 10.0) + 1.0 / 8.0;
    EXPECT_EQ(computeValidityIndex(centers, data, {0, 1, 2}, eVIT_SD), (0.0 + 1.0) * (b * (10.0 / 2.0)));
}

TEST(ValidityIndex, SDOfOneClusterIsZero)
{
    const double index = computeValidityIndex(makeDataSet({{1.0}}), makeDataSet({{0.0}, {2.0}}), {0, 0}, eVIT_SD);
    EXPECT_EQ(index, 0.0);
    EXPECT_TRUE(std::signbit(index)); // no pair, so that the range of the distances is the one they start from
}

TEST(ValidityIndex, SDOfNoSampleIsZero)
{
    EXPECT_EQ(computeValidityIndex(g_centers, VectorColl(), UInt32Vector(), eVIT_SD), 0.0);
}

TEST(ValidityIndex, SDIsTheLargestValueWithoutVarianceOrCenters)
{
    EXPECT_EQ(computeValidityIndex(makeDataSet({{3.0}, {4.0}}), makeDataSet({{3.0}, {3.0}}), {0, 0}, eVIT_SD),
              g_largest);
    EXPECT_EQ(computeValidityIndex(VectorColl(), makeDataSet({{0.0}, {3.0}}), {0, 0}, eVIT_SD), g_largest);
}

TEST(ValidityIndex, SDOfCoincidentCentersIsTheLargestValue)
{
    EXPECT_EQ(computeValidityIndex(makeDataSet({{1.0}, {12.0}, {1.0}}), g_data, g_labels, eVIT_SD), g_largest);
}

TEST(ValidityIndex, SamplesWithoutACenterAddNothingToTheScatters)
{
    const UInt32Vector labels = {0, 0, 1, 1, NumericLimits<ovUInt32>::s_max};
    const VectorColl fewer(g_data.begin(), g_data.end() - 1);
    for (const eValidityIndexType type : {eVIT_DaviesBouldin, eVIT_RMSStd})
    {
        EXPECT_EQ(computeValidityIndex(g_centers, g_data, labels, type),
                  computeValidityIndex(g_centers, fewer, {0, 0, 1, 1}, type));
    }
    EXPECT_TRUE(std::isfinite(computeValidityIndex(g_centers, g_data, labels, eVIT_RS)));
    EXPECT_TRUE(std::isfinite(computeValidityIndex(g_centers, g_data, labels, eVIT_SD)));
}

TEST(ValidityIndex, AllSumsRunInTheOrderOfTheirIndices)
{
    // Far from the origin nearly all sums are rounded.
    for (const double shift : {0.0, 1e8})
        expectPlainIndices(shift);
}

TEST(ValidityIndex, AnUnknownTypeCountsAsDunn)
{
    for (const int value : {5, 6, 1000, -1, NumericLimits<int>::s_min})
        EXPECT_EQ(index(static_cast<eValidityIndexType>(value)), index(eVIT_Dunn));
}

} // namespace clustering
} // namespace math
} // namespace ovrix
