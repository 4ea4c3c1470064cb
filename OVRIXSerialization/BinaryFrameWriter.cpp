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
    : _stream(stream, archive), _pBuffer(new char[s_bufferSize]), _pEnd(_pBuffer.get())
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
        const std::size_t head = std::min(size, s_bufferSize - getBufferedSize());
        append(p, head);
        if (head < size)
        {
            writeBuffer(0);
            append(p + head, size - head);
        }
        return;
    }
    if (getBufferedSize() > 0)
        writeBuffer(0);
    // The end stays in the buffer: an archive that ends here ends with a frame that its reader needs. One without
    // content would be left in the stream, where the next archive is expected.
    while (size > s_bufferSize)
    {
        const std::size_t part = std::min(size - 1, g_blockFrameSize);
        writeFrame(p, part, 0);
        p += part;
        size -= part;
    }
    append(p, size);
}

void BinaryFrameWriter::finish()
{
    writeBuffer(g_lastFrameFlag);
    _stream.flush();
}

void BinaryFrameWriter::writeBuffer(std::uint32_t flags)
{
    writeFrame(_pBuffer.get(), getBufferedSize(), flags);
}

void BinaryFrameWriter::writeFrame(const char* pContent, std::size_t size, std::uint32_t flags)
{
    const std::uint32_t length = static_cast<std::uint32_t>(size) | flags;
    char header[g_frameHeaderSize];
    storeLittleEndian(header, length);
    storeLittleEndian(header + sizeof(length), computeFrameChecksum(pContent, _frameNumber, length));
    // When the stream fails the buffer stays full, so that whatever comes next comes here and raises as well.
    _pEnd = _pBuffer.get() + s_bufferSize;
    _stream.write(header, sizeof(header));
    _stream.write(pContent, size);
    ++_frameNumber;
    _pEnd = _pBuffer.get();
}

void BinaryFrameWriter::append(const char* p, std::size_t size)
{
    _pEnd = std::copy_n(p, size, _pEnd);
}

} // namespace details
} // namespace ovrix
