#include <OVRIXMath/Graph/LeastSlacks.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <limits>
#include <random>
#include <utility>
#include <vector>

namespace ovrix
{
namespace math
{
namespace details
{

namespace
{

using Reals = std::vector<double>;
using Slacks = std::vector<std::pair<double, ovUInt32>>;

constexpr double g_infinity = std::numeric_limits<double>::infinity();

Slacks toPairs(const std::vector<SlackEntry>& entries)
{
    Slacks slacks;
    for (const SlackEntry& entry : entries)
        slacks.emplace_back(entry.slack, entry.idx);
    return slacks;
}

/// All that are finite, ascending, the lower index first among equal ones.
Slacks sortAll(const Reals& labels, double label, const Reals& weights)
{
    Slacks slacks;
    for (std::size_t i = 0; i < weights.size(); ++i)
    {
        const double slack = (labels[i] + label) - weights[i];
        if (slack < g_infinity)
            slacks.emplace_back(slack, static_cast<ovUInt32>(i));
    }
    std::sort(slacks.begin(), slacks.end());
    return slacks;
}

/// Expects the next selection to be the front of all slacks, about as long as it should be, and the bound between it
/// and the others.
void expectSelection(LeastSlacks& least, std::size_t depth, const Reals& labels, double label, const Reals& weights)
{
    const Slacks all = sortAll(labels, label, weights);
    const Slacks selected = toPairs(least.select(labels.data(), label, weights.data(), weights.size()));
    EXPECT_GE(selected.size(), std::min(all.size(), depth / 2));
    ASSERT_LE(selected.size(), std::min(all.size(), 2 * depth));
    EXPECT_TRUE(std::equal(selected.begin(), selected.end(), all.begin()));
    if (!selected.empty())
    {
        EXPECT_GE(least.getBound(), selected.back().first);
    }
    if (selected.size() < all.size())
    {
        EXPECT_LE(least.getBound(), all[selected.size()].first);
    }
}

} // namespace

TEST(LeastSlacks, AreNoneOfNone)
{
    LeastSlacks least(8);
    EXPECT_TRUE(least.select(nullptr, 0.0, nullptr, 0).empty());
    EXPECT_EQ(least.getBound(), g_infinity);
}

TEST(LeastSlacks, AreTheOnlyOne)
{
    LeastSlacks least(8);
    const Reals labels{5.0};
    const Reals weights{3.0};
    EXPECT_EQ(toPairs(least.select(labels.data(), 0.5, weights.data(), 1)), (Slacks{{2.5, 0}}));
    EXPECT_EQ(least.getBound(), g_infinity);
}

TEST(LeastSlacks, AreAllWhereThereAreFew)
{
    LeastSlacks least(2);
    const Reals labels{1.0, 4.0, 2.0, 1.0};
    const Reals weights{0.0, 4.0, -1.0, 1.0};
    EXPECT_EQ(toPairs(least.select(labels.data(), 0.0, weights.data(), 4)),
              (Slacks{{0.0, 1}, {0.0, 3}, {1.0, 0}, {3.0, 2}}));
    EXPECT_EQ(least.getBound(), g_infinity);
}

TEST(LeastSlacks, AreNeverInfinite)
{
    LeastSlacks least(8);
    const Reals labels{g_infinity, 1.0, g_infinity};
    const Reals weights{0.0, 0.0, 1e308};
    EXPECT_EQ(toPairs(least.select(labels.data(), 0.0, weights.data(), 3)), (Slacks{{1.0, 1}}));
}

TEST(LeastSlacks, AreTheFirstOnesWhereAllAreEqual)
{
    for (const std::size_t count : {15, 16, 17, 63, 64, 65, 255, 256, 257, 1000})
    {
        LeastSlacks least(8);
        SCOPED_TRACE(count);
        expectSelection(least, 8, Reals(count, 2.0), 1.0, Reals(count, 1.0));
    }
}

TEST(LeastSlacks, AreFoundBehindManyLargerOnes)
{
    LeastSlacks least(8);
    Reals weights(1000);
    for (std::size_t i = 0; i < weights.size(); ++i)
        weights[i] = static_cast<double>(i); // the slacks fall
    expectSelection(least, 8, Reals(1000, 0.0), 2000.0, weights);
}

TEST(LeastSlacks, AreFoundAfterSmallerOnes)
{
    // No slack of the second row is below the bound that the first one leaves.
    LeastSlacks least(8);
    Reals weights(300);
    for (std::size_t i = 0; i < weights.size(); ++i)
        weights[i] = static_cast<double>(i);
    const Reals labels(300, 0.0);
    expectSelection(least, 8, labels, 300.0, weights);
    expectSelection(least, 8, labels, 9000.0, weights);
    expectSelection(least, 8, labels, 10.0, weights);
}

TEST(LeastSlacks, AreTheFrontOfAllInOrder)
{
    std::mt19937 generator(1);
    for (const std::size_t depth : {1, 2, 8, 16, 63, 64, 65})
    {
        LeastSlacks least(depth);
        for (int draw = 0; draw < 300; ++draw)
        {
            const std::size_t sizes[] = {0, 1, 2, 15, 16, 17, 63, 64, 65, 127, 128, 129, 255, 256, 257, 600};
            const std::size_t count = sizes[generator() % 16];
            const unsigned long nbValues = generator() % 2 == 0 ? 10 : 1000000; // few of them are often equal
            Reals labels(count);
            Reals weights(count);
            for (std::size_t i = 0; i < count; ++i)
            {
                labels[i] = generator() % 8 == 0 ? g_infinity : static_cast<double>(generator() % nbValues);
                weights[i] = static_cast<double>(generator() % nbValues);
            }
            SCOPED_TRACE(testing::Message() << "depth " << depth << ", draw " << draw);
            expectSelection(least, depth, labels, static_cast<double>(generator() % 100), weights);
            if (testing::Test::HasFailure())
                return;
        }
    }
}

} // namespace details
} // namespace math
} // namespace ovrix
