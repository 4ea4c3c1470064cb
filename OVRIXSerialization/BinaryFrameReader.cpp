#include <OVRIXSerialization/BinaryForm.h>
#include <OVRIXSerialization/BinaryFrameReader.h>
#include <OVRIXSerialization/MemoryGrowth.h>
#include <OVRIXSerialization/OVRIXSerializationFailure.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>

namespace ovrix
{
namespace details
{

namespace
{

std::string toHex(std::uint64_t value)
{
    char text[17];
    std::snprintf(text, sizeof(text), "%016llx", static_cast<unsigned long long>(value));
    return text;
}

} // namespace

BinaryFrameReader::BinaryFrameReader(std::istream& stream, const BaseArchive& archive)
    : _stream(stream, archive), _archive(archive)
{
    char header[g_binaryHeaderSize] = {};
    const std::size_t size = _stream.read(header, sizeof(header));
    OVRIXSERIALIZATION_RAISE_UNLESS(size > 0, 8, "it is empty");
    OVRIXSERIALIZATION_RAISE_UNLESS(std::memcmp(header, g_binaryMagic, std::min(size, sizeof(g_binaryMagic))) == 0, 8,
                                    "it does not begin with the magic number of binary archives");
    OVRIXSERIALIZATION_RAISE_UNLESS(size == sizeof(header), 4, "the header of the archive", _archive.getSectionPath());
    const auto version = loadLittleEndian<std::uint32_t>(header + sizeof(g_binaryMagic));
    OVRIXSERIALIZATION_RAISE_UNLESS(version > 0, 8, "it has format version 0");
    OVRIXSERIALIZATION_RAISE_UNLESS(version <= g_binaryVersion, 9, version, g_binaryVersion);
}

void BinaryFrameReader::read(void* pData, std::size_t size)
{
    char* p = static_cast<char*>(pData);
    while (true)
    {
        const std::size_t part = std::min(size, getFrameRest());
        if (part > 0)
            p = std::copy_n(take(part), part, p);
        size -= part;
        if (size == 0)
            return;

        const Header header = readHeader();
        const std::size_t frameSize = header.length & ~g_lastFrameFlag;
        if (frameSize > size)
        {
            loadFrame(header);
            continue;
        }
        beginFrame(0);
        const std::size_t nbRead = _stream.read(p, frameSize);
        OVRIXSERIALIZATION_RAISE_UNLESS(nbRead == frameSize, 4, "more of a frame", _archive.getSectionPath());
        check(header, p);
        _endOffset += frameSize;
        p += frameSize;
        size -= frameSize;
    }
}

bool BinaryFrameReader::isAtEnd()
{
    while (getFrameRest() == 0 && !_bLastFrame)
        loadFrame(readHeader());
    return getFrameRest() == 0;
}

std::size_t BinaryFrameReader::getMaxRest() const
{
    return isLengthKnown() ? getFrameRest() + _stream.getRest() : _stream.getRest();
}

BinaryFrameReader::Header BinaryFrameReader::readHeader()
{
    OVRIXSERIALIZATION_RAISE_UNLESS(!_bLastFrame, 4, "more content behind the last frame", _archive.getSectionPath());
    char bytes[g_frameHeaderSize];
    const std::size_t nbRead = _stream.read(bytes, sizeof(bytes));
    OVRIXSERIALIZATION_RAISE_UNLESS(nbRead == sizeof(bytes), 4, "another frame", _archive.getSectionPath());

    Header header;
    header.length = loadLittleEndian<std::uint32_t>(bytes);
    header.checksum = loadLittleEndian<std::uint64_t>(bytes + sizeof(header.length));
    const std::uint32_t size = header.length & ~g_lastFrameFlag;
    const std::uint32_t minSize = size == header.length ? 1 : 0; // the last frame may be empty
    OVRIXSERIALIZATION_RAISE_UNLESS(minSize <= size && size <= g_maxFrameSize, 20, _nbFrames, size, minSize,
                                    g_maxFrameSize, _archive.getSectionPath());
    OVRIXSERIALIZATION_RAISE_UNLESS(size <= _stream.getRest(), 4, "more of a frame", _archive.getSectionPath());
    return header;
}

void BinaryFrameReader::loadFrame(const Header& header)
{
    const std::size_t size = header.length & ~g_lastFrameFlag;
    beginFrame(0);
    // A file has all of the frame, as readHeader() has seen, and a frame is short.
    const std::size_t firstStep = isLengthKnown() ? g_maxFrameSize : g_firstStepOfPipe;
    for (std::size_t nbRead = 0; nbRead < size;)
    {
        const std::size_t step = getNextStep(nbRead, size - nbRead, firstStep);
        const std::size_t next = std::min(size, std::max(nbRead + step, _capacity));
        if (next > _capacity)
        {
            std::unique_ptr<char[]> pLarger(new char[next]);
            std::copy_n(_pFrame.get(), nbRead, pLarger.get());
            _pFrame = std::move(pLarger);
            _capacity = next;
        }
        const std::size_t got = _stream.read(_pFrame.get() + nbRead, next - nbRead);
        OVRIXSERIALIZATION_RAISE_UNLESS(got == next - nbRead, 4, "more of a frame", _archive.getSectionPath());
        nbRead = next;
    }
    check(header, _pFrame.get());
    beginFrame(size);
}

void BinaryFrameReader::check(const Header& header, const char* pContent)
{
    const std::uint64_t checksum = computeFrameChecksum(pContent, _nbFrames, header.length);
    OVRIXSERIALIZATION_RAISE_UNLESS(checksum == header.checksum, 5, _nbFrames, toHex(header.checksum), toHex(checksum),
                                    _archive.getSectionPath());
    ++_nbFrames;
    _bLastFrame = (header.length & g_lastFrameFlag) != 0;
}

void BinaryFrameReader::beginFrame(std::size_t size)
{
    _pNext = _pFrame.get();
    _pFrameEnd = _pNext + size;
    _endOffset += size;
}

} // namespace details
} // namespace ovrix
