#include <OVRIXMath/Clustering/KernelKMeansAttempt.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <support/AllocationCount.h>
#include <support/Bits.h>
#include <support/Builders.h>
#include <support/Kernels.h>
#include <support/PlainKernelKMeans.h>
#include <support/RandomData.h>

namespace ovrix
{
namespace math
{
namespace clustering
{
namespace details
{

template <class KernelType>
class KernelKMeansAttemptTest : public testing::Test
{
protected:
    using Centroid = KernelKMeansCentroid<KernelType>;
    using Plain = test::PlainKernelKMeans<KernelType>;

    /// Runs attempts one after the other with room for so many rows of kernel values, and expects what the plain method
    /// gives from the same state of the generator.
    void expectPlain(std::size_t nbKeptRows) const
    {
        expectPlainOn(test::RandomData(7).dataSet(120, 3, -1.0, 1.0), nbKeptRows);
    }

    void expectPlainOn(const VectorColl& data, std::size_t nbKeptRows) const
    {
        KernelSamples<KernelType> samples(kernel, data, nbKeptRows * data.size());
        KernelKMeansAttempt<KernelType> attempt(samples);
        for (unsigned int seed = 0; seed < 12; ++seed)
        {
            const ovUInt32 nbClusters = 1 + seed % 4;
            RandomUniformGenerator::getGen().seed(seed);
            UInt32Vector seeds;
            drawKernelSeeds(samples, nbClusters, seeds);
            attempt.start(seeds, 0.02, 12);
            UInt32Vector assignments;
            const ovUInt32 nbIteration = attempt.run(15, 0.0, assignments);
            std::vector<Centroid> centroids(nbClusters, Centroid(kernel));
            attempt.copyCentroids(centroids);

            RandomUniformGenerator::getGen().seed(seed);
            VectorColl plainSeeds;
            Plain::seed(kernel, nbClusters, data, plainSeeds);
            typename Plain::Centroids plainCentroids(nbClusters, test::PlainKernelCentroid<KernelType>(kernel));
            for (ovUInt32 k = 0; k < nbClusters; ++k)
            {
                plainCentroids[k].accuracyThreshold = 0.02;
                plainCentroids[k].maxDictionarySize = 12;
                plainCentroids[k].addSample(plainSeeds[k]);
            }
            UInt32Vector plainAssignments;
            ASSERT_EQ(nbIteration, Plain::attempt(data, 15, 0.0, plainCentroids, plainAssignments));
            ASSERT_EQ(assignments, plainAssignments);
            for (ovUInt32 k = 0; k < nbClusters; ++k)
            {
                ASSERT_EQ(centroids[k].getWeights(), plainCentroids[k].weights);
                ASSERT_EQ(test::bitsOf(centroids[k].getClusterTerm()), test::bitsOf(plainCentroids[k].clusterTerm()));
                for (std::size_t i = 0; i < plainCentroids[k].dictionary.size(); ++i)
                {
                    ASSERT_EQ(test::bitsOf(centroids[k].getDictionary()[i]),
                              test::bitsOf(plainCentroids[k].dictionary[i]));
                }
            }
        }
    }

    const KernelType kernel = test::makeKernel<KernelType>();
};

TYPED_TEST_SUITE(KernelKMeansAttemptTest, test::Kernels, test::KernelNames);

TYPED_TEST(KernelKMeansAttemptTest, IsThePlainOneWithRoomForAllRows)
{
    this->expectPlain(120);
}

TYPED_TEST(KernelKMeansAttemptTest, IsThePlainOneWithRoomForSomeRows)
{
    for (const std::size_t nbKeptRows : {1u, 3u, 10u, 30u})
        this->expectPlain(nbKeptRows);
}

TYPED_TEST(KernelKMeansAttemptTest, IsThePlainOneWithoutRoomForRows)
{
    this->expectPlain(0);
}

TYPED_TEST(KernelKMeansAttemptTest, IsThePlainOneWhereRoundingDecidesBetweenMeans)
{
    VectorColl data = test::RandomData(7).dataSet(120, 3, -1.0, 1.0);
    for (Vector& sample : data)
    {
        for (double& coordinate : sample)
            coordinate = std::round(coordinate) / 3.0;
    }
    this->expectPlainOn(data, 120);
    this->expectPlainOn(data, 10);
}

TYPED_TEST(KernelKMeansAttemptTest, HasCentroidsOnceAnIterationRan)
{
    const VectorColl data = test::RandomData(7).dataSet(20, 3, -1.0, 1.0);
    KernelSamples<TypeParam> samples(this->kernel, data);
    KernelKMeansAttempt<TypeParam> attempt(samples);
    UInt32Vector assignments;
    attempt.start(UInt32Vector{0, 5}, 0.001, 10);
    attempt.run(0, 0.0, assignments);
    EXPECT_FALSE(attempt.hasCentroids());
    attempt.run(1, 0.0, assignments);
    EXPECT_TRUE(attempt.hasCentroids());
    attempt.start(UInt32Vector{0, 5}, 0.001, 10);
    EXPECT_FALSE(attempt.hasCentroids());
}

TYPED_TEST(KernelKMeansAttemptTest, TheSameAttemptAgainTakesNoMemory)
{
    const VectorColl data = test::RandomData(7).dataSet(200, 3, -1.0, 1.0);
    // With room for the rows of all samples, of some and of none.
    for (const std::size_t nbRows : {200, 20, 0})
    {
        KernelSamples<TypeParam> samples(this->kernel, data, nbRows * 200);
        KernelKMeansAttempt<TypeParam> attempt(samples);
        const UInt32Vector seeds = {0, 5, 11};
        UInt32Vector assignments;
        const auto run = [&]
        {
            attempt.start(seeds, 0.001, 30);
            return attempt.run(20, 0.0, assignments);
        };
        const ovUInt32 nbIteration = run();
        EXPECT_GT(nbIteration, 2u);
        const std::size_t nbBefore = test::getNbAllocations();
        run();
        EXPECT_EQ(test::getNbAllocations(), nbBefore) << nbRows;
    }
}

} // namespace details
} // namespace clustering
} // namespace math
} // namespace ovrix
