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

/// Joins the frames of a binary archive to the stream of bytes that was cut into them. No function returns before the
/// checksums of the frames that it read have been found right; when one raises, the caller's memory holds anything.
/// Everything raises on an archive that is broken or cut short.
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
        const char* const p = look(size);
        if (p)
            skipTo(p + size);
        return p;
    }

    /// The next `size` bytes, if the current frame holds all of them; otherwise null. Nothing is consumed.
    const char* look(std::size_t size) const
    {
        return getFrameRest() < size ? nullptr : _pNext;
    }

    /// Consumes the bytes in front of `p`, which lies within what look() has given.
    void skipTo(const char* p)
    {
        _pNext = p;
    }

    /// Reads the next `size` bytes. Those of whole frames come from the stream without a copy.
    void read(void* pData, std::size_t size);

    /// Whether all bytes have been read.
    bool isAtEnd();

    /// Bytes of the current frame that have not been read.
    std::size_t getFrameRest() const
    {
        return static_cast<std::size_t>(_pFrameEnd - _pNext);
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
        return _endOffset - getFrameRest();
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
    const char* _pNext = nullptr;
    const char* _pFrameEnd = nullptr;
    std::uint64_t _endOffset = 0; // of the current frame
    std::uint32_t _nbFrames = 0;
    bool _bLastFrame = false;
};

} // namespace details
} // namespace ovrix
