#include <OVRIXSerialization/ArchiveSectionManager.h>
#include <OVRIXSerialization/OVRIXSerializationFailure.h>
#include <OVRIXSerialization/SerializableClass.h>

namespace ovrix
{
namespace details
{

void writeClassVersion(BaseOArchive& archive, std::string_view className, ovUInt32 (*getVersion)())
{
    const ArchiveSectionManager section(archive, className);
    const ovUInt32 version = getVersion();
    archive << makeOItem("version", version);
    archive.registerClassVersion(className, version);
}

ovUInt32 readClassVersion(BaseIArchive& archive, std::string_view className, ovUInt32 (*getVersion)())
{
    const ArchiveSectionManager section(archive, className);
    ovUInt32 archiveVersion = 0;
    archive >> makeIItem("version", archiveVersion);
    const ovUInt32 version = getVersion();
    OVRIXSERIALIZATION_RAISE_UNLESS(archiveVersion <= version, 25, archiveVersion, std::string(className), version);
    archive.registerClassVersion(className, archiveVersion);
    return archiveVersion;
}

void raiseInconsistency(const BaseIArchive& archive, const char* className, const char* inconsistency)
{
    raiseFailure(OVRIX_FAILURE_SITE, 30, className, inconsistency, archive.getSectionPath());
}

} // namespace details
} // namespace ovrix
