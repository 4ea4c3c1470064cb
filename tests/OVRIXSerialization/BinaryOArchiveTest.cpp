#include <OVRIXSerialization/ArchiveSectionManager.h>
#include <OVRIXSerialization/BinaryOArchive.h>

#include <cstdint>
#include <sstream>
#include <string>
#include <support/ArchiveForms.h>
#include <support/BinaryArchiveBytes.h>
#include <support/ExpectFailure.h>

namespace ovrix
{
namespace test
{

using std::string_literals::operator""s;

TEST(BinaryOArchive, AnEmptyArchiveIsAHeaderAndAnEmptyFrame)
{
    EXPECT_EQ(writeArchive<BinaryForm>([](BaseOArchive&) {}), makeBinaryArchive({""}));
}

TEST(BinaryOArchive, EachTypeHasATagAndALittleEndianForm)
{
    const std::string bytes = writeArchive<BinaryForm>(
        [](BaseOArchive& archive)
        {
            archive << makeOItem("a", true) << makeOItem("b", -2) << makeOItem("c", 0x01020304u) << makeOItem("d", -2L)
                    << makeOItem("e", 0x0102030405060708ul) << makeOItem("f", 1.0)
                    << makeOItem("g", std::string("xyz"));
        });
    EXPECT_EQ(bytes, makeBinaryArchive({"b\0\1a\1"
                                        "i\0\1b\xFE\xFF\xFF\xFF"
                                        "u\0\1c\4\3\2\1"
                                        "l\0\1d\xFE\xFF\xFF\xFF\xFF\xFF\xFF\xFF"
                                        "L\0\1e\x8\7\6\5\4\3\2\1"
                                        "d\0\1f\0\0\0\0\0\0\xF0\x3F"
                                        "s\0\1g\3xyz"s}));
}

TEST(BinaryOArchive, ANameStandsOnceAndIsANumberFromThenOn)
{
    const std::string bytes = writeArchive<BinaryForm>(
        [](BaseOArchive& archive)
        {
            archive << makeOItem("first", true) << makeOItem("second", true) << makeOItem("first", false);
            const ArchiveSectionManager section(archive, "second");
        });
    EXPECT_EQ(bytes, makeBinaryArchive({"b\0\5first\1"
                                        "b\0\6second\1"
                                        "b\1\0"
                                        "{\2}"s}));
}

TEST(BinaryOArchive, ABlockIsItsSizeAndItsBytes)
{
    const std::string bytes = writeArchive<BinaryForm>([](BaseOArchive& archive) { archive.writeBlock("abcdef", 6); });
    EXPECT_EQ(bytes, makeBinaryArchive({"#\6abcdef"s}));
}

TEST(BinaryOArchive, SizesTakeSevenBitsOfEachByte)
{
    const std::string block(300, 'x');
    const std::string bytes =
        writeArchive<BinaryForm>([&](BaseOArchive& archive) { archive.writeBlock(block.data(), block.size()); });
    EXPECT_EQ(bytes, makeBinaryArchive({"#\xAC\x02" + block}));
}

TEST(BinaryOArchive, ManyItemsAreCutInFramesOf64Kibibytes)
{
    const std::string first(65000, 'x');
    const std::string second(1000, 'y');
    const std::string bytes = writeArchive<BinaryForm>([&](BaseOArchive& archive)
                                                       { archive << makeOItem("a", first) << makeOItem("a", second); });
    const std::string content = "s\0\1a\xE8\xFB\3"s + first + "s\1\xE8\7" + second;
    EXPECT_EQ(bytes, makeBinaryArchive({content.substr(0, 65536), content.substr(65536)}));
}

TEST(BinaryOArchive, ALargeBlockHasFramesOfItsOwn)
{
    const std::string block(300000, 'x');
    const std::string bytes =
        writeArchive<BinaryForm>([&](BaseOArchive& archive) { archive.writeBlock(block.data(), block.size()); });
    EXPECT_EQ(bytes, makeBinaryArchive({"#\xE0\xA7\x12", block.substr(0, 262144), block.substr(262144)}));
}

TEST(BinaryOArchive, TheLastFrameIsNeverEmptyAfterALargeBlock)
{
    const std::string block(262144, 'x');
    const std::string bytes =
        writeArchive<BinaryForm>([&](BaseOArchive& archive) { archive.writeBlock(block.data(), block.size()); });
    EXPECT_EQ(bytes, makeBinaryArchive({"#\x80\x80\x10", block.substr(1), "x"}));
}

TEST(BinaryOArchive, ArchivesCanStandOneBehindTheOther)
{
    for (const std::size_t size : {1, 65530, 65536, 65537, 70000, 262144, 262145, 524288})
    {
        std::stringstream stream;
        for (int i = 0; i < 2; ++i)
        {
            BinaryOArchive archive(stream);
            archive << makeOItem("a", std::string(size, 'x'));
            archive.close();
        }
        for (int i = 0; i < 2; ++i)
        {
            BinaryIArchive archive(stream);
            std::string text;
            archive >> makeIItem("a", text);
            EXPECT_EQ(text.size(), size);
        }
    }
}

TEST(BinaryOArchive, AnArchiveOfNothingIsPassedByLookingAtItsEnd)
{
    std::stringstream stream;
    BinaryOArchive(stream).close();
    stream << "behind";
    BinaryIArchive archive(stream);
    EXPECT_EQ(archive.peekEntry().type, eAE_ArchiveEnd);
    EXPECT_EQ(stream.str().substr(static_cast<std::size_t>(stream.tellg())), "behind");
}

TEST(BinaryOArchive, AnArchiveThatIsNotReadToItsEndIsPassedByReadingTheRest)
{
    std::stringstream stream;
    {
        BinaryOArchive archive(stream);
        for (int i = 0; i < 20000; ++i)
            archive << makeOItem("value", i);
    }
    stream << "behind";
    BinaryIArchive archive(stream);
    int value = 0;
    while (archive.peekEntry().type != eAE_ArchiveEnd)
        archive >> makeIItem("value", value);
    EXPECT_EQ(value, 19999);
    EXPECT_EQ(stream.str().substr(static_cast<std::size_t>(stream.tellg())), "behind");
}

TEST(BinaryOArchive, TheExampleOfTheGuideIsWritten)
{
    const std::string bytes = writeArchive<BinaryForm>(
        [](BaseOArchive& archive)
        {
            archive << makeOItem("a", 1);
            const ArchiveSectionManager section(archive, "a");
        });
    EXPECT_EQ(bytes, "\x89\x4F\x56\x52\x0D\x0A\x1A\x0A"
                     "\x01\0\0\0"
                     "\x0B\0\0\x80"
                     "\x0F\x66\x6E\x06\xAC\x47\xD4\x80"
                     "\x69"
                     "\0\x01\x61"
                     "\x01\0\0\0"
                     "\x7B\x01"
                     "\x7D"s);
}

TEST(BinaryOArchive, TheStreamCanHoldMoreOnBothSides)
{
    std::stringstream stream;
    stream << "before";
    for (const int value : {1, 2})
    {
        BinaryOArchive archive(stream);
        archive << makeOItem("value", value);
        archive.close();
    }
    stream << "behind";

    std::string text(6, ' ');
    stream.read(&text[0], 6);
    EXPECT_EQ(text, "before");
    for (const int expected : {1, 2})
    {
        int value = 0;
        BinaryIArchive archive(stream);
        archive >> makeIItem("value", value);
        EXPECT_EQ(value, expected);
    }
    stream.read(&text[0], 6);
    EXPECT_EQ(text, "behind");
}

} // namespace test
} // namespace ovrix
