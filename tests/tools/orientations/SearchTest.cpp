#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <orientations/CoulombEnergy.h>
#include <orientations/Evenness.h>
#include <orientations/Search.h>
#include <orientations/TableText.h>
#include <sstream>
#include <string>

namespace ovrix
{
namespace orientations
{

namespace
{

void ignore(const SearchState&) {}

std::string toText(const Tables& tables)
{
    std::ostringstream stream;
    writeTables(tables, stream);
    return stream.str();
}

SearchPlan makePlan(const std::vector<std::size_t>& sizes, std::size_t nbHops)
{
    SearchPlan plan;
    plan.sizes = sizes;
    plan.nbHops = nbHops;
    return plan;
}

double energyOf(const Tables& tables, std::size_t size)
{
    return static_cast<double>(computeExactEnergy(tables.at(size)));
}

} // namespace

TEST(Search, ReachesTheKnownMinimaFromRandomPoints)
{
    const std::map<std::size_t, double> energies{{4, 3.674234614},    {7, 14.452977414},    {8, 19.675287861},
                                                 {12, 49.165253058},  {13, 58.853230612},   {24, 223.347074052},
                                                 {32, 412.261274651}, {50, 1055.182314726}, {100, 4448.350634331}};
    Tables tables;
    SearchPlan plan = makePlan({}, 40);
    for (const auto& entry : energies)
        plan.sizes.push_back(entry.first);
    search(tables, plan, ignore, ignore);
    for (const auto& [size, energy] : energies)
        EXPECT_NEAR(energyOf(tables, size), energy, 1e-9) << size;
}

TEST(Search, GoesOnFromTheTablesOfAnother)
{
    Tables tables{{60, toRecords(makeFibonacciSpiral(60))}};
    const double first = energyOf(tables, 60);
    std::vector<double> falls;
    search(tables, makePlan({60}, 60), ignore, [&](const SearchState& state) { falls.push_back(state.fall); });
    double fallen = first;
    for (const double fall : falls)
    {
        EXPECT_GT(fall, 0.0);
        fallen -= fall;
    }
    EXPECT_FALSE(falls.empty());
    EXPECT_NEAR(energyOf(tables, 60), fallen, 1e-9);
}

TEST(Search, LeavesATableAloneThatIsAsGood)
{
    Tables tables;
    search(tables, makePlan({12}, 10), ignore, ignore);
    const std::string before = toText(tables);
    SearchPlan plan = makePlan({12}, 10);
    plan.seed = 3;
    plan.nbRounds = 2;
    search(tables, plan, ignore, ignore);
    EXPECT_EQ(toText(tables), before);
}

TEST(Search, StartsFromRandomPointsInEverySecondRound)
{
    // A saddle: the square is no minimum, but its gradient is nought.
    const double right = 1.5707963267948966;
    Tables tables{{4, {{0.0, right}, {right, right}, {2.0 * right, right}, {3.0 * right, right}}}};
    SearchPlan plan = makePlan({4}, 0);
    search(tables, plan, ignore, ignore);
    EXPECT_NEAR(energyOf(tables, 4), 3.828427125, 1e-9);
    plan.nbRounds = 2;
    search(tables, plan, ignore, ignore);
    EXPECT_NEAR(energyOf(tables, 4), 3.674234614, 1e-9);
}

TEST(Search, IsTheSameFromTheSameSeed)
{
    const auto run = [](std::uint64_t seed)
    {
        Tables tables;
        SearchPlan plan = makePlan({20, 21}, 5);
        plan.seed = seed;
        search(tables, plan, ignore, ignore);
        return toText(tables);
    };
    EXPECT_EQ(run(1), run(1));
    EXPECT_NE(run(1), run(2));
    EXPECT_NE(run(1), run((std::uint64_t(1) << 32) + 1));
}

TEST(Search, TellsOfEachHopAndEndsWithItsRounds)
{
    Tables tables;
    SearchPlan plan = makePlan({5, 6}, 3);
    plan.nbRounds = 2;
    std::vector<std::size_t> hops;
    search(
        tables, plan, [&](const SearchState& state) { hops.push_back(state.hop); }, ignore);
    EXPECT_EQ(hops, (std::vector<std::size_t>{0, 1, 2, 3, 0, 1, 2, 3, 0, 1, 2, 3, 0, 1, 2, 3}));
}

TEST(Search, BeginsWithTheRoundThatIsAskedFor)
{
    Tables tables;
    SearchPlan plan = makePlan({5}, 1);
    plan.firstRound = 7;
    plan.nbRounds = 2;
    std::vector<std::size_t> rounds;
    search(
        tables, plan, [&](const SearchState& state) { rounds.push_back(state.round); }, ignore);
    EXPECT_EQ(rounds, (std::vector<std::size_t>{7, 7, 8, 8}));
}

TEST(Search, EndsAMillionRoundsInTime)
{
    Tables tables;
    SearchPlan plan = makePlan({5, 6}, 1000);
    plan.nbRounds = 1000000;
    plan.time = std::chrono::milliseconds(50);
    search(tables, plan, ignore, ignore);
    EXPECT_FALSE(tables.empty());
}

TEST(Search, EndsInTime)
{
    Tables tables;
    SearchPlan plan = makePlan({5, 6}, 3);
    plan.time = std::chrono::seconds(0);
    search(tables, plan, ignore, ignore);
    EXPECT_TRUE(tables.empty());
}

} // namespace orientations
} // namespace ovrix
