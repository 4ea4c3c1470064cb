#include <gmock/gmock.h>

#include <cmath>
#include <limits>
#include <orientations/TableCheck.h>
#include <orientations/TableText.h>
#include <sstream>

namespace ovrix
{
namespace orientations
{

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

constexpr double g_right = 1.57079632679;

/// Three points at right angles.
const Records g_corner{{0.0, 0.0}, {0.0, g_right}, {g_right, g_right}};

} // namespace

TEST(TableCheck, TellsEnergyAndSmallestDistance)
{
    const TableReport report = checkTable(3, g_corner);
    EXPECT_THAT(report.faults, IsEmpty());
    EXPECT_NEAR(static_cast<double>(report.energy), 3.0 / std::sqrt(2.0), 1e-11);
    EXPECT_NEAR(report.smallestDistance, std::sqrt(2.0), 1e-11);
}

TEST(TableCheck, TellsTheLongestGradientAlongTheSphere)
{
    // Each of the three is pushed by two unit-free forces 1 / d^2 at 45 degrees to the sphere.
    EXPECT_NEAR(checkTable(3, g_corner).gradient, 0.5, 1e-10);
    EXPECT_LT(checkTable(2, {{0.0, 0.0}, {0.0, 3.14159265358}}).gradient, 1e-11);
}

TEST(TableCheck, KnowsNoDistanceForASinglePoint)
{
    const TableReport report = checkTable(1, {{0.0, 0.0}});
    EXPECT_EQ(report.smallestDistance, std::numeric_limits<double>::infinity());
    EXPECT_EQ(static_cast<double>(report.energy), 0.0);
    EXPECT_THAT(report.faults, IsEmpty());
}

TEST(TableCheck, FindsAWrongNumberOfRecords)
{
    EXPECT_THAT(checkTable(4, g_corner).faults, ElementsAre("it has 3 records"));
}

TEST(TableCheck, FindsEqualPoints)
{
    const TableReport report = checkTable(2, {{1.0, 1.0}, {1.0, 1.0}});
    EXPECT_THAT(report.faults, ElementsAre("two of its points are the same"));
    EXPECT_FALSE(report.gradient < 1.0);
}

TEST(TableCheck, KnowsNoGradientWhereTwoPointsAreTheSame)
{
    // The gradient of the third, which comes behind theirs, is a number.
    EXPECT_TRUE(std::isnan(checkTable(3, {{1.0, 1.0}, {1.0, 1.0}, {2.0, 2.0}}).gradient));
}

TEST(TableCheck, FindsAnglesOutOfRange)
{
    EXPECT_THAT(checkTable(2, {{6.2832, 1.0}, {1.0, 3.1416}}).faults,
                ElementsAre("phi is out of its range: 6.283200", "theta is out of its range: 3.141600"));
    EXPECT_THAT(checkTable(2, {{-0.5, 1.0}, {1.0, std::nan("")}}).faults,
                ElementsAre("phi is out of its range: -0.500000", "theta is out of its range: nan"));
}

TEST(TableCheck, TakesTheEndsOfTheRanges)
{
    EXPECT_THAT(checkTable(2, {{6.28311766956, 0.0}, {0.0, 3.14159265358}}).faults, IsEmpty());
}

TEST(TableCheck, FindsMoreThanTwelveDigits)
{
    EXPECT_THAT(
        checkTable(2, {{1.0 / 3.0, 1.0}, {0.333333333333, 2.0 / 3.0}}).faults,
        ElementsAre("phi has more than twelve digits: 0.333333", "theta has more than twelve digits: 0.666667"));
}

TEST(TableCheck, FindsRoundedAngles)
{
    EXPECT_THAT(
        checkTable(5, {{0.0, 0.0}, {0.0, 1.2566370614}, {1.0, 1.5707963268}, {2.0, 1.57079632}, {1.0, 3.141592}})
            .faults,
        ElementsAre("most of its angles have less than twelve digits"));
}

TEST(TableCheck, FindsAPlaceThatIsThereTwiceUnderOtherAngles)
{
    EXPECT_THAT(checkTable(2, {{0.0, 3.14159265358}, {1.0, 3.14159265358}}).faults,
                ElementsAre("two of its points are the same"));
}

TEST(TableCheck, FindsMissingAndForeignSizes)
{
    const Tables tables{{1, {{0.0, 0.0}}}, {2, {{0.0, 0.0}, {0.0, 3.14159265358}}}};
    EXPECT_THAT(checkTables(tables, 2), IsEmpty());
    EXPECT_THAT(checkTables(tables, 3), ElementsAre("there is no table of 3 points"));
    EXPECT_THAT(checkTables(tables, 1), ElementsAre("there is a table of 2 points"));
}

TEST(TableCheck, FindsTablesThatAreNotConvergedAndTheirOtherFaults)
{
    EXPECT_THAT(checkTables({{1, {{0.0, 0.0}}}, {2, {{0.0, 0.0}, {0.0, 3.1}}}}, 2),
                ElementsAre("table 2: it is not converged"));
    EXPECT_THAT(checkTables({{1, {{0.0, 4.0}}}}, 1), ElementsAre("table 1: theta is out of its range: 4.000000"));
}

TEST(TableCheck, ComparesTheEnergiesWithAList)
{
    const Tables tables{{1, {{0.0, 0.0}}}, {2, {{0.0, 0.0}, {0.0, 3.14159265358}}}};
    std::istringstream same("1 0.000000000\n2 0.500000000\n");
    EXPECT_THAT(checkEnergies(tables, same), IsEmpty());
    std::istringstream other("2 0.500000001\n3 1.732050808\n");
    EXPECT_THAT(checkEnergies(tables, other),
                ElementsAre("there is no table of 3 points",
                            "table 1: its energy is 0.000000000, in the list there is none",
                            "table 2: its energy is 0.500000000, in the list it is 0.500000001"));
}

TEST(TableCheck, FindsAListOfEnergiesThatIsNone)
{
    std::istringstream list("1 0.000000000\nN 2\n");
    EXPECT_THAT(checkEnergies({{1, {{0.0, 0.0}}}}, list), ElementsAre("the list of energies can't be read to its end"));
}

TEST(TablesOfTheProject, HaveNoFaults)
{
    EXPECT_THAT(checkTables(readTables(OVRIX_SOURCE_DIR "/tools/orientations/tables.txt"), 400), IsEmpty());
}

} // namespace orientations
} // namespace ovrix
