// The bytes of a vector as they stand: fwrite and fread, or one call of the stream in memory.

#include "ArchiveComparison.h"

#include <cstdio>

namespace ovrix
{
namespace bench
{

namespace
{

class PlainVector : public ArchiveTask
{
public:
    explicit PlainVector(std::size_t count) : _content(makeNumbers(count)) {}

    void write(std::ostream& stream) override
    {
        stream.write(reinterpret_cast<const char*>(_content.data()), static_cast<std::streamsize>(getSize()));
    }

    void read(std::istream& stream) override
    {
        allocate();
        stream.read(reinterpret_cast<char*>(_pRestored.get()), static_cast<std::streamsize>(getSize()));
    }

    void writeFile(const std::string& path) override
    {
        std::FILE* const pFile = std::fopen(path.c_str(), "wb");
        if (!pFile)
            throw std::runtime_error(path + " can't be opened");
        const bool bWritten = std::fwrite(_content.data(), 1, getSize(), pFile) == getSize();
        if (std::fclose(pFile) != 0 || !bWritten)
            throw std::runtime_error(path + " can't be written");
    }

    void readFile(const std::string& path) override
    {
        std::FILE* const pFile = std::fopen(path.c_str(), "rb");
        if (!pFile)
            throw std::runtime_error(path + " can't be opened");
        allocate();
        const bool bRead = std::fread(_pRestored.get(), 1, getSize(), pFile) == getSize();
        std::fclose(pFile);
        if (!bRead)
            throw std::runtime_error(path + " can't be read");
    }

    bool isRestored() const override
    {
        return std::equal(_content.begin(), _content.end(), _pRestored.get());
    }

private:
    std::size_t getSize() const
    {
        return _content.size() * sizeof(double);
    }

    void allocate()
    {
        _pRestored.reset();
        _pRestored.reset(new double[_content.size()]);
    }

    std::vector<double> _content;
    std::unique_ptr<double[]> _pRestored;
};

ArchivePeer makePeer()
{
    ArchivePeer peer;
    peer.makeVector = makeArchiveTask<PlainVector>;
    return peer;
}

const bool g_bRegistered = registerArchiveComparison("plain", makePeer());

} // namespace

} // namespace bench
} // namespace ovrix
