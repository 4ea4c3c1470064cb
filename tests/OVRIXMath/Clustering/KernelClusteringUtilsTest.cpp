#include <OVRIXMath/Clustering/ClusteringUtils.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <set>
#include <support/AllocationCount.h>
#include <support/Bits.h>
#include <support/Builders.h>
#include <support/ExpectFailure.h>
#include <support/Kernels.h>
#include <support/PlainKernelKMeans.h>
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
using test::makeVector;
using testing::ElementsAre;

using LinearCentroids = std::vector<KernelKMeansCentroid<LinearKernel>>;

constexpr ovUInt32 g_noLabel = NumericLimits<ovUInt32>::s_max;
constexpr double g_nan = std::numeric_limits<double>::quiet_NaN();

const LinearKernel g_linear = LinearKernel::createKernel();

std::vector<std::vector<double>> toStd(const VectorColl& vectors)
{
    std::vector<std::vector<double>> all;
    for (const Vector& vector : vectors)
        all.push_back(test::toStd(vector));
    return all;
}

template <class KernelType>
std::vector<KernelKMeansCentroid<KernelType>> makeCentroids(const KernelType& kernel, const VectorColl& seeds)
{
    std::vector<KernelKMeansCentroid<KernelType>> centroids(seeds.size(), KernelKMeansCentroid<KernelType>(kernel));
    for (std::size_t k = 0; k < seeds.size(); ++k)
        centroids[k].addSample(seeds[k]);
    return centroids;
}

LinearCentroids makeLinearCentroids(const VectorColl& seeds)
{
    return makeCentroids(g_linear, seeds);
}

} // namespace

TEST(KernelClusteringUtils, TheNearestCentroidGivesTheLabel)
{
    const LinearCentroids centroids = makeLinearCentroids(makeDataSet({{1.0, 1.0}, {4.0, 0.0}, {0.0, 3.0}}));
    EXPECT_EQ(computeKernelAssignment(centroids, makeVector({0.5, 2.5})), 2u);
    EXPECT_EQ(computeKernelAssignment(centroids, makeVector({3.0, 1.0})), 1u);
}

TEST(KernelClusteringUtils, TheLowestOfEquallyNearCentroidsGivesTheLabel)
{
    EXPECT_EQ(
        computeKernelAssignment(makeLinearCentroids(makeDataSet({{5.0}, {2.0}, {4.0}, {2.0}})), makeVector({3.0})), 1u);
}

TEST(KernelClusteringUtils, NoCentroidGivesNoLabel)
{
    EXPECT_EQ(computeKernelAssignment(LinearCentroids(), makeVector({1.0})), g_noLabel);
}

TEST(KernelClusteringUtils, DistancesThatAreNotFiniteGiveNoLabel)
{
    EXPECT_EQ(computeKernelAssignment(makeLinearCentroids(makeDataSet({{1.0}, {2.0}})), makeVector({g_nan})),
              g_noLabel);
    EXPECT_EQ(computeKernelAssignment(makeLinearCentroids(makeDataSet({{1.0}, {2.0}})), makeVector({1e200})),
              g_noLabel);
}

TEST(KernelClusteringUtils, NegativeSquaredDistancesCountAsTheyAre)
{
    // k = tanh(1 - a b) of the samples 3 and 0.1 with -3: a squared distance far below 0 beats one about 0.
    const auto centroids = makeCentroids(SigmoidKernel(-1.0, 1.0), makeDataSet({{-3.0}, {3.0}}));
    const Vector x = makeVector({-3.0});
    ASSERT_LT(centroids[1].comparable_distance(x), -3.0);
    EXPECT_EQ(computeKernelAssignment(centroids, x), 1u);
}

TEST(KernelClusteringUtils, CompactnessIsTheSumOfSquaredDistances)
{
    const LinearCentroids centroids = makeLinearCentroids(makeDataSet({{1.0, 0.0}, {10.0, 10.0}}));
    const VectorColl data = makeDataSet({{2.0, 2.0}, {10.0, 7.0}, {1.0, -1.0}});
    EXPECT_EQ(computeKernelCompactness(centroids, data, {0, 1, 0}), 5.0 + 9.0 + 1.0);
}

TEST(KernelClusteringUtils, CompactnessIsNotClamped)
{
    const auto centroids = makeCentroids(SigmoidKernel(-1.0, 1.0), makeDataSet({{3.0}}));
    const VectorColl data = makeDataSet({{-3.0}, {-3.0}});
    EXPECT_EQ(computeKernelCompactness(centroids, data, {0, 0}), 2.0 * centroids[0].comparable_distance(data[0]));
    EXPECT_LT(computeKernelCompactness(centroids, data, {0, 0}), -6.0);
}

TEST(KernelClusteringUtils, CompactnessOfNoSampleIsZero)
{
    EXPECT_EQ(computeKernelCompactness(makeLinearCentroids(makeDataSet({{1.0}})), VectorColl(), UInt32Vector()), 0.0);
}

TEST(KernelClusteringUtils, CompactnessLeavesOutSamplesWithoutALabel)
{
    EXPECT_EQ(computeKernelCompactness(makeLinearCentroids(makeDataSet({{1.0}})), makeDataSet({{3.0}, {g_nan}}),
                                       {0, g_noLabel}),
              4.0);
}

TEST(KernelClusteringUtils, AnAttemptOfNoIterationDoesNothing)
{
    LinearCentroids centroids = makeLinearCentroids(makeDataSet({{1.0}, {2.0}}));
    UInt32Vector assignments = {7};
    EXPECT_EQ(computeKernelKMeansAttempt(g_linear, makeDataSet({{1.0}, {3.0}, {4.0}}), 0, 0.0, centroids, assignments),
              0u);
    EXPECT_THAT(assignments, ElementsAre(2, 2, 2));
    EXPECT_EQ(toStd(centroids[1].getDictionary()), toStd(makeDataSet({{2.0}})));
}

TEST(KernelClusteringUtils, AnAttemptWhoseMinimumOfChangesIsTooLargeDoesNothing)
{
    for (const double ratio : {2e9, 4e9, 1e300, std::numeric_limits<double>::infinity()})
    {
        LinearCentroids centroids = makeLinearCentroids(makeDataSet({{1.0}, {2.0}}));
        UInt32Vector assignments;
        EXPECT_EQ(
            computeKernelKMeansAttempt(g_linear, makeDataSet({{1.0}, {3.0}, {4.0}}), 10, ratio, centroids, assignments),
            0u);
        EXPECT_THAT(assignments, ElementsAre(2, 2, 2));
        EXPECT_EQ(toStd(centroids[1].getDictionary()), toStd(makeDataSet({{2.0}})));
    }
}

TEST(KernelClusteringUtils, AnAttemptWithoutMemoryLeavesTheCentroidsAsTheyWere)
{
    const VectorColl data = makeDataSet({{1.0}, {2.0}, {8.0}, {9.0}});
    const VectorColl seeds = makeDataSet({{2.0}, {8.0}});
    const std::size_t nbFailures = test::failEachAllocation(
        [&] { return makeLinearCentroids(seeds); },
        [&](LinearCentroids& centroids)
        {
            UInt32Vector assignments;
            computeKernelKMeansAttempt(g_linear, data, 100, 0.0, centroids, assignments);
        },
        [&](const LinearCentroids& centroids)
        {
            for (std::size_t k = 0; k < seeds.size(); ++k)
                EXPECT_EQ(toStd(centroids[k].getDictionary()), toStd(makeDataSet({{seeds[k][0]}})));
        });
    EXPECT_GT(nbFailures, 20u);
}

TEST(KernelClusteringUtils, AnAttemptWithoutSamplesTakesOneIteration)
{
    LinearCentroids centroids = makeLinearCentroids(makeDataSet({{1.0}}));
    UInt32Vector assignments = {7};
    EXPECT_EQ(computeKernelKMeansAttempt(g_linear, VectorColl(), 5, 0.0, centroids, assignments), 1u);
    EXPECT_TRUE(assignments.empty());
    EXPECT_EQ(toStd(centroids[0].getDictionary()), toStd(makeDataSet({{1.0}})));
    EXPECT_EQ(computeKernelKMeansAttempt(g_linear, VectorColl(), 0, 0.0, centroids, assignments), 0u);
}

TEST(KernelClusteringUtils, AnAttemptOfOneClusterTakesTwoIterations)
{
    LinearCentroids centroids = makeLinearCentroids(makeDataSet({{1.0}}));
    UInt32Vector assignments;
    EXPECT_EQ(
        computeKernelKMeansAttempt(g_linear, makeDataSet({{1.0}, {2.0}, {6.0}}), 100, 0.0, centroids, assignments), 2u);
    EXPECT_THAT(assignments, ElementsAre(0, 0, 0));
    EXPECT_EQ(centroids[0].getNbSamples(), 3u);
}

TEST(KernelClusteringUtils, AnAttemptMovesTheCentroidsToTheMeans)
{
    LinearCentroids centroids = makeLinearCentroids(makeDataSet({{1.0}, {2.0}}));
    UInt32Vector assignments;
    EXPECT_EQ(
        computeKernelKMeansAttempt(g_linear, makeDataSet({{1.0}, {2.0}, {10.0}}), 100, 0.0, centroids, assignments),
        3u);
    EXPECT_THAT(assignments, ElementsAre(0, 0, 1));
    EXPECT_NEAR(centroids[0].distance(makeVector({1.5})), 0.0, 1e-7);
    EXPECT_NEAR(centroids[1].distance(makeVector({10.0})), 0.0, 1e-7);
}

TEST(KernelClusteringUtils, AnAttemptStopsAtTheLimit)
{
    LinearCentroids centroids = makeLinearCentroids(makeDataSet({{1.0}, {2.0}}));
    UInt32Vector assignments;
    EXPECT_EQ(computeKernelKMeansAttempt(g_linear, makeDataSet({{1.0}, {2.0}, {10.0}}), 1, 0.0, centroids, assignments),
              1u);
    EXPECT_THAT(assignments, ElementsAre(0, 1, 1));
    EXPECT_EQ(centroids[0].getNbSamples(), 1u);
    EXPECT_EQ(centroids[1].getNbSamples(), 2u);
}

TEST(KernelClusteringUtils, AnAttemptStopsWhenFewLabelsChange)
{
    // The first iteration changes three labels, the second one.
    const VectorColl data = makeDataSet({{1.0}, {2.0}, {10.0}});
    for (const double ratio : {0.0, 0.33, 0.34, 0.67, 0.99, 1.0, 1.5})
    {
        LinearCentroids centroids = makeLinearCentroids(makeDataSet({{1.0}, {2.0}}));
        UInt32Vector assignments;
        const ovUInt32 nbIteration = computeKernelKMeansAttempt(g_linear, data, 100, ratio, centroids, assignments);
        EXPECT_EQ(nbIteration, 3.0 * ratio < 1.0 ? 3u : 3.0 * ratio < 3.0 ? 2u : 1u) << ratio;
    }
}

TEST(KernelClusteringUtils, ARatioThatIsNoNumberOrNegativeCountsAsZero)
{
    const VectorColl data = makeDataSet({{1.0}, {2.0}, {10.0}});
    for (const double ratio : {g_nan, -0.5, -1e300})
    {
        LinearCentroids centroids = makeLinearCentroids(makeDataSet({{1.0}, {2.0}}));
        UInt32Vector assignments;
        EXPECT_EQ(computeKernelKMeansAttempt(g_linear, data, 100, ratio, centroids, assignments), 3u) << ratio;
    }
}

TEST(KernelClusteringUtils, AnAttemptWithoutCentroidsLabelsNothing)
{
    LinearCentroids centroids;
    UInt32Vector assignments;
    EXPECT_EQ(computeKernelKMeansAttempt(g_linear, makeDataSet({{1.0}}), 100, 0.0, centroids, assignments), 2u);
    EXPECT_THAT(assignments, ElementsAre(g_noLabel));
}

TEST(KernelClusteringUtils, ASampleThatIsNotANumberBelongsToNoCluster)
{
    LinearCentroids centroids = makeLinearCentroids(makeDataSet({{1.0}, {5.0}}));
    UInt32Vector assignments;
    EXPECT_EQ(
        computeKernelKMeansAttempt(g_linear, makeDataSet({{1.0}, {g_nan}, {5.0}}), 100, 0.0, centroids, assignments),
        2u);
    EXPECT_THAT(assignments, ElementsAre(0, g_noLabel, 1));
    EXPECT_EQ(centroids[0].getNbSamples() + centroids[1].getNbSamples(), 2u);
}

TEST(KernelClusteringUtils, AClusterThatLosesItsSamplesIsEmptyAndDrawsWhatIsNearTheOrigin)
{
    // The last seed is far away; without samples its centroid has the self value as distance.
    LinearCentroids centroids = makeLinearCentroids(makeDataSet({{-5.0}, {6.0}, {100.0}}));
    UInt32Vector assignments;
    EXPECT_EQ(
        computeKernelKMeansAttempt(g_linear, makeDataSet({{0.5}, {-10.0}, {6.0}}), 100, 0.0, centroids, assignments),
        3u);
    EXPECT_THAT(assignments, ElementsAre(2, 0, 1));
}

TEST(KernelClusteringUtils, TheOrderOfTheSamplesDecidesTheDictionary)
{
    for (const bool bReversed : {false, true})
    {
        LinearCentroids centroids = makeLinearCentroids(makeDataSet({{1.0}}));
        VectorColl data = makeDataSet({{1.0}, {2.0}, {3.0}});
        if (bReversed)
            std::reverse(data.begin(), data.end());
        UInt32Vector assignments;
        computeKernelKMeansAttempt(g_linear, data, 100, 0.0, centroids, assignments);
        EXPECT_EQ(toStd(centroids[0].getDictionary()), toStd(VectorColl(1, data[0])));
    }
}

TEST(KernelClusteringUtils, MoreClustersThanSamplesRaise)
{
    VectorColl seeds = makeDataSet({{1.0}});
    test::expectMathRaises("Number of clusters {3} should not be greater than number of input data {2}",
                           [&] {
                               generateKernelKMeansPPInit(g_linear, 3, makeDataSet({{1.0}, {2.0}}), seeds);
                           });
    EXPECT_TRUE(seeds.empty());
}

TEST(KernelClusteringUtils, AsManySeedsAsDistinctSamplesAreAllOfThem)
{
    // A sample that was drawn weighs nothing, whatever was drawn since.
    const VectorColl data = makeDataSet({{1.0}, {1.0}, {2.0}, {4.0}, {4.0}, {8.0}});
    for (unsigned int seed = 0; seed < 50; ++seed)
    {
        RandomUniformGenerator::getGen().seed(seed);
        VectorColl seeds;
        generateKernelKMeansPPInit(g_linear, 4, data, seeds);
        std::multiset<double> places;
        for (const Vector& sample : seeds)
            places.insert(sample[0]);
        EXPECT_THAT(places, ElementsAre(1.0, 2.0, 4.0, 8.0));
    }
}

TEST(KernelClusteringUtils, NoClusterStillDrawsOneSample)
{
    RandomUniformGenerator::getGen().seed(5);
    VectorColl seeds;
    generateKernelKMeansPPInit(g_linear, 0, makeDataSet({{1.0}}), seeds);
    EXPECT_EQ(toStd(seeds), toStd(makeDataSet({{1.0}})));
    generateKernelKMeansPPInit(g_linear, 0, VectorColl(), seeds);
    EXPECT_TRUE(seeds.empty());
}

template <class KernelType>
class KernelClusteringUtilsOf : public testing::Test
{
protected:
    using Centroid = KernelKMeansCentroid<KernelType>;
    using Plain = test::PlainKernelKMeans<KernelType>;

    const KernelType kernel = test::makeKernel<KernelType>();

    /// Expects labels, iterations and centroids of the plain method, bit by bit; gives the number of iterations.
    ovUInt32 expectPlainAttempt(const VectorColl& data, const VectorColl& seeds, ovUInt32 nbMaxIteration, double ratio,
                                double accuracyThreshold, ovUInt32 maxDictionarySize) const
    {
        std::vector<Centroid> centroids(seeds.size(), Centroid(kernel));
        typename Plain::Centroids plainCentroids(seeds.size(), test::PlainKernelCentroid<KernelType>(kernel));
        for (std::size_t k = 0; k < seeds.size(); ++k)
        {
            centroids[k].setAccuracyThreshold(accuracyThreshold);
            centroids[k].setMaxDictionarySize(maxDictionarySize);
            centroids[k].addSample(seeds[k]);
            plainCentroids[k].accuracyThreshold = accuracyThreshold;
            plainCentroids[k].maxDictionarySize = maxDictionarySize;
            plainCentroids[k].addSample(seeds[k]);
        }
        UInt32Vector assignments;
        UInt32Vector plainAssignments;
        const ovUInt32 nbIteration =
            computeKernelKMeansAttempt(kernel, data, nbMaxIteration, ratio, centroids, assignments);
        EXPECT_EQ(nbIteration, Plain::attempt(data, nbMaxIteration, ratio, plainCentroids, plainAssignments));
        EXPECT_EQ(assignments, plainAssignments);
        for (std::size_t k = 0; k < seeds.size(); ++k)
        {
            EXPECT_EQ(centroids[k].getNbSamples(), plainCentroids[k].nbSamples);
            EXPECT_EQ(toStd(centroids[k].getDictionary()), toStd(plainCentroids[k].dictionary));
            EXPECT_EQ(centroids[k].getWeights(), plainCentroids[k].weights);
            EXPECT_EQ(test::bitsOf(centroids[k].getClusterTerm()), test::bitsOf(plainCentroids[k].clusterTerm()));
            EXPECT_EQ(centroids[k].getAccuracyThreshold(), accuracyThreshold);
            EXPECT_EQ(centroids[k].getMaxDictionarySize(), maxDictionarySize);
        }
        return nbIteration;
    }
};

TYPED_TEST_SUITE(KernelClusteringUtilsOf, test::Kernels, test::KernelNames);

TYPED_TEST(KernelClusteringUtilsOf, AnAttemptIsThePlainOne)
{
    test::RandomData random(1);
    ovUInt32 nbIterations = 0;
    for (int repeat = 0; repeat < 60 && !this->HasFailure(); ++repeat)
    {
        const unsigned int dimension = random.integer(1, 6);
        const VectorColl data = random.dataSet(random.integer(1, 120), dimension, -1.5, 1.5);
        const VectorColl seeds = random.dataSet(random.integer(1, 6), dimension, -1.5, 1.5);
        nbIterations += this->expectPlainAttempt(data, seeds, random.integer(1, 25), random.integer(0, 1) * 0.05, 0.001,
                                                 random.integer(0, 1) == 0 ? random.integer(1, 8) : 1000000u);
    }
    EXPECT_GT(nbIterations, 200u);
}

TYPED_TEST(KernelClusteringUtilsOf, AnAttemptIsThePlainOneOnTies)
{
    test::RandomData random(2);
    for (int repeat = 0; repeat < 60 && !this->HasFailure(); ++repeat)
    {
        VectorColl data(random.integer(1, 80), Vector(2));
        for (Vector& sample : data)
            std::generate(sample.begin(), sample.end(), [&] { return 0.5 * random.integer(0, 4) - 1.0; });
        const VectorColl seeds(data.begin(), data.begin() + std::min<long>(4, static_cast<long>(data.size())));
        this->expectPlainAttempt(data, seeds, 30, 0.0, 0.01, 10);
    }
}

TYPED_TEST(KernelClusteringUtilsOf, AnAttemptIsThePlainOneOnMoreSamplesThanATile)
{
    test::RandomData random(3);
    const VectorColl data = random.dataSet(1100, 5, -1.0, 1.0);
    const VectorColl seeds(data.begin(), data.begin() + 5);
    EXPECT_GT(this->expectPlainAttempt(data, seeds, 8, 0.0, 0.05, 40), 3u);
}

TYPED_TEST(KernelClusteringUtilsOf, SeedsAreThoseOfThePlainSteps)
{
    test::RandomData random(4);
    for (unsigned int seed = 0; seed < 100; ++seed)
    {
        const VectorColl data = random.dataSet(random.integer(10, 600), random.integer(1, 8), -1.0, 1.0);
        const ovUInt32 nbClusters = random.integer(1, 8);
        VectorColl seeds = makeDataSet({{7.0}});
        RandomUniformGenerator::getGen().seed(seed);
        generateKernelKMeansPPInit(this->kernel, nbClusters, data, seeds);
        const auto nextDraw = RandomUniformGenerator::getGen()();
        VectorColl plainSeeds;
        RandomUniformGenerator::getGen().seed(seed);
        TestFixture::Plain::seed(this->kernel, nbClusters, data, plainSeeds);
        ASSERT_EQ(toStd(seeds), toStd(plainSeeds));
        ASSERT_EQ(nextDraw, RandomUniformGenerator::getGen()());
    }
}

} // namespace clustering
} // namespace math
} // namespace ovrix
