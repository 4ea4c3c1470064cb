#include <OVRIXSerialization/BaseSerializationObject.h>
#include <OVRIXSerialization/EmptyIArchive.h>

namespace ovrix
{
namespace details
{

EmptyIArchive::EmptyIArchive() : BaseIArchive(false) {}

EmptyIArchive::~EmptyIArchive() = default;

void EmptyIArchive::readItem(std::string_view, bool&)
{
    throw Exception();
}

void EmptyIArchive::readItem(std::string_view, int&)
{
    throw Exception();
}

void EmptyIArchive::readItem(std::string_view, unsigned int&)
{
    throw Exception();
}

void EmptyIArchive::readItem(std::string_view, long&)
{
    throw Exception();
}

void EmptyIArchive::readItem(std::string_view, unsigned long&)
{
    throw Exception();
}

void EmptyIArchive::readItem(std::string_view, double&)
{
    throw Exception();
}

void EmptyIArchive::readItem(std::string_view, std::string&)
{
    throw Exception();
}

void EmptyIArchive::checkRemainingSize(std::size_t, std::size_t)
{
    throw Exception();
}

ArchiveEntry EmptyIArchive::peekEntry()
{
    throw Exception();
}

BaseIArchive::BlockGrant EmptyIArchive::openBlock(std::size_t)
{
    throw Exception();
}

void EmptyIArchive::readBlockPart(void*, std::size_t)
{
    throw Exception();
}

std::string_view EmptyIArchive::processOpenSection(std::string_view)
{
    throw Exception();
}

void EmptyIArchive::processCloseSection()
{
    throw Exception();
}

void cancelRead(BaseSerializationObject& object) noexcept
{
    try
    {
        EmptyIArchive archive;
        static_cast<void>(object.read(archive));
    }
    catch (...)
    {
        // This is how it ends.
    }
}

} // namespace details
} // namespace ovrix
