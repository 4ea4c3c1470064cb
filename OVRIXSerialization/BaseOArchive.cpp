#include <OVRIXSerialization/ArchiveSectionManager.h>
#include <OVRIXSerialization/BaseOArchive.h>
#include <OVRIXSerialization/BaseSerializationObject.h>
#include <OVRIXSerialization/OVRIXSerializationFailure.h>

namespace ovrix
{

BaseOArchive::~BaseOArchive() = default;

void BaseOArchive::writeObject(const std::string& name, const BaseSerializationObject* pObject)
{
    const ArchiveSectionManager section(*this, name);
    writeItem("className", pObject ? pObject->getClassName() : std::string());
    if (!pObject)
        return;
    const BoolResult result = pObject->write(*this);
    OVRIXSERIALIZATION_RAISE_UNLESS(result, 11, pObject->getClassName(), result.getMessage());
}

} // namespace ovrix
