#include "TableText.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <sys/file.h>
#include <unistd.h>

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

/// Calls a function of the system until no signal has interrupted it.
template <class Call>
int callUninterrupted(Call call)
{
    int result = call();
    while (result == -1 && errno == EINTR)
        result = call();
    return result;
}

/// Keeps other programs from the files in the folder of a file that are changed under such a lock.
class FolderLock
{
public:
    /// @throws std::runtime_error with the file's name when it can't be written, for want of the folder, or locked
    explicit FolderLock(const std::string& path)
    {
        const std::filesystem::path parent = std::filesystem::path(path).parent_path();
        const std::filesystem::path folder = parent.empty() ? "." : parent;
        _file = callUninterrupted([&] { return ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); });
        if (_file == -1)
        {
            const bool bMissing = errno == ENOENT || errno == ENOTDIR;
            throw std::runtime_error(path + (bMissing ? " can't be written" : " can't be locked"));
        }
        if (callUninterrupted([this] { return ::flock(_file, LOCK_EX); }) == -1)
        {
            ::close(_file);
            throw std::runtime_error(path + " can't be locked");
        }
    }

    ~FolderLock()
    {
        ::close(_file);
    }

    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

private:
    int _file = -1;
};

void replaceFile(const Tables& tables, const std::string& path)
{
    const std::string unfinished = path + ".new";
    std::ofstream stream(unfinished);
    writeTables(tables, stream);
    stream.close();
    if (!stream || std::rename(unfinished.c_str(), path.c_str()) != 0)
    {
        std::remove(unfinished.c_str());
        throw std::runtime_error(path + " can't be written");
    }
}

std::ifstream openTables(const std::string& path)
{
    std::ifstream stream(path);
    if (!stream)
        throw std::runtime_error(path + " can't be read");
    return stream;
}

/// Reads a number of points; the stream reads "-1" as a huge one.
bool readNbPoints(std::istream& stream, std::size_t& nbPoints)
{
    std::string digits;
    if (!(stream >> digits))
        return false;
    const char* const pEnd = digits.data() + digits.size();
    const auto read = std::from_chars(digits.data(), pEnd, nbPoints);
    return read.ec == std::errc() && read.ptr == pEnd;
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
        if (key != "N" || !readNbPoints(stream, nbPoints))
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
    if (stream.bad())
        throw std::runtime_error("can't be read to its end");
    return tables;
}

Tables readTables(const std::string& path)
{
    std::ifstream stream = openTables(path);
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

void changeTables(const std::string& path, const std::function<void(Tables&)>& change)
{
    const FolderLock lock(path);
    Tables tables;
    if (std::filesystem::exists(path))
        tables = readTables(path);
    change(tables);
    replaceFile(tables, path);
}

void changeExistingTables(const std::string& path, const std::function<void(Tables&)>& change)
{
    openTables(path); // refuses a missing file, which changeTables() takes for one without tables
    changeTables(path, change);
}

} // namespace orientations
} // namespace ovrix
