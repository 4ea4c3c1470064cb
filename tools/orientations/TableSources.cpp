#include "TableSources.h"

#include "TableCheck.h"
#include "TableText.h"

#include <cstdio>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <vector>

namespace ovrix
{
namespace orientations
{

namespace
{

const char* const g_head = "// Made by tools/orientations from its tables.txt; see docs/guides/orientations.md.\n";

const char* const g_selectionName = "ThomsonTables.cpp";

/// The number of points as the names of files and functions have it.
std::string getSuffix(std::size_t nbPoints)
{
    char suffix[24];
    std::snprintf(suffix, sizeof(suffix), "%03zu", nbPoints);
    return suffix;
}

/// The function that returns the table of that many points.
std::string getFunction(std::size_t nbPoints)
{
    return "solveThomsonProblem_" + getSuffix(nbPoints) + "()";
}

void writeFile(const std::string& path, const std::string& content)
{
    std::ofstream file(path);
    file << content;
    file.close();
    if (!file)
        throw std::runtime_error(path + " can't be written");
}

} // namespace

std::string getSourceName(std::size_t nbPoints)
{
    return "ThomsonTable_" + getSuffix(nbPoints) + ".cpp";
}

std::string makeTableSource(const Records& records)
{
    std::ostringstream source;
    source << g_head
           << "#include <OVRIXUtil/Types.h>\n"
              "\n"
              "namespace ovrix\n"
              "{\n"
              "namespace math\n"
              "{\n"
              "\n"
              "const ovReal64* "
           << getFunction(records.size())
           << "\n"
              "{\n"
              "    static const ovReal64 tab[] = {\n";
    for (const Record& record : records)
        source << "        " << cutDigits(record.phi) << ", " << cutDigits(record.theta) << ",\n";
    source << "    };\n"
              "    static_assert(sizeof(tab) == 16 * "
           << records.size()
           << ");\n"
              "    return tab;\n"
              "}\n"
              "\n"
              "} // namespace math\n"
              "} // namespace ovrix\n";
    return source.str();
}

std::string makeSelectionSource(std::size_t nbTables)
{
    std::ostringstream source;
    source << g_head
           << "#include <OVRIXMath/Geometry/3d/ThomsonTables/ThomsonTables.h>\n"
              "\n"
              "namespace ovrix\n"
              "{\n"
              "namespace math\n"
              "{\n"
              "\n";
    for (std::size_t nbPoints = 1; nbPoints <= nbTables; ++nbPoints)
        source << "const ovReal64* " << getFunction(nbPoints) << ";\n";
    source << "\n"
              "static_assert(details::g_nbThomsonTables == "
           << nbTables
           << ");\n"
              "\n"
              "const ovReal64* details::selectThomsonTable(unsigned long nbPoints)\n"
              "{\n"
              "    switch (nbPoints)\n"
              "    {\n";
    for (std::size_t nbPoints = 1; nbPoints <= nbTables; ++nbPoints)
        source << "    case " << nbPoints << ":\n        return " << getFunction(nbPoints) << ";\n";
    source << "    default:\n"
              "        return nullptr;\n"
              "    }\n"
              "}\n"
              "\n"
              "} // namespace math\n"
              "} // namespace ovrix\n";
    return source.str();
}

void writeSources(const Tables& tables, std::size_t nbTables, const std::string& folder)
{
    const std::vector<std::string> faults = checkTables(tables, nbTables);
    if (!faults.empty())
        throw std::runtime_error(faults.front());
    for (const auto& [nbPoints, records] : tables)
        writeFile(folder + "/" + getSourceName(nbPoints), makeTableSource(records));
    writeFile(folder + "/" + g_selectionName, makeSelectionSource(nbTables));
}

} // namespace orientations
} // namespace ovrix
