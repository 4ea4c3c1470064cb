#include <OVRIXSerialization/ArchiveSectionManager.h>
#include <OVRIXSerialization/TextOArchive.h>

#include <cstdint>
#include <cstring>
#include <limits>
#include <sstream>
#include <string_view>
#include <support/ArchiveForms.h>
#include <support/ExpectFailure.h>

namespace ovrix
{
namespace test
{

namespace
{

const std::string g_head = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

/// The text of an archive that holds one item of that value.
template <class T>
std::string getText(const T& value)
{
    const std::string bytes = save<TextForm>(value);
    const std::string::size_type begin = bytes.find("\">", bytes.find("<item")) + 2;
    return bytes.substr(begin, bytes.find("</item>") - begin);
}

double fromBits(std::uint64_t bits)
{
    double value;
    std::memcpy(&value, &bits, sizeof(value));
    return value;
}

} // namespace

TEST(TextOArchive, AnArchiveIsXml)
{
    const std::string bytes = writeArchive<TextForm>(
        [](BaseOArchive& archive)
        {
            archive << makeOItem("count", 3u);
            const ArchiveSectionManager section(archive, "a < b");
            archive << makeOItem("name", std::string("x & y")) << makeOItem("empty", std::string());
        });
    EXPECT_EQ(bytes, g_head + "<archive format=\"OVRIXArchive\" version=\"1\">\n"
                              "  <item name=\"count\" type=\"uint32\">3</item>\n"
                              "  <section name=\"a &lt; b\">\n"
                              "    <item name=\"name\" type=\"string\">x &amp; y</item>\n"
                              "    <item name=\"empty\" type=\"string\" />\n"
                              "  </section>\n"
                              "</archive>\n");
}

TEST(TextOArchive, AnEmptyArchiveIsARootElement)
{
    EXPECT_EQ(writeArchive<TextForm>([](BaseOArchive&) {}),
              g_head + "<archive format=\"OVRIXArchive\" version=\"1\" />\n");
}

TEST(TextOArchive, ARealValueIsItsShortestDecimal)
{
    EXPECT_EQ(getText(0.1), "0.1");
    EXPECT_EQ(getText(1.0 / 3.0), "0.3333333333333333");
    EXPECT_EQ(getText(1e22), "1e+22");
    EXPECT_EQ(getText(-0.0), "-0");
    EXPECT_EQ(getText(5e-324), "5e-324");
}

TEST(TextOArchive, InfinitiesHaveNames)
{
    EXPECT_EQ(getText(std::numeric_limits<double>::infinity()), "inf");
    EXPECT_EQ(getText(-std::numeric_limits<double>::infinity()), "-inf");
}

TEST(TextOArchive, TheUsualNanHasANameAndTheOthersTheirBits)
{
    EXPECT_EQ(getText(std::numeric_limits<double>::quiet_NaN()), "nan");
    EXPECT_EQ(getText(fromBits(0xFFF8000000000000)), "nan(fff8000000000000)");
    EXPECT_EQ(getText(fromBits(0x7FF8000000000ABC)), "nan(7ff8000000000abc)");
    EXPECT_EQ(getText(fromBits(0x7FF0000000000001)), "nan(7ff0000000000001)");
}

TEST(TextOArchive, WhatXmlCannotHoldIsEscaped)
{
    EXPECT_EQ(getText(std::string("a\\b\n\r\t")), "a\\\\b\\n\\r\\t");
    EXPECT_EQ(getText(std::string("\0\x1F\x7F", 3)), "\\x00\\x1f\x7F");
    EXPECT_EQ(getText(std::string("\xC3\xA4 \xC3 \xFF")), "\xC3\xA4 \\xc3 \\xff");
}

TEST(TextOArchive, BytesThatOnlyLookLikeUtf8AreEscaped)
{
    EXPECT_EQ(getText(std::string("\xC0\x80")), "\\xc0\\x80");
    EXPECT_EQ(getText(std::string("\xED\xA0\x80")), "\\xed\\xa0\\x80");
    EXPECT_EQ(getText(std::string("\xEF\xBF\xBE")), "\\xef\\xbf\\xbe");
    EXPECT_EQ(getText(std::string("\xF4\x90\x80\x80")), "\\xf4\\x90\\x80\\x80");
}

TEST(TextOArchive, TheFirstAndLastCharactersOfEachLengthStandForThemselves)
{
    for (const char* text : {"\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xEE\x80\x80", "\xEF\xBF\xBD",
                             "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"})
        EXPECT_EQ(getText(std::string(text)), text);
}

TEST(TextOArchive, BytesNextToThoseCharactersAreEscaped)
{
    EXPECT_EQ(getText(std::string("\x80")), "\\x80");
    EXPECT_EQ(getText(std::string("\xC1\xBF")), "\\xc1\\xbf");
    EXPECT_EQ(getText(std::string("\xE0\x9F\xBF")), "\\xe0\\x9f\\xbf");
    EXPECT_EQ(getText(std::string("\xED\xBF\xBF")), "\\xed\\xbf\\xbf");
    EXPECT_EQ(getText(std::string("\xEF\xBF\xBF")), "\\xef\\xbf\\xbf");
    EXPECT_EQ(getText(std::string("\xF0\x8F\xBF\xBF")), "\\xf0\\x8f\\xbf\\xbf");
}

TEST(TextOArchive, WhatStandsBehindATextIsNoPartOfItsLastCharacter)
{
    const std::string_view text = "\xC3\xA4";
    const std::string bytes =
        writeArchive<TextForm>([&](BaseOArchive& archive) { archive.writeItem("value", text.substr(0, 1)); });
    EXPECT_NE(bytes.find(">\\xc3</item>"), std::string::npos);
}

TEST(TextOArchive, NothingIsWrittenBeforeClose)
{
    std::ostringstream stream;
    TextOArchive archive(stream);
    archive << makeOItem("value", 1);
    EXPECT_EQ(stream.str(), "");
    archive.close();
    EXPECT_NE(stream.str(), "");
}

TEST(TextOArchive, ABlockRaises)
{
    std::ostringstream stream;
    TextOArchive archive(stream);
    expectRaises<OVRIXSerializationException>("Text archives hold no blocks", [&] { archive.writeBlock("abc", 3); });
}

} // namespace test
} // namespace ovrix
