#include <cstdio>
#include <fstream>
#include <support/SparseFile.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace ovrix
{
namespace test
{

SparseFile::SparseFile(const std::string& name, const std::string& bytes)
    : _path(std::string(OVRIX_TEST_OUTPUT_DIR) + "/" + name), _bExisting(false)
{
    constexpr off_t size = 1100000000000;
    constexpr blkcnt_t maxNbBlocks = 1000; // of 512 bytes
    std::ofstream(_path, std::ios::binary) << bytes;
    struct stat status = {};
    _bExisting = truncate(_path.c_str(), size) == 0 && stat(_path.c_str(), &status) == 0 && status.st_size == size &&
                 status.st_blocks < maxNbBlocks;
}

SparseFile::~SparseFile()
{
    std::remove(_path.c_str());
}

std::size_t getPeakMemory()
{
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<std::size_t>(usage.ru_maxrss) * 1024;
}

} // namespace test
} // namespace ovrix
