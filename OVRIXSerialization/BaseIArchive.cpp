#include <OVRIXSerialization/BaseIArchive.h>
#include <OVRIXSerialization/BaseSerializationObject.h>
#include <OVRIXSerialization/MemoryGrowth.h>
#include <OVRIXSerialization/MessageQuote.h>
#include <OVRIXSerialization/OVRIXSerializationFailure.h>
#include <OVRIXUtil/DynamicObjectFactory.h>

#include <algorithm>

namespace ovrix
{

BaseIArchive::~BaseIArchive() = default;

void BaseIArchive::readBlock(void* pData, std::size_t size)
{
    openBlock(size);
    readBlockPart(pData, size);
}

std::size_t BaseIArchive::grantElements(std::size_t count, std::size_t elementSize)
{
    const std::size_t granted = std::min(count, _grantedRest / elementSize);
    _grantedRest -= granted * elementSize;
    return granted;
}

void BaseIArchive::setInputSize(std::size_t size)
{
    _grantedRest = 2 * std::min(size, details::g_firstStepOfFile);
}

boost::shared_ptr<BaseSerializationObject> BaseIArchive::readObject(std::string_view name)
{
    // See readObject<T>().
    boost::shared_ptr<BaseSerializationObject> pObject;
    {
        const ArchiveSectionManager section(*this, name);
        pObject = createObject();
        if (pObject)
            readContent(*pObject);
    }
    return pObject;
}

boost::shared_ptr<BaseSerializationObject> BaseIArchive::createObject()
{
    readItem("className", _className);
    if (_className.empty())
        return nullptr;
    auto pObject = boost::dynamic_pointer_cast<BaseSerializationObject>(
        DynamicObjectFactory::getInstance().tryCreateShared(_className));
    OVRIXSERIALIZATION_RAISE_UNLESS(pObject, 7, details::quote(_className), getSectionPath());
    return pObject;
}

void BaseIArchive::readContent(BaseSerializationObject& object)
{
    const BoolResult result = object.read(*this);
    OVRIXSERIALIZATION_RAISE_UNLESS(result, 12, object.getClassName(), getSectionPath(), result.getMessage());
}

void BaseIArchive::raiseForeignClass(const std::string& wantedName, const BaseSerializationObject& object) const
{
    details::raiseFailure(OVRIX_FAILURE_SITE, 13, wantedName, object.getClassName(), getSectionPath());
}

} // namespace ovrix
