#include <OVRIXMath/Clustering/KMeansClustering.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <iostream>
#include <limits>
#include <random>
#include <sstream>
#include <support/AllocationCount.h>
#include <support/Builders.h>
#include <support/ExpectFailure.h>
#include <support/FlushedLines.h>
#include <support/HeaderExample.h>
#include <support/LogCapture.h>
#include <support/PlainKMeans.h>
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
using test::makeVector;
using test::toStd;
using testing::ElementsAre;

const std::string g_notDone = "Proceed to clustering before use";

/// Three samples near 0, two near 10.
const VectorColl g_data = makeDataSet({{10.0, 0.0}, {0.0, 1.0}, {0.0, 0.0}, {10.0, 2.0}, {0.0, 2.0}});

KMeansClusteringConfig makeConfig(ovUInt32 nbAttempts, ovUInt32 nbMaxIteration)
{
    KMeansClusteringConfig config;
    config.setNbAttempts(nbAttempts);
    config.setNbMaxIteration(nbMaxIteration);
    return config;
}

KMeansClustering computed(ovUInt32 nbClusters, const VectorColl& data, unsigned int seed = 1)
{
    RandomUniformGenerator::getGen().seed(seed);
    KMeansClustering clustering;
    EXPECT_TRUE(clustering.compute(nbClusters, data));
    return clustering;
}

void expectNotDone(const KMeansClustering& clustering)
{
    EXPECT_FALSE(clustering.isClusteringDone());
    test::expectMathRaises(g_notDone, [&] { clustering.getNbClusters(); });
    test::expectMathRaises(g_notDone, [&] { clustering.getNbInputData(); });
    test::expectMathRaises(g_notDone, [&] { clustering.getDataSize(); });
    test::expectMathRaises(g_notDone, [&] { clustering.getInputDataColl(); });
    test::expectMathRaises(g_notDone, [&] { clustering.getNbFailedAttempts(); });
    test::expectMathRaises(g_notDone, [&] { clustering.getCompactness(); });
    test::expectMathRaises(g_notDone, [&] { clustering.getNbIteration(); });
    test::expectMathRaises(g_notDone, [&] { clustering.getClustersCenters(); });
    test::expectMathRaises(g_notDone, [&] { clustering.getAssignments(); });
    test::expectMathRaises(g_notDone, [&] { clustering.computeValidityIndex(eVIT_RS); });
    test::expectMathRaises(g_notDone, [&] { clustering.getClusterPopulation(0); });
    test::expectMathRaises(g_notDone, [&] { clustering.getClusterCenter(0); });
    test::expectMathRaises(g_notDone, [&] { clustering.getClusterStdDev(0); });
}

/// Expects everything that the plain method gives from the same state of the generator.
void expectPlain(ovUInt32 nbClusters, const VectorColl& data, const KMeansClusteringConfig& config, unsigned int seed)
{
    RandomUniformGenerator::getGen().seed(seed);
    test::PlainKMeans plain;
    const bool bPlain = plain.compute(nbClusters, data, config);
    const auto plainNextDraw = RandomUniformGenerator::getGen()();

    RandomUniformGenerator::getGen().seed(seed);
    KMeansClustering clustering;
    clustering.setConfig(config);
    ASSERT_EQ(clustering.compute(nbClusters, data), bPlain);
    EXPECT_EQ(RandomUniformGenerator::getGen()(), plainNextDraw);
    EXPECT_EQ(clustering.isClusteringDone(), bPlain);
    if (!bPlain)
        return;
    EXPECT_EQ(clustering.getAssignments(), plain.assignments);
    EXPECT_EQ(clustering.getNbIteration(), plain.nbIteration);
    EXPECT_EQ(clustering.getNbFailedAttempts(), plain.nbFailedAttempts);
    EXPECT_EQ(clustering.getCompactness(), plain.compactness);
    ASSERT_EQ(clustering.getNbClusters(), nbClusters);
    for (ovUInt32 k = 0; k < nbClusters; ++k)
        EXPECT_EQ(toStd(clustering.getClusterCenter(k)), toStd(plain.centers[k]));
}

} // namespace

TEST(KMeansClustering, IsNotDoneAfterConstruction)
{
    const KMeansClustering clustering;
    expectNotDone(clustering);
    EXPECT_EQ(clustering.getConfig().getNbAttempts(), 10u);
    EXPECT_EQ(clustering.getConfig().getNbMaxIteration(), 100u);
}

TEST(KMeansClustering, TheConfigurationIsKeptByValue)
{
    KMeansClustering clustering;
    KMeansClusteringConfig config = makeConfig(3, 4);
    clustering.setConfig(config);
    config.setNbAttempts(5);
    EXPECT_EQ(clustering.getConfig().getNbAttempts(), 3u);
    EXPECT_EQ(clustering.getConfig().getNbMaxIteration(), 4u);
}

TEST(KMeansClustering, FindsTwoGroups)
{
    const KMeansClustering clustering = computed(2, g_data);
    EXPECT_TRUE(clustering.isClusteringDone());
    EXPECT_EQ(clustering.getNbClusters(), 2u);
    EXPECT_EQ(clustering.getNbInputData(), 5u);
    EXPECT_EQ(clustering.getDataSize(), 2u);
    EXPECT_EQ(clustering.getInputDataColl().size(), 5u);
    EXPECT_EQ(clustering.getNbFailedAttempts(), 0u);
    EXPECT_EQ(clustering.getCompactness(), 4.0);
    EXPECT_THAT(clustering.getAssignments(), ElementsAre(1, 0, 0, 1, 0));
    EXPECT_EQ(toStd(clustering.getClusterCenter(0)), toStd(makeVector({0.0, 1.0})));
    EXPECT_EQ(toStd(clustering.getClusterCenter(1)), toStd(makeVector({10.0, 1.0})));
    EXPECT_EQ(clustering.getClusterPopulation(0), 3u);
    EXPECT_EQ(clustering.getClusterPopulation(1), 2u);
    EXPECT_EQ(clustering.getClusterStdDev(0), std::sqrt(2.0 / 3.0));
    EXPECT_EQ(clustering.getClusterStdDev(1), 1.0);
}

TEST(KMeansClustering, ClustersAreNumberedByDecreasingPopulation)
{
    for (unsigned int seed = 0; seed < 20; ++seed)
    {
        const KMeansClustering clustering = computed(2, g_data, seed);
        EXPECT_GE(clustering.getClusterPopulation(0), clustering.getClusterPopulation(1));
    }
}

TEST(KMeansClustering, OfEqualPopulationsTheHigherFormerLabelComesFirst)
{
    // Two clusters of two: the first seed, label 0 while computing, ends as label 1.
    const VectorColl data = makeDataSet({{0.0}, {1.0}, {10.0}, {11.0}});
    int nbCompared = 0;
    for (unsigned int seed = 0; seed < 20; ++seed)
    {
        RandomUniformGenerator::getGen().seed(seed);
        VectorColl seeds;
        generateKMeansPPInit(2, data, seeds);
        if ((seeds[0][0] < 5.0) == (seeds[1][0] < 5.0))
            continue;
        ++nbCompared;
        RandomUniformGenerator::getGen().seed(seed);
        KMeansClustering clustering;
        clustering.setConfig(makeConfig(1, 100));
        ASSERT_TRUE(clustering.compute(2, data));
        EXPECT_EQ(clustering.getClusterCenter(1)[0], seeds[0][0] < 5.0 ? 0.5 : 10.5);
    }
    EXPECT_GT(nbCompared, 5);
}

TEST(KMeansClustering, LabelsNewSamplesByTheNearestCenter)
{
    const KMeansClustering clustering = computed(2, g_data);
    EXPECT_EQ(clustering.computeAssignment(makeVector({4.0, 1.0})), 0u);
    EXPECT_EQ(clustering.computeAssignment(makeVector({6.0, 1.0})), 1u);
}

TEST(KMeansClustering, GivesNoLabelWhileNotDone)
{
    EXPECT_EQ(KMeansClustering().computeAssignment(makeVector({1.0})), NumericLimits<ovUInt32>::s_max);
}

TEST(KMeansClustering, NoClusterRaisesAndLeavesItNotDone)
{
    KMeansClustering clustering = computed(2, g_data);
    test::expectMathRaises("Target number of clusters should not be null", [&] { clustering.compute(0, g_data); });
    expectNotDone(clustering);
}

TEST(KMeansClustering, MoreClustersThanSamplesRaiseAndLeaveItNotDone)
{
    KMeansClustering clustering = computed(2, g_data);
    test::expectMathRaises("Number of clusters {6} should not be greater than number of input data {5}",
                           [&] { clustering.compute(6, g_data); });
    expectNotDone(clustering);
}

TEST(KMeansClustering, NoSampleRaises)
{
    KMeansClustering clustering;
    test::expectMathRaises("Number of clusters {1} should not be greater than number of input data {0}",
                           [&] { clustering.compute(1, VectorColl()); });
}

TEST(KMeansClustering, AsManyClustersAsSamplesAreAccepted)
{
    const KMeansClustering clustering = computed(5, g_data);
    EXPECT_EQ(clustering.getNbClusters(), 5u);
}

TEST(KMeansClustering, OneClusterHasTheMeanAsItsCenter)
{
    const KMeansClustering clustering = computed(1, g_data);
    EXPECT_EQ(toStd(clustering.getClusterCenter(0)), toStd(makeVector({4.0, 1.0})));
    EXPECT_EQ(clustering.getNbIteration(), 2u);
}

TEST(KMeansClustering, IdenticalSamplesFormOneCluster)
{
    const KMeansClustering clustering = computed(1, VectorColl(4, makeVector({3.0})));
    EXPECT_EQ(clustering.getCompactness(), 0.0);
    EXPECT_EQ(clustering.getClusterPopulation(0), 4u);
}

TEST(KMeansClustering, AllAttemptsFailWithOneIteration)
{
    KMeansClustering clustering = computed(2, g_data);
    clustering.setConfig(makeConfig(4, 1));
    EXPECT_FALSE(clustering.compute(2, g_data));
    expectNotDone(clustering);
}

TEST(KMeansClustering, AnAttemptThatSettlesOnTheLastIterationFails)
{
    // One cluster settles in the second iteration.
    KMeansClustering clustering;
    clustering.setConfig(makeConfig(3, 2));
    EXPECT_FALSE(clustering.compute(1, g_data));
    clustering.setConfig(makeConfig(3, 3));
    EXPECT_TRUE(clustering.compute(1, g_data));
}

TEST(KMeansClustering, AFailureIsNotLoggedAndKeepsNoCenters)
{
    const test::LogCapture log;
    KMeansClustering clustering;
    clustering.setConfig(makeConfig(1, 1));
    EXPECT_FALSE(clustering.compute(2, g_data));
    EXPECT_TRUE(log.getLines().empty());
    EXPECT_EQ(clustering.computeAssignment(makeVector({1.0, 1.0})), NumericLimits<ovUInt32>::s_max);
}

TEST(KMeansClustering, AttemptsWithoutAFiniteCompactnessLeaveItNotDone)
{
    // All samples lie 6e153 from their mean: each squared distance is finite, the sum of six is not.
    KMeansClustering clustering;
    const VectorColl data = makeDataSet({{-6e153}, {6e153}, {-6e153}, {6e153}, {-6e153}, {6e153}});
    EXPECT_FALSE(clustering.compute(1, data));
    expectNotDone(clustering);
}

TEST(KMeansClustering, ASampleThatIsNoNumberBelongsToNoCluster)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const KMeansClustering clustering = computed(1, makeDataSet({{1.0}, {nan}, {3.0}}));
    EXPECT_THAT(clustering.getAssignments(), ElementsAre(0, NumericLimits<ovUInt32>::s_max, 0));
    EXPECT_EQ(clustering.getClusterCenter(0)[0], 2.0);
    EXPECT_EQ(clustering.getCompactness(), 2.0);
    std::ostringstream stream;
    stream << clustering;
    EXPECT_THAT(stream.str(), testing::HasSubstr("0;{2};2;1\n"));
}

TEST(KMeansClustering, ClearKeepsTheNumbersOutOfReach)
{
    KMeansClustering clustering = computed(2, g_data);
    clustering.clear();
    expectNotDone(clustering);
}

TEST(KMeansClustering, AnotherConfigurationLeavesTheResult)
{
    KMeansClustering clustering = computed(2, g_data);
    clustering.setConfig(makeConfig(1, 1));
    EXPECT_EQ(clustering.getCompactness(), 4.0);
}

TEST(KMeansClustering, AClusterIndexOutOfRangeRaises)
{
    const KMeansClustering clustering = computed(2, g_data);
    const std::string text = "Invalid cluster index {2} while clustering operation count 2 clusters";
    test::expectMathRaises(text, [&] { clustering.getClusterPopulation(2); });
    test::expectMathRaises(text, [&] { clustering.getClusterCenter(2); });
    test::expectMathRaises(text, [&] { clustering.getClusterStdDev(2); });
}

TEST(KMeansClustering, ValidityIndicesAreThoseOfItsResult)
{
    const KMeansClustering clustering = computed(2, g_data);
    for (const eValidityIndexType type : {eVIT_Dunn, eVIT_DaviesBouldin, eVIT_RMSStd, eVIT_RS, eVIT_SD})
    {
        EXPECT_EQ(clustering.computeValidityIndex(type),
                  clustering::computeValidityIndex(clustering.getClustersCenters(), g_data, clustering.getAssignments(),
                                                   type));
    }
}

TEST(KMeansClustering, TheResultDependsOnTheGeneratorAlone)
{
    std::mt19937 generator(3);
    std::uniform_real_distribution<double> uniform;
    VectorColl data(300, Vector(3));
    for (Vector& sample : data)
        std::generate(sample.begin(), sample.end(), [&] { return uniform(generator); });
    const KMeansClustering first = computed(7, data, 9);
    const KMeansClustering second = computed(7, data, 9);
    EXPECT_EQ(first.getAssignments(), second.getAssignments());
    EXPECT_EQ(first.getCompactness(), second.getCompactness());
}

TEST(KMeansClustering, GivesWhatThePlainMethodGives)
{
    std::mt19937 generator(5);
    std::normal_distribution<double> normal;
    for (unsigned int seed = 0; seed < 60; ++seed)
    {
        VectorColl data(20 + generator() % 200, Vector(1 + generator() % 6));
        for (Vector& sample : data)
            std::generate(sample.begin(), sample.end(), [&] { return normal(generator); });
        const ovUInt32 nbClusters = static_cast<ovUInt32>(1 + generator() % 20);
        expectPlain(nbClusters, data, makeConfig(1 + generator() % 6, 1 + generator() % 30), seed);
    }
}

TEST(KMeansClustering, FurtherAttemptsAllocateNothing)
{
    std::mt19937 generator(6);
    std::uniform_real_distribution<double> uniform;
    VectorColl data(500, Vector(3));
    for (Vector& sample : data)
        std::generate(sample.begin(), sample.end(), [&] { return uniform(generator); });
    const auto countAllocations = [&](ovUInt32 nbAttempts)
    {
        KMeansClustering clustering;
        clustering.setConfig(makeConfig(nbAttempts, 1000));
        RandomUniformGenerator::getGen().seed(1);
        const std::size_t nbBefore = test::getNbAllocations();
        EXPECT_TRUE(clustering.compute(8, data));
        return test::getNbAllocations() - nbBefore;
    };
    EXPECT_EQ(countAllocations(20), countAllocations(1));
}

TEST(KMeansClustering, IsNotDoneAfterWantOfMemory)
{
    const KMeansClustering done = computed(2, g_data);
    const std::size_t nbFailures =
        test::failEachAllocation([&] { return done; },
                                 [](KMeansClustering& clustering)
                                 {
                                     RandomUniformGenerator::getGen().seed(1);
                                     clustering.compute(2, g_data);
                                 },
                                 [](KMeansClustering& clustering)
                                 {
                                     EXPECT_FALSE(clustering.isClusteringDone());
                                     EXPECT_EQ(clustering.computeAssignment(g_data[0]), NumericLimits<ovUInt32>::s_max);
                                     EXPECT_TRUE(clustering.compute(2, g_data));
                                     EXPECT_THAT(clustering.getAssignments(), ElementsAre(1, 0, 0, 1, 0));
                                 });
    EXPECT_GT(nbFailures, 20u);
}

TEST(KMeansClustering, GivesWhatThePlainMethodGivesOnMeasurements)
{
    for (const char* name : {"iris.csv", "wine.csv"})
    {
        const VectorColl data = test::readMeasurements(name).samples;
        for (ovUInt32 nbClusters = 1; nbClusters <= 12; ++nbClusters)
            expectPlain(nbClusters, data, KMeansClusteringConfig(), nbClusters);
    }
}

TEST(KMeansClustering, FindsTheBestThreeClustersOfIris)
{
    KMeansClustering best = computed(3, test::readMeasurements("iris.csv").samples, 0);
    for (unsigned int seed = 1; seed < 5; ++seed)
    {
        const KMeansClustering other = computed(3, best.getInputDataColl(), seed);
        if (other.getCompactness() < best.getCompactness())
            best = other;
    }
    EXPECT_NEAR(best.getCompactness(), 78.851441426146, 1e-11);
    EXPECT_EQ(best.getClusterPopulation(0), 62u);
    EXPECT_EQ(best.getClusterPopulation(1), 50u);
    EXPECT_EQ(best.getClusterPopulation(2), 38u);
}

TEST(KMeansClustering, PrintsThatNothingIsDone)
{
    std::ostringstream stream;
    stream << KMeansClustering();
    EXPECT_EQ(stream.str(), "Clustering not done\n");
}

TEST(KMeansClustering, PrintsSizesIndicesAndClusters)
{
    // Clusters {-1, 0, 1} about 0 and {4, 6} about 5.
    const VectorColl data = makeDataSet({{4.0, 1.0}, {-1.0, 1.0}, {0.0, 1.0}, {6.0, 1.0}, {1.0, 1.0}});
    const KMeansClustering clustering = computed(2, data);
    std::ostringstream indices;
    indices << "eVIT_Dunn=" << clustering.computeValidityIndex(eVIT_Dunn)
            << ";eVIT_DaviesBouldin=" << clustering.computeValidityIndex(eVIT_DaviesBouldin)
            << ";eVIT_RMSStd=" << clustering.computeValidityIndex(eVIT_RMSStd)
            << ";eVIT_RS=" << clustering.computeValidityIndex(eVIT_RS)
            << ";eVIT_SD=" << clustering.computeValidityIndex(eVIT_SD) << ";";
    std::ostringstream stream;
    stream << clustering;
    EXPECT_EQ(stream.str(), "Nb clusters=2\nNb input data=5\nData size=2\nNb failed attempts=0\nCompactness=4\n" +
                                indices.str() + "ClusterIdx;Center;Population;StdDev\n" +
                                "0;{0,1};3;0.816497\n1;{5,1};2;1\n");
}

TEST(KMeansClustering, PrintsFlushedLines)
{
    test::expectFlushedLines(KMeansClustering());
    test::expectFlushedLines(computed(2, g_data));
}

TEST(KMeansClustering, TheHeadersExampleCompiles)
{
    const VectorColl& samples = g_data;
    testing::internal::CaptureStdout();
    KMeansClustering clustering;
    if (clustering.compute(3, samples))
        std::cout << clustering.getAssignments()[0] << " " << clustering.getCompactness() << std::endl;
    EXPECT_NE(testing::internal::GetCapturedStdout(), "");
    EXPECT_THAT(test::readCode(__FILE__),
                testing::HasSubstr(test::readExample("OVRIXMath/Clustering/KMeansClustering.h")));
}

TEST(KMeansClustering, TheGuidesExampleCompiles)
{
    const VectorColl& samples = g_data;
    testing::internal::CaptureStdout();
    KMeansClustering clustering;
    if (clustering.compute(3, samples))
        std::cout << clustering;
    EXPECT_NE(testing::internal::GetCapturedStdout(), "");
    for (const std::string& example : test::readGuideExamples("docs/guides/clustering.md"))
        EXPECT_THAT(test::readCode(__FILE__), testing::HasSubstr(example));
}

} // namespace clustering
} // namespace math
} // namespace ovrix
