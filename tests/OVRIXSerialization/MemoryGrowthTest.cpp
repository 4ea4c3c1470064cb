#include <OVRIXSerialization/MemoryGrowth.h>

#include <gtest/gtest.h>

#include <vector>

namespace ovrix
{
namespace details
{

namespace
{

constexpr std::size_t g_mebibyte = std::size_t(1) << 20;

/// What is filled, and what is taken, while a block of that size is read.
struct Growth
{
    Growth(std::size_t size, std::size_t firstStep, std::size_t firstRoom)
    {
        for (std::size_t nbRead = 0; nbRead < size;)
        {
            const std::size_t step = getNextStep(nbRead, size - nbRead, firstStep);
            const std::size_t capacity = getCapacity(nbRead, size - nbRead, step, firstRoom);
            if (capacities.empty() || capacity > capacities.back())
                capacities.push_back(capacity);
            nbRead += step;
            filled.push_back(nbRead);
        }
    }

    std::vector<std::size_t> filled;
    std::vector<std::size_t> capacities;
};

} // namespace

TEST(MemoryGrowth, FillsAsMuchAgainAsHasBeenRead)
{
    EXPECT_EQ(Growth(100, 10, 10).filled, (std::vector<std::size_t>{10, 20, 40, 80, 100}));
    EXPECT_EQ(Growth(7, 10, 10).filled, (std::vector<std::size_t>{7}));
}

TEST(MemoryGrowth, TakesNewMemoryOnlyWhereAllOfTheOldIsFilled)
{
    const Growth growth(1024 * g_mebibyte, g_firstStepOfFile, g_firstRoomOfFile);
    EXPECT_EQ(growth.capacities, (std::vector<std::size_t>{256 * g_mebibyte, 512 * g_mebibyte, 1024 * g_mebibyte}));
}

TEST(MemoryGrowth, TakesNoMoreThanIsAskedFor)
{
    EXPECT_EQ(Growth(80 * g_mebibyte, g_firstStepOfFile, g_firstRoomOfFile).capacities,
              (std::vector<std::size_t>{80 * g_mebibyte}));
    EXPECT_EQ(Growth(300 * g_mebibyte, g_firstStepOfFile, g_firstRoomOfFile).capacities,
              (std::vector<std::size_t>{256 * g_mebibyte, 300 * g_mebibyte}));
}

TEST(MemoryGrowth, TakesWhatItFillsOnAPipe)
{
    const Growth growth(100000, g_firstStepOfPipe, g_firstStepOfPipe);
    EXPECT_EQ(growth.capacities, growth.filled);
}

} // namespace details
} // namespace ovrix
