#include <OVRIXSerialization/NameIndex.h>

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace ovrix
{
namespace test
{

using details::NameIndex;

TEST(NameIndex, AnUnknownNameHasNoNumber)
{
    NameIndex index;
    EXPECT_EQ(index.find(""), 0u);
    index.add("known");
    EXPECT_EQ(index.find("unknown"), 0u);
    EXPECT_EQ(index.find(""), 0u);
}

TEST(NameIndex, NumbersCountFromOne)
{
    NameIndex index;
    EXPECT_EQ(index.add("a"), 1u);
    EXPECT_EQ(index.add(""), 2u);
    EXPECT_EQ(index.add("b"), 3u);
    EXPECT_EQ(index.find("a"), 1u);
    EXPECT_EQ(index.find(""), 2u);
    EXPECT_EQ(index.find("b"), 3u);
}

TEST(NameIndex, NamesAreFoundInAnyOrder)
{
    NameIndex index;
    std::vector<std::string> names;
    for (int i = 0; i < 100; ++i)
    {
        names.push_back("name " + std::to_string(i));
        index.add(names.back());
    }
    std::mt19937 generator(1);
    for (int i = 0; i < 10000; ++i)
    {
        const std::size_t number = generator() % names.size();
        EXPECT_EQ(index.find(names[number]), number + 1);
        EXPECT_EQ(index.find(names[number] + " "), 0u);
    }
}

TEST(NameIndex, TheBytesCountAndNotWhereTheyStand)
{
    NameIndex index;
    std::string name = "first";
    index.add(name);
    EXPECT_EQ(index.find(name), 1u);
    name = "other";
    EXPECT_EQ(index.find(name), 0u);
    EXPECT_EQ(index.find("first"), 1u);
}

TEST(NameIndex, NamesStayWhereTheyAre)
{
    NameIndex index;
    index.add("first");
    const std::string_view first = index.getName(1);
    for (int i = 0; i < 1000; ++i)
        index.add(std::to_string(i));
    EXPECT_EQ(index.getName(1).data(), first.data());
    EXPECT_EQ(index.getName(1), "first");
    EXPECT_EQ(index.getName(1001), "999");
}

} // namespace test
} // namespace ovrix
