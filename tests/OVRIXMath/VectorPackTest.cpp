#include <OVRIXMath/VectorPack.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>

namespace ovrix
{
namespace math
{
namespace details
{

namespace
{

/// Switches AVX2 off where the environment says so.
///
/// @return whether it did
bool switchOffAvx2()
{
    if (std::getenv("OVRIX_TESTS_WITHOUT_AVX2") == nullptr)
        return false;
    g_bAvx2 = false;
    return true;
}

const bool g_bWithoutAvx2 = switchOffAvx2(); // before any test runs

struct CountLanes
{
    template <int Lanes>
    [[gnu::always_inline]] static inline int run()
    {
        return Lanes;
    }
};

/// The sum over the lanes of 2^lane.
struct SetOneBitPerLane
{
    template <int Lanes>
    [[gnu::always_inline]] static inline std::int64_t run()
    {
        typename Pack<Lanes>::Longs lanes;
        setLaneNumbers<Lanes>(lanes);
        return anyBits<Lanes>((typename Pack<Lanes>::Longs{} + 1) << lanes);
    }
};

} // namespace

TEST(VectorPack, IsOfFourNumbersWhereTheProcessorHasAvx2)
{
#ifdef __x86_64__
    EXPECT_EQ(runKernel<CountLanes>(), __builtin_cpu_supports("avx2") && !g_bWithoutAvx2 ? 4 : 2);
#else
    EXPECT_EQ(runKernel<CountLanes>(), 2);
#endif
}

TEST(VectorPack, NumbersItsLanesAndJoinsTheirBits)
{
    EXPECT_EQ(runKernelOn2Lanes<SetOneBitPerLane>(), 0b11);
    EXPECT_EQ(runKernel<SetOneBitPerLane>(), runKernel<CountLanes>() == 4 ? 0b1111 : 0b11);
}

TEST(VectorPack, SizesArePaddedToTheNextMultiple)
{
    EXPECT_EQ(paddedSize(0), 0u);
    EXPECT_EQ(paddedSize(1), 4u);
    EXPECT_EQ(paddedSize(4), 4u);
    EXPECT_EQ(paddedSize(5), 8u);
    EXPECT_EQ(paddedSize(17, 16), 32u);
}

} // namespace details
} // namespace math
} // namespace ovrix
