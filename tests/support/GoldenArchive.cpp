#include <boost/filesystem.hpp>

#include <fstream>
#include <iterator>
#include <support/GoldenArchive.h>

namespace ovrix
{
namespace test
{

std::string readFile(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << path;
    return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

std::string getGoldenArchivePath(const std::string& fileName)
{
    return std::string(OVRIX_TEST_DATA_DIR) + "/archives/v1/" + fileName;
}

std::string keepOutput(const std::string& fileName, const std::string& bytes)
{
    const boost::filesystem::path folder = boost::filesystem::path(OVRIX_TEST_OUTPUT_DIR) / "archives";
    boost::filesystem::create_directories(folder);
    const std::string path = (folder / fileName).string();
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
}

} // namespace test
} // namespace ovrix
