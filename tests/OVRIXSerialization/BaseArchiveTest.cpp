#include <OVRIXSerialization/ArchiveSectionManager.h>
#include <OVRIXSerialization/BaseArchive.h>

#include <stdexcept>
#include <string>
#include <support/ArchiveForms.h>
#include <support/ExpectFailure.h>

namespace ovrix
{
namespace test
{

template <class Form>
class BaseArchive : public ::testing::Test
{
};

TYPED_TEST_SUITE(BaseArchive, ArchiveForms);

TEST(BaseArchive, OnlyTextArchivesAreText)
{
    std::stringstream text;
    std::stringstream binary;
    TextOArchive textOut(text);
    BinaryOArchive binaryOut(binary);
    EXPECT_TRUE(textOut.isText());
    EXPECT_FALSE(binaryOut.isText());
    textOut.close();
    binaryOut.close();
    EXPECT_TRUE(TextIArchive(text).isText());
    EXPECT_FALSE(BinaryIArchive(binary).isText());
}

TYPED_TEST(BaseArchive, AVersionIsKnownOnceItIsRegistered)
{
    std::ostringstream stream;
    typename TypeParam::OArchive archive(stream);
    EXPECT_FALSE(archive.isClassVersionRegistred("test::A"));
    archive.registerClassVersion("test::A", 3);
    EXPECT_TRUE(archive.isClassVersionRegistred("test::A"));
    EXPECT_FALSE(archive.isClassVersionRegistred("test::B"));
    EXPECT_EQ(archive.getRegisterClassVersion("test::A"), 3u);
}

TYPED_TEST(BaseArchive, AVersionThatIsRegisteredAgainIsReplaced)
{
    std::ostringstream stream;
    typename TypeParam::OArchive archive(stream);
    archive.registerClassVersion("test::A", 3);
    archive.registerClassVersion("test::A", 4);
    EXPECT_EQ(archive.getRegisterClassVersion("test::A"), 4u);
}

TYPED_TEST(BaseArchive, AVersionThatIsNotRegisteredRaises)
{
    std::ostringstream stream;
    typename TypeParam::OArchive archive(stream);
    expectRaises<OVRIXSerializationException>("Class test::A has no version in archive",
                                              [&] { archive.getRegisterClassVersion("test::A"); });
}

TYPED_TEST(BaseArchive, ThePathNamesTheOpenSections)
{
    std::ostringstream stream;
    typename TypeParam::OArchive archive(stream);
    EXPECT_EQ(archive.getSectionPath(), "/");
    {
        const ArchiveSectionManager outer(archive, "outer");
        EXPECT_EQ(archive.getSectionPath(), "/outer");
        {
            const ArchiveSectionManager inner(archive, "inner");
            EXPECT_EQ(archive.getSectionPath(), "/outer/inner");
            EXPECT_EQ(archive.getSectionDepth(), 2u);
        }
        EXPECT_EQ(archive.getSectionPath(), "/outer");
    }
    EXPECT_EQ(archive.getSectionPath(), "/");
    EXPECT_EQ(archive.getSectionDepth(), 0u);
}

TYPED_TEST(BaseArchive, ThePathCutsLongNames)
{
    std::ostringstream stream;
    typename TypeParam::OArchive archive(stream);
    const ArchiveSectionManager whole(archive, std::string(200, 'a'));
    const ArchiveSectionManager cut(archive, std::string(201, 'b'));
    const ArchiveSectionManager inner(archive, "inner");
    EXPECT_EQ(archive.getSectionPath(), "/" + std::string(200, 'a') + "/" + std::string(200, 'b') + ".../inner");
}

TYPED_TEST(BaseArchive, ThePathIsFitToBePrinted)
{
    std::ostringstream stream;
    typename TypeParam::OArchive archive(stream);
    const ArchiveSectionManager whole(archive, "a\\b\n\x1B\x7F\xFF\xC3\xA4");
    const ArchiveSectionManager cut(archive, std::string(199, 'c') + "\xC3\xA4");
    EXPECT_EQ(archive.getSectionPath(), "/a\\b\\n\\x1b\\x7f\\xff\xC3\xA4/" + std::string(199, 'c') + "...");
}

TYPED_TEST(BaseArchive, SectionsPass)
{
    const std::string bytes = writeArchive<TypeParam>(
        [](BaseOArchive& archive)
        {
            const ArchiveSectionManager outer(archive, "outer");
            archive << makeOItem("a", 1);
            {
                const ArchiveSectionManager empty(archive, "empty");
            }
            archive << makeOItem("b", 2);
        });
    readArchive<TypeParam>(bytes,
                           [](BaseIArchive& archive)
                           {
                               int a = 0;
                               int b = 0;
                               const ArchiveSectionManager outer(archive, "outer");
                               archive >> makeIItem("a", a);
                               {
                                   const ArchiveSectionManager empty(archive, "empty");
                               }
                               archive >> makeIItem("b", b);
                               EXPECT_EQ(a, 1);
                               EXPECT_EQ(b, 2);
                           });
}

TYPED_TEST(BaseArchive, ASectionOfAnotherNameRaises)
{
    const std::string bytes = writeArchive<TypeParam>(
        [](BaseOArchive& archive)
        {
            const ArchiveSectionManager outer(archive, "outer");
            const ArchiveSectionManager found(archive, "found");
        });
    expectRaises<OVRIXSerializationException>(
        R"(Expecting section "wanted" while archive holds section "found", in section "/outer")",
        [&]
        {
            readArchive<TypeParam>(bytes,
                                   [](BaseIArchive& archive)
                                   {
                                       const ArchiveSectionManager outer(archive, "outer");
                                       const ArchiveSectionManager wanted(archive, "wanted");
                                   });
        });
}

TYPED_TEST(BaseArchive, AnItemInPlaceOfASectionRaises)
{
    const std::string bytes = save<TypeParam>(1);
    expectRaises<OVRIXSerializationException>(
        R"(Expecting section "value" while archive holds item "value", in section "/")",
        [&]
        {
            readArchive<TypeParam>(bytes,
                                   [](BaseIArchive& archive) { const ArchiveSectionManager wanted(archive, "value"); });
        });
}

TYPED_TEST(BaseArchive, AnItemBehindTheLastOneOfASectionRaises)
{
    const std::string bytes = writeArchive<TypeParam>(
        [](BaseOArchive& archive)
        {
            const ArchiveSectionManager section(archive, "section");
            archive << makeOItem("item", 1);
        });
    expectRaises<OVRIXSerializationException>(
        "Expecting the end of section \"/section\" while archive holds item \"item\"",
        [&]
        {
            readArchive<TypeParam>(bytes, [](BaseIArchive& archive)
                                   { const ArchiveSectionManager section(archive, "section"); });
        });
}

TYPED_TEST(BaseArchive, TheEndOfASectionInPlaceOfAnItemRaises)
{
    const std::string bytes =
        writeArchive<TypeParam>([](BaseOArchive& archive) { const ArchiveSectionManager section(archive, "section"); });
    expectRaises<OVRIXSerializationException>(
        "Expecting item \"item\" while archive holds the end of the section, in section \"/section\"",
        [&]
        {
            readArchive<TypeParam>(bytes,
                                   [](BaseIArchive& archive)
                                   {
                                       const ArchiveSectionManager section(archive, "section");
                                       int value = 0;
                                       archive >> makeIItem("item", value);
                                   });
        });
}

TYPED_TEST(BaseArchive, ASectionThatIsLeftByAnExceptionIsNotClosed)
{
    std::ostringstream stream;
    typename TypeParam::OArchive archive(stream);
    try
    {
        const ArchiveSectionManager section(archive, "section");
        throw std::runtime_error("left");
    }
    catch (const std::runtime_error&)
    {
    }
    EXPECT_EQ(archive.getSectionPath(), "/section");
}

TYPED_TEST(BaseArchive, ClosingWithoutAnOpenSectionRaises)
{
    std::ostringstream stream;
    typename TypeParam::OArchive archive(stream);
    expectRaises<OVRIXSerializationException>("No section is open that could be closed",
                                              [&] { archive.closeSection(); });
}

TYPED_TEST(BaseArchive, SectionsAreNestedToALimit)
{
    std::ostringstream stream;
    typename TypeParam::OArchive archive(stream);
    for (std::size_t i = 0; i < ovrix::BaseArchive::s_maxSectionDepth; ++i)
        archive.openSection("s");
    EXPECT_THROW(archive.openSection("s"), OVRIXSerializationException);
}

TYPED_TEST(BaseArchive, NamesOfTheGreatestLengthPass)
{
    const std::string name(ovrix::BaseArchive::s_maxNameSize, '\xFF');
    const std::string bytes = writeArchive<TypeParam>(
        [&](BaseOArchive& archive)
        {
            const ArchiveSectionManager section(archive, name);
            archive << makeOItem(name, 7);
        });
    readArchive<TypeParam>(bytes,
                           [&](BaseIArchive& archive)
                           {
                               const ArchiveSectionManager section(archive, name);
                               int value = 0;
                               archive >> makeIItem(name, value);
                               EXPECT_EQ(value, 7);
                           });
}

TYPED_TEST(BaseArchive, ALongerNameIsNotWritten)
{
    const std::string name(ovrix::BaseArchive::s_maxNameSize + 1, 'a');
    const std::string bytes = writeArchive<TypeParam>(
        [&](BaseOArchive& archive)
        {
            archive.openSection("section");
            const std::string text =
                R"(Name of 4097 bytes is longer than the 4096 that archives can hold, in section "/section")";
            expectRaises<OVRIXSerializationException>(text, [&] { archive << makeOItem(name, 1); });
            expectRaises<OVRIXSerializationException>(text, [&] { archive << makeOItem(name, std::string("a")); });
            expectRaises<OVRIXSerializationException>(text, [&] { archive.openSection(name); });
            archive.closeSection();
        });
    readArchive<TypeParam>(bytes,
                           [](BaseIArchive& archive) { const ArchiveSectionManager section(archive, "section"); });
}

} // namespace test
} // namespace ovrix
