#include <OVRIXMath/Geometry/3d/UniformOrientations3d.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <boost/random/mersenne_twister.hpp>
#include <gmock/gmock.h>

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <fstream>
#include <limits>
#include <map>
#include <numeric>
#include <sstream>
#include <stdexcept>
#include <string>
#include <support/AtOnce.h>
#include <support/ExpectFailure.h>
#include <support/HeaderExample.h>
#include <support/LogCapture.h>
#include <type_traits>
#include <vector>

namespace ovrix
{
namespace math
{

namespace
{

using Directions = std::vector<PhiTheta>;
using Numbers = std::vector<double>;

constexpr unsigned long g_nbTables = 400;
constexpr double g_twoPi = 6.283185307179586;

/// phi and theta of all directions, one after the other.
Numbers numbersOf(const Directions& directions)
{
    Numbers numbers;
    for (const PhiTheta& direction : directions)
        numbers.insert(numbers.end(), {direction.phi, direction.theta});
    return numbers;
}

/// The sum over pairs of 1 / distance, in extended precision.
long double computeEnergy(const Directions& directions)
{
    std::vector<std::array<long double, 3>> points;
    for (const PhiTheta& direction : directions)
    {
        const long double phi = direction.phi;
        const long double theta = direction.theta;
        points.push_back({std::sin(theta) * std::cos(phi), std::sin(theta) * std::sin(phi), std::cos(theta)});
    }
    long double energy = 0.0L;
    for (std::size_t j = 1; j < points.size(); ++j)
        for (std::size_t i = 0; i < j; ++i)
            energy += 1.0L /
                      std::hypot(points[i][0] - points[j][0], points[i][1] - points[j][1], points[i][2] - points[j][2]);
    return energy;
}

/// Number of significant digits of the shortest decimals that read back to the same value.
std::size_t countDigits(double value)
{
    char buffer[32];
    const auto end = std::to_chars(buffer, buffer + sizeof(buffer), value, std::chars_format::scientific).ptr;
    const std::string text(buffer, end);
    std::size_t nbDigits = 0;
    for (const char c : text.substr(0, text.find('e')))
        nbDigits += c == '.' ? 0 : 1;
    return nbDigits;
}

/// The energies of all tables by number of points.
std::map<unsigned long, long double> readEnergies()
{
    std::ifstream file(std::string(OVRIX_TEST_DATA_DIR) + "/orientations/energies.txt");
    std::map<unsigned long, long double> energies;
    unsigned long nbPoints = 0;
    long double energy = 0.0L;
    while (file >> nbPoints >> energy)
        energies[nbPoints] = energy;
    return energies;
}

/// Half a unit of the ninth decimal, and what sums of extended precision may differ by.
constexpr long double g_halfNinthDecimal = 0.5e-9L + 1e-12L;

/// Sets the generator so that it draws the same 32 bits more than two hundred times.
void setAllWordsOfTheGenerator(boost::random::mt19937& generator, unsigned int word)
{
    std::stringstream state;
    for (std::size_t i = 0; i < boost::random::mt19937::state_size; ++i)
        state << word << ' ';
    state >> generator;
}

} // namespace

TEST(PhiTheta, IsTwoRealsPhiThenTheta)
{
    EXPECT_TRUE(std::is_standard_layout<PhiTheta>::value);
    EXPECT_EQ(sizeof(PhiTheta), 2 * sizeof(ovReal64));
    const PhiTheta direction{1.0, 2.0};
    EXPECT_EQ(direction.phi, 1.0);
    EXPECT_EQ(direction.theta, 2.0);
}

TEST(PhiTheta, IsZeroByDefault)
{
    const PhiTheta direction;
    EXPECT_EQ(direction.phi, 0.0);
    EXPECT_EQ(direction.theta, 0.0);
}

TEST(ThomsonProblem, HasNoPointsForNone)
{
    EXPECT_TRUE(solveThomsonProblem(0).empty());
}

TEST(ThomsonProblem, PutsOnePointOnTheNorthPole)
{
    EXPECT_EQ(numbersOf(solveThomsonProblem(1)), (Numbers{0.0, 0.0}));
}

TEST(ThomsonProblem, PutsTwoPointsOnThePoles)
{
    EXPECT_EQ(numbersOf(solveThomsonProblem(2)), (Numbers{0.0, 0.0, 0.0, 3.14159265358}));
}

TEST(ThomsonProblem, PutsThreePointsOnAGreatCircleThroughThePole)
{
    EXPECT_EQ(numbersOf(solveThomsonProblem(3)), (Numbers{0.0, 0.0, 0.0, 2.09439510239, 3.14159265358, 2.09439510239}));
}

TEST(ThomsonProblem, PutsFourPointsAlmostOnATetrahedron)
{
    EXPECT_EQ(numbersOf(solveThomsonProblem(4)), (Numbers{6.14493784079, 1.78424401065, 1.74373774699, 1.11096498909,
                                                          3.62583890805, 2.46323415905, 4.2895380567, 0.637118861508}));
}

TEST(ThomsonProblem, HasAsManyPointsAsAskedFor)
{
    std::size_t nbRecords = 0;
    for (unsigned long n = 1; n <= g_nbTables; ++n)
    {
        EXPECT_EQ(solveThomsonProblem(n).size(), n);
        nbRecords += solveThomsonProblem(n).size();
    }
    EXPECT_EQ(nbRecords, 80200u);
}

TEST(ThomsonProblem, KeepsTheAnglesInTheirRanges)
{
    for (unsigned long n = 1; n <= g_nbTables; ++n)
    {
        for (const PhiTheta& direction : solveThomsonProblem(n))
        {
            EXPECT_TRUE(0.0 <= direction.phi && direction.phi <= 6.28311766956) << n;
            EXPECT_TRUE(0.0 <= direction.theta && direction.theta <= 3.14159265358) << n;
        }
    }
}

TEST(ThomsonProblem, HasTwelveSignificantDigits)
{
    std::size_t nbFull = 0;
    for (unsigned long n = 1; n <= g_nbTables; ++n)
    {
        for (const double number : numbersOf(solveThomsonProblem(n)))
        {
            EXPECT_LE(countDigits(number), 12u) << n;
            nbFull += countDigits(number) == 12 ? 1 : 0;
        }
    }
    EXPECT_GT(nbFull, 140000u); // one in ten ends in a zero
}

TEST(ThomsonProblem, ReachesTheEnergies)
{
    const std::map<unsigned long, long double> energies{{2, 0.5L},
                                                        {3, 1.732050808L},
                                                        {4, 3.696245943L},
                                                        {5, 6.474691495L},
                                                        {6, 9.985281374L},
                                                        {7, 14.452977414L},
                                                        {8, 19.675287861L},
                                                        {12, 49.165253058L},
                                                        {13, 58.853242008L},
                                                        {24, 223.347074052L},
                                                        {32, 412.261274651L},
                                                        {50, 1055.182314726L},
                                                        {100, 4448.350634331L},
                                                        {200, 18438.84271753L},
                                                        {300, 42131.264137309L},
                                                        {400, 75582.448512215L}};
    for (const auto& [nbPoints, energy] : energies)
        EXPECT_LE(std::abs(computeEnergy(solveThomsonProblem(nbPoints)) - energy), g_halfNinthDecimal) << nbPoints;
}

TEST(ThomsonProblem, HasTheEnergiesOnFileForAllNumbersOfPoints)
{
    const std::map<unsigned long, long double> energies = readEnergies();
    ASSERT_EQ(energies.size(), g_nbTables);
    for (const auto& [nbPoints, energy] : energies)
        EXPECT_LE(std::abs(computeEnergy(solveThomsonProblem(nbPoints)) - energy), g_halfNinthDecimal) << nbPoints;
}

TEST(ThomsonProblem, StaysAboveTheLowestEnergyForFourAndThirteenPoints)
{
    EXPECT_GT(computeEnergy(solveThomsonProblem(4)), 3.674234614L + 0.02L);
    EXPECT_GT(computeEnergy(solveThomsonProblem(13)), 58.853230612L + 1e-5L);
}

TEST(ThomsonProblem, IsTheSameAtEachCall)
{
    for (const unsigned long n : {1ul, 57ul, g_nbTables})
        EXPECT_EQ(numbersOf(solveThomsonProblem(n)), numbersOf(solveThomsonProblem(n)));
}

TEST(ThomsonProblem, DrawsNothing)
{
    const boost::random::mt19937 before = RandomUniformGenerator::getGen();
    solveThomsonProblem(g_nbTables);
    EXPECT_TRUE(RandomUniformGenerator::getGen() == before);
}

TEST(ThomsonProblem, RaisesAboveFourHundredPoints)
{
    const std::string text = "Number of points passed as argument is out of range (should be between 1 and 400";
    test::expectMathRaises(text, [] { solveThomsonProblem(401); });
    test::expectMathRaises(text, [] { solveThomsonProblem(100000); });
}

TEST(ThomsonProblem, CanBeSolvedAgainAfterARaise)
{
    EXPECT_THROW(solveThomsonProblem(401), OVRIXMathException);
    EXPECT_EQ(solveThomsonProblem(g_nbTables).size(), g_nbTables);
}

TEST(ThomsonProblem, LeavesSizesThatNoVectorHoldsToTheVector)
{
    test::LogCapture log;
    const std::string text = "cannot create std::vector larger than max_size()";
    test::expectRaises<std::length_error>(text, [] { solveThomsonProblem(1ul << 59); });
    test::expectRaises<std::length_error>(text, [] { solveThomsonProblem(std::numeric_limits<unsigned long>::max()); });
    EXPECT_TRUE(log.getTexts().empty());
}

#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__) // their allocators end the program instead
TEST(ThomsonProblem, TellsWhenThereIsNoMemoryForTheResult)
{
    EXPECT_THROW(solveThomsonProblem(1ul << 58), std::bad_alloc);
    EXPECT_THROW(computeUniformlyDistOrientations3d(1ul << 58), std::bad_alloc);
}
#endif

TEST(ThomsonProblem, GivesEachOfManyThreadsItsWholeTable)
{
    const std::vector<unsigned long> sizes{400, 1, 399, 12, 250, 3, 400, 100};
    std::vector<Directions> results(sizes.size());
    test::runAtOnce(sizes.size(),
                    [&](std::size_t i)
                    {
                        for (int repetition = 0; repetition < 200; ++repetition)
                            results[i] = solveThomsonProblem(sizes[i]);
                    });
    for (std::size_t i = 0; i < sizes.size(); ++i)
        EXPECT_EQ(numbersOf(results[i]), numbersOf(solveThomsonProblem(sizes[i])));
}

TEST(UniformOrientations3d, BalanceInTheExampleOfTheHeader)
{
    std::vector<ovReal64> heights;
    for (const PhiTheta& direction : computeUniformlyDistOrientations3d(200))
        heights.push_back(std::cos(direction.theta));

    EXPECT_NEAR(std::accumulate(heights.begin(), heights.end(), 0.0), 0.0, 0.1);
    EXPECT_THAT(test::readCode(__FILE__),
                testing::HasSubstr(test::readExample("OVRIXMath/Geometry/3d/UniformOrientations3d.h")));
}

TEST(UniformOrientations3d, AreTheThomsonSolutionsUpToFourHundred)
{
    for (unsigned long n = 0; n <= g_nbTables; ++n)
        EXPECT_EQ(numbersOf(computeUniformlyDistOrientations3d(n)), numbersOf(solveThomsonProblem(n)));
}

TEST(UniformOrientations3d, DrawNothingUpToFourHundred)
{
    const boost::random::mt19937 before = RandomUniformGenerator::getGen();
    computeUniformlyDistOrientations3d(g_nbTables);
    EXPECT_TRUE(RandomUniformGenerator::getGen() == before);
}

TEST(UniformOrientations3d, AreAsManyAsAskedForBeyondFourHundred)
{
    EXPECT_EQ(computeUniformlyDistOrientations3d(401).size(), 401u);
    EXPECT_EQ(computeUniformlyDistOrientations3d(5000).size(), 5000u);
}

TEST(UniformOrientations3d, DrawTheAzimuthThenThePolarAngleOfEach)
{
    boost::random::mt19937& generator = RandomUniformGenerator::getGen();
    generator.seed(7);
    boost::random::mt19937 plain(7);
    for (const PhiTheta& direction : computeUniformlyDistOrientations3d(401))
    {
        const double u1 = plain() / 4294967296.0;
        const double u2 = plain() / 4294967296.0;
        ASSERT_EQ(direction.phi, g_twoPi * u1);
        ASSERT_EQ(direction.theta, std::acos(2.0 * u2 - 1.0));
    }
    EXPECT_TRUE(generator == plain);
}

TEST(UniformOrientations3d, AreOthersAtTheNextCall)
{
    RandomUniformGenerator::getGen().seed(8);
    const Directions first = computeUniformlyDistOrientations3d(401);
    EXPECT_NE(numbersOf(first), numbersOf(computeUniformlyDistOrientations3d(401)));
}

TEST(UniformOrientations3d, AreTheSameFromTheSameStateOfTheGenerator)
{
    RandomUniformGenerator::getGen().seed(9);
    const Directions first = computeUniformlyDistOrientations3d(401);
    RandomUniformGenerator::getGen().seed(9);
    EXPECT_EQ(numbersOf(first), numbersOf(computeUniformlyDistOrientations3d(401)));
}

TEST(UniformOrientations3d, StayInTheirRangesForTheSmallestDraws)
{
    setAllWordsOfTheGenerator(RandomUniformGenerator::getGen(), 0);
    const Directions directions = computeUniformlyDistOrientations3d(401);
    RandomUniformGenerator::getGen().seed();
    EXPECT_EQ(directions[0].phi, 0.0);
    EXPECT_EQ(directions[0].theta, 3.141592653589793);
}

TEST(UniformOrientations3d, StayInTheirRangesForTheLargestDraws)
{
    // A state that gives all ones.
    setAllWordsOfTheGenerator(RandomUniformGenerator::getGen(), 0x1c96ed22u);
    const Directions directions = computeUniformlyDistOrientations3d(401);
    RandomUniformGenerator::getGen().seed();
    const double u = 4294967295.0 / 4294967296.0;
    EXPECT_EQ(directions[0].phi, g_twoPi * u);
    EXPECT_LT(directions[0].phi, g_twoPi);
    EXPECT_EQ(directions[0].theta, std::acos(2.0 * u - 1.0));
    EXPECT_GE(directions[0].theta, 0.0);
}

TEST(UniformOrientations3d, CoverBandsOfEqualAreaEqually)
{
    constexpr std::size_t nbBands = 10;
    constexpr unsigned long nbDirections = 100000;
    RandomUniformGenerator::getGen().seed(10);
    std::array<double, nbBands> bandsOfHeight{};
    std::array<double, nbBands> bandsOfAzimuth{};
    for (const PhiTheta& direction : computeUniformlyDistOrientations3d(nbDirections))
    {
        ASSERT_TRUE(0.0 <= direction.phi && direction.phi < g_twoPi);
        ASSERT_TRUE(0.0 <= direction.theta && direction.theta <= 3.141592653589793);
        ++bandsOfHeight[static_cast<std::size_t>(0.5 * (1.0 + std::cos(direction.theta)) * (nbBands - 1e-9))];
        ++bandsOfAzimuth[static_cast<std::size_t>(direction.phi / g_twoPi * nbBands)];
    }
    // A band's count has a standard deviation of 95.
    for (std::size_t i = 0; i < nbBands; ++i)
    {
        EXPECT_NEAR(bandsOfHeight[i], nbDirections / nbBands, 5 * 95.0);
        EXPECT_NEAR(bandsOfAzimuth[i], nbDirections / nbBands, 5 * 95.0);
    }
}

TEST(UniformOrientations3d, LeaveSizesThatNoVectorHoldsToTheVector)
{
    const boost::random::mt19937 before = RandomUniformGenerator::getGen();
    const std::string text = "cannot create std::vector larger than max_size()";
    test::expectRaises<std::length_error>(text, [] { computeUniformlyDistOrientations3d(1ul << 59); });
    test::expectRaises<std::length_error>(
        text, [] { computeUniformlyDistOrientations3d(std::numeric_limits<unsigned long>::max()); });
    EXPECT_TRUE(RandomUniformGenerator::getGen() == before);
}

} // namespace math
} // namespace ovrix
