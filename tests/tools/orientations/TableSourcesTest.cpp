#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <orientations/TableSources.h>
#include <orientations/TableText.h>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>

namespace ovrix
{
namespace orientations
{

namespace
{

const std::string g_folder = OVRIX_SOURCE_DIR "/OVRIXMath/Geometry/3d/ThomsonTables";

std::string readFile(const std::string& path)
{
    std::ifstream file(path);
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

} // namespace

TEST(TableSources, HaveATableInEachFunction)
{
    const std::string source = makeTableSource({{0.0, 0.0}, {0.0, 3.14159265358}});
    EXPECT_THAT(source, testing::HasSubstr("const ovReal64* solveThomsonProblem_002()\n"
                                           "{\n"
                                           "    static const ovReal64 tab[] = {\n"
                                           "        0, 0,\n"
                                           "        0, 3.14159265358,\n"
                                           "    };\n"
                                           "    static_assert(sizeof(tab) == 16 * 2);\n"
                                           "    return tab;\n"
                                           "}\n"));
    EXPECT_EQ(getSourceName(2), "ThomsonTable_002.cpp");
}

TEST(TableSources, SelectATableByItsNumberOfPoints)
{
    EXPECT_THAT(makeSelectionSource(2), testing::HasSubstr("static_assert(details::g_nbThomsonTables == 2);\n"
                                                           "\n"
                                                           "const ovReal64* details::selectThomsonTable(unsigned long "
                                                           "nbPoints)\n"
                                                           "{\n"
                                                           "    switch (nbPoints)\n"
                                                           "    {\n"
                                                           "    case 1:\n"
                                                           "        return solveThomsonProblem_001();\n"
                                                           "    case 2:\n"
                                                           "        return solveThomsonProblem_002();\n"
                                                           "    default:\n"
                                                           "        return nullptr;\n"
                                                           "    }\n"));
}

TEST(TableSources, NeedAllNumbersOfPoints)
{
    const std::string folder = OVRIX_TEST_OUTPUT_DIR "/table_sources";
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    try
    {
        writeSources({{1, {{0.0, 0.0}}}}, 2, folder);
        ADD_FAILURE();
    }
    catch (const std::runtime_error& error)
    {
        EXPECT_EQ(std::string(error.what()), "there is no table of 2 points");
    }
    EXPECT_TRUE(std::filesystem::is_empty(folder));
}

TEST(TableSources, TellWhichFileCannotBeWritten)
{
    try
    {
        writeSources({{1, {{0.0, 0.0}}}}, 1, "no/such/folder");
        ADD_FAILURE();
    }
    catch (const std::runtime_error& error)
    {
        EXPECT_EQ(std::string(error.what()), "no/such/folder/ThomsonTable_001.cpp can't be written");
    }
}

TEST(TableSources, OfTheLibraryAreMadeFromTheTablesOfTheProject)
{
    const std::string folder = OVRIX_TEST_OUTPUT_DIR "/library_table_sources";
    std::filesystem::create_directories(folder);
    writeSources(readTables(OVRIX_SOURCE_DIR "/tools/orientations/tables.txt"), 400, folder);
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
    {
        const std::string name = entry.path().filename().string();
        names.insert(name);
        EXPECT_TRUE(readFile(folder + "/" + name) == readFile(g_folder + "/" + name))
            << name << " is out of date; run: orientations sources tools/orientations/tables.txt --folder " << g_folder;
    }
    for (const auto& entry : std::filesystem::directory_iterator(g_folder))
    {
        if (entry.path().extension() == ".cpp")
        {
            EXPECT_EQ(names.count(entry.path().filename().string()), 1u) << entry.path();
        }
    }
    EXPECT_EQ(names.size(), 401u);
}

} // namespace orientations
} // namespace ovrix
