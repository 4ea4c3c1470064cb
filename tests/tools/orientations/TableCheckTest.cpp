#include <gmock/gmock.h>

#include <cmath>
#include <limits>
#include <orientations/TableCheck.h>
#include <orientations/TableText.h>

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

TEST(TableCheck, FindsMissingAndForeignSizes)
{
    EXPECT_THAT(checkSizes({{1, {}}, {2, {}}, {3, {}}}, 3), IsEmpty());
    EXPECT_THAT(
        checkSizes({{0, {}}, {1, {}}, {3, {}}, {5, {}}}, 3),
        ElementsAre("there is no table of 2 points", "there is a table of 0 points", "there is a table of 5 points"));
}

TEST(TablesOfTheProject, HaveNoFaults)
{
    const Tables tables = readTables(OVRIX_SOURCE_DIR "/tools/orientations/tables.txt");
    EXPECT_THAT(checkSizes(tables, 400), IsEmpty());
    for (const auto& [size, records] : tables)
        EXPECT_THAT(checkTable(size, records).faults, IsEmpty()) << size;
}

TEST(TablesOfTheProject, AreConvergedButForThoseThatStandAboveTheirMinima)
{
    for (const auto& [size, records] : readTables(OVRIX_SOURCE_DIR "/tools/orientations/tables.txt"))
    {
        if (size != 4 && size != 13 && size != 300 && size != 400)
        {
            EXPECT_LT(checkTable(size, records).gradient, 1e-7) << size;
        }
    }
}

} // namespace orientations
} // namespace ovrix
