#pragma once

#include <cstddef>
#include <string>

namespace ovrix
{
namespace test
{

/// A file that begins with some bytes and goes on with a hole: 1.1 TB of zeros that take no place on the disk. It is
/// removed with the object.
class SparseFile
{
public:
    /// @param name of the file, in the folder of the tests' output
    SparseFile(const std::string& name, const std::string& bytes);
    ~SparseFile();
    SparseFile(const SparseFile&) = delete;
    SparseFile& operator=(const SparseFile&) = delete;

    /// Whether there is such a file; not every file system has holes.
    bool exists() const
    {
        return _bExisting;
    }

    const std::string& getPath() const
    {
        return _path;
    }

private:
    std::string _path;
    bool _bExisting;
};

/// The most memory that the process has held since startPeakMemory(), in bytes: pages that were written to.
std::size_t getPeakMemory();

/// Forgets what the process held before.
///
/// @return what it holds now
std::size_t startPeakMemory();

} // namespace test
} // namespace ovrix
