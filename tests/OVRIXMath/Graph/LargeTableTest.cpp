#include <OVRIXMath/Graph/LargeTable.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <new>

namespace ovrix
{
namespace math
{
namespace details
{

namespace
{

constexpr std::size_t g_largePage = std::size_t(1) << 21;
constexpr std::size_t g_nbOfTwoLargePages = 2 * g_largePage / sizeof(double);

std::uintptr_t addressOf(const LargeTable& table)
{
    return reinterpret_cast<std::uintptr_t>(table.data());
}

} // namespace

TEST(LargeTable, StartsWithALineOfTheCache)
{
    for (const std::size_t count : {1u, 7u, 8u, 9u, 1000u})
        EXPECT_EQ(addressOf(LargeTable(count)) % 64, 0u) << count;
}

TEST(LargeTable, StartsWithALargePageFromTwoOfThemOn)
{
    EXPECT_EQ(addressOf(LargeTable(g_nbOfTwoLargePages)) % g_largePage, 0u);
    EXPECT_EQ(addressOf(LargeTable(5 * g_nbOfTwoLargePages + 3)) % g_largePage, 0u);
}

TEST(LargeTable, HoldsItsElements)
{
    for (const std::size_t count : {std::size_t(1), g_nbOfTwoLargePages - 1, g_nbOfTwoLargePages + 1})
    {
        LargeTable table(count);
        for (std::size_t i = 0; i < count; ++i)
            table.data()[i] = static_cast<double>(i);
        for (std::size_t i = 0; i < count; ++i)
            ASSERT_EQ(table.data()[i], static_cast<double>(i));
    }
}

#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__) // their allocators end the program instead
TEST(LargeTable, OfMoreThanAllMemoryThrows)
{
    EXPECT_THROW(LargeTable{std::size_t(1) << 56}, std::bad_alloc);
}
#endif

} // namespace details
} // namespace math
} // namespace ovrix
