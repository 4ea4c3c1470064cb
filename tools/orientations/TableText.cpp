#include "TableText.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <stdexcept>

namespace ovrix
{
namespace orientations
{

namespace
{

constexpr std::size_t g_nbDigits = 12;

double cut(double value)
{
    return std::strtod(cutDigits(value).c_str(), nullptr);
}

/// Whether cutDigits() takes the number: it knows one digit before the point, and no sign.
bool isWritable(double value)
{
    return value >= 0.0 && value < 10.0;
}

} // namespace

std::string cutDigits(double value)
{
    if (value == 0.0)
        return "0";
    // The shortest decimals that read back to the same number, as d.ddde-xx.
    char buffer[32];
    const auto end = std::to_chars(buffer, buffer + sizeof(buffer), value, std::chars_format::scientific).ptr;
    const std::string text(buffer, end);
    const std::size_t e = text.find('e');
    const int exponent = std::stoi(text.substr(e + 1));
    std::string digits = text.substr(0, 1) + (e > 2 ? text.substr(2, e - 2) : "");
    digits = digits.substr(0, g_nbDigits);
    digits.erase(digits.find_last_not_of('0') + 1);

    if (exponent < 0)
        return "0." + std::string(static_cast<std::size_t>(-exponent - 1), '0') + digits;
    return digits.substr(0, 1) + (digits.size() > 1 ? "." + digits.substr(1) : "");
}

Records makeTable(const PointSet& points, Generator& generator)
{
    PointSet turned = points;
    Records records;
    do
    {
        turnAtRandom(turned, generator);
        records = toRecords(turned);
        for (Record& record : records)
            record = {cut(record.phi), cut(record.theta)};
    } while (std::any_of(records.begin(), records.end(), [](const Record& record) { return record.phi > g_maxPhi; }));
    std::sort(records.begin(), records.end(), [](const Record& a, const Record& b) { return a.theta < b.theta; });
    return records;
}

Tables readTables(std::istream& stream)
{
    Tables tables;
    std::string key;
    std::size_t nbPoints = 0;
    while (stream >> key)
    {
        if (key != "N" || !(stream >> nbPoints))
            throw std::runtime_error("a set of directions should begin with N and its number of points");
        const auto [entry, bNew] = tables.try_emplace(nbPoints);
        if (!bNew)
            throw std::runtime_error("there are two sets of " + std::to_string(nbPoints) + " directions");
        Records& records = entry->second;
        Record record;
        while (records.size() < nbPoints && stream >> record.phi >> record.theta)
        {
            if (!isWritable(record.phi) || !isWritable(record.theta))
                throw std::runtime_error("an angle of the set of " + std::to_string(nbPoints) +
                                         " directions is not in [0, 10)");
            records.push_back(record);
        }
        if (records.size() < nbPoints)
            throw std::runtime_error("the set of " + std::to_string(nbPoints) + " directions is not complete");
    }
    return tables;
}

Tables readTables(const std::string& path)
{
    std::ifstream stream(path);
    if (!stream)
        throw std::runtime_error(path + " can't be read");
    try
    {
        return readTables(stream);
    }
    catch (const std::runtime_error& error)
    {
        throw std::runtime_error(path + ": " + error.what());
    }
}

void writeTables(const Tables& tables, std::ostream& stream)
{
    for (const auto& [nbPoints, records] : tables)
    {
        stream << "N " << nbPoints << '\n';
        for (const Record& record : records)
            stream << cutDigits(record.phi) << ' ' << cutDigits(record.theta) << '\n';
    }
}

void writeTables(const Tables& tables, const std::string& path)
{
    const std::string unfinished = path + ".new";
    std::ofstream stream(unfinished);
    writeTables(tables, stream);
    stream.close();
    if (!stream || std::rename(unfinished.c_str(), path.c_str()) != 0)
        throw std::runtime_error(path + " can't be written");
}

} // namespace orientations
} // namespace ovrix
