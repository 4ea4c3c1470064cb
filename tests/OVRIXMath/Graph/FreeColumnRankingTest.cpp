#include <OVRIXMath/Graph/FreeColumnRanking.h>

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
using Columns = std::vector<ovUInt32>;

constexpr double g_infinity = std::numeric_limits<double>::infinity();

/// Around the lengths of short lists and the sizes that fill whole words.
const Columns g_sizes{1, 2, 3, 15, 16, 17, 63, 64, 65, 300};

/// A row-major table with the labels of its columns, infinite for those that are not free.
struct Task
{
    Task(ovUInt32 nbRows_, ovUInt32 nbColumns_)
        : nbRows(nbRows_), nbColumns(nbColumns_), weights(std::size_t(nbRows) * nbColumns), labels(nbColumns)
    {
    }

    FreeColumnRanking rank(bool bExact) const
    {
        FreeColumnRanking ranking(weights.data(), nbRows, nbColumns, bExact);
        ranking.rankAll(labels);
        return ranking;
    }

    void remove(FreeColumnRanking& ranking, ovUInt32 column)
    {
        labels[column] = g_infinity;
        ranking.remove(column, labels);
    }

    double getWeight(ovUInt32 row, ovUInt32 column) const
    {
        return weights[std::size_t(row) * nbColumns + column];
    }

    double getKey(ovUInt32 row, ovUInt32 column) const
    {
        return labels[column] - getWeight(row, column);
    }

    /// The first one of the least key, by a look at all columns.
    ovUInt32 findBest(ovUInt32 row) const
    {
        ovUInt32 best = 0;
        for (ovUInt32 column = 1; column < nbColumns; ++column)
            best = getKey(row, column) < getKey(row, best) ? column : best;
        return best;
    }

    /// How far the best key is below the second one; infinite for a single free column.
    double computeLead(ovUInt32 row) const
    {
        const ovUInt32 best = findBest(row);
        double second = g_infinity;
        for (ovUInt32 column = 0; column < nbColumns; ++column)
            second = column == best ? second : std::min(second, getKey(row, column));
        return second - getKey(row, best);
    }

    ovUInt32 nbRows;
    ovUInt32 nbColumns;
    Reals weights;
    Reals labels;
};

/// Whole numbers from 0 on.
Task drawTask(ovUInt32 nbRows, ovUInt32 nbColumns, unsigned long nbValues, std::mt19937& generator)
{
    Task task(nbRows, nbColumns);
    for (double& weight : task.weights)
        weight = static_cast<double>(generator() % nbValues);
    for (double& label : task.labels)
        label = static_cast<double>(generator() % nbValues);
    return task;
}

Columns shuffleColumns(ovUInt32 nbColumns, std::mt19937& generator)
{
    Columns columns(nbColumns);
    for (ovUInt32 column = 0; column < nbColumns; ++column)
        columns[column] = column;
    std::shuffle(columns.begin(), columns.end(), generator);
    return columns;
}

void expectBest(const FreeColumnRanking& ranking, const Task& task, ovUInt32 row)
{
    EXPECT_EQ(ranking.getBestColumn(row), task.findBest(row)) << "row " << row;
    EXPECT_EQ(ranking.getBestWeight(row), task.getWeight(row, ranking.getBestColumn(row))) << "row " << row;
}

/// Expects what is told about a row to hold. Keys that are no further apart than `tolerance` count as equal.
void expectSound(const FreeColumnRanking& ranking, const Task& task, ovUInt32 row, double tolerance)
{
    if (ranking.isLeadSure(row, tolerance))
    {
        expectBest(ranking, task, row);
        EXPECT_GT(task.computeLead(row), 0.0);
    }
    std::vector<int> nbVisits(task.nbColumns, 0);
    const bool bAll = ranking.forEachContender(row, tolerance, [&](ovUInt32 column) { ++nbVisits[column]; });
    const double least = task.getKey(row, task.findBest(row));
    for (ovUInt32 column = 0; column < task.nbColumns; ++column)
    {
        const bool bFree = task.labels[column] < g_infinity;
        EXPECT_LE(nbVisits[column], bFree ? 1 : 0) << "row " << row << ", column " << column;
        if (bAll && task.getKey(row, column) == least)
        {
            EXPECT_EQ(nbVisits[column], 1) << "row " << row << ", column " << column;
        }
    }
}

} // namespace

TEST(FreeColumnRanking, NeedsNoRow)
{
    Task task(0, 3);
    FreeColumnRanking ranking = task.rank(true);
    task.remove(ranking, 1);
}

TEST(FreeColumnRanking, HasTheOnlyColumnAheadOfAllOthers)
{
    Task task(2, 1);
    task.weights = {3.0, 4.0};
    for (const bool bExact : {false, true})
    {
        const FreeColumnRanking ranking = task.rank(bExact);
        for (ovUInt32 row = 0; row < 2; ++row)
        {
            expectBest(ranking, task, row);
            EXPECT_TRUE(ranking.isLeadSure(row, 1e300));
        }
    }
}

TEST(FreeColumnRanking, HasTheFirstOfEqualColumnsAhead)
{
    for (const ovUInt32 nbColumns : g_sizes)
    {
        Task task(1, nbColumns);
        FreeColumnRanking ranking = task.rank(true);
        for (ovUInt32 column = 0; column + 1 < nbColumns; ++column)
        {
            EXPECT_EQ(ranking.getBestColumn(0), column);
            task.remove(ranking, column);
        }
        EXPECT_EQ(ranking.getBestColumn(0), nbColumns - 1);
    }
}

TEST(FreeColumnRanking, IsSureOfALeadAboveTheToleranceOnly)
{
    Task task(2, 3);
    task.weights = {1.0, 5.0, 3.0, 4.0, 4.0, 2.0};
    const FreeColumnRanking ranking = task.rank(false);
    EXPECT_EQ(ranking.getBestColumn(0), 1u);
    EXPECT_TRUE(ranking.isLeadSure(0, 1.5));
    EXPECT_FALSE(ranking.isLeadSure(0, 2.0));
    EXPECT_FALSE(ranking.isLeadSure(1, 0.0));
}

TEST(FreeColumnRanking, IsAlwaysSureWithoutRounding)
{
    Task task(1, 3);
    const FreeColumnRanking ranking = task.rank(true);
    EXPECT_TRUE(ranking.isLeadSure(0, 0.0));
    EXPECT_TRUE(ranking.isLeadSure(0, g_infinity));
}

TEST(FreeColumnRanking, VisitsTheContendersWithinTheMargin)
{
    Task task(1, 5);
    task.weights = {1.0, 5.0, 3.0, 4.0, 4.0};
    FreeColumnRanking ranking = task.rank(false);
    const auto findContenders = [&](double margin)
    {
        Columns contenders;
        EXPECT_TRUE(ranking.forEachContender(0, margin, [&](ovUInt32 column) { contenders.push_back(column); }));
        return contenders;
    };
    EXPECT_EQ(findContenders(0.5), Columns({1}));
    EXPECT_EQ(findContenders(1.0), Columns({1, 3, 4}));
    EXPECT_EQ(findContenders(2.5), Columns({1, 3, 4, 2}));
    task.remove(ranking, 3);
    EXPECT_EQ(findContenders(2.5), Columns({1, 4, 2}));
    EXPECT_EQ(findContenders(g_infinity), Columns({1, 4, 2, 0}));
}

TEST(FreeColumnRanking, CannotTellTheContendersOutsideOfItsLists)
{
    Task task(1, 300);
    const FreeColumnRanking ranking = task.rank(false);
    EXPECT_FALSE(ranking.forEachContender(0, 0.0, [](ovUInt32) {}));
    EXPECT_FALSE(ranking.isLeadSure(0, 0.0));
}

TEST(FreeColumnRanking, FindsTheBestColumnsWithoutRoundingUntilNoneIsLeft)
{
    std::mt19937 generator(1);
    for (const ovUInt32 nbColumns : g_sizes)
    {
        for (const unsigned long nbValues : {4ul, 1000ul}) // many are equal, or few
        {
            SCOPED_TRACE(testing::Message() << nbColumns << " columns, " << nbValues << " values");
            const ovUInt32 nbRows = std::min(nbColumns, 20u);
            Task task = drawTask(nbRows, nbColumns, nbValues, generator);
            FreeColumnRanking ranking = task.rank(true);
            const Columns columns = shuffleColumns(nbColumns, generator);
            for (const ovUInt32 column : columns)
            {
                for (ovUInt32 row = 0; row < nbRows; ++row)
                    expectBest(ranking, task, row);
                for (double& label : task.labels)
                    label -= 3.0;
                task.remove(ranking, column);
            }
        }
    }
}

TEST(FreeColumnRanking, IsRightWhereItIsSureWhateverRoundingDoes)
{
    std::mt19937 generator(2);
    std::uniform_real_distribution<double> number(0.0, 1.0);
    for (const ovUInt32 nbColumns : g_sizes)
    {
        SCOPED_TRACE(testing::Message() << nbColumns << " columns");
        const ovUInt32 nbRows = std::min(nbColumns, 20u);
        Task task = drawTask(nbRows, nbColumns, 4, generator);
        // Sums that are equal in real numbers, and not in floating-point ones.
        for (ovUInt32 column = 0; column < nbColumns; ++column)
        {
            const double offset = number(generator);
            task.labels[column] += offset;
            for (ovUInt32 row = 0; row < nbRows; ++row)
                task.weights[std::size_t(row) * nbColumns + column] += offset;
        }
        FreeColumnRanking ranking = task.rank(false);
        for (const ovUInt32 column : shuffleColumns(nbColumns, generator))
        {
            // At most 300 changes have rounded labels of at most 155, by 1.5e-14 each.
            for (ovUInt32 row = 0; row < nbRows; ++row)
                expectSound(ranking, task, row, 1e-11);
            const double fall = 0.5 * number(generator);
            for (double& label : task.labels)
                label -= fall;
            task.remove(ranking, column);
        }
    }
}

TEST(FreeColumnRanking, IsRankedAnewWithOtherLabels)
{
    std::mt19937 generator(3);
    for (const ovUInt32 nbColumns : g_sizes)
    {
        Task task = drawTask(5, nbColumns, 50, generator);
        FreeColumnRanking ranking = task.rank(true);
        for (double& label : task.labels)
            label = static_cast<double>(generator() % 50);
        ranking.rankAll(task.labels);
        for (ovUInt32 row = 0; row < 5; ++row)
            expectBest(ranking, task, row);
    }
}

} // namespace details
} // namespace math
} // namespace ovrix
