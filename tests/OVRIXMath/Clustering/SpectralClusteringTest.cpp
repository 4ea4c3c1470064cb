#include <OVRIXMath/Clustering/KMeansClustering.h>
#include <OVRIXMath/Clustering/SpectralClustering.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <boost/numeric/ublas/io.hpp>
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
const std::string g_lapackFailed = "LaPack repport an error during execution";

/// Three samples near (1, 1), two near (10, 1).
const VectorColl g_data = makeDataSet({{10.0, 0.0}, {1.0, 1.0}, {1.0, 0.0}, {10.0, 2.0}, {1.0, 2.0}});

template <class KernelType>
SpectralClustering<KernelType> computed(const KernelType& kernel, ovUInt32 nbClusters, const VectorColl& data,
                                        unsigned int seed = 1)
{
    RandomUniformGenerator::getGen().seed(seed);
    SpectralClustering<KernelType> clustering(kernel);
    EXPECT_TRUE(clustering.compute(nbClusters, data));
    return clustering;
}

template <class KernelType>
void expectNotDone(const SpectralClustering<KernelType>& clustering)
{
    EXPECT_FALSE(clustering.isClusteringDone());
    EXPECT_FALSE(clustering.getClusteringAlgorithm().isClusteringDone());
    test::expectMathRaises(g_notDone, [&] { clustering.getNbClusters(); });
    test::expectMathRaises(g_notDone, [&] { clustering.getNbInputData(); });
    test::expectMathRaises(g_notDone, [&] { clustering.getDataSize(); });
    test::expectMathRaises(g_notDone, [&] { clustering.getInputDataColl(); });
    test::expectMathRaises(g_notDone, [&] { clustering.getEigenValues(); });
    test::expectMathRaises(g_notDone, [&] { clustering.getEigenVectors(); });
    test::expectMathRaises(g_notDone, [&] { clustering.getNbFailedAttempts(); });
    test::expectMathRaises(g_notDone, [&] { clustering.getSeparation(); });
    test::expectMathRaises(g_notDone, [&] { clustering.getNbIteration(); });
    test::expectMathRaises(g_notDone, [&] { clustering.getClusterPopulation(0); });
    test::expectMathRaises(g_notDone, [&] { clustering.getAssignments(); });
    test::expectMathRaises(g_notDone, [&] { clustering.computeAssignment(makeVector({1.0, 1.0})); });
}

} // namespace

TEST(SpectralClustering, IsNotDoneAfterConstruction)
{
    const SpectralClustering<RadialBasisKernel> clustering(RadialBasisKernel(3.0));
    expectNotDone(clustering);
    EXPECT_EQ(clustering.getKernel().getSigma(), 3.0);
    EXPECT_EQ(clustering.getClusteringAlgorithm().getKernel().getSigma(), 3.0);
    EXPECT_EQ(clustering.getConfig().getNbAttempts(), 10u);
}

TEST(SpectralClustering, HandsTheConfigurationOn)
{
    SpectralClustering<LinearKernel> clustering(LinearKernel::createKernel());
    KernelKMeansClusteringConfig config;
    config.setNbAttempts(3);
    clustering.setConfig(config);
    EXPECT_EQ(clustering.getConfig().getNbAttempts(), 3u);
    EXPECT_EQ(clustering.getClusteringAlgorithm().getConfig().getNbAttempts(), 3u);
}

TEST(SpectralClustering, FindsTwoGroups)
{
    const SpectralClustering<RadialBasisKernel> clustering = computed(RadialBasisKernel(2.0), 2, g_data);
    EXPECT_TRUE(clustering.isClusteringDone());
    EXPECT_EQ(clustering.getNbClusters(), 2u);
    EXPECT_EQ(clustering.getNbInputData(), 5u);
    EXPECT_EQ(clustering.getNbFailedAttempts(), 0u);
    EXPECT_THAT(clustering.getAssignments(), ElementsAre(1, 0, 0, 1, 0));
    EXPECT_EQ(clustering.getClusterPopulation(0), 3u);
    EXPECT_EQ(clustering.getClusterPopulation(1), 2u);
    EXPECT_EQ(clustering.getSeparation(), clustering.getClusteringAlgorithm().getSeparation());
    EXPECT_EQ(clustering.getNbIteration(), clustering.getClusteringAlgorithm().getNbIteration());
}

TEST(SpectralClustering, KeepsTheSamplesAndClustersUnitRows)
{
    const SpectralClustering<RadialBasisKernel> clustering =
        computed(RadialBasisKernel(2.0), 2, makeDataSet({{1, 1, 1}, {1, 2, 1}, {9, 9, 9}}));
    EXPECT_EQ(clustering.getDataSize(), 3u);
    EXPECT_EQ(clustering.getInputDataColl().size(), 3u);
    EXPECT_EQ(clustering.getClusteringAlgorithm().getDataSize(), 2u);
    for (const Vector& row : clustering.getClusteringAlgorithm().getInputDataColl())
        EXPECT_NEAR(norm_2(row), 1.0, 1e-15);
}

TEST(SpectralClustering, TheLargestEigenvalueIsOne)
{
    const SpectralClustering<RadialBasisKernel> clustering = computed(RadialBasisKernel(2.0), 2, g_data);
    ASSERT_EQ(clustering.getEigenValues().size(), 2u);
    EXPECT_NEAR(clustering.getEigenValues()[1], 1.0, 1e-14);
    EXPECT_LE(clustering.getEigenValues()[0], clustering.getEigenValues()[1]);
    EXPECT_EQ(clustering.getEigenVectors().size1(), 5u);
    EXPECT_EQ(clustering.getEigenVectors().size2(), 2u);
}

TEST(SpectralClustering, TheEigenvectorsAreThoseOfTheNormalisedKernelMatrix)
{
    const RadialBasisKernel kernel(3.0);
    const SpectralClustering<RadialBasisKernel> clustering = computed(kernel, 3, g_data);
    const Matrix W = test::PlainSpectral<RadialBasisKernel>::affinities(kernel, g_data);
    const Matrix V = clustering.getEigenVectors();
    const Matrix product = prod(W, V);
    for (std::size_t i = 0; i < 5; ++i)
    {
        for (std::size_t j = 0; j < 3; ++j)
            EXPECT_NEAR(product(i, j), clustering.getEigenValues()[j] * V(i, j), 1e-14);
    }
}

TEST(SpectralClustering, NoClusterRaisesAndLeavesItNotDone)
{
    SpectralClustering<RadialBasisKernel> clustering = computed(RadialBasisKernel(2.0), 2, g_data);
    test::expectMathRaises("Target number of clusters should not be null",
                           [&] { clustering.compute(0, VectorColl()); });
    expectNotDone(clustering);
}

TEST(SpectralClustering, MoreClustersThanSamplesRaiseAndLeaveItNotDone)
{
    SpectralClustering<RadialBasisKernel> clustering = computed(RadialBasisKernel(2.0), 2, g_data);
    test::expectMathRaises("Number of clusters {6} should not be greater than number of input data {5}",
                           [&] { clustering.compute(6, g_data); });
    expectNotDone(clustering);
}

TEST(SpectralClustering, NoSampleRaises)
{
    SpectralClustering<RadialBasisKernel> clustering(RadialBasisKernel(2.0));
    test::expectMathRaises("Number of clusters {1} should not be greater than number of input data {0}",
                           [&] { clustering.compute(1, VectorColl()); });
}

TEST(SpectralClustering, AFailureOfTheClusteringOfTheRowsIsItsOwn)
{
    SpectralClustering<RadialBasisKernel> clustering(RadialBasisKernel(2.0));
    KernelKMeansClusteringConfig config;
    config.setNbMaxIteration(1);
    clustering.setConfig(config);
    EXPECT_FALSE(clustering.compute(2, g_data));
    expectNotDone(clustering);
}

TEST(SpectralClustering, NegativeRowSumsRaise)
{
    // The second row of the matrix of products sums to a negative number, whose root is not a number.
    SpectralClustering<LinearKernel> clustering(LinearKernel::createKernel());
    test::expectMathRaises(g_lapackFailed, [&] { clustering.compute(2, makeDataSet({{3.0}, {-1.0}, {4.0}})); });
    expectNotDone(clustering);
}

TEST(SpectralClustering, SamplesThatAreNotNumbersRaise)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    SpectralClustering<RadialBasisKernel> clustering(RadialBasisKernel(2.0));
    test::expectMathRaises(g_lapackFailed, [&] { clustering.compute(2, makeDataSet({{3.0}, {nan}, {4.0}})); });
    expectNotDone(clustering);
}

TEST(SpectralClustering, ASampleWhoseKernelValuesSumToZeroIsEmbeddedAtTheOrigin)
{
    const SpectralClustering<LinearKernel> clustering =
        computed(LinearKernel::createKernel(), 2, makeDataSet({{1.0, 0.0}, {0.0, 0.0}, {0.0, 2.0}, {2.0, 0.5}}));
    EXPECT_EQ(test::toStd(clustering.getClusteringAlgorithm().getInputDataColl()[1]), (std::vector<double>{0.0, 0.0}));
}

TEST(SpectralClustering, AsManyClustersAsSamplesAreDecomposedButHaveNoIndex)
{
    // The rows are square to each other, so each is a cluster of its own.
    SpectralClustering<RadialBasisKernel> clustering(RadialBasisKernel(2.0));
    RandomUniformGenerator::getGen().seed(1);
    EXPECT_FALSE(clustering.compute(4, makeDataSet({{1.0}, {2.0}, {5.0}, {5.0}})));
    expectNotDone(clustering);
}

TEST(SpectralClustering, ClearEmptiesTheClusteringOfTheRows)
{
    SpectralClustering<RadialBasisKernel> clustering = computed(RadialBasisKernel(2.0), 2, g_data);
    clustering.clear();
    expectNotDone(clustering);
}

TEST(SpectralClustering, AClusterIndexOutOfRangeRaises)
{
    const SpectralClustering<RadialBasisKernel> clustering = computed(RadialBasisKernel(2.0), 2, g_data);
    test::expectMathRaises("Invalid cluster index {2} while clustering operation count 2 clusters",
                           [&] { clustering.getClusterPopulation(2); });
}

TEST(SpectralClustering, LabelsItsOwnSamplesAsItClusteredThem)
{
    const SpectralClustering<RadialBasisKernel> clustering = computed(RadialBasisKernel(2.0), 2, g_data);
    for (std::size_t i = 0; i < g_data.size(); ++i)
        EXPECT_EQ(clustering.computeAssignment(g_data[i]), clustering.getAssignments()[i]);
}

TEST(SpectralClustering, ASampleWithoutKernelValuesIsLabelledFromTheOrigin)
{
    // All kernel values are 0, as is their sum, which nothing is divided by.
    const SpectralClustering<RadialBasisKernel> clustering = computed(RadialBasisKernel(2.0), 2, g_data);
    EXPECT_EQ(
        clustering.computeAssignment(makeVector({1e6, 1e6})),
        computeKernelAssignment(clustering.getClusteringAlgorithm().getClustersCentroids(), makeVector({0.0, 0.0})));
}

TEST(SpectralClustering, ACopyIsIndependent)
{
    SpectralClustering<RadialBasisKernel> clustering = computed(RadialBasisKernel(2.0), 2, g_data);
    const SpectralClustering<RadialBasisKernel> copy = clustering;
    SpectralClustering<RadialBasisKernel> assigned(RadialBasisKernel(9.0));
    assigned = clustering;
    clustering.clear();
    for (const SpectralClustering<RadialBasisKernel>* pCopy :
         {&copy, const_cast<const SpectralClustering<RadialBasisKernel>*>(&assigned)})
    {
        EXPECT_THAT(pCopy->getAssignments(), ElementsAre(1, 0, 0, 1, 0));
        EXPECT_EQ(pCopy->getInputDataColl().size(), 5u);
        EXPECT_EQ(pCopy->getKernel().getSigma(), 2.0);
        EXPECT_EQ(pCopy->computeAssignment(g_data[0]), 1u);
    }
}

TEST(SpectralClustering, TellsTheTwoRingsApartThatKMeansCuts)
{
    const VectorColl rings = test::makeRings(200, 1);
    RandomUniformGenerator::getGen().seed(1);
    KMeansClustering kMeans;
    ASSERT_TRUE(kMeans.compute(2, rings));
    EXPECT_LT(test::countAlternateLabels(kMeans.getAssignments()), 130u);
    const SpectralClustering<RadialBasisKernel> clustering = computed(RadialBasisKernel::createKernel(0.3), 2, rings);
    EXPECT_EQ(test::countAlternateLabels(clustering.getAssignments()), 200u);
    EXPECT_EQ(clustering.computeAssignment(makeVector({0.0, -1.0})), clustering.getAssignments()[0]);
    EXPECT_EQ(clustering.computeAssignment(makeVector({0.0, -3.0})), clustering.getAssignments()[1]);
}

TEST(SpectralClustering, TellsTheTwoHalfMoonsApartThatKMeansCuts)
{
    const VectorColl moons = test::makeMoons(300, 1);
    RandomUniformGenerator::getGen().seed(1);
    KMeansClustering kMeans;
    ASSERT_TRUE(kMeans.compute(2, moons));
    EXPECT_LT(test::countAlternateLabels(kMeans.getAssignments()), 280u);
    const SpectralClustering<RadialBasisKernel> clustering = computed(RadialBasisKernel::createKernel(0.1), 2, moons);
    EXPECT_EQ(test::countAlternateLabels(clustering.getAssignments()), 300u);
}

TEST(SpectralClustering, PrintsTheClusteringOfTheRows)
{
    std::ostringstream notDone;
    notDone << SpectralClustering<LinearKernel>(LinearKernel::createKernel());
    EXPECT_EQ(notDone.str(), "Clustering not done\n");

    const SpectralClustering<RadialBasisKernel> clustering =
        computed(RadialBasisKernel(2.0), 2, makeDataSet({{1, 1, 1}, {1, 2, 1}, {9, 9, 9}}));
    std::ostringstream stream;
    stream << clustering;
    std::ostringstream inner;
    inner << clustering.getClusteringAlgorithm();
    EXPECT_EQ(stream.str(), inner.str());
    EXPECT_THAT(stream.str(), testing::HasSubstr("Nb clusters=2\nNb input data=3\nData size=2\n"));
}

TEST(SpectralClustering, PrintsFlushedLines)
{
    test::expectFlushedLines(SpectralClustering<LinearKernel>(LinearKernel::createKernel()));
    test::expectFlushedLines(computed(RadialBasisKernel(2.0), 2, g_data));
}

TEST(SpectralClustering, IsNotDoneAfterWantOfMemory)
{
    const SpectralClustering<RadialBasisKernel> done = computed(RadialBasisKernel(2.0), 2, g_data);
    const std::size_t nbFailures =
        test::failEachAllocation([&] { return done; },
                                 [](SpectralClustering<RadialBasisKernel>& clustering)
                                 {
                                     RandomUniformGenerator::getGen().seed(1);
                                     clustering.compute(2, g_data);
                                 },
                                 [](SpectralClustering<RadialBasisKernel>& clustering)
                                 {
                                     EXPECT_FALSE(clustering.isClusteringDone());
                                     EXPECT_TRUE(clustering.compute(2, g_data));
                                     EXPECT_THAT(clustering.getAssignments(), ElementsAre(1, 0, 0, 1, 0));
                                 });
    EXPECT_GT(nbFailures, 50u);
}

TEST(SpectralClustering, AnAssignmentIsAllOrNothing)
{
    const SpectralClustering<RadialBasisKernel> source = computed(RadialBasisKernel(9.0), 3, g_data);
    const SpectralClustering<RadialBasisKernel> target = computed(RadialBasisKernel(2.0), 2, g_data);
    const std::size_t nbFailures = test::failEachAllocation(
        [&] { return target; }, [&](SpectralClustering<RadialBasisKernel>& clustering) { clustering = source; },
        [](const SpectralClustering<RadialBasisKernel>& clustering)
        {
            EXPECT_EQ(clustering.getKernel().getSigma(), 2.0);
            EXPECT_EQ(clustering.getEigenValues().size(), 2u);
            EXPECT_EQ(clustering.getEigenVectors().size2(), 2u);
            EXPECT_THAT(clustering.getAssignments(), ElementsAre(1, 0, 0, 1, 0));
            EXPECT_EQ(clustering.computeAssignment(g_data[0]), 1u);
        });
    EXPECT_GT(nbFailures, 10u);
}

TEST(SpectralClustering, AnAssignmentKeepsTheClusteringOfTheRowsInItsPlace)
{
    SpectralClustering<RadialBasisKernel> clustering(RadialBasisKernel(9.0));
    const KernelKMeansClustering<RadialBasisKernel>& ofRows = clustering.getClusteringAlgorithm();
    clustering = computed(RadialBasisKernel(2.0), 2, g_data);
    EXPECT_EQ(&clustering.getClusteringAlgorithm(), &ofRows);
    EXPECT_EQ(ofRows.getNbClusters(), 2u);
}

TEST(SpectralClustering, TheHeadersExampleCompiles)
{
    const VectorColl samples = test::makeRings(100, 2);
    testing::internal::CaptureStdout();
    SpectralClustering<RadialBasisKernel> clustering(RadialBasisKernel::createKernel(0.2));
    if (clustering.compute(2, samples))
        std::cout << clustering.getAssignments()[0] << " " << clustering.getEigenValues() << std::endl;
    EXPECT_NE(testing::internal::GetCapturedStdout(), "");
    EXPECT_THAT(test::readCode(__FILE__),
                testing::HasSubstr(test::readExample("OVRIXMath/Clustering/SpectralClustering.h")));
}

template <class KernelType>
class SpectralClusteringOf : public testing::Test
{
protected:
    /// Expects everything that the plain steps give.
    static void expectPlain(const KernelType& kernel, ovUInt32 nbClusters, const VectorColl& data, unsigned int seed)
    {
        const KernelKMeansClusteringConfig config;
        RandomUniformGenerator::getGen().seed(seed);
        test::PlainSpectral<KernelType> plain(kernel);
        const bool bPlain = plain.compute(nbClusters, data, config);
        RandomUniformGenerator::getGen().seed(seed);
        SpectralClustering<KernelType> clustering(kernel);
        ASSERT_EQ(clustering.compute(nbClusters, data), bPlain);
        if (!bPlain)
            return;
        EXPECT_EQ(test::toStd(clustering.getEigenValues()), test::toStd(plain.eigenValues));
        EXPECT_EQ(test::toStd(clustering.getEigenVectors()), test::toStd(plain.eigenVectors));
        EXPECT_EQ(clustering.getAssignments(), plain.inner.assignments);
        EXPECT_EQ(clustering.getSeparation(), plain.inner.separation);
        test::RandomData random(seed);
        for (int i = 0; i < 20; ++i)
        {
            const Vector x = random.vector(data.front().size(), 0.0, 1.5);
            EXPECT_EQ(clustering.computeAssignment(x),
                      test::PlainKernelKMeans<KernelType>::assignment(plain.inner.centroids, plain.embed(x)));
        }
    }
};

TYPED_TEST_SUITE(SpectralClusteringOf, test::Kernels, test::KernelNames);

TYPED_TEST(SpectralClusteringOf, GivesWhatThePlainStepsGive)
{
    test::RandomData random(5);
    for (unsigned int seed = 0; seed < 15 && !this->HasFailure(); ++seed)
    {
        const VectorColl data = random.dataSet(random.integer(20, 100), random.integer(2, 6), 0.0, 1.5);
        this->expectPlain(test::makeKernel<TypeParam>(), random.integer(1, 4), data, seed);
    }
}

TYPED_TEST(SpectralClusteringOf, GivesWhatThePlainStepsGiveOnIris)
{
    VectorColl data = test::readMeasurements("iris.csv").samples;
    for (Vector& sample : data)
        sample *= 0.2;
    for (ovUInt32 nbClusters = 2; nbClusters <= 3; ++nbClusters)
        this->expectPlain(test::makeKernel<TypeParam>(), nbClusters, data, nbClusters);
}

} // namespace clustering
} // namespace math
} // namespace ovrix
