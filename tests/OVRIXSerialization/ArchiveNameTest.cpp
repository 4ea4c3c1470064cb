#include <OVRIXSerialization/ArchiveName.h>

#include <gtest/gtest.h>

#include <string>

namespace ovrix
{
namespace test
{

TEST(ArchiveName, NamesOfTheSameBytesAreTheSame)
{
    for (std::size_t size = 0; size <= 40; ++size)
        EXPECT_TRUE(details::areSameNames(std::string(size, 'a'), std::string(size, 'a'))) << size;
}

TEST(ArchiveName, NamesThatDifferInOneByteAreNotTheSame)
{
    for (std::size_t size = 1; size <= 40; ++size)
    {
        for (std::size_t place = 0; place < size; ++place)
        {
            std::string other(size, 'a');
            other[place] = 'b';
            EXPECT_FALSE(details::areSameNames(std::string(size, 'a'), other)) << size << ' ' << place;
        }
    }
}

TEST(ArchiveName, NamesOfDifferentLengthsAreNotTheSame)
{
    for (std::size_t size = 0; size <= 40; ++size)
        EXPECT_FALSE(details::areSameNames(std::string(size, 'a'), std::string(size + 1, 'a'))) << size;
}

} // namespace test
} // namespace ovrix
