#include <OVRIXSerialization/ArchiveSectionManager.h>
#include <OVRIXSerialization/BaseIArchive.h>
#include <OVRIXSerialization/BaseSerializationObject.h>
#include <OVRIXSerialization/MessageQuote.h>
#include <OVRIXSerialization/OVRIXSerializationFailure.h>
#include <OVRIXUtil/DynamicObjectFactory.h>

#include <boost/pointer_cast.hpp>

namespace ovrix
{

BaseIArchive::~BaseIArchive() = default;

void BaseIArchive::readBlock(void* pData, std::size_t size)
{
    openBlock(size);
    readBlockPart(pData, size);
}

boost::shared_ptr<BaseSerializationObject> BaseIArchive::readObject(std::string_view name)
{
    // The end of the section raises where something else stands in its place; by then the object has to have an owner that
    // is no return value, for which clang 14 forgets the destructor.
    boost::shared_ptr<BaseSerializationObject> pObject;
    {
        const ArchiveSectionManager section(*this, name);
        readItem("className", _className);
        if (!_className.empty())
        {
            const DynamicObjectFactory& factory = DynamicObjectFactory::getInstance();
            OVRIXSERIALIZATION_RAISE_UNLESS(factory.isRegistred(_className), 7, details::quote(_className),
                                            getSectionPath());
            pObject = boost::dynamic_pointer_cast<BaseSerializationObject>(factory.createShared(_className));
            OVRIXSERIALIZATION_RAISE_UNLESS(pObject, 7, details::quote(_className), getSectionPath());
            const BoolResult result = pObject->read(*this);
            OVRIXSERIALIZATION_RAISE_UNLESS(result, 12, pObject->getClassName(), result.getMessage());
        }
    }
    return pObject;
}

} // namespace ovrix
