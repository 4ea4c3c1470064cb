#pragma once

#include <OVRIXSerialization/BaseArchive.h>

#include <cstddef>
#include <istream>

namespace ovrix
{
namespace details
{

/// Reads from a stream and raises when it fails, also where the stream throws exceptions of its own.
class StreamReader
{
public:
    /// Raises when the stream has failed before.
    ///
    /// @param archive whose section path stands in messages
    StreamReader(std::istream& stream, const BaseArchive& archive);

    /// Reads as many bytes as there are, at most `size`.
    ///
    /// @return how many have been read; fewer than `size` at the end of the stream only
    std::size_t read(void* pData, std::size_t size);

    /// Whether it is known how much the stream still holds; it is not on a pipe.
    bool isLengthKnown() const
    {
        return _rest != s_unknown;
    }

    /// How many bytes the stream still holds, or the largest number when that is not known.
    std::size_t getRest() const
    {
        return _rest;
    }

private:
    void check(bool bDone) const;

    static constexpr std::size_t s_unknown = static_cast<std::size_t>(-1);

    std::istream& _stream;
    const BaseArchive& _archive;
    std::size_t _rest = s_unknown;
};

} // namespace details
} // namespace ovrix
