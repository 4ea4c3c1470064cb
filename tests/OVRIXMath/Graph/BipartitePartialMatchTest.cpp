#include <OVRIXMath/Graph/BipartitePartialMatch.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <iostream>
#include <limits>
#include <random>
#include <support/AllocationCount.h>
#include <support/ExpectFailure.h>
#include <support/HeaderExample.h>
#include <support/PlainMatch.h>

namespace ovrix
{
namespace math
{

namespace
{

using testing::Each;
using testing::ElementsAre;

const ovUInt32 U = BipartitePartialMatch::getUnAssignedValue();

const std::string g_notInitialized = "Algorithm has not been initialized";
const std::string g_notSolved = "Algorithm has not been resolved, can't access associated results";

using Rows = test::WeightRows;
using test::PlainMatch;
using test::transposed;

BipartitePartialMatch filled(const Rows& rows, double threshold)
{
    BipartitePartialMatch match;
    match.init(static_cast<ovUInt32>(rows.size()), static_cast<ovUInt32>(rows.front().size()), threshold);
    for (ovUInt32 r = 0; r < rows.size(); ++r)
        std::copy(rows[r].begin(), rows[r].end(), match.getWeights(r));
    return match;
}

BipartitePartialMatch solved(const Rows& rows, double threshold)
{
    BipartitePartialMatch match = filled(rows, threshold);
    match.solve();
    return match;
}

} // namespace

TEST(BipartitePartialMatch, TheUnassignedValueIsTheLargestIndex)
{
    EXPECT_EQ(U, NumericLimits<ovUInt32>::s_max);
}

TEST(BipartitePartialMatch, IsNotInitializedAfterConstruction)
{
    BipartitePartialMatch match;
    test::expectMathRaises(g_notInitialized, [&] { match.getNbRows(); });
    test::expectMathRaises(g_notInitialized, [&] { match.getNbColumns(); });
    test::expectMathRaises(g_notInitialized, [&] { match.getThreshold(); });
    test::expectMathRaises(g_notInitialized, [&] { match.isSolved(); });
    test::expectMathRaises(g_notInitialized, [&] { match.solve(); });
    test::expectMathRaises(g_notInitialized, [&] { match.getRowAssignments(); });
    test::expectMathRaises(g_notInitialized, [&] { match.getColumnAssignments(); });
}

TEST(BipartitePartialMatch, InitSizesATableOfLargestValues)
{
    BipartitePartialMatch match;
    match.init(3, 2, -1.5);
    EXPECT_EQ(match.getNbRows(), 3u);
    EXPECT_EQ(match.getNbColumns(), 2u);
    EXPECT_EQ(match.getThreshold(), -1.5);
    EXPECT_EQ(match.getWeight(2, 1), NumericLimits<double>::s_max);
    EXPECT_FALSE(match.isSolved());
}

TEST(BipartitePartialMatch, ATableWithoutElementsIsNotInitialized)
{
    BipartitePartialMatch match;
    for (const auto& size : {std::make_pair(0u, 0u), std::make_pair(2u, 0u), std::make_pair(0u, 2u)})
    {
        match.init(size.first, size.second, 0.5);
        test::expectMathRaises(g_notInitialized, [&] { match.solve(); });
    }
}

TEST(BipartitePartialMatch, ResultsBeforeSolveRaise)
{
    BipartitePartialMatch match = filled({{1.0}}, 0.0);
    test::expectMathRaises(g_notSolved, [&] { match.getRowAssignments(); });
    test::expectMathRaises(g_notSolved, [&] { match.getColumnAssignments(); });
}

TEST(BipartitePartialMatch, BadIndicesRaiseTheRowFirst)
{
    BipartitePartialMatch match;
    match.init(3, 2, 0.0);
    test::expectMathRaises("Row index 3 is not valid given total number of matrix rows 3",
                           [&] { match.getWeights(3); });
    test::expectMathRaises("Row index 3 is not valid given total number of matrix rows 3",
                           [&] { static_cast<const BipartitePartialMatch&>(match).getWeights(3); });
    test::expectMathRaises("Row index 4 is not valid given total number of matrix rows 3",
                           [&] { match.getWeight(4, 4); });
    test::expectMathRaises("Column index 2 is not valid given total number of matrix columns 2",
                           [&] { match.getWeight(2, 2); });
}

TEST(BipartitePartialMatch, ClearKeepsTheSizes)
{
    BipartitePartialMatch match = solved({{1.0, 2.0}}, 0.0);
    match.clear();
    test::expectMathRaises(g_notInitialized, [&] { match.isSolved(); });
    EXPECT_EQ(match.getWeights(0), nullptr);
    EXPECT_EQ(static_cast<const BipartitePartialMatch&>(match).getWeights(0), nullptr);
    test::expectMathRaises(g_notInitialized, [&] { match.getWeight(0, 0); });
    test::expectMathRaises("Row index 1 is not valid given total number of matrix rows 1",
                           [&] { match.getWeight(1, 0); });
}

TEST(BipartitePartialMatch, WeightsAreFilledRowByRow)
{
    const BipartitePartialMatch match = filled({{1.0, 2.0, 3.0}, {4.0, 5.0, 6.0}}, 0.0);
    EXPECT_EQ(match.getWeight(1, 2), 6.0);
    EXPECT_EQ(match.getWeights(1)[0], 4.0);
}

TEST(BipartitePartialMatch, NobodyIsMatchedWithoutAWeightAboveTheThreshold)
{
    const BipartitePartialMatch match = solved({{2.0, 1.0, 0.0}, {2.0, 2.0, -1.0}}, 2.0);
    EXPECT_TRUE(match.isSolved());
    EXPECT_THAT(match.getRowAssignments(), ElementsAre(U, U));
    EXPECT_THAT(match.getColumnAssignments(), ElementsAre(U, U, U));
}

TEST(BipartitePartialMatch, AnUnfilledTableMatchesTheDiagonal)
{
    BipartitePartialMatch match;
    match.init(2, 3, 0.0);
    match.solve();
    EXPECT_THAT(match.getRowAssignments(), ElementsAre(0, 1));
    EXPECT_THAT(match.getColumnAssignments(), ElementsAre(0, 1, U));
}

TEST(BipartitePartialMatch, AnUnfilledTableWithTheLargestThresholdMatchesNobody)
{
    BipartitePartialMatch match;
    match.init(2, 2, NumericLimits<double>::s_max);
    match.solve();
    EXPECT_THAT(match.getRowAssignments(), ElementsAre(U, U));
    EXPECT_THAT(match.getColumnAssignments(), ElementsAre(U, U));
}

TEST(BipartitePartialMatch, MoreRowsThanColumnsAreSolvedTheOtherWayRound)
{
    const BipartitePartialMatch match = solved({{1.0, 5.0}, {4.0, 2.0}, {3.0, 6.0}}, 0.0);
    EXPECT_THAT(match.getRowAssignments(), ElementsAre(U, 0, 1));
    EXPECT_THAT(match.getColumnAssignments(), ElementsAre(1, 2));
}

TEST(BipartitePartialMatch, TheOrientationFollowsTheCandidatesNotTheTable)
{
    // Two rows and three columns, but the last two columns are no candidates.
    const BipartitePartialMatch match = solved({{5.0, 1.0, 1.0}, {6.0, 1.0, 1.0}}, 2.0);
    EXPECT_THAT(match.getRowAssignments(), ElementsAre(U, 0));
    EXPECT_THAT(match.getColumnAssignments(), ElementsAre(1, U, U));
}

TEST(BipartitePartialMatch, AsManyCandidatesOnBothSidesKeepTheRowsAsRows)
{
    // Both assignments have the same sum; with the columns as rows the other one would be met first.
    const Rows rows = {{1.0, 2.0, 2.0}, {2.0, 3.0, 1.0}, {2.0, 3.0, 1.0}};
    EXPECT_THAT(solved(rows, 0.0).getRowAssignments(), ElementsAre(2, 0, 1));
    EXPECT_THAT(solved(transposed(rows), 0.0).getColumnAssignments(), ElementsAre(2, 1, 0));
}

TEST(BipartitePartialMatch, OneRowGoesToItsOnlyCandidateColumn)
{
    const BipartitePartialMatch match = solved({{1.0, 5.0}}, 2.0);
    EXPECT_THAT(match.getRowAssignments(), ElementsAre(1));
    EXPECT_THAT(match.getColumnAssignments(), ElementsAre(U, 0));
}

TEST(BipartitePartialMatch, SidesWithoutAWeightAboveTheThresholdAreSetAside)
{
    const BipartitePartialMatch match = solved({{5.0, 1.0}, {1.0, 0.5}}, 2.0);
    EXPECT_THAT(match.getRowAssignments(), ElementsAre(0, U));
    EXPECT_THAT(match.getColumnAssignments(), ElementsAre(0, U));
}

TEST(BipartitePartialMatch, AWeightEqualToTheThresholdMakesNoCandidate)
{
    const BipartitePartialMatch match = solved({{5.0, 2.0}, {2.0, 2.0}}, 2.0);
    EXPECT_THAT(match.getRowAssignments(), ElementsAre(0, U));
    EXPECT_THAT(match.getColumnAssignments(), ElementsAre(0, U));
}

TEST(BipartitePartialMatch, APairOfTheThresholdIsAcceptedBetweenCandidates)
{
    // Rows 0, 1 and columns 0, 1 are candidates through the corner of 10 and its neighbours.
    const BipartitePartialMatch match = solved({{10.0, 9.0}, {9.0, 2.0}}, 2.0);
    EXPECT_THAT(match.getRowAssignments(), ElementsAre(1, 0));
    const BipartitePartialMatch atThreshold = solved({{20.0, 9.0}, {9.0, 2.0}}, 2.0);
    EXPECT_THAT(atThreshold.getRowAssignments(), ElementsAre(0, 1));
    EXPECT_THAT(atThreshold.getColumnAssignments(), ElementsAre(0, 1));
}

TEST(BipartitePartialMatch, APairBelowTheThresholdIsDroppedAndNotMatchedAnew)
{
    // The sum of 21 wins over 18, then the pair of 1 is rejected although 9 and 9 would both be accepted.
    const BipartitePartialMatch match = solved({{20.0, 9.0}, {9.0, 1.0}}, 2.0);
    EXPECT_THAT(match.getRowAssignments(), ElementsAre(0, U));
    EXPECT_THAT(match.getColumnAssignments(), ElementsAre(0, U));
}

TEST(BipartitePartialMatch, SolveOverwritesEarlierResults)
{
    BipartitePartialMatch match = solved({{5.0, 1.0}, {1.0, 5.0}}, 2.0);
    match.getWeights(0)[0] = 0.0;
    match.solve();
    EXPECT_THAT(match.getRowAssignments(), ElementsAre(U, 1));
    EXPECT_THAT(match.getColumnAssignments(), ElementsAre(U, 1));
}

TEST(BipartitePartialMatch, WeightsThatAreNotNumbersMakeNoPair)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const BipartitePartialMatch match = solved({{nan, nan}, {nan, 3.0}}, 2.0);
    EXPECT_THAT(match.getRowAssignments(), ElementsAre(U, 1));
    EXPECT_THAT(match.getColumnAssignments(), ElementsAre(U, 1));
}

TEST(BipartitePartialMatch, AThresholdThatIsNotANumberMatchesNobody)
{
    const BipartitePartialMatch match = solved({{1.0, 2.0}}, std::numeric_limits<double>::quiet_NaN());
    EXPECT_THAT(match.getRowAssignments(), Each(U));
    EXPECT_THAT(match.getColumnAssignments(), Each(U));
}

TEST(BipartitePartialMatch, IsNotSolvedAfterWantOfMemory)
{
    const std::size_t nbFailures = test::failEachAllocation(
        [] {
            return solved({{1.0, 5.0}, {4.0, 2.0}, {3.0, 6.0}}, 0.0);
        },
        [](BipartitePartialMatch& match) { match.solve(); },
        [](BipartitePartialMatch& match)
        {
            EXPECT_FALSE(match.isSolved());
            match.solve();
            EXPECT_THAT(match.getRowAssignments(), ElementsAre(U, 0, 1));
        });
    EXPECT_GT(nbFailures, 10u);
}

TEST(BipartitePartialMatch, TheHeadersExampleCompiles)
{
    const Rows weights = {{0.1, 0.7, 0.2}, {0.9, 0.8, 0.1}};
    testing::internal::CaptureStdout();
    BipartitePartialMatch match;
    match.init(2, 3, 0.5);
    for (ovUInt32 row = 0; row < 2; ++row)
        std::copy(weights[row].begin(), weights[row].end(), match.getWeights(row));
    match.solve();
    const ovUInt32 column = match.getRowAssignments()[0];
    if (column != BipartitePartialMatch::getUnAssignedValue())
        std::cout << "row 0 goes with column " << column << std::endl;
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "row 0 goes with column 1\n");
    EXPECT_THAT(test::readCode(__FILE__),
                testing::HasSubstr(test::readExample("OVRIXMath/Graph/BipartitePartialMatch.h")));
}

TEST(BipartitePartialMatch, FollowsTheStepsOnRandomTables)
{
    std::mt19937 generator(3);
    for (int repeat = 0; repeat < 3000; ++repeat)
    {
        Rows rows(1 + generator() % 9, std::vector<double>(1 + generator() % 9));
        for (auto& row : rows)
            std::generate(row.begin(), row.end(), [&] { return double(generator() % 8); });
        const double threshold = generator() % 8;
        const BipartitePartialMatch match = solved(rows, threshold);
        const PlainMatch plain(rows, threshold);
        ASSERT_EQ(match.getRowAssignments(), plain.rowAssignments);
        ASSERT_EQ(match.getColumnAssignments(), plain.columnAssignments);
    }
}

TEST(BipartitePartialMatch, PartnersAgreeOnBothSides)
{
    std::mt19937 generator(4);
    for (int repeat = 0; repeat < 200; ++repeat)
    {
        Rows rows(1 + generator() % 20, std::vector<double>(1 + generator() % 20));
        for (auto& row : rows)
            std::generate(row.begin(), row.end(), [&] { return std::uniform_real_distribution<double>()(generator); });
        const BipartitePartialMatch match = solved(rows, 0.8);
        for (ovUInt32 r = 0; r < rows.size(); ++r)
        {
            const ovUInt32 c = match.getRowAssignments()[r];
            if (c == U)
                continue;
            EXPECT_EQ(match.getColumnAssignments()[c], r);
            EXPECT_GE(rows[r][c], 0.8);
        }
        for (ovUInt32 c = 0; c < rows.front().size(); ++c)
        {
            const ovUInt32 r = match.getColumnAssignments()[c];
            if (r != U)
            {
                EXPECT_EQ(match.getRowAssignments()[r], c);
            }
        }
    }
}

} // namespace math
} // namespace ovrix
