#include <OVRIXSerialization/OVRIXSerializationFailure.h>
#include <OVRIXSerialization/StreamReader.h>

#include <algorithm>
#include <exception>

namespace ovrix
{
namespace details
{

namespace
{

/// Bytes between the position of a stream and its end, or `unknown` where they can't be counted. Files that are made up
/// while they are read say that they are empty, which is no answer either.
std::size_t measure(std::streambuf& buffer, std::size_t unknown)
{
    const std::streamoff failed(-1);
    const std::streamoff here = buffer.pubseekoff(0, std::ios::cur, std::ios::in);
    if (here == failed)
        return unknown;
    const std::streamoff end = buffer.pubseekoff(0, std::ios::end, std::ios::in);
    const std::streamoff back = buffer.pubseekpos(here, std::ios::in);
    return end > here && back == here ? static_cast<std::size_t>(end - here) : unknown;
}

void checkRead(bool bDone)
{
    OVRIXSERIALIZATION_RAISE_UNLESS(bDone, 10, "read");
}

} // namespace

StreamReader::StreamReader(std::istream& stream) : _stream(stream)
{
    checkRead(_stream.good());
    try
    {
        _rest = measure(*_stream.rdbuf(), s_unknown);
    }
    catch (const std::exception&)
    {
        // A buffer that can't be asked; what is wrong with it shows when it is read.
    }
}

std::size_t StreamReader::read(void* pData, std::size_t size)
{
    try
    {
        _stream.read(static_cast<char*>(pData), static_cast<std::streamsize>(size));
    }
    catch (const std::exception&)
    {
        // Thrown by a stream that was told to throw, also at its end; its state tells the same.
    }
    const auto nbRead = static_cast<std::size_t>(_stream.gcount());
    checkRead(nbRead == size || (_stream.eof() && !_stream.bad()));
    if (isLengthKnown())
        _rest -= std::min(_rest, nbRead);
    return nbRead;
}

} // namespace details
} // namespace ovrix
