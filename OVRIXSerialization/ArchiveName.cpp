#include <OVRIXSerialization/ArchiveName.h>
#include <OVRIXSerialization/BaseArchive.h>
#include <OVRIXSerialization/OVRIXSerializationFailure.h>

namespace ovrix
{

void details::checkNameSize(std::size_t size, const BaseArchive& archive)
{
    OVRIXSERIALIZATION_RAISE_UNLESS(size <= BaseArchive::s_maxNameSize, 31, size, BaseArchive::s_maxNameSize,
                                    archive.getSectionPath());
}

} // namespace ovrix
