#include <gmock/gmock.h>

#include <atomic>
#include <cmath>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <orientations/CoulombEnergy.h>
#include <orientations/TableText.h>
#include <pthread.h>
#include <sstream>
#include <stdexcept>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

namespace ovrix
{
namespace orientations
{

namespace
{

std::string readFile(const std::string& path)
{
    std::ifstream file(path);
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

/// A signal that does nothing but interrupt the call of the system in which a thread waits.
class InterruptingSignal
{
public:
    InterruptingSignal()
    {
        struct sigaction action = {};
        action.sa_handler = [](int) { ++s_nbHandled; };
        sigaction(SIGUSR1, &action, &_previous);
    }

    ~InterruptingSignal()
    {
        sigaction(SIGUSR1, &_previous, nullptr);
    }

    InterruptingSignal(const InterruptingSignal&) = delete;
    InterruptingSignal& operator=(const InterruptingSignal&) = delete;

    /// Sends the signal to a thread that has not been joined.
    void send(std::thread& thread) const
    {
        EXPECT_EQ(pthread_kill(thread.native_handle(), SIGUSR1), 0);
    }

    /// How many times a thread was interrupted.
    int getNbHandled() const
    {
        return s_nbHandled;
    }

private:
    static std::atomic<int> s_nbHandled;
    struct sigaction _previous = {};
};

std::atomic<int> InterruptingSignal::s_nbHandled{0};

/// Whether a thread of this program waits in a call of the system.
bool isWaiting(pid_t thread)
{
    const std::string status = readFile("/proc/self/task/" + std::to_string(thread) + "/stat");
    const std::size_t endOfName = status.rfind(')');
    return endOfName != std::string::npos && status.substr(endOfName, 3) == ") S";
}

void expectRefusal(const std::string& text, const std::string& reason)
{
    std::istringstream stream(text);
    try
    {
        readTables(stream);
        ADD_FAILURE() << text << " was read";
    }
    catch (const std::runtime_error& error)
    {
        EXPECT_EQ(error.what(), reason);
    }
}

} // namespace

TEST(CutDigits, CutsAfterTwelveSignificantDigits)
{
    EXPECT_EQ(cutDigits(3.141592653589793), "3.14159265358");
    EXPECT_EQ(cutDigits(6.283185307179586), "6.28318530717");
    EXPECT_EQ(cutDigits(0.999999999999999), "0.999999999999");
    EXPECT_EQ(cutDigits(0.012345678901299), "0.0123456789012");
}

TEST(CutDigits, LeavesZerosAtTheEndOut)
{
    EXPECT_EQ(cutDigits(0.0), "0");
    EXPECT_EQ(cutDigits(2.0), "2");
    EXPECT_EQ(cutDigits(1.5), "1.5");
    EXPECT_EQ(cutDigits(1.25000000000099), "1.25");
}

TEST(CutDigits, HasNoExponent)
{
    EXPECT_EQ(cutDigits(1.97524867412345e-5), "0.0000197524867412");
    EXPECT_EQ(cutDigits(2e-7), "0.0000002");
}

TEST(CutDigits, KeepsWhatHasNoMoreDigits)
{
    for (const char* const decimals : {"1.74373774699", "0.637118861508", "4.2895380567", "0.000193600860906"})
        EXPECT_EQ(cutDigits(std::stod(decimals)), decimals);
}

TEST(TableText, WritesWhatItHasRead)
{
    const std::string text = "N 1\n0 0\nN 3\n0 0\n0 2.09439510239\n3.14159265358 2.09439510239\n";
    std::istringstream input(text);
    const Tables tables = readTables(input);
    ASSERT_EQ(tables.size(), 2u);
    EXPECT_EQ(tables.at(3)[2].phi, 3.14159265358);
    EXPECT_EQ(tables.at(3)[2].theta, 2.09439510239);
    std::ostringstream output;
    writeTables(tables, output);
    EXPECT_EQ(output.str(), text);
}

TEST(TableText, RefusesWhatIsNoTable)
{
    expectRefusal("1 2\n", "a set of directions should begin with N and its number of points");
    expectRefusal("N -1\n", "a set of directions should begin with N and its number of points");
    expectRefusal("N x\n", "a set of directions should begin with N and its number of points");
    expectRefusal("N 2\n0 0\n1", "the set of 2 directions is not complete");
    expectRefusal("N 2\n0 0\nN 1\n0 0\n", "the set of 2 directions is not complete");
    expectRefusal("N 1\n0 0\nN 1\n0 0\n", "there are two sets of 1 directions");
    expectRefusal("N 1\n-0.5 0\n", "an angle of the set of 1 directions is not in [0, 10)");
    expectRefusal("N 1\n0 12.5\n", "an angle of the set of 1 directions is not in [0, 10)");
}

TEST(TableText, TellsWhichFileCannotBeRead)
{
    try
    {
        readTables(std::string("no/such/tables.txt"));
        ADD_FAILURE();
    }
    catch (const std::runtime_error& error)
    {
        EXPECT_EQ(std::string(error.what()), "no/such/tables.txt can't be read");
    }
}

TEST(TableText, TellsWhichFileCannotBeWritten)
{
    const std::string inAFile = OVRIX_SOURCE_DIR "/CMakeLists.txt/tables.txt";
    for (const std::string& path : {std::string("no/such/tables.txt"), inAFile})
    {
        try
        {
            changeTables(path, [](Tables&) {});
            ADD_FAILURE();
        }
        catch (const std::runtime_error& error)
        {
            EXPECT_EQ(error.what(), path + " can't be written");
        }
    }
}

TEST(TableText, TellsWhichFileCannotBeLocked)
{
    const std::string path = std::string(300, 'x') + "/tables.txt"; // no folder can have such a name
    bool bChanged = false;
    try
    {
        changeTables(path, [&](Tables&) { bChanged = true; });
        ADD_FAILURE();
    }
    catch (const std::runtime_error& error)
    {
        EXPECT_EQ(error.what(), path + " can't be locked");
    }
    EXPECT_FALSE(bChanged);
}

TEST(TableText, MakesNoFileWhereOneHasToBe)
{
    const std::string missing = OVRIX_TEST_OUTPUT_DIR "/tables_missing.txt";
    for (const std::string& path : {missing, std::string("no/such/tables.txt")})
    {
        bool bChanged = false;
        try
        {
            changeExistingTables(path, [&](Tables&) { bChanged = true; });
            ADD_FAILURE();
        }
        catch (const std::runtime_error& error)
        {
            EXPECT_EQ(error.what(), path + " can't be read");
        }
        EXPECT_FALSE(bChanged);
        EXPECT_FALSE(std::filesystem::exists(path));
    }
}

TEST(TableText, ReplacesAFileAsAWhole)
{
    const std::string path = OVRIX_TEST_OUTPUT_DIR "/tables_replaced.txt";
    changeTables(path, [](Tables& tables) { tables = {{1, {{0.0, 0.0}}}}; });
    changeTables(path, [](Tables& tables) { tables = {{1, {{1.0, 2.0}}}}; });
    EXPECT_EQ(readFile(path), "N 1\n1 2\n");
    changeExistingTables(path, [](Tables& tables) { tables[1][0].theta = 3.0; });
    EXPECT_EQ(readFile(path), "N 1\n1 3\n");
    EXPECT_FALSE(std::filesystem::exists(path + ".new"));
}

TEST(TableText, LeavesTheFileAsItIsWhenTheChangeFails)
{
    const std::string path = OVRIX_TEST_OUTPUT_DIR "/tables_kept.txt";
    changeTables(path, [](Tables& tables) { tables = {{1, {{1.0, 2.0}}}}; });
    EXPECT_THROW(changeTables(path, [](Tables&) { throw std::runtime_error("no"); }), std::runtime_error);
    EXPECT_EQ(readFile(path), "N 1\n1 2\n");
}

TEST(TableText, LosesNoChangeOfProgramsThatShareAFile)
{
    const std::string path = OVRIX_TEST_OUTPUT_DIR "/tables_shared.txt";
    std::filesystem::remove(path);
    std::vector<std::thread> programs;
    for (std::size_t program = 0; program < 2; ++program)
    {
        programs.emplace_back(
            [=]
            {
                for (std::size_t i = 1; i <= 20; ++i)
                {
                    const std::size_t size = 2 * i + program;
                    changeTables(path, [&](Tables& tables) { tables[size] = Records(size); });
                }
            });
    }
    for (std::thread& program : programs)
        program.join();
    EXPECT_EQ(readTables(path).size(), 40u);
}

TEST(TableText, IsKeptFromOtherProgramsWhateverSignalsTheyGet)
{
    const std::string path = OVRIX_TEST_OUTPUT_DIR "/tables_signalled.txt";
    const InterruptingSignal signal;
    std::atomic<pid_t> otherId{0};
    std::atomic<bool> bOtherChanged{false};
    std::thread other;
    const auto signalOther = [&](Tables&)
    {
        other = std::thread(
            [&]
            {
                otherId = gettid();
                changeTables(path, [&](Tables&) { bOtherChanged = true; });
            });
        for (int i = 0; i < 10; ++i)
        {
            while (!isWaiting(otherId) && !bOtherChanged)
                std::this_thread::yield();
            const int nbHandled = signal.getNbHandled();
            signal.send(other);
            while (signal.getNbHandled() == nbHandled && !bOtherChanged)
                std::this_thread::yield();
        }
        EXPECT_FALSE(bOtherChanged);
    };
    changeTables(path, signalOther);
    other.join();
    EXPECT_TRUE(bOtherChanged);
}

TEST(MakeTable, KeepsTheArrangementAndSortsItByTheta)
{
    Generator generator(1);
    const PointSet points = drawPoints(30, generator);
    const Records table = makeTable(points, generator);
    EXPECT_NEAR(static_cast<double>(computeExactEnergy(table)),
                static_cast<double>(computeExactEnergy(toRecords(points))), 1e-7);
    for (std::size_t i = 0; i < table.size(); ++i)
    {
        EXPECT_EQ(std::stod(cutDigits(table[i].phi)), table[i].phi);
        EXPECT_EQ(std::stod(cutDigits(table[i].theta)), table[i].theta);
        EXPECT_LE(table[i].phi, g_maxPhi);
        if (i > 0)
        {
            EXPECT_LE(table[i - 1].theta, table[i].theta);
        }
    }
}

TEST(TablesOfTheProject, AreWrittenTheWayTheToolWritesThem)
{
    const std::string path = OVRIX_SOURCE_DIR "/tools/orientations/tables.txt";
    std::ostringstream rewritten;
    writeTables(readTables(path), rewritten);
    EXPECT_TRUE(rewritten.str() == readFile(path));
}

} // namespace orientations
} // namespace ovrix
