#include <OVRIXSerialization/BinaryIArchive.h>
#include <OVRIXSerialization/BinaryOArchive.h>
#include <OVRIXSerialization/TextIArchive.h>
#include <OVRIXSerialization/TextOArchive.h>

#include <boost/filesystem.hpp>
#include <gmock/gmock.h>

#include <fstream>
#include <string>
#include <support/HeaderExample.h>
#include <support/SerializableObjects.h>

namespace ovrix
{
namespace test
{

namespace
{

// The examples of the archives' headers and of the guide, word for word.

void writeText(const Circle& results)
{
    std::ofstream file("results.xml", std::ios::binary);
    TextOArchive archive(file);
    archive << makeOItem("results", results);
    archive.close();
}

void readText(Circle& results)
{
    std::ifstream file("results.xml", std::ios::binary);
    TextIArchive archive(file);
    archive >> makeIItem("results", results);
}

void writeBinary(const Circle& results)
{
    std::ofstream file("results.bin", std::ios::binary);
    BinaryOArchive archive(file);
    archive << makeOItem("results", results);
    archive.close();
}

void readBinary(Circle& results)
{
    std::ifstream file("results.bin", std::ios::binary);
    BinaryIArchive archive(file);
    archive >> makeIItem("results", results);
}

void writeAsInTheGuide(const Circle& results)
{
    // clang-format off
    std::ofstream file("results.bin", std::ios::binary);
    BinaryOArchive archive(file);                 // or TextOArchive
    archive << makeOItem("results", results);
    archive.close();                              // raises when the stream has failed
    // clang-format on
}

void readAsInTheGuide(Circle& results)
{
    // clang-format off
    std::ifstream file("results.bin", std::ios::binary);
    BinaryIArchive archive(file);                 // or TextIArchive
    archive >> makeIItem("results", results);
    // clang-format on
}

/// Runs the examples where the files of tests go.
class ArchiveExamples : public ::testing::Test
{
protected:
    void SetUp() override
    {
        boost::filesystem::current_path(OVRIX_TEST_OUTPUT_DIR);
    }

    void TearDown() override
    {
        boost::filesystem::current_path(_path);
    }

private:
    const boost::filesystem::path _path = boost::filesystem::current_path();
};

template <class Write, class Read>
void expectPasses(const Write& write, const Read& read)
{
    Circle restored;
    write(Circle("round", 2.5));
    read(restored);
    EXPECT_EQ(restored._name, "round");
    EXPECT_EQ(restored._radius, 2.5);
}

} // namespace

TEST_F(ArchiveExamples, ThoseOfTheHeadersCompile)
{
    const std::string code = readCode(__FILE__);
    for (const char* name : {"TextOArchive", "TextIArchive", "BinaryOArchive", "BinaryIArchive"})
        EXPECT_THAT(code, ::testing::HasSubstr(readExample(std::string("OVRIXSerialization/") + name + ".h"))) << name;
}

TEST_F(ArchiveExamples, ThoseOfTheGuideCompile)
{
    const std::string code = readCode(__FILE__);
    for (const std::string& example : readGuideExamples("docs/guides/archives.md"))
        EXPECT_THAT(code, ::testing::HasSubstr(example));
}

TEST_F(ArchiveExamples, ATextArchivePasses)
{
    expectPasses(writeText, readText);
}

TEST_F(ArchiveExamples, ABinaryArchivePasses)
{
    expectPasses(writeBinary, readBinary);
    expectPasses(writeAsInTheGuide, readAsInTheGuide);
}

} // namespace test
} // namespace ovrix
