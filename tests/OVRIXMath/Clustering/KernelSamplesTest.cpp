#include <OVRIXMath/Clustering/KernelSamples.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <new>
#include <support/AllocationCount.h>
#include <support/Bits.h>
#include <support/Kernels.h>
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
class KernelSamplesTest : public testing::Test
{
protected:
    static VectorColl makeData(std::size_t nbData, std::size_t dimension)
    {
        return test::RandomData(2).dataSet(nbData, dimension, -1.0, 1.0);
    }

    /// Expects the values k(x, x_i) for the i of [begin, end[.
    void expectRow(const Vector& x, const VectorColl& data, std::size_t begin, std::size_t end,
                   const double* values) const
    {
        for (std::size_t i = begin; i < end; ++i)
            ASSERT_EQ(test::bitsOf(values[i - begin]), test::bitsOf(kernel(x, data[i]))) << i;
    }

    const KernelType kernel = test::makeKernel<KernelType>();
};

TYPED_TEST_SUITE(KernelSamplesTest, test::Kernels, test::KernelNames);

TYPED_TEST(KernelSamplesTest, RowsAreTheKernelValuesToTheBit)
{
    for (const std::size_t nbData : {1u, 2u, 3u, 4u, 7u, 511u, 512u, 513u, 1030u})
    {
        for (const std::size_t dimension : {1u, 2u, 3u, 4u, 5u, 8u, 13u})
        {
            const VectorColl data = this->makeData(nbData, dimension);
            const KernelSamples<TypeParam> samples(this->kernel, data);
            const Vector x = test::RandomData(3).vector(dimension, -1.0, 1.0);
            std::vector<double> values(nbData);
            samples.computeRow(x, 0, nbData, values.data());
            this->expectRow(x, data, 0, nbData, values.data());
        }
    }
}

TYPED_TEST(KernelSamplesTest, PartsOfRowsLeaveTheRestAlone)
{
    const VectorColl data = this->makeData(600, 3);
    const KernelSamples<TypeParam> samples(this->kernel, data);
    for (const auto& range : {std::make_pair(0u, 0u), std::make_pair(5u, 6u), std::make_pair(3u, 590u)})
    {
        std::vector<double> values(range.second - range.first + 1, 7.0);
        samples.computeRow(data[4], range.first, range.second, values.data());
        this->expectRow(data[4], data, range.first, range.second, values.data());
        EXPECT_EQ(values.back(), 7.0);
    }
}

TYPED_TEST(KernelSamplesTest, PartsOfRowsOfSamplesWithoutCoordinatesAreTheKernelValues)
{
    const VectorColl data(3);
    const KernelSamples<TypeParam> samples(this->kernel, data);
    std::vector<double> values(2);
    samples.computeRow(data[0], 1, 3, values.data());
    this->expectRow(data[0], data, 1, 3, values.data());
}

TYPED_TEST(KernelSamplesTest, SingleValuesAreThoseOfTheKernel)
{
    const VectorColl data = this->makeData(5, 3);
    const KernelSamples<TypeParam> samples(this->kernel, data);
    EXPECT_EQ(samples.size(), 5u);
    EXPECT_EQ(samples.getValue(1, 4), this->kernel(data[1], data[4]));
    EXPECT_EQ(samples.getSelfValue(2), this->kernel(data[2]));
}

TYPED_TEST(KernelSamplesTest, CachesAsManyRowsAsThereIsRoom)
{
    const VectorColl data = this->makeData(10, 2);
    KernelSamples<TypeParam> samples(this->kernel, data, 29);
    EXPECT_EQ(samples.findCachedRow(3), nullptr);
    const double* const row = samples.cacheRow(3);
    ASSERT_NE(row, nullptr);
    this->expectRow(data[3], data, 0, 10, row);
    EXPECT_FALSE(samples.isCacheFull());
    EXPECT_NE(samples.cacheRow(4), nullptr);
    EXPECT_TRUE(samples.isCacheFull());
    EXPECT_EQ(samples.cacheRow(5), nullptr);
    EXPECT_EQ(samples.cacheRow(3), row);
    EXPECT_EQ(samples.findCachedRow(3), row);
}

TYPED_TEST(KernelSamplesTest, LosesNoRoomForWantOfMemory)
{
    const VectorColl data = this->makeData(10, 2);
    KernelSamples<TypeParam> samples(this->kernel, data, 10);
    {
        const test::FailingAllocation failing(0);
        EXPECT_THROW(samples.cacheRow(3), std::bad_alloc);
    }
    EXPECT_EQ(samples.findCachedRow(3), nullptr);
    EXPECT_NE(samples.cacheRow(4), nullptr);
}

TYPED_TEST(KernelSamplesTest, MakesRoomByEvictingRows)
{
    const VectorColl data = this->makeData(10, 2);
    KernelSamples<TypeParam> samples(this->kernel, data, 20);
    const double* const row = samples.cacheRow(3);
    samples.cacheRow(4);
    std::vector<bool> bWanted(10, false);
    bWanted[3] = true;
    samples.evictAllBut(bWanted);
    EXPECT_EQ(samples.findCachedRow(3), row);
    EXPECT_EQ(samples.findCachedRow(4), nullptr);
    EXPECT_NE(samples.cacheRow(5), nullptr);
    EXPECT_TRUE(samples.isCacheFull());
}

TYPED_TEST(KernelSamplesTest, OfNothingHasNoRoom)
{
    const VectorColl data;
    const KernelSamples<TypeParam> samples(this->kernel, data, 100);
    EXPECT_EQ(samples.size(), 0u);
    EXPECT_TRUE(samples.isCacheFull());
}

} // namespace details
} // namespace clustering
} // namespace math
} // namespace ovrix
