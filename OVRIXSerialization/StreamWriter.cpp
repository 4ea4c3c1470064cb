#include <OVRIXSerialization/OVRIXSerializationFailure.h>
#include <OVRIXSerialization/StreamOperation.h>
#include <OVRIXSerialization/StreamWriter.h>

namespace ovrix
{
namespace details
{

StreamWriter::StreamWriter(std::ostream& stream, const BaseArchive& archive)
    : _stream(stream), _archive(archive), _bFailed(!stream.good())
{
    check();
}

void StreamWriter::write(const void* pData, std::size_t size)
{
    perform([&] { _stream.write(static_cast<const char*>(pData), static_cast<std::streamsize>(size)); });
}

void StreamWriter::flush()
{
    perform([&] { _stream.flush(); });
}

void StreamWriter::check() const
{
    OVRIXSERIALIZATION_RAISE_UNLESS(!_bFailed, 10, "written", _archive.getSectionPath());
}

template <class Operation>
void StreamWriter::perform(const Operation& operation)
{
    check();
    _bFailed = !performStreamOperation(operation) || !_stream.good();
    check();
}

} // namespace details
} // namespace ovrix
