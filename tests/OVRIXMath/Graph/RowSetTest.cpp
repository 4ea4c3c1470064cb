#include <OVRIXMath/Graph/RowSet.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <numeric>
#include <random>
#include <set>
#include <vector>

namespace ovrix
{
namespace math
{
namespace details
{

namespace
{

using Rows = std::vector<std::size_t>;

/// Around the sizes that fill whole words.
const Rows g_sizes{0, 1, 2, 63, 64, 65, 127, 128, 129, 200};

/// The rows that next() leads through.
Rows walk(const RowSet& set, std::size_t nbRows)
{
    Rows rows;
    for (std::size_t row = set.next(0); row < nbRows; row = set.next(row + 1))
        rows.push_back(row);
    return rows;
}

RowSet makeFullSet(std::size_t nbRows)
{
    RowSet set(nbRows);
    for (std::size_t row = 0; row < nbRows; ++row)
        set.insert(row);
    return set;
}

} // namespace

TEST(RowSet, IsEmptyAtFirst)
{
    for (const std::size_t nbRows : g_sizes)
    {
        const RowSet set(nbRows);
        EXPECT_EQ(set.next(0), nbRows);
        for (std::size_t row = 0; row < nbRows; ++row)
            EXPECT_FALSE(set.contains(row));
    }
}

TEST(RowSet, HoldsASingleRowWhereverItIs)
{
    for (const std::size_t nbRows : g_sizes)
    {
        for (std::size_t only = 0; only < nbRows; ++only)
        {
            RowSet set(nbRows);
            set.insert(only);
            for (std::size_t row = 0; row < nbRows; ++row)
            {
                EXPECT_EQ(set.contains(row), row == only) << row << " of " << nbRows;
                EXPECT_EQ(set.next(row), row <= only ? only : nbRows) << row << " of " << nbRows;
            }
        }
    }
}

TEST(RowSet, HoldsAllRows)
{
    for (const std::size_t nbRows : g_sizes)
    {
        Rows all(nbRows);
        std::iota(all.begin(), all.end(), 0u);
        EXPECT_EQ(walk(makeFullSet(nbRows), nbRows), all);
    }
}

TEST(RowSet, HasNoRowBehindTheLast)
{
    for (const std::size_t nbRows : g_sizes)
    {
        for (const std::size_t from : {nbRows, nbRows + 1, nbRows + 64})
            EXPECT_EQ(makeFullSet(nbRows).next(from), nbRows);
    }
}

TEST(RowSet, KeepsAllRowsButTheErasedOne)
{
    for (const std::size_t nbRows : g_sizes)
    {
        for (std::size_t erased = 0; erased < nbRows; ++erased)
        {
            RowSet set = makeFullSet(nbRows);
            set.erase(erased);
            EXPECT_FALSE(set.contains(erased));
            EXPECT_EQ(set.next(erased), erased + 1);
            EXPECT_EQ(walk(set, nbRows).size(), nbRows - 1);
        }
    }
}

TEST(RowSet, LosesAllRowsWhenItIsCleared)
{
    for (const std::size_t nbRows : g_sizes)
    {
        RowSet set = makeFullSet(nbRows);
        set.clear();
        EXPECT_EQ(walk(set, nbRows), Rows());
    }
}

TEST(RowSet, AgreesWithASortedSet)
{
    std::mt19937 generator(1);
    for (const std::size_t nbRows : g_sizes)
    {
        RowSet set(nbRows);
        std::set<std::size_t> rows;
        for (std::size_t i = 0; i < 20 * nbRows; ++i)
        {
            const std::size_t row = generator() % nbRows;
            if (generator() % 3 == 0)
            {
                set.insert(row);
                rows.insert(row);
            }
            else
            {
                set.erase(row);
                rows.erase(row);
            }
            const std::size_t from = generator() % nbRows;
            const auto next = rows.lower_bound(from);
            ASSERT_EQ(set.next(from), next == rows.end() ? nbRows : *next);
            ASSERT_EQ(set.contains(from), rows.count(from) == 1);
        }
        EXPECT_EQ(walk(set, nbRows), Rows(rows.begin(), rows.end()));
    }
}

} // namespace details
} // namespace math
} // namespace ovrix
