#include <OVRIXSerialization/BinaryForm.h>
#include <OVRIXSerialization/BinaryFrameWriter.h>

#include <algorithm>
#include <cstring>

namespace ovrix
{
namespace details
{

namespace
{

/// Frames of large blocks: small enough that the checksum and the write find the bytes in the processor's cache.
constexpr std::size_t g_blockFrameSize = std::size_t(1) << 18;

} // namespace

BinaryFrameWriter::BinaryFrameWriter(std::ostream& stream, const BaseArchive& archive)
    : _stream(stream, archive), _pBuffer(new char[s_bufferSize])
{
    char header[g_binaryHeaderSize];
    std::memcpy(header, g_binaryMagic, sizeof(g_binaryMagic));
    storeLittleEndian(header + sizeof(g_binaryMagic), g_binaryVersion);
    _stream.write(header, sizeof(header));
}

void BinaryFrameWriter::write(const void* pData, std::size_t size)
{
    const char* p = static_cast<const char*>(pData);
    if (size <= s_bufferSize)
    {
        const std::size_t head = std::min(size, s_bufferSize - _size);
        std::copy_n(p, head, _pBuffer.get() + _size);
        _size += head;
        if (head == size)
            return;
        p += head;
        size -= head;
        writeFrame(_pBuffer.get(), _size, 0);
        std::copy_n(p, size, _pBuffer.get());
        _size = size;
        return;
    }
    if (_size > 0)
        writeFrame(_pBuffer.get(), _size, 0);
    // The end stays in the buffer: an archive that ends here ends with a frame that its reader needs. One without content
    // would be left in the stream, where the next archive is expected.
    while (size > s_bufferSize)
    {
        const std::size_t part = std::min(size - 1, g_blockFrameSize);
        writeFrame(p, part, 0);
        p += part;
        size -= part;
    }
    std::copy_n(p, size, _pBuffer.get());
    _size = size;
}

void BinaryFrameWriter::finish()
{
    writeFrame(_pBuffer.get(), _size, g_lastFrameFlag);
    _stream.flush();
}

void BinaryFrameWriter::writeFrame(const char* pContent, std::size_t size, std::uint32_t flags)
{
    const std::uint32_t length = static_cast<std::uint32_t>(size) | flags;
    char header[g_frameHeaderSize];
    storeLittleEndian(header, length);
    storeLittleEndian(header + sizeof(length), computeFrameChecksum(pContent, _frameNumber, length));
    // When the stream fails the buffer stays full, so that whatever comes next comes here and raises as well.
    _size = s_bufferSize;
    _stream.write(header, sizeof(header));
    _stream.write(pContent, size);
    ++_frameNumber;
    _size = 0;
}

} // namespace details
} // namespace ovrix
