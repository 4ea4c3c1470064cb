#pragma once

#include <cstddef>
#include <ostream>

namespace ovrix
{
namespace details
{

/// Writes to a stream and raises when it fails, also where the stream throws exceptions of its own.
class StreamWriter
{
public:
    /// Raises when the stream has failed before.
    explicit StreamWriter(std::ostream& stream);

    void write(const void* pData, std::size_t size);

    void flush();

private:
    template <class Operation>
    void perform(const Operation& operation);

    std::ostream& _stream;
};

} // namespace details
} // namespace ovrix
