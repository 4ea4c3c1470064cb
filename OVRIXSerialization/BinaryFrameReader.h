#pragma once

#include <OVRIXSerialization/BaseArchive.h>
#include <OVRIXSerialization/StreamReader.h>

#include <cstddef>
#include <cstdint>
#include <istream>
#include <memory>

namespace ovrix
{
namespace details
{

/// Joins the frames of a binary archive to the stream of bytes that was cut into them. No byte is handed out before its
/// frame's checksum has been found right. Everything raises on an archive that is broken or cut short.
class BinaryFrameReader
{
public:
    /// Reads the header of the archive.
    ///
    /// @param archive whose section path stands in messages
    BinaryFrameReader(std::istream& stream, const BaseArchive& archive);

    /// The next `size` bytes, if the current frame holds all of them; otherwise null and nothing is consumed.
    const char* take(std::size_t size)
    {
        if (_frameSize - _position < size)
            return nullptr;
        const char* const p = _pFrame.get() + _position;
        _position += size;
        return p;
    }

    /// Reads the next `size` bytes. Those of whole frames come from the stream without a copy.
    void read(void* pData, std::size_t size);

    /// Whether all bytes have been read.
    bool isAtEnd();

    /// Bytes of the current frame that have not been read.
    std::size_t getFrameRest() const
    {
        return _frameSize - _position;
    }

    /// The most bytes that can still follow, as far as the length of the input is known.
    std::size_t getMaxRest() const;

    /// Whether the length of the input is known.
    bool isLengthKnown() const
    {
        return _stream.isLengthKnown();
    }

    /// How many bytes have been read.
    std::uint64_t getOffset() const
    {
        return _frameOffset + _position;
    }

private:
    struct Header
    {
        std::uint32_t length;
        std::uint64_t checksum;
    };

    Header readHeader();
    void loadFrame(const Header& header);
    void check(const Header& header, const char* pContent);
    void beginFrame(std::size_t size);

    StreamReader _stream;
    const BaseArchive& _archive;
    std::unique_ptr<char[]> _pFrame;
    std::size_t _capacity = 0;
    std::size_t _frameSize = 0;
    std::size_t _position = 0;
    std::uint64_t _frameOffset = 0;
    std::uint32_t _nbFrames = 0;
    bool _bLastFrame = false;
};

} // namespace details
} // namespace ovrix
