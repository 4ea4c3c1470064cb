#include <OVRIXMath/Clustering/ClusteringUtils.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <random>
#include <set>
#include <support/AllocationCount.h>
#include <support/Builders.h>
#include <support/ExpectFailure.h>
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
using test::PlainKMeans;
using test::toStd;
using testing::ElementsAre;

constexpr ovUInt32 g_noLabel = NumericLimits<ovUInt32>::s_max;
constexpr double g_infinity = std::numeric_limits<double>::infinity();
constexpr double g_nan = std::numeric_limits<double>::quiet_NaN();

std::vector<std::vector<double>> toStd(const VectorColl& vectors)
{
    std::vector<std::vector<double>> all;
    for (const Vector& vector : vectors)
        all.push_back(toStd(vector));
    return all;
}

VectorColl makeSamples(std::size_t nbSamples, std::size_t dimension, const std::function<double()>& coordinate)
{
    VectorColl samples(nbSamples, Vector(dimension));
    for (Vector& sample : samples)
        std::generate(sample.begin(), sample.end(), coordinate);
    return samples;
}

/// Samples around a few points.
VectorColl makeBlobs(std::mt19937& generator, std::size_t nbSamples, std::size_t dimension, std::size_t nbBlobs)
{
    std::uniform_real_distribution<double> uniform(-10.0, 10.0);
    std::normal_distribution<double> normal;
    const VectorColl middles = makeSamples(nbBlobs, dimension, [&] { return uniform(generator); });
    VectorColl samples = makeSamples(nbSamples, dimension, [&] { return normal(generator); });
    for (Vector& sample : samples)
        sample += middles[generator() % nbBlobs];
    return samples;
}

/// Runs the attempt from these centres and expects labels, centres and iterations of the plain method, bit by bit.
/// Gives the number of iterations.
ovUInt32 expectPlainAttempt(const VectorColl& data, const VectorColl& firstCenters, ovUInt32 nbMaxIteration)
{
    VectorColl centers = firstCenters;
    UInt32Vector assignments;
    const ovUInt32 nbIteration = computeKMeansAttempt(data, nbMaxIteration, centers, assignments);
    VectorColl plainCenters = firstCenters;
    UInt32Vector plainAssignments;
    EXPECT_EQ(nbIteration, PlainKMeans::attempt(data, nbMaxIteration, plainCenters, plainAssignments));
    EXPECT_EQ(assignments, plainAssignments);
    EXPECT_EQ(toStd(centers), toStd(plainCenters));
    return nbIteration;
}

/// The same from samples drawn at random, for many sizes.
void expectPlainAttempts(unsigned int nbRepeats, std::size_t maxNbSamples, std::size_t maxDimension,
                         std::size_t maxNbClusters, const std::function<double(std::mt19937&)>& coordinate)
{
    std::mt19937 generator(3);
    for (unsigned int repeat = 0; repeat < nbRepeats && !testing::Test::HasFailure(); ++repeat)
    {
        const std::size_t nbSamples = 1 + generator() % maxNbSamples;
        const std::size_t dimension = 1 + generator() % maxDimension;
        const std::size_t nbClusters = 1 + generator() % std::min(nbSamples, maxNbClusters);
        const VectorColl data = makeSamples(nbSamples, dimension, [&] { return coordinate(generator); });
        VectorColl centers;
        for (std::size_t k = 0; k < nbClusters; ++k)
            centers.push_back(data[generator() % nbSamples]);
        expectPlainAttempt(data, centers, 1 + generator() % 40);
    }
}

} // namespace

TEST(ClusteringUtils, TheNearestCenterGivesTheLabel)
{
    const VectorColl centers = makeDataSet({{0.0, 0.0}, {4.0, 0.0}, {0.0, 3.0}});
    EXPECT_EQ(computeAssignment(centers, makeVector({0.5, 2.0})), 2u);
    EXPECT_EQ(computeAssignment(centers, makeVector({3.0, 1.0})), 1u);
}

TEST(ClusteringUtils, TheLowestOfEquallyNearCentersGivesTheLabel)
{
    EXPECT_EQ(computeAssignment(makeDataSet({{5.0}, {2.0}, {0.0}, {2.0}}), makeVector({1.0})), 1u);
}

TEST(ClusteringUtils, NoCenterGivesNoLabel)
{
    EXPECT_EQ(computeAssignment(VectorColl(), makeVector({1.0})), g_noLabel);
}

TEST(ClusteringUtils, DistancesThatAreNotFiniteGiveNoLabel)
{
    EXPECT_EQ(computeAssignment(makeDataSet({{1.0}, {2.0}}), makeVector({g_nan})), g_noLabel);
    EXPECT_EQ(computeAssignment(makeDataSet({{1.0}, {2.0}}), makeVector({1e200})), g_noLabel);
    EXPECT_EQ(computeAssignment(makeDataSet({{g_nan}, {2.0}}), makeVector({1.0})), 1u);
}

TEST(ClusteringUtils, CompactnessIsTheSumOfSquaredDistances)
{
    const VectorColl centers = makeDataSet({{0.0, 0.0}, {10.0, 10.0}});
    const VectorColl data = makeDataSet({{1.0, 2.0}, {10.0, 7.0}, {0.0, -1.0}});
    EXPECT_EQ(computeCompactness(centers, data, {0, 1, 0}), 5.0 + 9.0 + 1.0);
}

TEST(ClusteringUtils, CompactnessOfNoSampleIsZero)
{
    EXPECT_EQ(computeCompactness(makeDataSet({{1.0}}), VectorColl(), UInt32Vector()), 0.0);
}

TEST(ClusteringUtils, CompactnessLeavesOutSamplesWithoutACenter)
{
    EXPECT_EQ(computeCompactness(makeDataSet({{1.0}}), makeDataSet({{3.0}, {g_nan}}), {0, g_noLabel}), 4.0);
}

TEST(ClusteringUtils, CompactnessRunsInTheOrderOfTheSamples)
{
    // Each 1 gets lost behind 1e16; before it they would add up to 2, which does not.
    EXPECT_EQ(computeCompactness(makeDataSet({{0.0}}), makeDataSet({{1e8}, {1.0}, {1.0}}), {0, 0, 0}), 1e16);
}

TEST(ClusteringUtils, PopulationCountsTheLabel)
{
    EXPECT_EQ(computeClusterPopulation(1, {0, 1, 2, 1, 1}), 3u);
    EXPECT_EQ(computeClusterPopulation(5, {0, 1, 2, 1, 1}), 0u);
    EXPECT_EQ(computeClusterPopulation(0, UInt32Vector()), 0u);
}

TEST(ClusteringUtils, StdDevIsTheRootOfTheMeanSquaredDistance)
{
    const VectorColl data = makeDataSet({{1.0, 0.0}, {50.0, 50.0}, {0.0, 7.0}});
    EXPECT_EQ(computeClusterStdDev(1, data, {1, 0, 1}, makeVector({0.0, 0.0})), 5.0);
}

TEST(ClusteringUtils, StdDevOfAnEmptyClusterIsZero)
{
    EXPECT_EQ(computeClusterStdDev(2, makeDataSet({{1.0}}), {0}, makeVector({0.0})), 0.0);
}

TEST(ClusteringUtils, ClusterCenterIsAlwaysEmpty)
{
    EXPECT_EQ(computeClusterCenter(0, makeDataSet({{1.0, 2.0}, {3.0, 4.0}}), {0, 0}).size(), 0u);
    EXPECT_EQ(computeClusterCenter(7, VectorColl(), UInt32Vector()).size(), 0u);
}

TEST(ClusteringUtils, CentersAreTheMeansOfTheirSamples)
{
    VectorColl centers = makeDataSet({{9.0}});
    computeClustersCenters(2, makeDataSet({{1.0, 2.0}, {5.0, 6.0}, {2.0, 4.0}}), {1, 0, 1}, centers);
    EXPECT_EQ(toStd(centers), toStd(makeDataSet({{5.0, 6.0}, {1.5, 3.0}})));
}

TEST(ClusteringUtils, AClusterWithoutSamplesHasItsCenterAtTheOrigin)
{
    VectorColl centers = makeDataSet({{1.0}, {2.0}, {3.0}});
    computeClustersCenters(3, makeDataSet({{4.0}, {6.0}}), {2, 2}, centers);
    EXPECT_EQ(toStd(centers), toStd(makeDataSet({{0.0}, {0.0}, {5.0}})));
}

TEST(ClusteringUtils, CentersOfNoSampleHaveNoCoordinates)
{
    VectorColl centers;
    computeClustersCenters(2, VectorColl(), UInt32Vector(), centers);
    ASSERT_EQ(centers.size(), 2u);
    EXPECT_EQ(centers[0].size(), 0u);
    EXPECT_EQ(centers[1].size(), 0u);
}

TEST(ClusteringUtils, CentersLeaveOutSamplesWithoutALabel)
{
    VectorColl centers;
    computeClustersCenters(1, makeDataSet({{4.0}, {g_nan}, {6.0}}), {0, g_noLabel, 0}, centers);
    EXPECT_EQ(toStd(centers), toStd(makeDataSet({{5.0}})));
}

TEST(ClusteringUtils, AnAttemptOfNoIterationDoesNothing)
{
    VectorColl centers = makeDataSet({{1.0}, {2.0}});
    UInt32Vector assignments = {7};
    EXPECT_EQ(computeKMeansAttempt(makeDataSet({{0.0}, {3.0}, {4.0}}), 0, centers, assignments), 0u);
    EXPECT_THAT(assignments, ElementsAre(2, 2, 2));
    EXPECT_EQ(toStd(centers), toStd(makeDataSet({{1.0}, {2.0}})));
}

TEST(ClusteringUtils, AnAttemptWithoutSamplesTakesOneIteration)
{
    VectorColl centers = makeDataSet({{1.0}});
    UInt32Vector assignments = {7};
    EXPECT_EQ(computeKMeansAttempt(VectorColl(), 5, centers, assignments), 1u);
    EXPECT_TRUE(assignments.empty());
    EXPECT_EQ(computeKMeansAttempt(VectorColl(), 0, centers, assignments), 0u);
}

TEST(ClusteringUtils, AnAttemptThatNeedsNoChangeTakesTwoIterations)
{
    VectorColl centers = makeDataSet({{1.0}, {11.0}});
    UInt32Vector assignments;
    EXPECT_EQ(computeKMeansAttempt(makeDataSet({{0.0}, {2.0}, {10.0}, {12.0}}), 100, centers, assignments), 2u);
    EXPECT_THAT(assignments, ElementsAre(0, 0, 1, 1));
    EXPECT_EQ(toStd(centers), toStd(makeDataSet({{1.0}, {11.0}})));
}

TEST(ClusteringUtils, AnAttemptMovesTheCentersToTheMeans)
{
    // 0, 1 | 9 settles to 0, 1 | 9 with the means 0.5 and 9 in the second iteration, found unchanged.
    VectorColl centers = makeDataSet({{0.0}, {1.0}});
    UInt32Vector assignments;
    EXPECT_EQ(computeKMeansAttempt(makeDataSet({{0.0}, {1.0}, {9.0}}), 100, centers, assignments), 3u);
    EXPECT_THAT(assignments, ElementsAre(0, 0, 1));
    EXPECT_EQ(toStd(centers), toStd(makeDataSet({{0.5}, {9.0}})));
}

TEST(ClusteringUtils, AnAttemptStopsAtTheLimitWithItsCentersMoved)
{
    VectorColl centers = makeDataSet({{0.0}, {1.0}});
    UInt32Vector assignments;
    EXPECT_EQ(computeKMeansAttempt(makeDataSet({{0.0}, {1.0}, {9.0}}), 1, centers, assignments), 1u);
    EXPECT_THAT(assignments, ElementsAre(0, 1, 1));
    EXPECT_EQ(toStd(centers), toStd(makeDataSet({{0.0}, {5.0}})));
}

TEST(ClusteringUtils, AnAttemptThatSettlesOnTheLastIterationReturnsTheLimit)
{
    VectorColl centers = makeDataSet({{1.0}, {11.0}});
    UInt32Vector assignments;
    EXPECT_EQ(computeKMeansAttempt(makeDataSet({{0.0}, {2.0}, {10.0}, {12.0}}), 2, centers, assignments), 2u);
}

TEST(ClusteringUtils, AnEmptiedClusterWinsSamplesBackFromTheOrigin)
{
    // The third centre wins nothing at first, goes to the origin, and takes the sample that lies there.
    VectorColl centers = makeDataSet({{-5.0}, {6.0}, {100.0}});
    UInt32Vector assignments;
    const VectorColl data = makeDataSet({{0.0}, {-10.0}, {6.0}});
    EXPECT_EQ(computeKMeansAttempt(data, 100, centers, assignments), 3u);
    EXPECT_THAT(assignments, ElementsAre(2, 0, 1));
    EXPECT_EQ(toStd(centers), toStd(makeDataSet({{-10.0}, {6.0}, {0.0}})));
}

TEST(ClusteringUtils, AnAttemptWithoutCentersLabelsNothing)
{
    VectorColl centers;
    UInt32Vector assignments;
    EXPECT_EQ(computeKMeansAttempt(makeDataSet({{0.0}}), 100, centers, assignments), 2u);
    EXPECT_THAT(assignments, ElementsAre(g_noLabel));
    EXPECT_TRUE(centers.empty());
}

TEST(ClusteringUtils, SamplesWithoutCoordinatesAllHaveTheFirstLabel)
{
    VectorColl centers(2, Vector(0));
    UInt32Vector assignments;
    EXPECT_EQ(computeKMeansAttempt(VectorColl(3, Vector(0)), 100, centers, assignments), 2u);
    EXPECT_THAT(assignments, ElementsAre(0, 0, 0));
}

TEST(ClusteringUtils, AnAttemptIsThePlainOneOnReals)
{
    expectPlainAttempts(300, 400, 20, 40,
                        [](std::mt19937& generator) { return std::normal_distribution<double>()(generator); });
}

TEST(ClusteringUtils, AnAttemptIsThePlainOneOnTies)
{
    expectPlainAttempts(1500, 200, 4, 30, [](std::mt19937& generator) { return double(generator() % 4); });
}

TEST(ClusteringUtils, AnAttemptIsThePlainOneOnTiesThatRound)
{
    // Distances that are equal in real numbers and differ in their last bits, and the other way round.
    expectPlainAttempts(1500, 200, 5, 30, [](std::mt19937& generator) { return double(generator() % 4) * 0.1 + 1e5; });
}

TEST(ClusteringUtils, AnAttemptIsThePlainOneOnHugeRanges)
{
    expectPlainAttempts(500, 200, 4, 20,
                        [](std::mt19937& generator)
                        {
                            const double mantissa = std::uniform_real_distribution<double>(-1.0, 1.0)(generator);
                            return std::ldexp(mantissa, std::uniform_int_distribution<int>(-600, 500)(generator));
                        });
}

TEST(ClusteringUtils, AnAttemptIsThePlainOneOnTinyValues)
{
    // The squares underflow: distances of unequal samples are 0 or a multiple of the least number.
    expectPlainAttempts(300, 100, 4, 20,
                        [](std::mt19937& generator)
                        { return std::ldexp(std::uniform_real_distribution<double>(-1.0, 1.0)(generator), -536); });
}

TEST(ClusteringUtils, AnAttemptIsThePlainOneOnValuesThatOverflow)
{
    expectPlainAttempts(500, 60, 3, 8,
                        [](std::mt19937& generator)
                        {
                            const double value = std::uniform_real_distribution<double>(-1.0, 1.0)(generator);
                            return generator() % 4 == 0 ? value * 1e160 : value;
                        });
}

TEST(ClusteringUtils, AnAttemptIsThePlainOneBesideValuesThatAreNotFinite)
{
    // NaN never equals itself, so only labels and iterations are compared.
    std::mt19937 generator(4);
    const std::vector<double> odd = {g_nan, g_infinity, -g_infinity};
    for (int repeat = 0; repeat < 300 && !HasFailure(); ++repeat)
    {
        const VectorColl data = makeSamples(1 + generator() % 40, 2,
                                            [&]
                                            {
                                                return generator() % 16 == 0
                                                           ? odd[generator() % odd.size()]
                                                           : std::uniform_real_distribution<double>()(generator);
                                            });
        VectorColl centers;
        for (std::size_t k = 0; k < 1 + repeat % 10u; ++k)
            centers.push_back(data[generator() % data.size()]);
        VectorColl plainCenters = centers;
        UInt32Vector assignments;
        UInt32Vector plainAssignments;
        EXPECT_EQ(computeKMeansAttempt(data, 30, centers, assignments),
                  PlainKMeans::attempt(data, 30, plainCenters, plainAssignments));
        EXPECT_EQ(assignments, plainAssignments);
    }
}

TEST(ClusteringUtils, AnAttemptIsThePlainOneOnLargerData)
{
    std::mt19937 generator(8);
    std::uniform_real_distribution<double> uniform;
    for (const std::size_t nbClusters : {1u, 2u, 7u, 8u, 9u, 63u, 64u, 65u, 200u})
    {
        const VectorColl blobs = makeBlobs(generator, 3000, 6, 30);
        expectPlainAttempt(blobs, VectorColl(blobs.begin(), blobs.begin() + long(nbClusters)), 100);
        const VectorColl scattered = makeSamples(3000, 9, [&] { return uniform(generator); });
        expectPlainAttempt(scattered, VectorColl(scattered.begin(), scattered.begin() + long(nbClusters)), 60);
    }
}

TEST(ClusteringUtils, AnAttemptIsThePlainOneFarFromTheOrigin)
{
    std::mt19937 generator(9);
    std::uniform_real_distribution<double> uniform(1e9, 1e9 + 1e-3);
    const VectorColl data = makeSamples(2000, 3, [&] { return uniform(generator); });
    EXPECT_GT(expectPlainAttempt(data, VectorColl(data.begin(), data.begin() + 20), 100), 3u);
}

TEST(ClusteringUtils, AnAttemptIsThePlainOneInManyDimensions)
{
    std::mt19937 generator(10);
    const VectorColl data = makeBlobs(generator, 300, 500, 10);
    expectPlainAttempt(data, VectorColl(data.begin(), data.begin() + 12), 100);
}

TEST(ClusteringUtils, AnAttemptIsThePlainOneWithThousandsOfClusters)
{
    // Too many for a table of the distances between centres.
    std::mt19937 generator(11);
    std::uniform_real_distribution<double> uniform;
    const VectorColl data = makeSamples(5000, 2, [&] { return uniform(generator); });
    EXPECT_GT(expectPlainAttempt(data, VectorColl(data.begin(), data.begin() + 4200), 5), 2u);
}

TEST(ClusteringUtils, AnAttemptIsThePlainOneFromCentersThatAreNoSamples)
{
    // Many of the centres win nothing and go to the origin, where they coincide.
    std::mt19937 generator(12);
    std::uniform_real_distribution<double> uniform(-1.0, 1.0);
    for (int repeat = 0; repeat < 200 && !HasFailure(); ++repeat)
    {
        const std::size_t dimension = 1 + generator() % 5;
        const VectorColl data = makeBlobs(generator, 1 + generator() % 200, dimension, 4);
        const VectorColl centers =
            makeSamples(1 + generator() % 20, dimension, [&] { return 30.0 * uniform(generator); });
        expectPlainAttempt(data, centers, 40);
    }
}

TEST(ClusteringUtils, AnAttemptIsThePlainOneWithAsManyClustersAsSamples)
{
    std::mt19937 generator(13);
    for (std::size_t nbSamples = 1; nbSamples < 60; ++nbSamples)
    {
        const VectorColl data = makeSamples(nbSamples, 2, [&] { return double(generator() % 6); });
        expectPlainAttempt(data, data, 40);
    }
}

TEST(ClusteringUtils, FurtherIterationsAllocateNothing)
{
    std::mt19937 generator(14);
    std::uniform_real_distribution<double> uniform;
    const VectorColl data = makeSamples(2000, 4, [&] { return uniform(generator); });
    const VectorColl firstCenters(data.begin(), data.begin() + 40);
    const auto countAllocations = [&](ovUInt32 nbMaxIteration)
    {
        VectorColl centers = firstCenters;
        UInt32Vector assignments;
        const std::size_t nbBefore = test::getNbAllocations();
        EXPECT_EQ(computeKMeansAttempt(data, nbMaxIteration, centers, assignments), nbMaxIteration);
        return test::getNbAllocations() - nbBefore;
    };
    EXPECT_EQ(countAllocations(25), countAllocations(1));
}

TEST(ClusteringUtils, AnAssignmentAllocatesNothing)
{
    const VectorColl centers = makeDataSet({{0.0, 0.0}, {4.0, 0.0}});
    const Vector sample = makeVector({3.0, 1.0});
    EXPECT_EQ(test::countSteadyAllocations([&] { computeAssignment(centers, sample); }), 0u);
}

TEST(ClusteringUtils, AnAttemptIsThePlainOneOnMeasurements)
{
    for (const char* name : {"iris.csv", "wine.csv"})
    {
        const VectorColl data = test::readMeasurements(name).samples;
        for (std::size_t nbClusters = 1; nbClusters <= 20; ++nbClusters)
            expectPlainAttempt(data, VectorColl(data.begin() + 40, data.begin() + 40 + long(nbClusters)), 100);
    }
}

TEST(ClusteringUtils, MoreClustersThanSamplesRaise)
{
    VectorColl centers = makeDataSet({{1.0}});
    test::expectMathRaises("Number of clusters {3} should not be greater than number of input data {2}",
                           [&] {
                               generateKMeansPPInit(3, makeDataSet({{1.0}, {2.0}}), centers);
                           });
    EXPECT_TRUE(centers.empty());
}

TEST(ClusteringUtils, SeedsAreSamples)
{
    RandomUniformGenerator::getGen().seed(1);
    const VectorColl data = makeDataSet({{1.0}, {2.0}, {4.0}, {8.0}});
    VectorColl centers = makeDataSet({{7.0}});
    generateKMeansPPInit(3, data, centers);
    ASSERT_EQ(centers.size(), 3u);
    for (const Vector& center : centers)
        EXPECT_THAT(center[0], testing::AnyOf(1.0, 2.0, 4.0, 8.0));
}

TEST(ClusteringUtils, SeedsAreThoseOfThePlainSteps)
{
    std::mt19937 generator(2);
    std::normal_distribution<double> normal;
    for (unsigned int seed = 0; seed < 200; ++seed)
    {
        const std::size_t nbSamples = 1 + generator() % 100;
        const VectorColl data = makeSamples(nbSamples, 1 + generator() % 8, [&] { return normal(generator); });
        const ovUInt32 nbClusters = static_cast<ovUInt32>(1 + generator() % nbSamples);
        VectorColl centers;
        RandomUniformGenerator::getGen().seed(seed);
        generateKMeansPPInit(nbClusters, data, centers);
        const auto nextDraw = RandomUniformGenerator::getGen()();
        VectorColl plainCenters;
        RandomUniformGenerator::getGen().seed(seed);
        PlainKMeans::seed(nbClusters, data, plainCenters);
        EXPECT_EQ(toStd(centers), toStd(plainCenters));
        EXPECT_EQ(nextDraw, RandomUniformGenerator::getGen()());
    }
}

TEST(ClusteringUtils, SeedsAreThoseOfThePlainStepsAmongEqualSamples)
{
    std::mt19937 generator(3);
    for (unsigned int seed = 0; seed < 200; ++seed)
    {
        VectorColl data =
            makeSamples(2 + generator() % 60, 1 + generator() % 40, [&] { return double(generator() % 2); });
        data.front()[0] = 7.0;
        VectorColl centers;
        RandomUniformGenerator::getGen().seed(seed);
        generateKMeansPPInit(static_cast<ovUInt32>(data.size()), data, centers);
        const auto nextDraw = RandomUniformGenerator::getGen()();
        VectorColl plainCenters;
        RandomUniformGenerator::getGen().seed(seed);
        PlainKMeans::seed(static_cast<ovUInt32>(data.size()), data, plainCenters);
        EXPECT_EQ(toStd(centers), toStd(plainCenters));
        EXPECT_EQ(nextDraw, RandomUniformGenerator::getGen()());
    }
}

TEST(ClusteringUtils, ASeedIsDrawnByTheDistanceToTheLatestOne)
{
    // Two places: the next seed is never where the latest is, so the two alternate and seeds coincide.
    const VectorColl data = makeDataSet({{0.0}, {0.0}, {3.0}, {3.0}});
    for (unsigned int seed = 0; seed < 50; ++seed)
    {
        RandomUniformGenerator::getGen().seed(seed);
        VectorColl centers;
        generateKMeansPPInit(4, data, centers);
        EXPECT_NE(centers[0][0], centers[1][0]);
        EXPECT_EQ(centers[0][0], centers[2][0]);
        EXPECT_EQ(centers[1][0], centers[3][0]);
    }
}

TEST(ClusteringUtils, AsManySeedsAsSamplesAreAccepted)
{
    RandomUniformGenerator::getGen().seed(5);
    VectorColl centers;
    generateKMeansPPInit(3, makeDataSet({{1.0}, {2.0}, {3.0}}), centers);
    EXPECT_EQ(centers.size(), 3u);
}

TEST(ClusteringUtils, NoClusterStillDrawsOneSample)
{
    RandomUniformGenerator::getGen().seed(5);
    VectorColl centers;
    generateKMeansPPInit(0, makeDataSet({{1.0}}), centers);
    EXPECT_EQ(toStd(centers), toStd(makeDataSet({{1.0}})));
    generateKMeansPPInit(0, VectorColl(), centers);
    EXPECT_TRUE(centers.empty());
}

TEST(ClusteringUtils, SigmaIsTheSumOfTheRanges)
{
    const VectorColl data = makeDataSet({{1.0, -2.0}, {4.0, 8.0}, {2.0, 0.0}});
    EXPECT_EQ(radialBasisKernelSigmaFromDynamic(data, 0.5), 0.5 * (3.0 + 10.0));
}

TEST(ClusteringUtils, SigmaOfNothingIsZero)
{
    EXPECT_EQ(radialBasisKernelSigmaFromDynamic(VectorColl(), 2.0), 0.0);
    EXPECT_EQ(radialBasisKernelSigmaFromDynamic(VectorColl(2, Vector(0)), 2.0), 0.0);
    EXPECT_TRUE(std::signbit(radialBasisKernelSigmaFromDynamic(VectorColl(), -2.0)));
}

} // namespace clustering
} // namespace math
} // namespace ovrix
