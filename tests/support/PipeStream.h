#pragma once

#include <istream>
#include <streambuf>
#include <string>
#include <utility>

namespace ovrix
{
namespace test
{

/// Hands out bytes one after the other and can't be asked how many there are, as a pipe.
class PipeStream : public std::istream
{
public:
    explicit PipeStream(std::string bytes) : std::istream(nullptr), _buffer(std::move(bytes))
    {
        rdbuf(&_buffer);
    }

private:
    class Buffer : public std::streambuf
    {
    public:
        explicit Buffer(std::string bytes) : _bytes(std::move(bytes))
        {
            setg(&_bytes[0], &_bytes[0], &_bytes[0] + _bytes.size());
        }

    private:
        std::string _bytes;
    };

    Buffer _buffer;
};

} // namespace test
} // namespace ovrix
