// What no archive holds: sections that are nested too deep, sizes that its form has no place for.

#include <OVRIXSerialization/NumberSerialization.h>

#include <cstddef>
#include <limits>
#include <string>
#include <support/ArchiveForms.h>
#include <support/BinaryArchiveBytes.h>
#include <support/ExpectFailure.h>

namespace ovrix
{
namespace test
{

namespace
{

constexpr std::size_t g_maxDepth = BaseArchive::s_maxSectionDepth;

/// The text of the failure that comes from one more section "s" in as many of that name.
std::string getDepthMessage()
{
    std::string path;
    for (std::size_t i = 0; i < g_maxDepth; ++i)
        path += "/s";
    return "Sections can't be nested deeper than 1000 levels, in section \"" + path + "\"";
}

template <class Archive>
void openTooMany(Archive& archive)
{
    for (std::size_t i = 0; i < g_maxDepth; ++i)
        archive.openSection("s");
    expectRaises<OVRIXSerializationException>(getDepthMessage(), [&] { archive.openSection("s"); });
}

} // namespace

template <class Form>
class ArchiveLimits : public ::testing::Test
{
};

TYPED_TEST_SUITE(ArchiveLimits, ArchiveForms);

TYPED_TEST(ArchiveLimits, SectionsNestedTooDeepAreNotWritten)
{
    std::ostringstream stream;
    typename TypeParam::OArchive archive(stream);
    openTooMany(archive);
}

TEST(ArchiveLimits, SectionsOfATextArchiveNestedTooDeepAreNotRead)
{
    std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<archive format=\"OVRIXArchive\" version=\"1\">\n";
    for (std::size_t i = 0; i <= g_maxDepth; ++i)
        text += "<section name=\"s\">";
    for (std::size_t i = 0; i <= g_maxDepth; ++i)
        text += "</section>";
    std::istringstream stream(text + "</archive>\n");
    TextIArchive archive(stream);
    openTooMany(archive);
}

TEST(ArchiveLimits, SectionsOfABinaryArchiveNestedTooDeepAreNotRead)
{
    std::string content("{\0\1s", 4);
    for (std::size_t i = 0; i < g_maxDepth; ++i)
        content += "{\1";
    content += std::string(g_maxDepth + 1, '}');
    std::istringstream stream(makeBinaryArchive({content}));
    BinaryIArchive archive(stream);
    openTooMany(archive);
}

TYPED_TEST(ArchiveLimits, SizesOfMoreThanThirtyTwoBitsAreNotWritten)
{
    const std::string bytes = writeArchive<TypeParam>(
        [](BaseOArchive& archive)
        {
            details::writeSize(archive, "most", std::numeric_limits<ovUInt32>::max());
            expectRaises<OVRIXSerializationException>(
                "Size 4294967296 is more than archives can hold, in section \"/\"",
                [&] { details::writeSize(archive, "size", std::size_t(1) << 32); });
        });
    EXPECT_FALSE(bytes.empty());
}

} // namespace test
} // namespace ovrix
