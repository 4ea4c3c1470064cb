#include <OVRIXSerialization/ArchiveSectionManager.h>
#include <OVRIXSerialization/BaseIArchive.h>
#include <OVRIXSerialization/BaseSerializationObject.h>
#include <OVRIXSerialization/OVRIXSerializationFailure.h>
#include <OVRIXUtil/DynamicObjectFactory.h>

#include <boost/pointer_cast.hpp>

namespace ovrix
{

BaseIArchive::~BaseIArchive() = default;

boost::shared_ptr<BaseSerializationObject> BaseIArchive::readObject(const std::string& name)
{
    const ArchiveSectionManager section(*this, name);
    std::string className;
    readItem("className", className);
    if (className.empty())
        return nullptr;

    const DynamicObjectFactory& factory = DynamicObjectFactory::getInstance();
    OVRIXSERIALIZATION_RAISE_UNLESS(factory.isRegistred(className), 7, className, getSectionPath());
    const auto pObject = boost::dynamic_pointer_cast<BaseSerializationObject>(factory.createShared(className));
    OVRIXSERIALIZATION_RAISE_UNLESS(pObject, 7, className, getSectionPath());
    const BoolResult result = pObject->read(*this);
    OVRIXSERIALIZATION_RAISE_UNLESS(result, 12, className, result.getMessage());
    return pObject;
}

} // namespace ovrix
