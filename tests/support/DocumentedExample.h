#pragma once

#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <string>

namespace ovrix
{
namespace test
{

/// Text of a file of the project.
inline std::string readProjectFile(const std::string& path)
{
    std::ifstream file(OVRIX_PROJECT_DIR "/" + path);
    if (!file)
        throw std::runtime_error("No file " + path);
    return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

/// The first example of code in a header's comments, without the comment marks.
inline std::string readDocumentedExample(const std::string& header)
{
    std::istringstream lines(readProjectFile(header));
    std::string example;
    std::string line;
    while (std::getline(lines, line) && line != "/// ```cpp")
        ;
    while (std::getline(lines, line) && line != "/// ```")
        example += (line.size() > 4 ? line.substr(4) : "") + "\n";
    if (example.empty())
        throw std::runtime_error("No example in " + header);
    return example;
}

} // namespace test
} // namespace ovrix
