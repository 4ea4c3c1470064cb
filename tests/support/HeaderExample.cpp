#include <fstream>
#include <stdexcept>
#include <support/HeaderExample.h>

namespace ovrix
{
namespace test
{

namespace
{

std::ifstream openProjectFile(const std::string& path)
{
    std::ifstream file(std::string(OVRIX_TEST_DATA_DIR) + "/../../" + path);
    if (!file)
        throw std::runtime_error("Cannot read " + path);
    return file;
}

std::string withoutIndentation(const std::string& line)
{
    const std::size_t start = line.find_first_not_of(' ');
    return start == std::string::npos ? std::string() : line.substr(start);
}

} // namespace

std::string readExample(const std::string& header)
{
    const std::string mark = "///";
    std::ifstream file = openProjectFile(header);
    std::string example;
    bool bInside = false;
    for (std::string line; std::getline(file, line);)
    {
        if (line.compare(0, mark.size(), mark) != 0)
            continue;
        const std::string text = withoutIndentation(line.substr(mark.size()));
        if (bInside && text == "```")
            return example;
        if (bInside)
            example += text + '\n';
        bInside = bInside || text == "```cpp";
    }
    throw std::runtime_error("No example in " + header);
}

std::string readCode(const std::string& source)
{
    std::ifstream file = openProjectFile(source);
    std::string code;
    for (std::string line; std::getline(file, line);)
        code += withoutIndentation(line) + '\n';
    return code;
}

} // namespace test
} // namespace ovrix
