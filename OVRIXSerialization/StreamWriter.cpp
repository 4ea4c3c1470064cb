#include <OVRIXSerialization/OVRIXSerializationFailure.h>
#include <OVRIXSerialization/StreamWriter.h>

#include <exception>

namespace ovrix
{
namespace details
{

namespace
{

void checkWritten(bool bDone)
{
    OVRIXSERIALIZATION_RAISE_UNLESS(bDone, 10, "written");
}

} // namespace

StreamWriter::StreamWriter(std::ostream& stream) : _stream(stream)
{
    checkWritten(_stream.good());
}

void StreamWriter::write(const void* pData, std::size_t size)
{
    perform([&] { _stream.write(static_cast<const char*>(pData), static_cast<std::streamsize>(size)); });
}

void StreamWriter::flush()
{
    perform([&] { _stream.flush(); });
}

template <class Operation>
void StreamWriter::perform(const Operation& operation)
{
    bool bDone = false;
    try
    {
        operation();
        bDone = _stream.good();
    }
    catch (const std::exception&)
    {
        // Thrown by a stream that was told to throw; the check below tells the failure in the archive's own way.
    }
    checkWritten(bDone);
}

} // namespace details
} // namespace ovrix
