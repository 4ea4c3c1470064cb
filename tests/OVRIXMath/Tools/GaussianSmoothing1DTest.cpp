#include <OVRIXMath/Tools/GaussianSmoothing1D.h>

#include <cmath>
#include <limits>
#include <random>
#include <support/AllocationCount.h>
#include <support/NumberTypes.h>
#include <support/PlainSmoothing.h>
#include <vector>

namespace ovrix
{
namespace math
{

namespace
{

using Floats = std::vector<float>;
using test::smoothPlainly;

/// Equal bits, NaN being equal to NaN.
void expectSameFloats(const Floats& actual, const Floats& expected)
{
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t i = 0; i < actual.size(); ++i)
    {
        if (std::isnan(expected[i]))
            EXPECT_TRUE(std::isnan(actual[i])) << i;
        else
        {
            EXPECT_EQ(actual[i], expected[i]) << i;
            EXPECT_EQ(std::signbit(actual[i]), std::signbit(expected[i])) << i;
        }
    }
}

} // namespace

template <class T>
class GaussianSmoothing1D : public ::testing::Test
{
};
using SmoothingTypes = ::testing::Types<int, signed char, unsigned char, float, unsigned short, short, unsigned int>;
TYPED_TEST_SUITE(GaussianSmoothing1D, SmoothingTypes, test::TypeNames);

TYPED_TEST(GaussianSmoothing1D, AgreesWithPlainSumsToTheBit)
{
    std::mt19937 generator(31);
    for (int draw = 0; draw < 1500; ++draw)
    {
        std::vector<TypeParam> input(generator() % 150);
        for (TypeParam& value : input)
            value = test::anyValue<TypeParam>(generator);
        const float sigma = static_cast<float>(generator() % 1000) * (generator() % 2 == 0 ? 0.003f : 0.09f);
        expectSameFloats(gaussianSmoothing1D<TypeParam>(input, sigma), smoothPlainly(input, sigma));
    }
}

TYPED_TEST(GaussianSmoothing1D, AKernelFarWiderThanTheSequenceAgreesWithPlainSums)
{
    std::mt19937 generator(32);
    std::vector<TypeParam> input(37);
    for (TypeParam& value : input)
        value = static_cast<TypeParam>(generator() % 100);
    for (const float sigma : {18.0f, 18.25f, 36.0f, 37.0f, 400.0f, 3000.0f})
        expectSameFloats(gaussianSmoothing1D<TypeParam>(input, sigma), smoothPlainly(input, sigma));
}

TYPED_TEST(GaussianSmoothing1D, LongSequencesAgreeWithPlainSums)
{
    // Around multiples of 4096, the number of elements that are smoothed at once; the widest kernel takes more.
    std::mt19937 generator(33);
    for (const std::size_t size : {4095, 4096, 4097, 4103, 8192, 8193, 12500})
    {
        std::vector<TypeParam> input(size);
        for (TypeParam& value : input)
            value = test::anyValue<TypeParam>(generator);
        for (const float sigma : {0.0f, 0.8f, 3.0f, 12.0f, size == 12500 ? 2500.0f : 40.0f})
            expectSameFloats(gaussianSmoothing1D<TypeParam>(input, sigma), smoothPlainly(input, sigma));
    }
}

TYPED_TEST(GaussianSmoothing1D, AnEmptySequenceStaysEmpty)
{
    EXPECT_EQ(gaussianSmoothing1D<TypeParam>(std::vector<TypeParam>(), 2.0f), Floats());
}

TYPED_TEST(GaussianSmoothing1D, ANullSigmaCopiesTheSequence)
{
    const std::vector<TypeParam> input = {1, 5, 2, 120};
    for (const float sigma : {0.0f, -0.0f, 0.00009f, -0.00009f})
        EXPECT_EQ(gaussianSmoothing1D<TypeParam>(input, sigma), Floats({1, 5, 2, 120}));
}

TYPED_TEST(GaussianSmoothing1D, AKernelOfOneTapGivesZero)
{
    const std::vector<TypeParam> input = {1, 5, 2, 120};
    for (const float sigma : {0.0002f, 0.5f, 0.7499f})
        EXPECT_EQ(gaussianSmoothing1D<TypeParam>(input, sigma), Floats(4, 0.0f));
}

TYPED_TEST(GaussianSmoothing1D, AnImpulseMovesOntoTheFollowingElementOnly)
{
    const std::vector<TypeParam> input = {0, 0, 1, 0, 0};
    const float tap = static_cast<float>(std::exp(-0.5));
    const float sum = tap + 1.0f;
    EXPECT_EQ(gaussianSmoothing1D<TypeParam>(input, 1.0f), Floats({0, 0, 1.0f / sum, tap / sum, 0}));
}

TYPED_TEST(GaussianSmoothing1D, TheFirstElementIsRenormalisedToItself)
{
    const std::vector<TypeParam> input = {100, 0};
    EXPECT_EQ(gaussianSmoothing1D<TypeParam>(input, 1.0f)[0], 100.0f);
}

TYPED_TEST(GaussianSmoothing1D, ASigmaWithoutMeaningGivesZero)
{
    const std::vector<TypeParam> input = {1, 5, 2};
    for (const float sigma : {-0.5f, -1.0f, -3.0f, -1e30f, -std::numeric_limits<float>::infinity(),
                              std::numeric_limits<float>::quiet_NaN()})
        EXPECT_EQ(gaussianSmoothing1D<TypeParam>(input, sigma), Floats(3, 0.0f)) << sigma;
}

TYPED_TEST(GaussianSmoothing1D, AllocationsDoNotGrowWithTheSequence)
{
    for (const std::size_t size : {1000, 50000})
    {
        const std::vector<TypeParam> input(size, 3);
        // The kernel; the weights, and the ones that they are made of; elements with a margin; the result.
        EXPECT_EQ(test::countSteadyAllocations([&] { gaussianSmoothing1D(input, 4.0f); }), 5u);
    }
}

TEST(GaussianSmoothing1D, AKernelOfManyMillionTapsTakesMemoryOfTheSequenceOnly)
{
    // All taps in reach are 1, so that every element becomes the mean.
    const std::vector<float> input = {1, 2, 6};
    EXPECT_EQ(gaussianSmoothing1D<float>(input, 5e6f), Floats({3, 3, 3}));
}

TEST(GaussianSmoothing1D, AKernelOfMoreTapsThanAFloatCountsHasOneInReach)
{
    const std::vector<float> input = {1, 2, 6};
    // Of a thousand million taps every 32nd is reached, the middle one among them.
    EXPECT_EQ(gaussianSmoothing1D<float>(input, 5e8f), Floats({1, 2, 6}));
    // Of the most taps that there can be, the one behind the middle is.
    for (const float sigma : {1e30f, std::numeric_limits<float>::infinity()})
        EXPECT_EQ(gaussianSmoothing1D<float>(input, sigma), Floats({2, 6, 0})) << sigma;
}

TEST(GaussianSmoothing1D, ASequenceIsSmoothedInFloat)
{
    EXPECT_EQ(gaussianSmoothing1D<int>({16777217}, 0.0f), Floats({16777216.0f}));
}

} // namespace math
} // namespace ovrix
