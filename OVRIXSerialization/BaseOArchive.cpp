#include <OVRIXSerialization/ArchiveSectionManager.h>
#include <OVRIXSerialization/BaseOArchive.h>
#include <OVRIXSerialization/BaseSerializationObject.h>
#include <OVRIXSerialization/OVRIXSerializationFailure.h>
#include <OVRIXUtil/DynamicObjectFactory.h>

namespace ovrix
{

BaseOArchive::~BaseOArchive() = default;

void BaseOArchive::writeItem(std::string_view name, const char* value)
{
    writeItem(name, std::string_view(value));
}

void BaseOArchive::writeObject(std::string_view name, const BaseSerializationObject* pObject)
{
    OVRIXSERIALIZATION_RAISE_UNLESS(!pObject ||
                                        DynamicObjectFactory::getInstance().isRegistred(pObject->getClassName()),
                                    32, pObject->getClassName(), getSectionPath());
    const ArchiveSectionManager section(*this, name);
    writeItem("className", pObject ? std::string_view(pObject->getClassName()) : std::string_view());
    if (!pObject)
        return;
    const BoolResult result = pObject->write(*this);
    OVRIXSERIALIZATION_RAISE_UNLESS(result, 11, pObject->getClassName(), getSectionPath(), result.getMessage());
}

} // namespace ovrix
