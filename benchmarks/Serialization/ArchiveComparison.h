#pragma once

#include <cstddef>
#include <fstream>
#include <istream>
#include <memory>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

namespace ovrix
{
namespace bench
{

/// What a small object holds.
struct Sample
{
    bool bInit = false;
    unsigned int nbRuns = 0;
    double threshold = 0.0;
    double ratio = 0.0;

    bool operator==(const Sample& other) const
    {
        return bInit == other.bInit && nbRuns == other.nbRuns && threshold == other.threshold && ratio == other.ratio;
    }
};

/// Different objects.
std::vector<Sample> makeSamples(std::size_t count);

/// Different numbers with all of their digits.
std::vector<double> makeNumbers(std::size_t count);

/// Some content that one library writes and reads again and again.
class ArchiveTask
{
public:
    virtual ~ArchiveTask() = default;

    /// Writes the content as a whole archive.
    virtual void write(std::ostream& stream) = 0;

    /// Reads the archive into a new content, in place of the one that was read before.
    virtual void read(std::istream& stream) = 0;

    /// Whether the content that was read last is that which was written.
    virtual bool isRestored() const = 0;

    /// write() to a file.
    virtual void writeFile(const std::string& path)
    {
        std::ofstream file(path, std::ios::binary);
        write(file);
        file.close();
        if (!file)
            throw std::runtime_error(path + " can't be written");
    }

    /// read() from a file.
    virtual void readFile(const std::string& path)
    {
        std::ifstream file(path, std::ios::binary);
        read(file);
    }
};

using ArchiveTaskPtr = std::unique_ptr<ArchiveTask>;
using ArchiveTaskFactory = ArchiveTaskPtr (*)(std::size_t count);

/// Constructs a task, as an ArchiveTaskFactory.
template <class Task>
ArchiveTaskPtr makeArchiveTask(std::size_t count)
{
    return std::make_unique<Task>(count);
}

/// How a peer does what this library does; null for what it can't do.
struct ArchivePeer
{
    /// One vector of numbers, binary.
    ArchiveTaskFactory makeVector = nullptr;

    /// Small objects in a vector, binary.
    ArchiveTaskFactory makeObjects = nullptr;

    /// Small objects held by pointers to their base class, binary.
    ArchiveTaskFactory makePointers = nullptr;

    /// As the first two, in XML.
    ArchiveTaskFactory makeTextVector = nullptr;
    ArchiveTaskFactory makeTextObjects = nullptr;
};

/// Registers the comparison with a peer: writing and reading each content, in memory and in a file.
///
/// @return true, so that a peer's source file registers itself by initialising a constant
bool registerArchiveComparison(const char* peerName, const ArchivePeer& peer);

} // namespace bench
} // namespace ovrix
