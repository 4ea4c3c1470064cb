#pragma once

#include <OVRIXSerialization/BaseArchive.h>

#include <cstddef>
#include <ostream>

namespace ovrix
{
namespace details
{

/// Writes to a stream and raises when it fails, also where the stream throws exceptions of its own. It raises for good
/// then, whatever becomes of the stream: what follows a gap is of no use.
class StreamWriter
{
public:
    /// Raises when the stream has failed before.
    ///
    /// @param archive whose section path stands in messages
    StreamWriter(std::ostream& stream, const BaseArchive& archive);

    void write(const void* pData, std::size_t size);

    void flush();

    /// Whether an operation has failed.
    bool hasFailed() const
    {
        return _bFailed;
    }

    /// Raises when an operation has failed.
    void check() const;

private:
    template <class Operation>
    void perform(const Operation& operation);

    std::ostream& _stream;
    const BaseArchive& _archive;
    bool _bFailed;
};

} // namespace details
} // namespace ovrix
