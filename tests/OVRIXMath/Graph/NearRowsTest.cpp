#include <OVRIXMath/Graph/NearRows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <limits>
#include <random>
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
using Rows = std::vector<ovUInt32>;

constexpr double g_infinity = std::numeric_limits<double>::infinity();

/// A table by columns, and labels, all of them whole numbers.
struct Task
{
    Task(ovUInt32 nbRows_, ovUInt32 nbColumns_)
        : nbRows(nbRows_), nbColumns(nbColumns_), weights(std::size_t(nbRows) * nbColumns), rowLabels(nbRows),
          columnLabels(nbColumns)
    {
    }

    NearRows makeNearRows() const
    {
        return NearRows(weights.data(), nbRows, nbColumns);
    }

    double getWeight(ovUInt32 row, ovUInt32 column) const
    {
        return weights[std::size_t(column) * nbRows + row];
    }

    double getSlack(ovUInt32 row, ovUInt32 column) const
    {
        return (rowLabels[row] + columnLabels[column]) - getWeight(row, column);
    }

    bool prepare(NearRows& nearRows, ovUInt32 column, double limit) const
    {
        return nearRows.prepare(column, rowLabels, columnLabels[column], limit);
    }

    /// Expects a list that has been prepared to lead to all rows with slacks below the limit, each at most once, with
    /// their weights.
    void expectAllBelow(const NearRows& nearRows, ovUInt32 column, double limit) const
    {
        std::vector<int> nbVisits(nbRows, 0);
        nearRows.forEach(column, columnLabels[column], limit,
                         [&](const NearRows::Entry& entry)
                         {
                             ASSERT_LT(entry.row, nbRows);
                             ++nbVisits[entry.row];
                             EXPECT_EQ(entry.weight, getWeight(entry.row, column));
                         });
        for (ovUInt32 row = 0; row < nbRows; ++row)
        {
            EXPECT_LE(nbVisits[row], 1);
            if (getSlack(row, column) < limit)
            {
                EXPECT_EQ(nbVisits[row], 1) << "row " << row << " of " << nbRows;
            }
        }
    }

    ovUInt32 nbRows;
    ovUInt32 nbColumns;
    Reals weights;
    Reals rowLabels;
    Reals columnLabels;
};

/// A single column whose slack in row r is r.
Task makeStairs(ovUInt32 nbRows)
{
    Task task(nbRows, 1);
    for (ovUInt32 row = 0; row < nbRows; ++row)
        task.weights[row] = -static_cast<double>(row);
    return task;
}

} // namespace

TEST(NearRows, AreTheOnlyRow)
{
    Task task(1, 1);
    task.weights = {3.0};
    task.columnLabels = {5.0};
    NearRows nearRows = task.makeNearRows();
    ASSERT_TRUE(task.prepare(nearRows, 0, g_infinity));
    int nbVisits = 0;
    nearRows.forEach(0, 5.0, g_infinity,
                     [&](const NearRows::Entry& entry)
                     {
                         ++nbVisits;
                         EXPECT_EQ(entry.row, 0u);
                         EXPECT_EQ(entry.weight, 3.0);
                         EXPECT_EQ(entry.slack, 2.0);
                     });
    EXPECT_EQ(nbVisits, 1);
}

TEST(NearRows, AreNoneBelowTheLeastSlack)
{
    const Task task = makeStairs(65);
    NearRows nearRows = task.makeNearRows();
    ASSERT_TRUE(task.prepare(nearRows, 0, 0.0));
    nearRows.forEach(0, 0.0, 0.0, [](const NearRows::Entry&) { ADD_FAILURE(); });
}

TEST(NearRows, AreAllRowsOfAShortColumn)
{
    for (const ovUInt32 nbRows : {1u, 2u, 15u, 16u, 17u, 31u, 32u})
    {
        const Task task = makeStairs(nbRows);
        NearRows nearRows = task.makeNearRows();
        ASSERT_TRUE(task.prepare(nearRows, 0, g_infinity));
        task.expectAllBelow(nearRows, 0, g_infinity);
    }
}

TEST(NearRows, AreVisitedInTheOrderOfTheirSlacks)
{
    Task task = makeStairs(20);
    std::reverse(task.weights.begin(), task.weights.end());
    task.weights[7] = task.weights[3];
    NearRows nearRows = task.makeNearRows();
    ASSERT_TRUE(task.prepare(nearRows, 0, 18.0));
    Rows visited;
    nearRows.forEach(0, 0.0, 18.0, [&](const NearRows::Entry& entry) { visited.push_back(entry.row); });
    EXPECT_EQ(visited, Rows({19, 18, 17, 16, 15, 14, 13, 12, 11, 10, 9, 8, 6, 5, 4, 3, 7, 2}));
}

TEST(NearRows, AreNotTheManyRowsOfALargeLimit)
{
    for (const ovUInt32 nbRows : {63u, 64u, 65u, 400u})
    {
        const Task task = makeStairs(nbRows);
        NearRows nearRows = task.makeNearRows();
        EXPECT_FALSE(task.prepare(nearRows, 0, static_cast<double>(nbRows))) << nbRows;
    }
}

TEST(NearRows, AreTheSameUntilTheLabelHasFallenTooFar)
{
    Task task = makeStairs(400);
    NearRows nearRows = task.makeNearRows();
    ASSERT_TRUE(task.prepare(nearRows, 0, 10.0));
    // Other rows are near now, which only a new list could know.
    std::reverse(task.weights.begin(), task.weights.end());
    task.columnLabels[0] = -1.0;
    EXPECT_TRUE(task.prepare(nearRows, 0, 9.0));
    nearRows.forEach(0, -1.0, 9.0, [](const NearRows::Entry& entry) { EXPECT_LT(entry.row, 10u); });
    task.rowLabels.assign(400, 100.0);
    task.columnLabels[0] = -100.0;
    EXPECT_TRUE(task.prepare(nearRows, 0, 10.0));
    nearRows.forEach(0, -100.0, 10.0, [](const NearRows::Entry& entry) { EXPECT_GE(entry.row, 390u); });
}

TEST(NearRows, AreLookedForEverMoreRarelyWhereThatWasInVain)
{
    Rows triedAt;
    for (ovUInt32 nbVainCalls = 0; nbVainCalls < 40; ++nbVainCalls)
    {
        Task task = makeStairs(400);
        NearRows nearRows = task.makeNearRows();
        for (ovUInt32 i = 0; i < nbVainCalls; ++i)
            EXPECT_FALSE(task.prepare(nearRows, 0, g_infinity));
        // A new list would do now, and none of the old ones.
        task.rowLabels.assign(400, 1000.0);
        task.columnLabels[0] = -1000.0;
        if (task.prepare(nearRows, 0, 10.0))
            triedAt.push_back(nbVainCalls + 1);
    }
    EXPECT_EQ(triedAt, Rows({1, 3, 7, 15, 31}));
}

TEST(NearRows, AreLookedForAtOnceAgainAfterASuccess)
{
    Task task = makeStairs(400);
    NearRows nearRows = task.makeNearRows();
    EXPECT_FALSE(task.prepare(nearRows, 0, g_infinity));
    EXPECT_FALSE(task.prepare(nearRows, 0, g_infinity));
    for (int i = 1; i < 5; ++i)
    {
        task.rowLabels.assign(400, 1000.0 * i);
        task.columnLabels[0] = -1000.0 * i;
        EXPECT_TRUE(task.prepare(nearRows, 0, 10.0));
        task.expectAllBelow(nearRows, 0, 10.0);
    }
}

TEST(NearRows, AreAmongOthersAllWhoseSlackIsBelowTheLimit)
{
    std::mt19937 generator(1);
    for (const ovUInt32 nbRows : {1u, 2u, 16u, 17u, 32u, 33u, 63u, 64u, 65u, 300u})
    {
        const ovUInt32 nbColumns = nbRows + 3;
        Task task(nbRows, nbColumns);
        for (double& weight : task.weights)
            weight = static_cast<double>(generator() % (2 * nbRows)); // some are equal
        NearRows nearRows = task.makeNearRows();
        std::size_t nbPrepared = 0;
        for (int step = 0; step < 400; ++step)
        {
            // Only as many columns as rows may have lists: the last ones here.
            const ovUInt32 column = nbColumns - 1 - static_cast<ovUInt32>(generator() % nbRows);
            for (double& label : task.rowLabels)
                label += static_cast<double>(generator() % 3);
            task.columnLabels[column] -= static_cast<double>(generator() % 4);
            double least = g_infinity;
            for (ovUInt32 row = 0; row < nbRows; ++row)
                least = std::min(least, task.getSlack(row, column));
            const double limit = least + static_cast<double>(generator() % 20);
            if (!task.prepare(nearRows, column, limit))
                continue;
            ++nbPrepared;
            task.expectAllBelow(nearRows, column, limit);
        }
        EXPECT_GT(nbPrepared, 100u) << nbRows;
    }
}

} // namespace details
} // namespace math
} // namespace ovrix
