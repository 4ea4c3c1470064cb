#include <OVRIXSerialization/OVRIXSerializationFailure.h>
#include <OVRIXSerialization/StreamOperation.h>
#include <OVRIXSerialization/StreamReader.h>

#include <algorithm>

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

} // namespace

StreamReader::StreamReader(std::istream& stream, const BaseArchive& archive) : _stream(stream), _archive(archive)
{
    check(_stream.good());
    // What is wrong with a buffer that can't be asked shows when it is read.
    performStreamOperation([&] { _rest = measure(*_stream.rdbuf(), s_unknown); });
}

std::size_t StreamReader::read(void* pData, std::size_t size)
{
    // A stream that was told to throw does so at its end as well; its state tells what has happened.
    performStreamOperation([&] { _stream.read(static_cast<char*>(pData), static_cast<std::streamsize>(size)); });
    const auto nbRead = static_cast<std::size_t>(_stream.gcount());
    check(nbRead == size || (_stream.eof() && !_stream.bad()));
    if (isLengthKnown())
        _rest -= std::min(_rest, nbRead);
    return nbRead;
}

void StreamReader::check(bool bDone) const
{
    OVRIXSERIALIZATION_RAISE_UNLESS(bDone, 10, "read", _archive.getSectionPath());
}

} // namespace details
} // namespace ovrix
