#include <OVRIXMath/Graph/RowSlacks.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <map>
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

using Rows = std::vector<std::size_t>;

/// Around the sizes that fill whole words.
const std::vector<ovUInt32> g_sizes{1, 2, 3, 4, 5, 63, 64, 65, 130};

Rows toRows(const RowSet& set, std::size_t nbRows)
{
    Rows rows;
    for (std::size_t row = set.next(0); row < nbRows; row = set.next(row + 1))
        rows.push_back(row);
    return rows;
}

/// Slack and column by row, as the measure of RowSlacks.
class PlainSlacks
{
public:
    using Slacks = std::map<ovUInt32, std::pair<double, ovUInt32>>;

    void lower(ovUInt32 row, double slack, ovUInt32 column)
    {
        const auto entry = slacks.find(row);
        if (entry == slacks.end() || slack < entry->second.first)
            slacks[row] = {slack, column};
    }

    double getLeast() const
    {
        double least = NumericLimits<double>::s_max;
        for (const auto& entry : slacks)
            least = std::min(least, entry.second.first);
        return least;
    }

    Rows subtract(double delta)
    {
        Rows zeroRows;
        for (auto& entry : slacks)
        {
            entry.second.first -= delta;
            if (entry.second.first == 0.0)
                zeroRows.push_back(entry.first);
        }
        return zeroRows;
    }

    Slacks slacks;
};

void expectSame(const RowSlacks& slacks, const PlainSlacks& plain)
{
    ASSERT_EQ(slacks.getLeast(), plain.getLeast());
    for (const auto& [row, slack] : plain.slacks)
    {
        ASSERT_EQ(slacks.getSlack(row), slack.first);
        ASSERT_EQ(slacks.getColumn(row), slack.second);
    }
}

} // namespace

TEST(RowSlacks, KnowNoLeastOneWithoutARow)
{
    EXPECT_EQ(RowSlacks(0).getLeast(), NumericLimits<double>::s_max);
    EXPECT_EQ(RowSlacks(3).getLeast(), NumericLimits<double>::s_max);
}

TEST(RowSlacks, KeepTheLesserOneOfARow)
{
    RowSlacks slacks(1);
    slacks.lower(0, 3.0, 7);
    slacks.lower(0, 4.0, 8);
    EXPECT_EQ(slacks.getSlack(0), 3.0);
    EXPECT_EQ(slacks.getColumn(0), 7u);
    slacks.lower(0, 2.0, 9);
    EXPECT_EQ(slacks.getSlack(0), 2.0);
    EXPECT_EQ(slacks.getColumn(0), 9u);
}

TEST(RowSlacks, KeepTheFirstColumnOfEqualOnes)
{
    RowSlacks slacks(1);
    slacks.lower(0, 3.0, 7);
    slacks.lower(0, 3.0, 2);
    EXPECT_EQ(slacks.getColumn(0), 7u);
}

TEST(RowSlacks, TakeARowThatWasRemovedAnew)
{
    RowSlacks slacks(2);
    slacks.lower(1, 3.0, 7);
    slacks.remove(1);
    EXPECT_EQ(slacks.getLeast(), NumericLimits<double>::s_max);
    slacks.lower(1, 5.0, 8);
    EXPECT_EQ(slacks.getSlack(1), 5.0);
    EXPECT_EQ(slacks.getColumn(1), 8u);
}

TEST(RowSlacks, FindTheLeastOneWhereverItIs)
{
    for (const ovUInt32 nbRows : g_sizes)
    {
        for (ovUInt32 least = 0; least < nbRows; ++least)
        {
            RowSlacks slacks(nbRows);
            for (ovUInt32 row = 0; row < nbRows; ++row)
                slacks.lower(row, row == least ? -1.5 : 2.0, 0);
            EXPECT_EQ(slacks.getLeast(), -1.5) << least << " of " << nbRows;
        }
    }
}

TEST(RowSlacks, ListEachRowWhoseSlackBecomesZero)
{
    for (const ovUInt32 nbRows : g_sizes)
    {
        RowSlacks slacks(nbRows);
        Rows expected;
        for (ovUInt32 row = 0; row < nbRows; ++row)
        {
            slacks.lower(row, row % 3 == 0 ? 2.5 : 3.0, 0);
            if (row % 3 == 0)
                expected.push_back(row);
        }
        RowSet zeroRows(nbRows);
        slacks.subtract(2.5, zeroRows);
        EXPECT_EQ(toRows(zeroRows, nbRows), expected);
    }
}

TEST(RowSlacks, KeepTheRowsThatTheSetOfZerosHoldsAlready)
{
    RowSlacks slacks(2);
    slacks.lower(1, 1.0, 0);
    RowSet zeroRows(2);
    zeroRows.insert(0);
    slacks.subtract(1.0, zeroRows);
    EXPECT_EQ(toRows(zeroRows, 2), Rows({0, 1}));
}

TEST(RowSlacks, AgreeWithAPlainMap)
{
    std::mt19937 generator(1);
    for (const ovUInt32 nbRows : g_sizes)
    {
        RowSlacks slacks(nbRows);
        PlainSlacks plain;
        for (int i = 0; i < 3000; ++i)
        {
            const ovUInt32 row = static_cast<ovUInt32>(generator() % nbRows);
            const double number = static_cast<double>(generator() % 16); // often equal
            const unsigned long choice = generator() % 100;
            if (choice < 70)
            {
                const ovUInt32 column = static_cast<ovUInt32>(generator() % 1000);
                slacks.lower(row, number, column);
                plain.lower(row, number, column);
            }
            else if (choice < 90)
            {
                if (plain.slacks.erase(row) == 1)
                    slacks.remove(row);
            }
            else if (choice < 99)
            {
                RowSet zeroRows(nbRows);
                slacks.subtract(number, zeroRows);
                ASSERT_EQ(toRows(zeroRows, nbRows), plain.subtract(number));
            }
            else
            {
                slacks.clear();
                plain.slacks.clear();
            }
            expectSame(slacks, plain);
        }
    }
}

} // namespace details
} // namespace math
} // namespace ovrix
