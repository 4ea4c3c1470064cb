#include <OVRIXSerialization/NumberSerialization.h>
#include <OVRIXSerialization/OVRIXSerializationFailure.h>
#include <OVRIXSerialization/TextForm.h>
#include <OVRIXUtil/NumericLimits.h>
#include <OVRIXUtil/Types.h>

#include <string>

namespace ovrix
{
namespace details
{

void raiseOutOfRange(const BaseIArchive& archive, double item, const char* kind, std::size_t size)
{
    raise<OVRIXSerializationFailures, eOVRIXSerializationMessage::domain>(
        OVRIX_FAILURE_SITE, 3, "value", formatValue(item), kind + std::to_string(8 * size), archive.getSectionPath());
}

void writeSize(BaseOArchive& archive, std::string_view name, std::size_t size)
{
    OVRIXSERIALIZATION_RAISE_UNLESS(size <= NumericLimits<ovUInt32>::s_max, 29, size, archive.getSectionPath());
    archive.writeItem(name, static_cast<ovUInt32>(size));
}

std::size_t readSize(BaseIArchive& archive, std::string_view name)
{
    ovUInt32 size = 0;
    archive.readItem(name, size);
    return size;
}

} // namespace details
} // namespace ovrix
