#include <OVRIXMath/Graph/Munkres.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <functional>
#include <limits>
#include <numeric>
#include <random>
#include <support/AllocationCount.h>
#include <support/ExpectFailure.h>
#include <support/HeaderExample.h>
#include <support/PlainMunkres.h>
#include <utility>

namespace ovrix
{
namespace math
{

namespace
{

using testing::ElementsAre;

using Assignments = std::vector<ovUInt32>;

const std::string g_notInitialized = "Algorithm has not been initialized";
const std::string g_notSolved = "Algorithm has not been resolved, can't access associated results";
const std::string g_nullSize = "Matrix size should not be null for munkres algorithm";

constexpr double g_infinity = std::numeric_limits<double>::infinity();
constexpr double g_nan = std::numeric_limits<double>::quiet_NaN();

/// A table of weights, row by row.
struct Table
{
    ovUInt32 nbRows;
    ovUInt32 nbColumns;
    std::vector<double> weights;
};

Table makeTable(ovUInt32 nbRows, ovUInt32 nbColumns, const std::function<double(ovUInt32, ovUInt32)>& weight)
{
    Table table{nbRows, nbColumns, {}};
    for (ovUInt32 r = 0; r < nbRows; ++r)
    {
        for (ovUInt32 c = 0; c < nbColumns; ++c)
            table.weights.push_back(weight(r, c));
    }
    return table;
}

void fill(Munkres& munkres, const Table& table)
{
    munkres.init(table.nbRows, table.nbColumns);
    for (ovUInt32 r = 0; r < table.nbRows; ++r)
        std::copy_n(table.weights.data() + std::size_t(r) * table.nbColumns, table.nbColumns, munkres.getWeights(r));
}

Munkres solved(const Table& table)
{
    Munkres munkres;
    fill(munkres, table);
    munkres.solve();
    return munkres;
}

Munkres solved(std::initializer_list<std::initializer_list<double>> rows)
{
    Table table{static_cast<ovUInt32>(rows.size()), static_cast<ovUInt32>(rows.begin()->size()), {}};
    for (const auto& row : rows)
        table.weights.insert(table.weights.end(), row.begin(), row.end());
    return solved(table);
}

/// The largest sum over all ways to give the rows columns of their own.
double bestSum(const Table& table, ovUInt32 row, std::vector<bool>& taken)
{
    if (row == table.nbRows)
        return 0.0;
    double best = -g_infinity;
    for (ovUInt32 c = 0; c < table.nbColumns; ++c)
    {
        if (taken[c])
            continue;
        taken[c] = true;
        best = std::max(best, table.weights[row * table.nbColumns + c] + bestSum(table, row + 1, taken));
        taken[c] = false;
    }
    return best;
}

double bestSum(const Table& table)
{
    std::vector<bool> taken(table.nbColumns, false);
    return bestSum(table, 0, taken);
}

void expectColumnsOfTheirOwn(const Table& table, Assignments assignments)
{
    ASSERT_EQ(assignments.size(), table.nbRows);
    std::sort(assignments.begin(), assignments.end());
    EXPECT_LT(assignments.back(), table.nbColumns);
    EXPECT_EQ(std::adjacent_find(assignments.begin(), assignments.end()), assignments.end());
}

/// Expects labels that bound all weights and meet the assignment's: the proof that no other has a larger sum.
void expectOptimalByDuality(const Table& table, Munkres& munkres, double tolerance)
{
    const test::PlainMunkres plain(table.weights, table.nbRows, table.nbColumns);
    double largestExcess = -g_infinity;
    for (ovUInt32 r = 0; r < table.nbRows; ++r)
    {
        for (ovUInt32 c = 0; c < table.nbColumns; ++c)
            largestExcess =
                std::max(largestExcess, munkres.getWeight(r, c) - (plain.rowLabel[r] + plain.columnLabel[c]));
    }
    EXPECT_LE(largestExcess, tolerance);

    // A column that stays without a row adds nothing to the sum, so its label may not be above any other's.
    const double leastColumnLabel = *std::min_element(plain.columnLabel.begin(), plain.columnLabel.end());
    std::vector<bool> taken(table.nbColumns, false);
    double bound = 0.0;
    for (ovUInt32 r = 0; r < table.nbRows; ++r)
    {
        taken[munkres.getAssignments()[r]] = true;
        bound += plain.rowLabel[r] + plain.columnLabel[munkres.getAssignments()[r]];
    }
    for (ovUInt32 c = 0; c < table.nbColumns; ++c)
    {
        if (!taken[c])
        {
            EXPECT_LE(plain.columnLabel[c], leastColumnLabel + tolerance);
        }
    }
    EXPECT_NEAR(munkres.getTotalWeigth(), bound, tolerance * table.nbRows);
}

/// Expects the assignment of the plain method, and gives it.
Assignments expectPlainAssignment(const Table& table)
{
    const Munkres munkres = solved(table);
    const test::PlainMunkres plain(table.weights, table.nbRows, table.nbColumns);
    EXPECT_EQ(munkres.getAssignments(), plain.assignments) << table.nbRows << " x " << table.nbColumns;
    return munkres.getAssignments();
}

/// Tables of one kind, with sizes up to a largest one drawn anew for each.
void expectPlainAssignments(unsigned int nbTables, ovUInt32 maxSize,
                            const std::function<double(std::mt19937&, ovUInt32, ovUInt32)>& weight)
{
    std::mt19937 generator(7);
    std::uniform_int_distribution<ovUInt32> size(1, maxSize);
    for (unsigned int idx = 0; idx < nbTables && !testing::Test::HasFailure(); ++idx)
    {
        ovUInt32 nbRows = size(generator);
        ovUInt32 nbColumns = idx % 3 == 0 ? nbRows : size(generator);
        if (nbRows > nbColumns)
            std::swap(nbRows, nbColumns);
        expectPlainAssignment(
            makeTable(nbRows, nbColumns, [&](ovUInt32 r, ovUInt32 c) { return weight(generator, r, c); }));
    }
}

std::vector<double> drawn(std::size_t count, const std::function<double()>& draw)
{
    std::vector<double> values(count);
    std::generate(values.begin(), values.end(), draw);
    return values;
}

/// A file of costs: n, then n x n numbers row by row.
Table readTable(const std::string& name, double sign)
{
    std::ifstream file(std::string(OVRIX_TEST_DATA_DIR) + "/assignment/" + name);
    ovUInt32 n = 0;
    file >> n;
    return makeTable(n, n,
                     [&](ovUInt32, ovUInt32)
                     {
                         double cost = g_nan;
                         file >> cost;
                         return sign * cost;
                     });
}

} // namespace

TEST(Munkres, IsNotInitializedAfterConstruction)
{
    Munkres munkres;
    test::expectMathRaises(g_notInitialized, [&] { munkres.getNbRows(); });
    test::expectMathRaises(g_notInitialized, [&] { munkres.getNbColumns(); });
    test::expectMathRaises(g_notInitialized, [&] { munkres.isSolved(); });
    test::expectMathRaises(g_notInitialized, [&] { munkres.solve(); });
    test::expectMathRaises(g_notInitialized, [&] { munkres.getAssignments(); });
    test::expectMathRaises(g_notInitialized, [&] { munkres.getTotalWeigth(); });
}

TEST(Munkres, InitSizesATableOfLargestValues)
{
    Munkres munkres;
    munkres.init(2, 3);
    EXPECT_EQ(munkres.getNbRows(), 2u);
    EXPECT_EQ(munkres.getNbColumns(), 3u);
    for (ovUInt32 r = 0; r < 2; ++r)
    {
        for (ovUInt32 c = 0; c < 3; ++c)
            EXPECT_EQ(munkres.getWeight(r, c), NumericLimits<double>::s_max);
    }
    EXPECT_FALSE(munkres.isSolved());
}

TEST(Munkres, MoreRowsThanColumnsRaise)
{
    Munkres munkres;
    test::expectMathRaises("Matrix should be column major for munkres processing while input number of rows is 3 and "
                           "number of columns is 2",
                           [&] { munkres.init(3, 2); });
}

TEST(Munkres, NoColumnRaisesBeforeTheOrientation)
{
    Munkres munkres;
    test::expectMathRaises(g_nullSize, [&] { munkres.init(2, 0); });
    test::expectMathRaises(g_nullSize, [&] { munkres.init(0, 0); });
}

TEST(Munkres, NoRowLeavesItUninitialized)
{
    Munkres munkres;
    munkres.init(0, 2);
    test::expectMathRaises(g_notInitialized, [&] { munkres.solve(); });
    test::expectMathRaises("Row index 0 is not valid given total number of matrix rows 0",
                           [&] { munkres.getWeights(0); });
}

TEST(Munkres, ARejectedInitEmptiesTheTableAndKeepsTheSizes)
{
    Munkres munkres = solved({{1.0, 2.0}});
    EXPECT_THROW(munkres.init(3, 2), OVRIXMathException);
    test::expectMathRaises(g_notInitialized, [&] { munkres.isSolved(); });
    test::expectMathRaises("Row index 1 is not valid given total number of matrix rows 1",
                           [&] { munkres.getWeights(1); });
    EXPECT_EQ(munkres.getWeights(0), nullptr);
    test::expectMathRaises(g_notInitialized, [&] { munkres.getWeight(0, 1); });
}

TEST(Munkres, ClearKeepsTheSizes)
{
    Munkres munkres = solved({{1.0, 2.0}});
    munkres.clear();
    test::expectMathRaises(g_notInitialized, [&] { munkres.getNbRows(); });
    EXPECT_EQ(static_cast<const Munkres&>(munkres).getWeights(0), nullptr);
    test::expectMathRaises("Column index 2 is not valid given total number of matrix columns 2",
                           [&] { munkres.getWeight(0, 2); });
}

TEST(Munkres, WeightsAreFilledRowByRow)
{
    Munkres munkres;
    munkres.init(2, 2);
    munkres.getWeights(1)[0] = 4.0;
    const Munkres& constMunkres = munkres;
    EXPECT_EQ(constMunkres.getWeight(1, 0), 4.0);
    EXPECT_EQ(constMunkres.getWeights(1), constMunkres.getWeights(0) + 2);
}

TEST(Munkres, BadIndicesRaiseTheRowFirst)
{
    Munkres munkres;
    munkres.init(2, 3);
    test::expectMathRaises("Row index 2 is not valid given total number of matrix rows 2",
                           [&] { munkres.getWeights(2); });
    test::expectMathRaises("Row index 2 is not valid given total number of matrix rows 2",
                           [&] { static_cast<const Munkres&>(munkres).getWeights(2); });
    test::expectMathRaises("Row index 5 is not valid given total number of matrix rows 2",
                           [&] { munkres.getWeight(5, 7); });
    test::expectMathRaises("Column index 3 is not valid given total number of matrix columns 3",
                           [&] { munkres.getWeight(1, 3); });
}

TEST(Munkres, ResultsBeforeSolveRaise)
{
    Munkres munkres;
    munkres.init(1, 1);
    test::expectMathRaises(g_notSolved, [&] { munkres.getAssignments(); });
    test::expectMathRaises(g_notSolved, [&] { munkres.getTotalWeigth(); });
}

TEST(Munkres, OneRowTakesTheLargestWeight)
{
    EXPECT_THAT(solved({{1.0, 7.0, 3.0}}).getAssignments(), ElementsAre(1));
}

TEST(Munkres, OneRowTakesTheFirstOfEqualWeights)
{
    EXPECT_THAT(solved({{1.0, 7.0, 3.0, 7.0}}).getAssignments(), ElementsAre(1));
}

TEST(Munkres, GivesUpALargeWeightForALargerSum)
{
    Munkres munkres = solved({{7.0, 6.0, 1.0}, {6.0, 1.0, 1.0}, {5.0, 5.0, 4.0}});
    EXPECT_THAT(munkres.getAssignments(), ElementsAre(1, 0, 2));
    EXPECT_EQ(munkres.getTotalWeigth(), 16.0);
}

TEST(Munkres, SpareColumnsGoToTheLeastWeights)
{
    Munkres munkres = solved({{1.0, 2.0, 9.0}, {1.0, 3.0, 8.0}});
    EXPECT_THAT(munkres.getAssignments(), ElementsAre(2, 1));
    EXPECT_EQ(munkres.getTotalWeigth(), 12.0);
}

TEST(Munkres, NegativeWeightsNeedNoShift)
{
    Munkres munkres = solved({{-1.0, -5.0}, {-2.0, -3.0}});
    EXPECT_THAT(munkres.getAssignments(), ElementsAre(0, 1));
    EXPECT_EQ(munkres.getTotalWeigth(), -4.0);
}

TEST(Munkres, AnUnfilledTableHasAnInfiniteSum)
{
    Munkres munkres;
    munkres.init(2, 2);
    munkres.solve();
    EXPECT_THAT(munkres.getAssignments(), ElementsAre(0, 1));
    EXPECT_EQ(munkres.getTotalWeigth(), g_infinity);
}

TEST(Munkres, EqualWeightsGiveTheDiagonal)
{
    const Munkres munkres = solved(makeTable(50, 60, [](ovUInt32, ovUInt32) { return 0.1; }));
    Assignments diagonal(50);
    std::iota(diagonal.begin(), diagonal.end(), 0u);
    EXPECT_EQ(munkres.getAssignments(), diagonal);
}

TEST(Munkres, WeightsWrittenAfterSolveLeaveTheResult)
{
    Munkres munkres = solved({{1.0, 2.0}});
    munkres.getWeights(0)[0] = 5.0;
    EXPECT_TRUE(munkres.isSolved());
    EXPECT_THAT(munkres.getAssignments(), ElementsAre(1));
}

TEST(Munkres, SolvesAnewFromTheWeights)
{
    Munkres munkres = solved({{1.0, 2.0}});
    munkres.getWeights(0)[0] = 5.0;
    munkres.solve();
    EXPECT_THAT(munkres.getAssignments(), ElementsAre(0));
    EXPECT_EQ(munkres.getTotalWeigth(), 5.0);
}

TEST(Munkres, TheSumRunsInTheOrderOfTheRows)
{
    // Each 1 gets lost behind 1e16; before it they would add up to 2, which does not.
    Munkres munkres = solved({{1e16, -1e17, -1e17}, {-1e17, 1.0, -1e17}, {-1e17, -1e17, 1.0}});
    EXPECT_THAT(munkres.getAssignments(), ElementsAre(0, 1, 2));
    EXPECT_EQ(munkres.getTotalWeigth(), 1e16);
}

TEST(Munkres, TheSumStartsFromZero)
{
    EXPECT_FALSE(std::signbit(solved({{-0.0}}).getTotalWeigth()));
}

TEST(Munkres, HasTheLargestSumOfAllAssignmentsOnSmallTables)
{
    std::mt19937 generator(1);
    std::uniform_int_distribution<int> integer(-9, 9);
    for (ovUInt32 nbRows = 1; nbRows <= 6; ++nbRows)
    {
        for (ovUInt32 nbColumns = nbRows; nbColumns <= 7; ++nbColumns)
        {
            for (int repeat = 0; repeat < 30; ++repeat)
            {
                const Table table =
                    makeTable(nbRows, nbColumns, [&](ovUInt32, ovUInt32) { return integer(generator); });
                Munkres munkres = solved(table);
                expectColumnsOfTheirOwn(table, munkres.getAssignments());
                EXPECT_EQ(munkres.getTotalWeigth(), bestSum(table)) << nbRows << " x " << nbColumns;
            }
        }
    }
}

TEST(Munkres, HasTheLargestSumOfAllAssignmentsOnSmallTablesOfReals)
{
    std::mt19937 generator(2);
    std::normal_distribution<double> real;
    for (ovUInt32 nbRows = 1; nbRows <= 6; ++nbRows)
    {
        for (ovUInt32 nbColumns = nbRows; nbColumns <= 7; ++nbColumns)
        {
            for (int repeat = 0; repeat < 30; ++repeat)
            {
                const Table table = makeTable(nbRows, nbColumns, [&](ovUInt32, ovUInt32) { return real(generator); });
                Munkres munkres = solved(table);
                expectColumnsOfTheirOwn(table, munkres.getAssignments());
                // The two sums run in different orders.
                EXPECT_NEAR(munkres.getTotalWeigth(), bestSum(table), 1e-13) << nbRows << " x " << nbColumns;
            }
        }
    }
}

TEST(Munkres, IsOptimalByDualityOnLargeTables)
{
    std::mt19937 generator(3);
    std::uniform_real_distribution<double> real(-1.0, 1.0);
    for (const auto& size : {std::make_pair(200u, 200u), std::make_pair(150u, 290u), std::make_pair(299u, 300u)})
    {
        const Table table = makeTable(size.first, size.second, [&](ovUInt32, ovUInt32) { return real(generator); });
        Munkres munkres = solved(table);
        expectColumnsOfTheirOwn(table, munkres.getAssignments());
        expectOptimalByDuality(table, munkres, 1e-13);
    }
}

TEST(Munkres, IsOptimalByDualityOnProductsOfIndices)
{
    const Table table = makeTable(180, 180, [](ovUInt32 r, ovUInt32 c) { return -double(r + 1) * (c + 1); });
    Munkres munkres = solved(table);
    expectOptimalByDuality(table, munkres, 0.0);
}

TEST(Munkres, KeepsTheStepsChoiceOnTablesOfManyTies)
{
    expectPlainAssignments(3000, 24, [](std::mt19937& generator, ovUInt32, ovUInt32) { return generator() % 3; });
}

TEST(Munkres, KeepsTheStepsChoiceOnSmallIntegersOfBothSigns)
{
    expectPlainAssignments(1500, 40,
                           [](std::mt19937& generator, ovUInt32, ovUInt32) { return int(generator() % 21) - 10; });
}

TEST(Munkres, KeepsTheStepsChoiceOnTiesThatAreNoBinaryFractions)
{
    // Labels then drift by rounding, so that ties open and edges stop being tight.
    expectPlainAssignments(3000, 32,
                           [](std::mt19937& generator, ovUInt32, ovUInt32) { return double(generator() % 7) * 0.1; });
}

TEST(Munkres, KeepsTheStepsChoiceOnReals)
{
    expectPlainAssignments(1500, 60,
                           [](std::mt19937& generator, ovUInt32, ovUInt32)
                           { return std::uniform_real_distribution<double>(-5.0, 5.0)(generator); });
}

TEST(Munkres, KeepsTheStepsChoiceOnHugeRanges)
{
    expectPlainAssignments(3000, 24,
                           [](std::mt19937& generator, ovUInt32, ovUInt32)
                           {
                               const double mantissa = std::uniform_real_distribution<double>(-1.0, 1.0)(generator);
                               return std::ldexp(mantissa, std::uniform_int_distribution<int>(-300, 300)(generator));
                           });
}

TEST(Munkres, KeepsTheStepsChoiceOnRoundNumbersOfFarApartMagnitudes)
{
    for (const auto& magnitudes : {std::make_pair(1000, -200), std::make_pair(996, -830), std::make_pair(133, -1000)})
    {
        expectPlainAssignments(1500, 5,
                               [&](std::mt19937& generator, ovUInt32, ovUInt32)
                               {
                                   const int number = static_cast<int>(generator() % 7) - 3;
                                   const bool bLarge = generator() % 2 == 0;
                                   return std::ldexp(double(bLarge ? number % 2 : number),
                                                     bLarge ? magnitudes.first : magnitudes.second);
                               });
    }
}

TEST(Munkres, TakesLittleMemoryForATableOfOneLongRow)
{
    constexpr ovUInt32 nbColumns = 200000;
    Munkres munkres;
    munkres.init(1, nbColumns);
    std::fill_n(munkres.getWeights(0), nbColumns, 1.0);
    munkres.getWeights(0)[777] = 2.0;
    test::resetLargestAllocation();
    munkres.solve();
    EXPECT_EQ(munkres.getAssignments(), std::vector<ovUInt32>{777});
    EXPECT_LE(test::getLargestAllocation(), nbColumns * sizeof(double) + 4096);
}

TEST(Munkres, AllocatesNoMoreOftenForLargeTablesThanForSmallOnes)
{
    const auto countAllocations = [](ovUInt32 size, unsigned int nbValues)
    {
        std::mt19937 generator(size);
        Munkres munkres;
        fill(munkres, makeTable(size, size, [&](ovUInt32, ovUInt32) { return 0.1 * (generator() % nbValues); }));
        const std::size_t nbBefore = test::getNbAllocations();
        munkres.solve();
        return test::getNbAllocations() - nbBefore;
    };
    for (const unsigned int nbValues : {2u, 100u, 1000000u})
    {
        EXPECT_EQ(countAllocations(200, nbValues), countAllocations(100, nbValues)) << nbValues;
        // Larger tables have lists of near rows.
        EXPECT_EQ(countAllocations(400, nbValues), countAllocations(300, nbValues)) << nbValues;
        EXPECT_LE(countAllocations(300, nbValues), countAllocations(100, nbValues) + 10) << nbValues;
    }
}

TEST(Munkres, IsNotSolvedAfterWantOfMemory)
{
    const std::size_t nbFailures = test::failEachAllocation(
        [] {
            return solved({{1.0, 2.0}, {3.0, 4.0}});
        },
        [](Munkres& munkres) { munkres.solve(); },
        [](Munkres& munkres)
        {
            EXPECT_FALSE(munkres.isSolved());
            munkres.solve();
            EXPECT_EQ(munkres.getTotalWeigth(), 5.0);
        });
    EXPECT_GT(nbFailures, 10u);
}

TEST(Munkres, KeepsTheStepsChoiceOnTinyWeights)
{
    expectPlainAssignments(1000, 24,
                           [](std::mt19937& generator, ovUInt32, ovUInt32)
                           { return std::ldexp(double(generator() % 1000), -1074); });
}

TEST(Munkres, KeepsTheStepsChoiceOnDistancesBetweenPoints)
{
    // Points of a coarse grid: many equal distances, most of them irrational.
    expectPlainAssignments(1000, 40,
                           [](std::mt19937& generator, ovUInt32 r, ovUInt32 c)
                           {
                               const double noise = generator() % 50 == 0 ? 0.25 : 0.0;
                               return -std::hypot(double(r % 5) - double(c % 7), double(r / 5) - double(c / 7) + noise);
                           });
}

TEST(Munkres, KeepsTheStepsChoiceOnProductsOfIndices)
{
    expectPlainAssignments(60, 90, [](std::mt19937&, ovUInt32 r, ovUInt32 c) { return -double(r) * c; });
    expectPlainAssignments(60, 90, [](std::mt19937&, ovUInt32 r, ovUInt32 c) { return -0.1 * r * c; });
    expectPlainAssignments(60, 90, [](std::mt19937&, ovUInt32 r, ovUInt32 c) { return double(r) * c; });
}

TEST(Munkres, KeepsTheStepsChoiceOnSumsOfARowsAndAColumnsPart)
{
    // All assignments of a square table are equally good, but for the rounding of each sum.
    std::mt19937 parts(13);
    const std::vector<double> rowPart = drawn(120, [&] { return std::normal_distribution<double>()(parts); });
    const std::vector<double> columnPart = drawn(120, [&] { return std::normal_distribution<double>()(parts); });
    expectPlainAssignments(100, 120, [&](std::mt19937&, ovUInt32 r, ovUInt32 c) { return rowPart[r] + columnPart[c]; });
    expectPlainAssignments(100, 120,
                           [&](std::mt19937& generator, ovUInt32 r, ovUInt32 c)
                           { return rowPart[r] + columnPart[c] + 1e-15 * (generator() % 3); });
}

TEST(Munkres, KeepsTheStepsChoiceOnProductsOfARowsAndAColumnsPart)
{
    std::mt19937 parts(14);
    const std::vector<double> rowPart = drawn(120, [&] { return std::normal_distribution<double>()(parts); });
    const std::vector<double> columnPart = drawn(120, [&] { return std::normal_distribution<double>()(parts); });
    expectPlainAssignments(100, 120, [&](std::mt19937&, ovUInt32 r, ovUInt32 c) { return rowPart[r] * columnPart[c]; });
}

TEST(Munkres, KeepsTheStepsChoiceOnNeighbouringNumbers)
{
    expectPlainAssignments(400, 60,
                           [](std::mt19937& generator, ovUInt32, ovUInt32)
                           { return 1.0 + std::ldexp(double(generator() % 4), -52); });
}

TEST(Munkres, KeepsTheStepsChoiceOnSmallDifferencesOfLargeNumbers)
{
    for (const double offset : {1e6, -1e12, 3e15, -7e16})
    {
        expectPlainAssignments(
            100, 60, [&](std::mt19937& generator, ovUInt32, ovUInt32) { return offset + 0.1 * (generator() % 60); });
    }
}

TEST(Munkres, KeepsTheStepsChoiceOnLikelihoods)
{
    expectPlainAssignments(200, 90,
                           [](std::mt19937& generator, ovUInt32, ovUInt32)
                           { return std::exp(std::uniform_real_distribution<double>(-30.0, 3.0)(generator)); });
}

TEST(Munkres, KeepsTheStepsChoiceOnWideTablesOfManyTies)
{
    // Rows have more equal weights than the search keeps lists of.
    for (const unsigned int nbValues : {1u, 2u, 3u, 10u, 50u})
    {
        expectPlainAssignments(40, 160,
                               [=](std::mt19937& generator, ovUInt32, ovUInt32) { return generator() % nbValues; });
        expectPlainAssignments(40, 160,
                               [=](std::mt19937& generator, ovUInt32, ovUInt32)
                               { return -0.7 * double(generator() % nbValues); });
    }
}

TEST(Munkres, KeepsTheStepsChoiceOnTheLargestFiniteDifferences)
{
    expectPlainAssignments(300, 30,
                           [](std::mt19937& generator, ovUInt32, ovUInt32)
                           {
                               const double limit = NumericLimits<double>::s_max / 16.0;
                               return std::uniform_real_distribution<double>(-limit, limit)(generator);
                           });
}

TEST(Munkres, KeepsTheStepsChoiceOnLargerTables)
{
    std::mt19937 generator(11);
    std::uniform_real_distribution<double> real;
    expectPlainAssignment(makeTable(400, 400, [&](ovUInt32, ovUInt32) { return real(generator); }));
    expectPlainAssignment(makeTable(300, 400, [&](ovUInt32, ovUInt32) { return real(generator); }));
    expectPlainAssignment(makeTable(400, 400, [&](ovUInt32, ovUInt32) { return generator() % 100; }));
    expectPlainAssignment(makeTable(400, 400, [&](ovUInt32, ovUInt32) { return double(generator() % 256) / 255.0; }));
    expectPlainAssignment(makeTable(300, 300, [&](ovUInt32, ovUInt32) { return generator() % 2 == 0 ? 0.1 : 0.3; }));
}

TEST(Munkres, KeepsTheStepsChoiceOnTablesThatAreLargeEnoughForListsOfNearRows)
{
    std::mt19937 generator(15);
    std::normal_distribution<double> normal;
    const std::vector<double> rowPart = drawn(280, [&] { return normal(generator); });
    const std::vector<double> columnPart = drawn(280, [&] { return normal(generator); });
    const std::vector<std::function<double(ovUInt32, ovUInt32)>> kinds = {
        [&](ovUInt32, ovUInt32)
        { return std::ldexp(normal(generator), std::uniform_int_distribution<int>(-300, 300)(generator)); },
        [&](ovUInt32, ovUInt32) { return 1.0 + std::ldexp(double(generator() % 4), -52); },
        [&](ovUInt32, ovUInt32) { return 3e15 + 0.1 * (generator() % 60); },
        [&](ovUInt32, ovUInt32) { return std::exp(10.0 * normal(generator)); },
        [&](ovUInt32 r, ovUInt32 c) { return rowPart[r] + columnPart[c] + 1e-15 * (generator() % 3); },
        [&](ovUInt32 r, ovUInt32 c) { return rowPart[r] * columnPart[c]; },
        [&](ovUInt32 r, ovUInt32 c) { return -0.1 * r * c; }};
    for (const auto& weight : kinds)
    {
        expectPlainAssignment(makeTable(256, 256, weight));
        expectPlainAssignment(makeTable(257, 280, weight));
    }
}

TEST(Munkres, GivesEachRowAColumnOfItsOwnWhateverTheWeights)
{
    // On such tables the steps alone would not end, or give a column twice.
    const std::vector<double> odd = {
        g_nan,  g_infinity, -g_infinity, NumericLimits<double>::s_max, NumericLimits<double>::s_min, 1e308,
        -1e308, 4e307,      -0.0};
    std::mt19937 generator(5);
    for (int repeat = 0; repeat < 20000 && !HasFailure(); ++repeat)
    {
        const ovUInt32 nbRows = 1 + generator() % 12;
        const ovUInt32 nbColumns = nbRows + generator() % 3;
        const unsigned int share = 1 + generator() % 8;
        const Table table =
            makeTable(nbRows, nbColumns,
                      [&](ovUInt32, ovUInt32)
                      { return generator() % 8 < share ? odd[generator() % odd.size()] : generator() % 5; });
        expectColumnsOfTheirOwn(table, expectPlainAssignment(table));
    }
}

TEST(Munkres, AForbiddenPairOfMinusInfinityIsAvoidedWherePossible)
{
    EXPECT_THAT(solved({{-g_infinity, 1.0}, {2.0, 9.0}}).getAssignments(), ElementsAre(1, 0));
}

TEST(Munkres, FindsTheLargestTotalsOfKnownTables)
{
    EXPECT_EQ(solved(readTable("assign100.txt", 1.0)).getTotalWeigth(), 9900.0);
    EXPECT_EQ(solved(readTable("assign500.txt", 1.0)).getTotalWeigth(), 49989.0);
}

TEST(Munkres, FindsTheSmallestTotalsOfKnownTables)
{
    EXPECT_EQ(solved(readTable("assign100.txt", -1.0)).getTotalWeigth(), -305.0);
    EXPECT_EQ(solved(readTable("assign500.txt", -1.0)).getTotalWeigth(), -991.0);
}

TEST(Munkres, KeepsTheStepsChoiceOnKnownTables)
{
    expectPlainAssignment(readTable("assign100.txt", 1.0));
    expectPlainAssignment(readTable("assign100.txt", -1.0));
    expectPlainAssignment(readTable("assign500.txt", -1.0));
}

TEST(Munkres, TheHeadersExampleCompiles)
{
    const std::vector<std::vector<double>> weights = {{1.0, 5.0, 3.0}, {2.0, 9.0, 1.0}};
    Munkres munkres;
    munkres.init(2, 3);
    for (ovUInt32 row = 0; row < 2; ++row)
        std::copy(weights[row].begin(), weights[row].end(), munkres.getWeights(row));
    munkres.solve();
    const std::vector<ovUInt32>& columnOfEachRow = munkres.getAssignments();
    EXPECT_THAT(columnOfEachRow, ElementsAre(2, 1));
    EXPECT_THAT(test::readCode(__FILE__), testing::HasSubstr(test::readExample("OVRIXMath/Graph/Munkres.h")));
}

TEST(Munkres, TheGuidesExampleCompiles)
{
    const ovUInt32 nbRows = 2;
    const ovUInt32 nbColumns = 3;
    const auto cost = [](ovUInt32 row, ovUInt32 column) { return column == row + 1 ? 1.0 : 2.0; };
    Munkres munkres;
    munkres.init(nbRows, nbColumns); // nbRows <= nbColumns
    for (ovUInt32 row = 0; row < nbRows; ++row)
    {
        double* const weights = munkres.getWeights(row);
        for (ovUInt32 column = 0; column < nbColumns; ++column)
            weights[column] = -cost(row, column);
    }
    munkres.solve();
    const std::vector<ovUInt32>& columnOfEachRow = munkres.getAssignments();
    EXPECT_THAT(columnOfEachRow, ElementsAre(1, 2));
    for (const std::string& example : test::readGuideExamples("docs/guides/assignment.md"))
        EXPECT_THAT(test::readCode(__FILE__), testing::HasSubstr(example));
}

} // namespace math
} // namespace ovrix
