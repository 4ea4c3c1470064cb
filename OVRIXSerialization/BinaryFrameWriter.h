#pragma once

#include <OVRIXSerialization/StreamWriter.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <ostream>

namespace ovrix
{
namespace details
{

/// Cuts a stream of bytes into the frames of a binary archive. When the stream fails it raises, and so does everything
/// from then on.
class BinaryFrameWriter
{
public:
    /// Writes the header of the archive.
    ///
    /// @param archive whose section path stands in messages
    BinaryFrameWriter(std::ostream& stream, const BaseArchive& archive);

    /// Room for `size` bytes, at most s_bufferSize, of which commit() takes those that were filled.
    char* reserve(std::size_t size)
    {
        if (static_cast<std::size_t>(_pBuffer.get() + s_bufferSize - _pEnd) < size)
            writeBuffer(0);
        return _pEnd;
    }

    /// Takes the bytes up to `pEnd`, which lies within the room of the last reserve().
    void commit(char* pEnd)
    {
        _pEnd = pEnd;
    }

    /// Writes bytes; many of them go to the stream without a copy.
    void write(const void* pData, std::size_t size);

    /// Writes the last frame and flushes the stream.
    void finish();

    /// The stream below.
    const StreamWriter& getStream() const
    {
        return _stream;
    }

    /// Frames of single items are made when that many bytes have come together.
    static constexpr std::size_t s_bufferSize = std::size_t(1) << 16;

private:
    void writeBuffer(std::uint32_t flags);
    void writeFrame(const char* pContent, std::size_t size, std::uint32_t flags);
    void append(const char* p, std::size_t size);

    std::size_t getBufferedSize() const
    {
        return static_cast<std::size_t>(_pEnd - _pBuffer.get());
    }

    StreamWriter _stream;
    std::unique_ptr<char[]> _pBuffer;
    char* _pEnd;
    std::uint32_t _frameNumber = 0;
};

} // namespace details
} // namespace ovrix
