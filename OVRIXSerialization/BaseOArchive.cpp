#include <OVRIXSerialization/ArchiveSectionManager.h>
#include <OVRIXSerialization/BaseOArchive.h>
#include <OVRIXSerialization/BaseSerializationObject.h>
#include <OVRIXSerialization/OVRIXSerializationFailure.h>

namespace ovrix
{

BaseOArchive::~BaseOArchive() = default;

void BaseOArchive::writeItem(std::string_view name, const char* value)
{
    writeItem(name, std::string_view(value));
}

void BaseOArchive::writeObject(std::string_view name, const BaseSerializationObject* pObject)
{
    const ArchiveSectionManager section(*this, name);
    writeItem("className", pObject ? std::string_view(pObject->getClassName()) : std::string_view());
    if (!pObject)
        return;
    const BoolResult result = pObject->write(*this);
    OVRIXSERIALIZATION_RAISE_UNLESS(result, 11, pObject->getClassName(), result.getMessage());
}

} // namespace ovrix
