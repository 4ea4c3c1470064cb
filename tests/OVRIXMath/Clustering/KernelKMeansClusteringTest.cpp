#include <OVRIXMath/Clustering/KMeansClustering.h>
#include <OVRIXMath/Clustering/KernelKMeansClustering.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <sstream>
#include <support/AllocationCount.h>
#include <support/Bits.h>
#include <support/Builders.h>
#include <support/ExpectFailure.h>
#include <support/FlushedLines.h>
#include <support/HeaderExample.h>
#include <support/Kernels.h>
#include <support/LogCapture.h>
#include <support/PlainKernelKMeans.h>
#include <support/RandomData.h>
#include <support/RingsAndMoons.h>
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
using testing::ElementsAre;

const std::string g_notDone = "Proceed to clustering before use";

/// Three samples near (1, 1), two near (10, 1).
const VectorColl g_data = makeDataSet({{10.0, 0.0}, {1.0, 1.0}, {1.0, 0.0}, {10.0, 2.0}, {1.0, 2.0}});

KernelKMeansClusteringConfig makeConfig(ovUInt32 nbAttempts, ovUInt32 nbMaxIteration)
{
    KernelKMeansClusteringConfig config;
    config.setNbAttempts(nbAttempts);
    config.setNbMaxIteration(nbMaxIteration);
    return config;
}

template <class KernelType>
KernelKMeansClustering<KernelType> computed(const KernelType& kernel, ovUInt32 nbClusters, const VectorColl& data,
                                            unsigned int seed = 1)
{
    RandomUniformGenerator::getGen().seed(seed);
    KernelKMeansClustering<KernelType> clustering(kernel);
    EXPECT_TRUE(clustering.compute(nbClusters, data));
    return clustering;
}

KernelKMeansClustering<LinearKernel> linearComputed(ovUInt32 nbClusters, const VectorColl& data, unsigned int seed = 1)
{
    return computed(LinearKernel::createKernel(), nbClusters, data, seed);
}

template <class KernelType>
void expectNotDone(const KernelKMeansClustering<KernelType>& clustering)
{
    EXPECT_FALSE(clustering.isClusteringDone());
    test::expectMathRaises(g_notDone, [&] { clustering.getNbClusters(); });
    test::expectMathRaises(g_notDone, [&] { clustering.getDataSize(); });
    test::expectMathRaises(g_notDone, [&] { clustering.getNbInputData(); });
    test::expectMathRaises(g_notDone, [&] { clustering.getInputDataColl(); });
    test::expectMathRaises(g_notDone, [&] { clustering.getNbFailedAttempts(); });
    test::expectMathRaises(g_notDone, [&] { clustering.getSeparation(); });
    test::expectMathRaises(g_notDone, [&] { clustering.getNbIteration(); });
    test::expectMathRaises(g_notDone, [&] { clustering.getClustersCentroids(); });
    test::expectMathRaises(g_notDone, [&] { clustering.getAssignments(); });
    test::expectMathRaises(g_notDone, [&] { clustering.getClusterPopulation(0); });
    test::expectMathRaises(g_notDone, [&] { clustering.getCentroid(0); });
}

/// Expects everything that the plain method gives from the same state of the generator.
template <class KernelType>
void expectPlain(const KernelType& kernel, ovUInt32 nbClusters, const VectorColl& data,
                 const KernelKMeansClusteringConfig& config, unsigned int seed)
{
    RandomUniformGenerator::getGen().seed(seed);
    test::PlainKernelKMeans<KernelType> plain(kernel);
    const bool bPlain = plain.compute(nbClusters, data, config);
    const auto plainNextDraw = RandomUniformGenerator::getGen()();

    RandomUniformGenerator::getGen().seed(seed);
    KernelKMeansClustering<KernelType> clustering(kernel);
    clustering.setConfig(config);
    ASSERT_EQ(clustering.compute(nbClusters, data), bPlain);
    EXPECT_EQ(RandomUniformGenerator::getGen()(), plainNextDraw);
    EXPECT_EQ(clustering.isClusteringDone(), bPlain);
    if (!bPlain)
        return;
    EXPECT_EQ(clustering.getAssignments(), plain.assignments);
    EXPECT_EQ(clustering.getNbIteration(), plain.nbIteration);
    EXPECT_EQ(clustering.getNbFailedAttempts(), plain.nbFailedAttempts);
    EXPECT_EQ(test::bitsOf(clustering.getSeparation()), test::bitsOf(plain.separation));
    ASSERT_EQ(clustering.getNbClusters(), nbClusters);
    for (ovUInt32 k = 0; k < nbClusters; ++k)
    {
        const KernelKMeansCentroid<KernelType>& centroid = clustering.getCentroid(k);
        EXPECT_EQ(centroid.getWeights(), plain.centroids[k].weights);
        ASSERT_EQ(centroid.getDictionarySize(), plain.centroids[k].dictionary.size());
        for (ovUInt32 i = 0; i < centroid.getDictionarySize(); ++i)
            EXPECT_EQ(test::toStd(centroid.getDictionary()[i]), test::toStd(plain.centroids[k].dictionary[i]));
        EXPECT_EQ(centroid.getNbSamples(), plain.centroids[k].nbSamples);
        EXPECT_EQ(test::bitsOf(centroid.getClusterTerm()), test::bitsOf(plain.centroids[k].clusterTerm()));
        EXPECT_EQ(clustering.getClusterPopulation(k),
                  std::count(plain.assignments.begin(), plain.assignments.end(), k));
    }
}

} // namespace

TEST(KernelKMeansClustering, IsNotDoneAfterConstruction)
{
    const KernelKMeansClustering<RadialBasisKernel> clustering(RadialBasisKernel(3.0));
    expectNotDone(clustering);
    EXPECT_EQ(clustering.getKernel().getSigma(), 3.0);
    EXPECT_EQ(clustering.getConfig().getNbAttempts(), 10u);
    EXPECT_EQ(clustering.getConfig().getMinChangeRatio(), 0.01);
}

TEST(KernelKMeansClustering, TheConfigurationIsKeptByValue)
{
    KernelKMeansClustering<LinearKernel> clustering(LinearKernel::createKernel());
    KernelKMeansClusteringConfig config = makeConfig(3, 4);
    clustering.setConfig(config);
    config.setNbAttempts(5);
    EXPECT_EQ(clustering.getConfig().getNbAttempts(), 3u);
    EXPECT_EQ(clustering.getConfig().getNbMaxIteration(), 4u);
}

TEST(KernelKMeansClustering, FindsTwoGroups)
{
    const KernelKMeansClustering<LinearKernel> clustering = linearComputed(2, g_data);
    EXPECT_TRUE(clustering.isClusteringDone());
    EXPECT_EQ(clustering.getNbClusters(), 2u);
    EXPECT_EQ(clustering.getNbInputData(), 5u);
    EXPECT_EQ(clustering.getDataSize(), 2u);
    EXPECT_EQ(clustering.getInputDataColl().size(), 5u);
    EXPECT_EQ(clustering.getNbFailedAttempts(), 0u);
    EXPECT_THAT(clustering.getAssignments(), ElementsAre(1, 0, 0, 1, 0));
    EXPECT_EQ(clustering.getClusterPopulation(0), 3u);
    EXPECT_EQ(clustering.getClusterPopulation(1), 2u);
    EXPECT_NEAR(clustering.getCentroid(0).distance(makeVector({1.0, 1.0})), 0.0, 1e-6);
    EXPECT_NEAR(clustering.getCentroid(1).distance(makeVector({10.0, 1.0})), 0.0, 1e-6);
    EXPECT_EQ(clustering.getClustersCentroids().size(), 2u);
}

TEST(KernelKMeansClustering, TheSeparationIsTheDunnIndexOfTheSamples)
{
    const KernelKMeansClustering<LinearKernel> clustering = linearComputed(2, g_data);
    EXPECT_EQ(clustering.getSeparation(),
              computeValidityIndex(VectorColl(), g_data, clustering.getAssignments(), eVIT_Dunn));
    EXPECT_EQ(clustering.getSeparation(), std::sqrt(81.0 / 4.0));
}

TEST(KernelKMeansClustering, OneClusterHasTheSeparationOfTheStartingValue)
{
    const KernelKMeansClustering<LinearKernel> clustering = linearComputed(1, makeDataSet({{1.0}, {4.0}}));
    EXPECT_EQ(clustering.getSeparation(), std::sqrt(NumericLimits<double>::s_max / 9.0));
    EXPECT_EQ(clustering.getNbIteration(), 2u);
}

TEST(KernelKMeansClustering, LabelsNewSamplesByTheNearestCentroid)
{
    const KernelKMeansClustering<LinearKernel> clustering = linearComputed(2, g_data);
    EXPECT_EQ(clustering.computeAssignment(makeVector({5.0, 1.0})), 0u);
    EXPECT_EQ(clustering.computeAssignment(makeVector({6.0, 1.0})), 1u);
}

TEST(KernelKMeansClustering, GivesNoLabelWhileNotDone)
{
    EXPECT_EQ(KernelKMeansClustering<LinearKernel>(LinearKernel::createKernel()).computeAssignment(makeVector({1.0})),
              NumericLimits<ovUInt32>::s_max);
}

TEST(KernelKMeansClustering, OfEqualPopulationsTheHigherFormerLabelComesFirst)
{
    const LinearKernel kernel = LinearKernel::createKernel();
    const VectorColl data = makeDataSet({{1.0}, {2.0}, {10.0}, {11.0}});
    int nbCompared = 0;
    for (unsigned int seed = 0; seed < 20; ++seed)
    {
        RandomUniformGenerator::getGen().seed(seed);
        VectorColl seeds;
        generateKernelKMeansPPInit(kernel, 2, data, seeds);
        if ((seeds[0][0] < 5.0) == (seeds[1][0] < 5.0))
            continue;
        ++nbCompared;
        RandomUniformGenerator::getGen().seed(seed);
        KernelKMeansClustering<LinearKernel> clustering(kernel);
        clustering.setConfig(makeConfig(1, 100));
        ASSERT_TRUE(clustering.compute(2, data));
        EXPECT_EQ(clustering.computeAssignment(seeds[0]), 1u);
    }
    EXPECT_GT(nbCompared, 5);
}

TEST(KernelKMeansClustering, NoClusterRaisesAndLeavesItNotDone)
{
    KernelKMeansClustering<LinearKernel> clustering = linearComputed(2, g_data);
    test::expectMathRaises("Target number of clusters should not be null",
                           [&] { clustering.compute(0, VectorColl()); });
    expectNotDone(clustering);
}

TEST(KernelKMeansClustering, MoreClustersThanSamplesRaiseAndLeaveItNotDone)
{
    KernelKMeansClustering<LinearKernel> clustering = linearComputed(2, g_data);
    test::expectMathRaises("Number of clusters {6} should not be greater than number of input data {5}",
                           [&] { clustering.compute(6, g_data); });
    expectNotDone(clustering);
}

TEST(KernelKMeansClustering, NoSampleRaises)
{
    KernelKMeansClustering<LinearKernel> clustering(LinearKernel::createKernel());
    test::expectMathRaises("Number of clusters {1} should not be greater than number of input data {0}",
                           [&] { clustering.compute(1, VectorColl()); });
}

TEST(KernelKMeansClustering, AllAttemptsFailWithOneIteration)
{
    const test::LogCapture log;
    KernelKMeansClustering<LinearKernel> clustering = linearComputed(2, g_data);
    clustering.setConfig(makeConfig(4, 1));
    EXPECT_FALSE(clustering.compute(2, g_data));
    expectNotDone(clustering);
    EXPECT_EQ(clustering.computeAssignment(makeVector({1.0, 1.0})), NumericLimits<ovUInt32>::s_max);
}

TEST(KernelKMeansClustering, AFailureIsNotLogged)
{
    const test::LogCapture log;
    KernelKMeansClustering<LinearKernel> clustering(LinearKernel::createKernel());
    clustering.setConfig(makeConfig(1, 1));
    EXPECT_FALSE(clustering.compute(2, g_data));
    EXPECT_THAT(log.getTexts(), ElementsAre());
}

TEST(KernelKMeansClustering, AnAttemptThatSettlesOnTheLastIterationFails)
{
    // One cluster settles in the second iteration.
    KernelKMeansClustering<LinearKernel> clustering(LinearKernel::createKernel());
    clustering.setConfig(makeConfig(3, 2));
    EXPECT_FALSE(clustering.compute(1, g_data));
    clustering.setConfig(makeConfig(3, 3));
    EXPECT_TRUE(clustering.compute(1, g_data));
}

TEST(KernelKMeansClustering, AnAttemptThatMeetsTheRatioInTheLastIterationFails)
{
    // The seed 1 at first has nothing but itself; two iterations on, at most one of six labels changes.
    const VectorColl data = makeDataSet({{1.0}, {2.0}, {3.0}, {20.0}, {21.0}, {22.0}});
    KernelKMeansClusteringConfig config = makeConfig(1, 100);
    config.setMinChangeRatio(0.9);
    KernelKMeansClustering<LinearKernel> clustering(LinearKernel::createKernel());
    for (unsigned int seed = 0; seed < 10; ++seed)
    {
        RandomUniformGenerator::getGen().seed(seed);
        config.setNbMaxIteration(100);
        clustering.setConfig(config);
        ASSERT_TRUE(clustering.compute(2, data));
        ASSERT_EQ(clustering.getNbIteration(), 2u);
        RandomUniformGenerator::getGen().seed(seed);
        config.setNbMaxIteration(2);
        clustering.setConfig(config);
        EXPECT_FALSE(clustering.compute(2, data));
    }
}

TEST(KernelKMeansClustering, FailedAttemptsAreCounted)
{
    test::RandomData random(2);
    const VectorColl data = random.dataSet(60, 2, -1.0, 1.0);
    KernelKMeansClustering<LinearKernel> clustering(LinearKernel::createKernel());
    RandomUniformGenerator::getGen().seed(1);
    clustering.setConfig(makeConfig(20, 6));
    ASSERT_TRUE(clustering.compute(4, data));
    EXPECT_GT(clustering.getNbFailedAttempts(), 0u);
    EXPECT_LT(clustering.getNbFailedAttempts(), 20u);
    EXPECT_LT(clustering.getNbIteration(), 6u);
}

TEST(KernelKMeansClustering, ClustersOfOneSampleEachHaveNoIndexAndLeaveItNotDone)
{
    KernelKMeansClustering<LinearKernel> clustering(LinearKernel::createKernel());
    const VectorColl data = makeDataSet({{1.0, 0.0}, {0.0, 2.0}, {-3.0, 0.0}});
    EXPECT_FALSE(clustering.compute(3, data));
    expectNotDone(clustering);
}

TEST(KernelKMeansClustering, AsManyClustersAsSamplesAreAcceptedWhereTheIndexIsANumber)
{
    // A single sample in a single cluster: no pair, sqrt(MAX / MIN) is not a number.
    KernelKMeansClustering<LinearKernel> clustering(LinearKernel::createKernel());
    EXPECT_FALSE(clustering.compute(1, makeDataSet({{2.0}})));
    // Two equal samples of different clusters: sqrt(0 / MIN) is a negative 0, above the starting value.
    EXPECT_TRUE(clustering.compute(1, makeDataSet({{2.0}, {2.0}})));
    EXPECT_EQ(clustering.getSeparation(), 0.0);
}

TEST(KernelKMeansClustering, CentroidsHaveTheConfigurationsThresholdAndLimit)
{
    KernelKMeansClusteringConfig config;
    config.setAccuracyThreshold(1e-6);
    config.setMaxDictionarySize(3);
    KernelKMeansClustering<RadialBasisKernel> clustering(RadialBasisKernel(0.5));
    clustering.setConfig(config);
    const VectorColl data = test::RandomData(1).dataSet(100, 2, -1.0, 1.0);
    ASSERT_TRUE(clustering.compute(2, data));
    for (const KernelKMeansCentroid<RadialBasisKernel>& centroid : clustering.getClustersCentroids())
    {
        EXPECT_EQ(centroid.getDictionarySize(), 3u);
        EXPECT_EQ(centroid.getMaxDictionarySize(), 3u);
        EXPECT_EQ(centroid.getAccuracyThreshold(), 1e-6);
        EXPECT_EQ(centroid.getKernel().getSigma(), 0.5);
    }
}

TEST(KernelKMeansClustering, ClearKeepsTheNumbersOutOfReach)
{
    KernelKMeansClustering<LinearKernel> clustering = linearComputed(2, g_data);
    clustering.clear();
    expectNotDone(clustering);
}

TEST(KernelKMeansClustering, AnotherConfigurationLeavesTheResult)
{
    KernelKMeansClustering<LinearKernel> clustering = linearComputed(2, g_data);
    clustering.setConfig(makeConfig(1, 1));
    EXPECT_EQ(clustering.getNbClusters(), 2u);
}

TEST(KernelKMeansClustering, AClusterIndexOutOfRangeRaises)
{
    const KernelKMeansClustering<LinearKernel> clustering = linearComputed(2, g_data);
    const std::string text = "Invalid cluster index {2} while clustering operation count 2 clusters";
    test::expectMathRaises(text, [&] { clustering.getClusterPopulation(2); });
    test::expectMathRaises(text, [&] { clustering.getCentroid(2); });
}

TEST(KernelKMeansClustering, ItsOwnSamplesAreClearedBeforeTheyAreRead)
{
    KernelKMeansClustering<LinearKernel> clustering = linearComputed(2, g_data);
    const VectorColl& own = clustering.getInputDataColl();
    test::expectMathRaises("Number of clusters {2} should not be greater than number of input data {0}",
                           [&] { clustering.compute(2, own); });
}

TEST(KernelKMeansClustering, ASampleThatIsNotANumberBelongsToNoCluster)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const KernelKMeansClustering<LinearKernel> clustering =
        linearComputed(1, makeDataSet({{1.0}, {nan}, {3.0}, {2.0}}), 3);
    EXPECT_THAT(clustering.getAssignments(), ElementsAre(0, NumericLimits<ovUInt32>::s_max, 0, 0));
    EXPECT_EQ(clustering.getClusterPopulation(0), 3u);
}

TEST(KernelKMeansClustering, TellsTheTwoRingsApartThatKMeansCuts)
{
    const VectorColl rings = test::makeRings(400, 1);
    RandomUniformGenerator::getGen().seed(1);
    KMeansClustering kMeans;
    ASSERT_TRUE(kMeans.compute(2, rings));
    EXPECT_LT(test::countAlternateLabels(kMeans.getAssignments()), 260u);
    const KernelKMeansClustering<RadialBasisKernel> clustering =
        computed(RadialBasisKernel::createKernel(1.2), 2, rings);
    EXPECT_EQ(test::countAlternateLabels(clustering.getAssignments()), 400u);
    EXPECT_LT(clustering.getCentroid(0).getDictionarySize(), 50u);
}

TEST(KernelKMeansClustering, GivesWhatThePlainMethodGivesOnIris)
{
    const VectorColl data = test::readMeasurements("iris.csv").samples;
    for (ovUInt32 nbClusters = 1; nbClusters <= 5; ++nbClusters)
    {
        expectPlain(LinearKernel::createKernel(), nbClusters, data, KernelKMeansClusteringConfig(), nbClusters);
        expectPlain(RadialBasisKernel(1.0), nbClusters, data, KernelKMeansClusteringConfig(), nbClusters);
        expectPlain(PolynomialKernel(0.1, 1.0, 2.0), nbClusters, data, KernelKMeansClusteringConfig(), nbClusters);
        expectPlain(SigmoidKernel(0.001, 0.0), nbClusters, data, KernelKMeansClusteringConfig(), nbClusters);
    }
}

TEST(KernelKMeansClustering, GivesWhatThePlainMethodGivesOnWine)
{
    const VectorColl data = test::readMeasurements("wine.csv").samples;
    KernelKMeansClusteringConfig config = makeConfig(4, 50);
    for (ovUInt32 nbClusters = 2; nbClusters <= 4; ++nbClusters)
    {
        expectPlain(LinearKernel::createKernel(), nbClusters, data, config, nbClusters);
        expectPlain(RadialBasisKernel(radialBasisKernelSigmaFromDynamic(data, 0.05)), nbClusters, data, config,
                    nbClusters);
    }
}

TEST(KernelKMeansClustering, UnderTheLinearKernelFindsTheClustersOfKMeansOnIris)
{
    const KernelKMeansClustering<LinearKernel> clustering =
        linearComputed(2, test::readMeasurements("iris.csv").samples);
    EXPECT_EQ(clustering.getClusterPopulation(0), 97u);
    EXPECT_EQ(clustering.getClusterPopulation(1), 53u);
}

TEST(KernelKMeansClustering, TheResultDependsOnTheGeneratorAlone)
{
    const VectorColl data = test::RandomData(3).dataSet(200, 3, -1.0, 1.0);
    const auto first = computed(RadialBasisKernel(0.6), 5, data, 9);
    const auto second = computed(RadialBasisKernel(0.6), 5, data, 9);
    EXPECT_EQ(first.getAssignments(), second.getAssignments());
    EXPECT_EQ(first.getSeparation(), second.getSeparation());
}

TEST(KernelKMeansClustering, FurtherAttemptsTakeLittleMemory)
{
    const VectorColl data = test::RandomData(3).dataSet(300, 3, -1.0, 1.0);
    const auto countAllocations = [&](ovUInt32 nbAttempts)
    {
        RandomUniformGenerator::getGen().seed(2);
        KernelKMeansClustering<RadialBasisKernel> clustering(RadialBasisKernel(1.0));
        clustering.setConfig(makeConfig(nbAttempts, 40));
        const std::size_t nbBefore = test::getNbAllocations();
        EXPECT_TRUE(clustering.compute(3, data));
        return test::getNbAllocations() - nbBefore;
    };
    // Beside the attempt that is kept: the weights of the seeding, kernel values of new members, and the index.
    EXPECT_LT(countAllocations(30), countAllocations(10) + 20 * 25);
}

TEST(KernelKMeansClustering, PrintsThatNothingIsDone)
{
    std::ostringstream stream;
    stream << KernelKMeansClustering<LinearKernel>(LinearKernel::createKernel());
    EXPECT_EQ(stream.str(), "Clustering not done\n");
}

TEST(KernelKMeansClustering, PrintsSizesAndClusters)
{
    std::ostringstream stream;
    stream << linearComputed(2, g_data);
    EXPECT_EQ(stream.str(), "Nb clusters=2\nNb input data=5\nData size=2\nNb failed attempts=0\nSeparation=4.5\n"
                            "ClusterIdx;Population;DictionarySize\n0;3;2\n1;2;2\n");
}

TEST(KernelKMeansClustering, PrintsFlushedLines)
{
    test::expectFlushedLines(KernelKMeansClustering<LinearKernel>(LinearKernel::createKernel()));
    test::expectFlushedLines(linearComputed(2, g_data));
}

TEST(KernelKMeansClustering, IsNotDoneAfterWantOfMemory)
{
    const KernelKMeansClustering<LinearKernel> done = linearComputed(2, g_data);
    const std::size_t nbFailures =
        test::failEachAllocation([&] { return done; },
                                 [](KernelKMeansClustering<LinearKernel>& clustering)
                                 {
                                     RandomUniformGenerator::getGen().seed(1);
                                     clustering.compute(2, g_data);
                                 },
                                 [](KernelKMeansClustering<LinearKernel>& clustering)
                                 {
                                     EXPECT_FALSE(clustering.isClusteringDone());
                                     EXPECT_EQ(clustering.computeAssignment(g_data[0]), NumericLimits<ovUInt32>::s_max);
                                     EXPECT_TRUE(clustering.compute(2, g_data));
                                     EXPECT_THAT(clustering.getAssignments(), ElementsAre(1, 0, 0, 1, 0));
                                 });
    EXPECT_GT(nbFailures, 50u);
}

TEST(KernelKMeansClustering, TheHeadersExampleCompiles)
{
    const VectorColl samples = test::makeRings(100, 2);
    testing::internal::CaptureStdout();
    const ovReal64 sigma = radialBasisKernelSigmaFromDynamic(samples, 0.1);
    KernelKMeansClustering<RadialBasisKernel> clustering(RadialBasisKernel::createKernel(sigma));
    if (clustering.compute(2, samples))
        std::cout << clustering.getAssignments()[0] << " " << clustering.getSeparation() << std::endl;
    EXPECT_NE(testing::internal::GetCapturedStdout(), "");
    EXPECT_THAT(test::readCode(__FILE__),
                testing::HasSubstr(test::readExample("OVRIXMath/Clustering/KernelKMeansClustering.h")));
}

template <class KernelType>
class KernelKMeansClusteringOf : public testing::Test
{
};

TYPED_TEST_SUITE(KernelKMeansClusteringOf, test::Kernels, test::KernelNames);

TYPED_TEST(KernelKMeansClusteringOf, GivesWhatThePlainMethodGives)
{
    test::RandomData random(5);
    for (unsigned int seed = 0; seed < 25 && !this->HasFailure(); ++seed)
    {
        const VectorColl data = random.dataSet(random.integer(20, 150), random.integer(1, 6), -1.0, 1.0);
        KernelKMeansClusteringConfig config = makeConfig(random.integer(1, 6), random.integer(1, 20));
        config.setMinChangeRatio(random.integer(0, 1) * 0.05);
        config.setAccuracyThreshold(random.integer(0, 1) == 0 ? 0.001 : 0.1);
        if (random.integer(0, 1) == 0)
            config.setMaxDictionarySize(random.integer(1, 12));
        expectPlain(test::makeKernel<TypeParam>(), random.integer(1, 6), data, config, seed);
    }
}

} // namespace clustering
} // namespace math
} // namespace ovrix
