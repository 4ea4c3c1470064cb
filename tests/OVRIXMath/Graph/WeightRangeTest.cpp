#include <OVRIXMath/Graph/WeightRange.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace ovrix
{
namespace math
{
namespace details
{

namespace
{

WeightRange rangeOf(const std::vector<double>& weights)
{
    return WeightRange(weights.data(), weights.size());
}

constexpr double g_infinity = std::numeric_limits<double>::infinity();

} // namespace

TEST(WeightRange, HasTheLargestMagnitude)
{
    EXPECT_EQ(rangeOf({1.0, -3.0, 2.0}).magnitude, 3.0);
    EXPECT_EQ(rangeOf({}).magnitude, 0.0);
    EXPECT_EQ(rangeOf({1.0, std::nan(""), 2.0}).magnitude, g_infinity);
    EXPECT_EQ(rangeOf({std::nan(""), -g_infinity}).magnitude, g_infinity);
}

TEST(WeightRange, IsFiniteWhereNoSumOverflows)
{
    EXPECT_TRUE(rangeOf({std::numeric_limits<double>::max() / 16.0}).bFinite);
    EXPECT_FALSE(rangeOf({std::numeric_limits<double>::max() / 15.0}).bFinite);
    EXPECT_FALSE(rangeOf({g_infinity}).bFinite);
}

TEST(WeightRange, IsExactForIntegersAndFractionsOfPowersOfTwo)
{
    EXPECT_TRUE(rangeOf({0.0, -0.0}).bExact);
    EXPECT_TRUE(rangeOf({1.0, -3.0, 1000000.0}).bExact);
    EXPECT_TRUE(rangeOf({0.25, -0.75, 1000.0}).bExact);
    EXPECT_TRUE(rangeOf({std::ldexp(3.0, 900), std::ldexp(-1.0, 890)}).bExact);
}

TEST(WeightRange, IsExactUpToFiftyBits)
{
    EXPECT_TRUE(rangeOf({std::ldexp(1.0, 50) - 1.0, 1.0}).bExact);
    EXPECT_FALSE(rangeOf({std::ldexp(1.0, 50), 1.0}).bExact);
}

TEST(WeightRange, IsNotExactForOtherFractions)
{
    EXPECT_FALSE(rangeOf({0.1, 1.0}).bExact);
    EXPECT_FALSE(rangeOf({1.0 / 3.0, 1000.0}).bExact);
}

TEST(WeightRange, IsNotExactForRoundNumbersOfFarApartMagnitudes)
{
    for (const int exponent : {-50, -100, -900, -1000, -1074})
        EXPECT_FALSE(rangeOf({1.0, std::ldexp(1.0, exponent)}).bExact) << exponent;
    EXPECT_FALSE(rangeOf({std::ldexp(1.0, 1000), std::ldexp(1.0, -200)}).bExact);
    EXPECT_FALSE(rangeOf({std::ldexp(1.0, 1000), std::numeric_limits<double>::denorm_min()}).bExact);
}

TEST(WeightRange, LooksAtEachOfManyWeights)
{
    for (const std::size_t count : {1u, 4u, 5u, 255u, 256u, 257u, 1023u})
    {
        for (std::size_t i = 0; i < count; ++i)
        {
            std::vector<double> weights(count, 1.0);
            weights[i] = 0.1;
            EXPECT_FALSE(rangeOf(weights).bExact) << i << " of " << count;
            weights[i] = 0.0;
            EXPECT_TRUE(rangeOf(weights).bExact) << i << " of " << count;
            weights[i] = -7.0;
            EXPECT_TRUE(rangeOf(weights).bExact) << i << " of " << count;
            EXPECT_EQ(rangeOf(weights).magnitude, 7.0) << i << " of " << count;
            weights[i] = std::numeric_limits<double>::denorm_min();
            EXPECT_FALSE(rangeOf(weights).bExact) << i << " of " << count;
            weights[i] = std::nan("");
            EXPECT_FALSE(rangeOf(weights).bFinite) << i << " of " << count;
        }
    }
}

} // namespace details
} // namespace math
} // namespace ovrix
