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

/// What stands between "```cpp" and "```" on the lines that begin with a mark, which is left out.
std::vector<std::string> readMarkedExamples(const std::string& path, const std::string& mark)
{
    std::ifstream file = openProjectFile(path);
    std::vector<std::string> examples;
    bool bInside = false;
    for (std::string line; std::getline(file, line);)
    {
        if (line.compare(0, mark.size(), mark) != 0)
            continue;
        const std::string text = withoutIndentation(line.substr(mark.size()));
        if (bInside && text == "```")
            bInside = false;
        else if (bInside)
            examples.back() += text + '\n';
        else if (text == "```cpp")
        {
            examples.emplace_back();
            bInside = true;
        }
    }
    if (examples.empty())
        throw std::runtime_error("No example in " + path);
    return examples;
}

} // namespace

std::string readExample(const std::string& header)
{
    return readExamples(header).front();
}

std::vector<std::string> readExamples(const std::string& header)
{
    return readMarkedExamples(header, "///");
}

std::vector<std::string> readGuideExamples(const std::string& guide)
{
    return readMarkedExamples(guide, "");
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
