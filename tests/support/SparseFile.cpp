#include <cstdio>
#include <fstream>
#include <support/SparseFile.h>
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
    std::ifstream status("/proc/self/status");
    std::string word;
    while (status >> word && word != "VmHWM:")
        ;
    std::size_t kilobytes = 0;
    status >> kilobytes;
    return kilobytes * 1024;
}

std::size_t startPeakMemory()
{
    std::ofstream("/proc/self/clear_refs") << 5;
    return getPeakMemory();
}

} // namespace test
} // namespace ovrix
