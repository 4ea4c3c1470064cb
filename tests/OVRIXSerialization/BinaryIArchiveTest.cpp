#include <OVRIXSerialization/ArchiveSectionManager.h>
#include <OVRIXSerialization/BinaryIArchive.h>
#include <OVRIXSerialization/ByteOrder.h>

#include <cstdint>
#include <limits>
#include <sstream>
#include <string>
#include <support/ArchiveForms.h>
#include <support/BinaryArchiveBytes.h>
#include <support/ExpectFailure.h>
#include <vector>

namespace ovrix
{
namespace test
{

using std::string_literals::operator""s;

namespace
{

/// Looks at the first entry of the bytes.
ArchiveEntry peek(const std::string& bytes)
{
    std::istringstream stream(bytes);
    return BinaryIArchive(stream).peekEntry();
}

/// Expects that the bytes are refused when the first entry is looked at.
void expectRefused(const std::string& text, const std::string& bytes)
{
    expectRaises<OVRIXSerializationException>(text, [&] { peek(bytes); });
}

/// The checksum in the header of a frame as a number of 16 hexadecimal digits.
std::string getChecksum(const std::string& frame)
{
    const char* const digits = "0123456789abcdef";
    std::string text;
    for (std::size_t i = 11; i >= 4; --i)
    {
        text += digits[static_cast<unsigned char>(frame[i]) >> 4];
        text += digits[static_cast<unsigned char>(frame[i]) & 15];
    }
    return text;
}

} // namespace

TEST(BinaryIArchive, EntriesMayBeCutByFramesAnywhere)
{
    const std::string content = "i\0\5value\1\2\3\4#\3abc{\1}s\1\2xy"s;
    for (std::size_t cut = 1; cut < content.size(); ++cut)
        readArchive<BinaryForm>(makeBinaryArchive({content.substr(0, cut), content.substr(cut)}),
                                [&](BaseIArchive& archive)
                                {
                                    int number = 0;
                                    char block[3];
                                    std::string text;
                                    archive >> makeIItem("value", number);
                                    archive.readBlock(block, 3);
                                    {
                                        const ArchiveSectionManager section(archive, "value");
                                    }
                                    archive >> makeIItem("value", text);
                                    EXPECT_EQ(number, 0x04030201);
                                    EXPECT_EQ(std::string(block, 3), "abc");
                                    EXPECT_EQ(text, "xy");
                                });
}

TEST(BinaryIArchive, FramesOfOneByteAreRead)
{
    int value = 0;
    load<BinaryForm>(makeBinaryArchive({"i", "\0"s, "\5", "v", "a", "l", "u", "e", "\1", "\0"s, "\0"s, "\0"s, ""}),
                     value);
    EXPECT_EQ(value, 1);
}

TEST(BinaryIArchive, ABlockOfManyFramesIsRead)
{
    std::string block;
    for (int i = 0; i < 3000000; ++i)
        block += static_cast<char>(i * 7 / 5);
    const std::string bytes =
        writeArchive<BinaryForm>([&](BaseOArchive& archive) { archive.writeBlock(block.data(), block.size()); });
    readArchive<BinaryForm>(bytes,
                            [&](BaseIArchive& archive)
                            {
                                std::string restored(block.size(), ' ');
                                archive.readBlock(&restored[0], restored.size());
                                EXPECT_TRUE(restored == block);
                            });
}

TEST(BinaryIArchive, TheNextEntryCanBeLookedAt)
{
    std::istringstream stream(makeBinaryArchive({"{\0\1s#\3abcd\1\0\0\0\0\0\0\xF0\x3F}"s}));
    BinaryIArchive archive(stream);
    EXPECT_EQ(archive.peekEntry().type, eAE_Section);
    EXPECT_EQ(archive.peekEntry().name, "s");
    archive.openSection("s");
    EXPECT_EQ(archive.peekEntry().type, eAE_Block);
    EXPECT_EQ(archive.peekEntry().blockSize, 3u);
    char block[3];
    archive.readBlock(block, 3);
    EXPECT_EQ(archive.peekEntry().type, eAE_Double);
    double value = 0.0;
    archive >> makeIItem("s", value);
    EXPECT_EQ(archive.peekEntry().type, eAE_SectionEnd);
    archive.closeSection();
    EXPECT_EQ(archive.peekEntry().type, eAE_ArchiveEnd);
}

TEST(BinaryIArchive, ANameThatHasANumberAlreadyRaises)
{
    std::istringstream stream(makeBinaryArchive({"i\0\1a\1\0\0\0i\0\1a\1\0\0\0"s}));
    BinaryIArchive archive(stream);
    int value = 0;
    archive >> makeIItem("a", value);
    expectRaises<OVRIXSerializationException>(
        "Archive can't be parsed, there is a name that has a number already at offset 12, in section \"/\"",
        [&] { archive >> makeIItem("a", value); });
}

TEST(BinaryIArchive, OtherInputIsNotAnArchive)
{
    const std::string text = "Input is not an archive, it does not begin with the magic number of binary archives";
    expectRefused("Input is not an archive, it is empty", "");
    expectRefused(text, save<TextForm>(1));
    expectRefused(text, "x");
    expectRefused(text, "\x89OVR\n\x1A\n"); // after a transfer as text
    expectRefused("Input is not an archive, it has format version 0", makeBinaryHeader(0));
}

TEST(BinaryIArchive, ANewerFormatRaises)
{
    expectRefused("Archive has format version 2, which is newer than supported version 1", makeBinaryHeader(2));
}

TEST(BinaryIArchive, AnArchiveThatIsCutShortRaises)
{
    const std::string bytes = save<BinaryForm>(1);
    int value = 0;
    const auto expectCut = [&](const std::string& missing, std::size_t size)
    {
        expectRaises<OVRIXSerializationException>("Archive is cut short, expecting " + missing + ", in section \"/\"",
                                                  [&] { load<BinaryForm>(bytes.substr(0, size), value); });
    };
    expectCut("the header of the archive", 3);
    expectCut("the header of the archive", 11);
    expectCut("another frame", 12);
    expectCut("another frame", 23);
    expectCut("more of a frame", 24);
    expectCut("more of a frame", bytes.size() - 1);
}

TEST(BinaryIArchive, AnEntryThatIsCutByTheEndOfTheArchiveRaises)
{
    int value = 0;
    expectRaises<OVRIXSerializationException>(
        "Archive is cut short, expecting more content behind the last frame, in section \"/\"",
        [&] { load<BinaryForm>(makeBinaryArchive({"i\0\5value\1\2\3"s}), value); });
}

TEST(BinaryIArchive, AChangedByteRaises)
{
    const std::string frame = makeBinaryFrame("b\0\1a\1"s, 0, true);
    const std::string otherFrame = makeBinaryFrame("b\0\1a\0"s, 0, true);
    expectRefused("Frame 0 of archive has checksum " + getChecksum(frame) + " while its content gives " +
                      getChecksum(otherFrame) + ", in section \"/\"",
                  makeBinaryHeader() + frame.substr(0, 12) + otherFrame.substr(12));
}

TEST(BinaryIArchive, AChangedByteOfABlockThatFillsAFrameRaises)
{
    const std::string frame = makeBinaryFrame("abcde", 1, true);
    const std::string otherFrame = makeBinaryFrame("abxde", 1, true);
    std::istringstream stream(makeBinaryHeader() + makeBinaryFrame("#\5", 0, false) + frame.substr(0, 12) +
                              otherFrame.substr(12));
    BinaryIArchive archive(stream);
    char block[5];
    expectRaises<OVRIXSerializationException>("Frame 1 of archive has checksum " + getChecksum(frame) +
                                                  " while its content gives " + getChecksum(otherFrame) +
                                                  ", in section \"/\"",
                                              [&] { archive.readBlock(block, sizeof(block)); });
}

TEST(BinaryIArchive, FramesThatChangedPlacesRaise)
{
    const std::string first = "b\0\1a\1"s;
    const std::string second = "b\1\0"s;
    std::istringstream stream(makeBinaryHeader() + makeBinaryFrame(second, 1, false) + makeBinaryFrame(first, 0, true));
    BinaryIArchive archive(stream);
    EXPECT_THROW(archive.peekEntry(), OVRIXSerializationException);
}

TEST(BinaryIArchive, AFrameThatIsLostRaises)
{
    const std::string bytes =
        makeBinaryHeader() + makeBinaryFrame("b\0\1a\1"s, 0, false) + makeBinaryFrame("b\1\1"s, 2, true);
    std::istringstream stream(bytes);
    BinaryIArchive archive(stream);
    bool value = false;
    archive >> makeIItem("a", value);
    EXPECT_THROW(archive.peekEntry(), OVRIXSerializationException);
}

TEST(BinaryIArchive, FrameLengthsHaveARange)
{
    const std::string behind = std::string(8, '\0');
    expectRefused("Frame 0 of archive has length 0, which is not in [1, 1048576], in section \"/\"",
                  makeBinaryHeader() + "\0\0\0\0"s + behind);
    expectRefused("Frame 0 of archive has length 1048577, which is not in [1, 1048576], in section \"/\"",
                  makeBinaryHeader() + "\1\0\x10\0"s + behind);
    expectRefused("Frame 0 of archive has length 1048577, which is not in [0, 1048576], in section \"/\"",
                  makeBinaryHeader() + "\1\0\x10\x80"s + behind);
    expectRefused("Archive is cut short, expecting more of a frame, in section \"/\"",
                  makeBinaryHeader() + "\0\0\x10\0"s + behind);
}

TEST(BinaryIArchive, BytesThatAreNoEntryRaise)
{
    expectRefused("Archive can't be parsed, there is an unknown tag at offset 1, in section \"/\"",
                  makeBinaryArchive({"x"}));
    expectRefused(
        "Archive can't be parsed, there is a name number that was given to no name at offset 2, in section \"/\"",
        makeBinaryArchive({"b\1\1"s}));
    expectRefused("Archive can't be parsed, there is a number of more than 64 bits at offset 11, in section \"/\"",
                  makeBinaryArchive({"#\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x02"s}));
    expectRefused("Archive can't be parsed, there is a number of more than 64 bits at offset 11, in section \"/\"",
                  makeBinaryArchive({"#\x80\x80\x80\x80\x80\x80\x80\x80\x80\x80\x01"s}));
}

TEST(BinaryIArchive, ThePlaceCountsTheFramesThatABlockFills)
{
    std::istringstream stream(makeBinaryArchive({"#\5", "ab", "cde", "x"}));
    BinaryIArchive archive(stream);
    char block[5];
    archive.readBlock(block, sizeof(block));
    expectRaises<OVRIXSerializationException>(
        "Archive can't be parsed, there is an unknown tag at offset 8, in section \"/\"", [&] { archive.peekEntry(); });
}

TEST(BinaryIArchive, SizesHaveUpTo64Bits)
{
    EXPECT_EQ(peek(makeBinaryArchive({"#\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x01"s})).blockSize,
              std::numeric_limits<std::uint64_t>::max());
}

TEST(BinaryIArchive, TheNumberOfTheNameAfterTheLastOneRaises)
{
    std::istringstream stream(makeBinaryArchive({"i\0\1a\1\0\0\0i\2\2\0\0\0i\1\3\0\0\0"s}));
    BinaryIArchive archive(stream);
    int value = 0;
    archive >> makeIItem("a", value);
    expectRaises<OVRIXSerializationException>(
        "Archive can't be parsed, there is a name number that was given to no name at offset 10, in section \"/\"",
        [&] { archive >> makeIItem("a", value); });
}

TEST(BinaryIArchive, SizesMayTakeMoreBytesThanTheyNeed)
{
    // The name "a" under the number 0, then under the number 1, in two and in three bytes.
    const std::string content = "i\x80\0\x81\x80\0a\1\0\0\0i\x81\0\2\0\0\0i\x81\x80\0\3\0\0\0#\x83\0xyz"s;
    readArchive<BinaryForm>(makeBinaryArchive({content}),
                            [](BaseIArchive& archive)
                            {
                                for (int i = 1; i <= 3; ++i)
                                {
                                    int value = 0;
                                    archive >> makeIItem("a", value);
                                    EXPECT_EQ(value, i);
                                }
                                char block[3];
                                archive.readBlock(block, 3);
                                EXPECT_EQ(std::string(block, 3), "xyz");
                            });
}

TEST(BinaryIArchive, ATruthThatIsNeitherRaises)
{
    bool value = true;
    expectRaises<OVRIXSerializationException>(
        "Item \"value\" holds \"2\", which is not a valid value of type bool, in section \"/\"",
        [&] { load<BinaryForm>(makeBinaryArchive({"b\0\5value\2"s}), value); });
    EXPECT_TRUE(value);
}

TEST(BinaryIArchive, ASizeBeyondTheInputRaises)
{
    std::string value = "kept";
    expectRaises<OVRIXSerializationException>(
        "Size 4294967295 is more than the 3 that what is left of archive can hold, in section \"/\"",
        [&]
        {
            load<BinaryForm>(makeBinaryArchive({"s\0\5value\xFF\xFF\xFF\xFF\x0F"
                                                "abc"s}),
                             value);
        });
    EXPECT_EQ(value, "kept");
    expectRefused("Size 1000000 is more than the 2 that what is left of archive can hold, in section \"/\"",
                  makeBinaryArchive({"i\0\xC0\x84\x3D"
                                     "ab"s}));
}

TEST(BinaryIArchive, WhatStandsBeforeTheArchiveDoesNotCountAsInput)
{
    const std::string before(100, 'x');
    std::istringstream stream(before + makeBinaryArchive({"s\0\5value\4abc"s}));
    stream.ignore(100);
    BinaryIArchive archive(stream);
    std::string value;
    expectRaises<OVRIXSerializationException>(
        "Size 4 is more than the 3 that what is left of archive can hold, in section \"/\"",
        [&] { archive >> makeIItem("value", value); });
}

TEST(BinaryIArchive, ANameInAMessageIsFitToBePrinted)
{
    std::istringstream stream(makeBinaryArchive({"i\0\6\x1B[31m\n\1\0\0\0"s}));
    BinaryIArchive archive(stream);
    int value = 0;
    expectRaises<OVRIXSerializationException>(
        R"(Expecting item "value" while archive holds item "\x1b[31m\n", in section "/")",
        [&] { archive >> makeIItem("value", value); });
}

TEST(BinaryIArchive, ANameThatIsTooLongRaises)
{
    expectRefused("Name of 4097 bytes is longer than the 4096 that archives can hold, in section \"/\"",
                  makeBinaryArchive({"i\0\x81\x20"s + std::string(4097, 'a') + "\1\0\0\0"s}));
}

TEST(BinaryIArchive, ABlockOfAnotherSizeRaises)
{
    std::istringstream stream(makeBinaryArchive({"#\3abc"s}));
    BinaryIArchive archive(stream);
    char bytes[4];
    expectRaises<OVRIXSerializationException>(
        "Expecting a block of 4 bytes while archive holds a block of 3 bytes, in section \"/\"",
        [&] { archive.readBlock(bytes, 4); });
}

TEST(BinaryIArchive, AnItemInPlaceOfABlockRaises)
{
    std::istringstream stream(save<BinaryForm>(1));
    BinaryIArchive archive(stream);
    char bytes[4];
    expectRaises<OVRIXSerializationException>(
        "Expecting a block of 4 bytes while archive holds item \"value\", in section \"/\"",
        [&] { archive.readBlock(bytes, 4); });
}

TEST(BinaryIArchive, BytesOfElementsAreReversedForOtherMachines)
{
    char bytes[] = "abcdefgh";
    details::reverseElements(bytes, 2, 4);
    EXPECT_STREQ(bytes, "dcbahgfe");
    details::reverseElements(bytes, 0, 4);
    EXPECT_STREQ(bytes, "dcbahgfe");
}

} // namespace test
} // namespace ovrix
