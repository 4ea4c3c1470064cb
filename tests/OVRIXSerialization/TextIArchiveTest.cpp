#include <OVRIXSerialization/ArchiveSectionManager.h>
#include <OVRIXSerialization/ContainerSerializationOperators.h>
#include <OVRIXSerialization/TextIArchive.h>

#include <cstdint>
#include <cstring>
#include <sstream>
#include <support/ArchiveForms.h>
#include <support/BoundedTime.h>
#include <support/ExpectFailure.h>
#include <vector>

namespace ovrix
{
namespace test
{

namespace
{

const std::string g_head = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

/// An archive of that content.
std::string wrap(const std::string& content)
{
    return g_head + "<archive format=\"OVRIXArchive\" version=\"1\">" + content + "</archive>\n";
}

/// An archive that holds one item "value" of that type and text.
std::string wrapItem(const std::string& type, const std::string& text)
{
    return wrap("<item name=\"value\" type=\"" + type + "\">" + text + "</item>");
}

template <class T>
T loadText(const std::string& type, const std::string& text)
{
    T value{};
    load<TextForm>(wrapItem(type, text), value);
    return value;
}

void open(const std::string& bytes)
{
    std::istringstream stream(bytes);
    TextIArchive archive(stream);
}

/// Expects that the bytes can't be opened as an archive.
void expectNotOpened(const std::string& text, const std::string& bytes)
{
    expectRaises<OVRIXSerializationException>(text, [&] { open(bytes); });
}

/// Expects that the text is no value of the type.
template <class T>
void expectInvalid(const std::string& type, const std::string& text)
{
    T value = T();
    expectRaises<OVRIXSerializationException>(
        "Item \"value\" holds \"" + text + "\", which is not a valid value of type " + type + ", in section \"/\"",
        [&] { load<TextForm>(wrapItem(type, text), value); });
    EXPECT_EQ(value, T());
}

/// Expects that the content is refused when its first entry is looked at.
void expectMalformed(const std::string& reason, std::size_t offset, const std::string& content)
{
    std::istringstream stream(wrap(content));
    TextIArchive archive(stream);
    expectRaises<OVRIXSerializationException>("Archive can't be parsed, " + reason + " at offset " +
                                                  std::to_string(wrap("").find("</archive>") + offset) +
                                                  ", in section \"/\"",
                                              [&] { archive.peekEntry(); });
}

} // namespace

TEST(TextIArchive, NumbersOfOtherWritersAreRead)
{
    EXPECT_EQ(loadText<double>("double", "1.50"), 1.5);
    EXPECT_EQ(loadText<double>("double", "25e-1"), 2.5);
    EXPECT_EQ(loadText<double>("double", "0.5000000000000000000"), 0.5);
    EXPECT_EQ(loadText<int>("int32", "-0012"), -12);
}

TEST(TextIArchive, BadNumbersRaise)
{
    for (const char* text : {"", " 1", "1 ", "+1", "1.0", "0x1", "2147483648", "-2147483649", "one"})
        expectInvalid<int>("int32", text);
    for (const char* text : {"-1", "4294967296"})
        expectInvalid<unsigned int>("uint32", text);
    for (const char* text : {"9223372036854775808", "-9223372036854775809"})
        expectInvalid<long>("int64", text);
    for (const char* text : {"18446744073709551616", "-1"})
        expectInvalid<unsigned long>("uint64", text);
    for (const char* text :
         {"", "1,5", "1.5.2", "1e999", "1e-999", "INF", "infinity", "NaN", "-nan", "nan()", "nan(7ff8)",
          "nan(3ff0000000000000)", "nan(7ff800000000000g)", "nan(7ff80000000000000", "nan[7ff8000000000000)", "0x1p3"})
        expectInvalid<double>("double", text);
    for (const char* text : {"", "0", "1", "True", "yes"})
        expectInvalid<bool>("bool", text);
}

TEST(TextIArchive, BadEscapesRaise)
{
    for (const char* text : {"\\", "a\\", "\\q", "\\x", "\\x1", "\\x1g", "\\X41"})
        expectInvalid<std::string>("string", text);
}

TEST(TextIArchive, ALongBadTextIsCutInTheMessage)
{
    int value = 0;
    expectRaises<OVRIXSerializationException>("Item \"value\" holds \"" + std::string(200, 'x') +
                                                  "...\", which is not a valid value of type int32, in section \"/\"",
                                              [&]
                                              { load<TextForm>(wrapItem("int32", std::string(100000, 'x')), value); });
}

TEST(TextIArchive, ANameThatIsTooLongRaises)
{
    for (const std::size_t size : {4097, 10000000})
    {
        std::istringstream stream(wrap("<section name=\"" + std::string(size, 'a') + "\"/>"));
        TextIArchive archive(stream);
        expectRaises<OVRIXSerializationException>("Name of " + std::to_string(size) +
                                                      " bytes is longer than the 4096 that archives can hold, in "
                                                      "section \"/\"",
                                                  [&] { archive.peekEntry(); });
    }
}

TEST(TextIArchive, TheLayoutOfTheXmlDoesNotMatter)
{
    int value = 0;
    const std::string bytes = "\xEF\xBB\xBF<?xml version='1.0'?><!-- hand-made -->\r\n\r\n"
                              "<archive version='1' format='OVRIXArchive'><!-- the only one -->\n\n"
                              "<section name='s'>   </section><item\ttype='int32' name='value'>7</item>  </archive>\n"
                              "<!-- end -->";
    readArchive<TextForm>(bytes,
                          [&](BaseIArchive& archive)
                          {
                              {
                                  const ArchiveSectionManager section(archive, "s");
                              }
                              archive >> makeIItem("value", value);
                          });
    EXPECT_EQ(value, 7);
}

TEST(TextIArchive, PredefinedAndNumericReferencesAreRead)
{
    EXPECT_EQ(loadText<std::string>("string", "&lt;&gt;&amp;&quot;&apos;&#65;&#x42;&#xE4;"), "<>&\"'AB\xC3\xA4");
}

TEST(TextIArchive, AReferenceMayHaveManyLeadingZeros)
{
    const std::string zeros(1000, '0');
    EXPECT_EQ(loadText<std::string>("string", "&#" + zeros + "65;&#x" + zeros + "42;"), "AB");
}

TEST(TextIArchive, CommentsAndProcessingInstructionsMayHoldAmpersands)
{
    int value = 0;
    load<TextForm>(wrap("<!-- R&D <&lol; --><?tool a & b?>"
                        "<item name=\"value\" type=\"int32\">7</item><!-- & -->"),
                   value);
    EXPECT_EQ(value, 7);
}

TEST(TextIArchive, UnknownEntitiesInTagsRaise)
{
    const std::string begin = g_head + "<archive format=\"OVRIXArchive\" version=\"1\"><item name='>";
    expectNotOpened("Archive can't be parsed, there is a reference to an unknown entity at offset " +
                        std::to_string(begin.size()) + ", in section \"/\"",
                    begin + "&lol;' type=\"int32\">1</item></archive>");
}

TEST(TextIArchive, ATagInATagRaises)
{
    const std::string begin = g_head + "<archive format=\"OVRIXArchive\" version=\"1\"><item name=\"";
    expectNotOpened("Archive can't be parsed, there is a < inside of a tag at offset " + std::to_string(begin.size()) +
                        ", in section \"/\"",
                    begin + "<!-- &lol; -->\" type=\"int32\">1</item></archive>");
}

TEST(TextIArchive, UnknownEntitiesRaise)
{
    const std::string begin = g_head + "<archive format=\"OVRIXArchive\" version=\"1\">";
    const std::string offset = std::to_string(begin.size());
    for (const char* reference :
         {"&lol;", "&;", "&", "&amp", "&#0;", "&#x1F;", "&#xD800;", "&#x110000;", "&#;", "&#-1;"})
        expectNotOpened("Archive can't be parsed, there is a reference to an unknown entity at offset " + offset +
                            ", in section \"/\"",
                        begin + reference + "</archive>");
}

TEST(TextIArchive, ManyAmpersandsTakeLittleTime)
{
    const auto read = []
    {
        std::istringstream stream("<" + std::string(4000000, '&'));
        try
        {
            TextIArchive archive(stream);
        }
        catch (const OVRIXSerializationException&)
        {
        }
    };
    expectEnds("", {{"ampersands", read}});
}

TEST(TextIArchive, ADocumentTypeIsRefused)
{
    expectNotOpened("Input is not an archive, it does not begin with the root element of text archives",
                    "<?xml version=\"1.0\"?><!DOCTYPE archive [<!ENTITY a \"aaaa\"><!ENTITY b \"&amp;&amp;\">]>"
                    "<archive format=\"OVRIXArchive\" version=\"1\"></archive>");
}

TEST(TextIArchive, WhatIsNoXmlIsNotAnArchive)
{
    expectNotOpened("Input is not an archive, it is empty", "");
    expectNotOpened("Input is not an archive, it is empty", " \n ");
    expectNotOpened("Input is not an archive, it is empty", " \n \t \r\n ");
    expectNotOpened("Input is not an archive, it is empty", "\xEF\xBB\xBF");
    expectNotOpened("Input is not an archive, it is no XML", "\xEF\xBB<archive/>");
    expectNotOpened("Input is not an archive, it is no XML", "name,value\n1,2\n");
    expectNotOpened("Input is not an archive, it is no XML", save<BinaryForm>(1));
    expectNotOpened("Input is not an archive, it is no XML", std::string("\xFF\xFE<\0a\0", 6));
}

TEST(TextIArchive, OtherXmlIsNotAnArchive)
{
    const std::string text = "Input is not an archive, it does not begin with the root element of text archives";
    expectNotOpened(text, "<html></html>");
    expectNotOpened(text, "<archive version=\"1\"></archive>");
    expectNotOpened(text, "<archive format=\"other\" version=\"1\"></archive>");
    expectNotOpened(text, g_head);
}

TEST(TextIArchive, AVersionThatIsNoneIsNotAnArchive)
{
    for (const char* version : {"", "0", "-1", "1.0", "one"})
        expectNotOpened("Input is not an archive, it has no valid format version",
                        std::string("<archive format=\"OVRIXArchive\" version=\"") + version + "\"></archive>");
}

TEST(TextIArchive, ANewerFormatRaises)
{
    expectNotOpened("Archive has format version 2, which is newer than supported version 1",
                    "<archive format=\"OVRIXArchive\" version=\"2\"></archive>");
}

TEST(TextIArchive, AnotherEncodingRaises)
{
    expectNotOpened("Input is not an archive, it is not encoded in UTF-8",
                    "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>"
                    "<archive format=\"OVRIXArchive\" version=\"1\"></archive>");
}

TEST(TextIArchive, TheNameOfTheEncodingHasNoCase)
{
    for (const char* encoding : {"UTF-8", "utf-8", "Utf-8"})
        open(std::string("<?xml version=\"1.0\" encoding=\"") + encoding + "\"?>" + wrap("").substr(g_head.size()));
}

TEST(TextIArchive, BytesThatAreNoUtf8Raise)
{
    const std::string begin = g_head + "<archive format=\"OVRIXArchive\" version=\"1\"><item name=\"";
    for (const char* bytes : {"\xE4", "\x01", "\xC0\x80", "\xF8\x88\x80\x80\x80"})
        expectNotOpened(
            "Archive can't be parsed, there is a byte that is part of no XML character in UTF-8 at offset " +
                std::to_string(begin.size()) + ", in section \"/\"",
            begin + bytes + "\" type=\"int32\">1</item></archive>");
}

TEST(TextIArchive, AnArchiveThatIsCutShortRaises)
{
    const std::string bytes = save<TextForm>(std::vector<double>{1.0, 2.0});
    const std::string text = "Archive is cut short, expecting its end, in section \"/\"";
    expectNotOpened(text, bytes.substr(0, bytes.size() - 2));
    expectNotOpened(text, bytes.substr(0, bytes.size() / 2));
    expectNotOpened(text, bytes.substr(0, 20));
    expectNotOpened(text, bytes.substr(0, bytes.find("</archive>")) + "<!-- <archive/> ");
    expectNotOpened(text, "<html><p></p>");
}

TEST(TextIArchive, BrokenXmlThatIsCompleteIsNotCutShort)
{
    const std::string broken = "<item name=a type=\"int32\">1</item>";
    for (const std::string& bytes : {wrap(broken), wrap(broken) + "<!-- end -->", wrap("<section name=\"s\">"),
                                     wrap("\xFF") + "<!-- end -->", std::string("<archive format=1/> "),
                                     std::string("<html lang=en></html>"), std::string("</b><html lang=en></html>")})
    {
        try
        {
            open(bytes);
            ADD_FAILURE() << bytes;
        }
        catch (const OVRIXSerializationException& exception)
        {
            EXPECT_EQ(std::string(exception.what()).substr(0, 24), "Archive can't be parsed,") << bytes;
        }
    }
}

TEST(TextIArchive, ThePlaceCountsWhatStandsBeforeTheXml)
{
    const std::string begin = "\xEF\xBB\xBF \r\n\t";
    expectNotOpened("Archive can't be parsed, there is a reference to an unknown entity at offset " +
                        std::to_string(begin.size() + wrap("").find("</archive>")) + ", in section \"/\"",
                    begin + wrap("&lol;"));
}

TEST(TextIArchive, BrokenXmlRaises)
{
    EXPECT_THROW(open(wrap("<item name=\"a\" type=\"int32\">1</section>")), OVRIXSerializationException);
    EXPECT_THROW(open(wrap("<item name=a type=\"int32\">1</item>")), OVRIXSerializationException);
    EXPECT_THROW(open(wrap("<")), OVRIXSerializationException);
}

TEST(TextIArchive, ContentBehindTheRootRaises)
{
    expectNotOpened("Archive holds an element behind its end", wrap("") + wrap("").substr(g_head.size()));
    expectNotOpened("Archive holds a text behind its end", wrap("") + "more");
    expectNotOpened("Archive holds something else behind its end", wrap("") + "<![CDATA[more]]>");
}

TEST(TextIArchive, EntriesThatAreNoneRaise)
{
    expectMalformed("there is an unknown element", 1, "<thing name=\"a\"/>");
    expectMalformed("there is something else than an element", 0, "text<item name=\"a\" type=\"int32\">1</item>");
    expectMalformed("there is an element with wrong attributes", 1, "<item name=\"a\">1</item>");
    expectMalformed("there is an element with wrong attributes", 1, "<section name=\"a\" type=\"int32\"/>");
    expectMalformed("there is an element with wrong attributes", 1, "<section/>");
    expectMalformed("there is an element without a valid name", 1, "<section nom=\"a\"/>");
    expectMalformed("there is an element without a valid name", 1, "<section name=\"\\z\"/>");
    expectMalformed("there is an item without a valid type", 1, "<item name=\"a\" type=\"int16\">1</item>");
    expectMalformed("there is an item without a valid type", 1, "<item name=\"a\" name=\"b\">1</item>");
}

TEST(TextIArchive, AnItemThatHoldsMoreThanATextRaises)
{
    int value = 0;
    for (const char* text : {"1<!-- -->2", "1<!-- --> ", " <!-- -->", "<!-- -->1", "1<?tool?>",
                             "<item name=\"b\" type=\"int32\">1</item>", "<![CDATA[1]]>", "1<b/>"})
        EXPECT_THROW(load<TextForm>(wrapItem("int32", text), value), OVRIXSerializationException) << text;
}

TEST(TextIArchive, DeepNestingRaises)
{
    std::string content;
    for (int i = 0; i < 100000; ++i)
        content += "<section name=\"s\">";
    for (int i = 0; i < 100000; ++i)
        content += "</section>";
    std::istringstream stream(wrap(content));
    TextIArchive archive(stream);
    for (std::size_t i = 0; i < BaseArchive::s_maxSectionDepth; ++i)
        archive.openSection("s");
    EXPECT_THROW(archive.openSection("s"), OVRIXSerializationException);
}

TEST(TextIArchive, ALongNameIsCutInTheMessage)
{
    int value = 0;
    const std::string name(4096, 'n');
    expectRaises<OVRIXSerializationException>(
        "Expecting item \"value\" while archive holds item \"" + name.substr(0, 200) + "...\", in section \"/\"",
        [&] { load<TextForm>(wrap("<item name=\"" + name + "\" type=\"int32\">1</item>"), value); });
}

TEST(TextIArchive, ABlockRaises)
{
    std::istringstream stream(wrap(""));
    TextIArchive archive(stream);
    char byte = 0;
    expectRaises<OVRIXSerializationException>("Text archives hold no blocks", [&] { archive.readBlock(&byte, 1); });
}

} // namespace test
} // namespace ovrix
