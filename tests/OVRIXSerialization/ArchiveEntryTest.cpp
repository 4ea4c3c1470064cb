#include <OVRIXSerialization/ArchiveEntry.h>

#include <gtest/gtest.h>

namespace ovrix
{
namespace test
{

TEST(ArchiveEntry, ItemsHaveTheNamesOfTheirTypes)
{
    EXPECT_STREQ(getItemTypeName(eAE_Bool), "bool");
    EXPECT_STREQ(getItemTypeName(eAE_Int32), "int32");
    EXPECT_STREQ(getItemTypeName(eAE_UInt32), "uint32");
    EXPECT_STREQ(getItemTypeName(eAE_Int64), "int64");
    EXPECT_STREQ(getItemTypeName(eAE_UInt64), "uint64");
    EXPECT_STREQ(getItemTypeName(eAE_Double), "double");
    EXPECT_STREQ(getItemTypeName(eAE_String), "string");
}

TEST(ArchiveEntry, WhatIsNoItemHasNoTypeName)
{
    for (int type : {-1, int(eAE_Block), int(eAE_Section), int(eAE_SectionEnd), int(eAE_ArchiveEnd), 11})
        EXPECT_EQ(getItemTypeName(static_cast<eArchiveEntry>(type)), nullptr) << type;
}

TEST(ArchiveEntry, EntriesAreToldInWords)
{
    EXPECT_EQ(describe({eAE_Bool, "a", 0}), "item \"a\"");
    EXPECT_EQ(describe({eAE_String, "a", 0}), "item \"a\"");
    EXPECT_EQ(describe({eAE_Block, "", 24}), "a block of 24 bytes");
    EXPECT_EQ(describe({eAE_Section, "a", 0}), "section \"a\"");
    EXPECT_EQ(describe({eAE_SectionEnd, "", 0}), "the end of the section");
    EXPECT_EQ(describe({eAE_ArchiveEnd, "", 0}), "the end of the archive");
}

TEST(ArchiveEntry, NamesInWordsAreFitToBePrinted)
{
    EXPECT_EQ(describe({eAE_Int32, "\x1B[31m", 0}), "item \"\\x1b[31m\"");
    EXPECT_EQ(describe({eAE_Section, "\n", 0}), "section \"\\n\"");
}

} // namespace test
} // namespace ovrix
