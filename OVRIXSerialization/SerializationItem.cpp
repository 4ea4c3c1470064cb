#include <OVRIXSerialization/ArchiveSectionManager.h>
#include <OVRIXSerialization/EmptyIArchive.h>
#include <OVRIXSerialization/OVRIXSerializationFailure.h>
#include <OVRIXSerialization/SerializationItem.h>

#include <utility>

namespace ovrix
{

BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<BoolResult>& item)
{
    const ArchiveSectionManager section(archive, item.getName());
    archive.writeItem("outcome", static_cast<bool>(item.getValue()));
    archive.writeItem("message", item.getValue().getMessage());
    return archive;
}

BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<BoolResult>& item)
{
    bool outcome = false;
    std::string message;
    {
        const ArchiveSectionManager section(archive, item.getName());
        archive.readItem("outcome", outcome);
        archive.readItem("message", message);
    }
    item.getValue() = BoolResult(outcome, std::move(message));
    return archive;
}

// Objects come in large numbers, so their sections do without ArchiveSectionManager: it asks for exceptions that are
// under way, which takes longer than writing an item. An exception leaves the section open here too.

BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<BaseSerializationObject>& item)
{
    archive.openSection(item.getName());
    const BoolResult result = item.getValue().write(archive);
    OVRIXSERIALIZATION_RAISE_UNLESS(result, 11, item.getValue().getClassName(), archive.getSectionPath(),
                                    result.getMessage());
    archive.closeSection();
    return archive;
}

BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<BaseSerializationObject>& item)
{
    try
    {
        archive.openSection(item.getName());
        const BoolResult result = item.getValue().read(archive);
        OVRIXSERIALIZATION_RAISE_UNLESS(result, 12, item.getValue().getClassName(), archive.getSectionPath(),
                                        result.getMessage());
        archive.closeSection();
    }
    catch (...)
    {
        details::cancelRead(item.getValue());
        throw;
    }
    return archive;
}

} // namespace ovrix
