#include <OVRIXSerialization/BaseSerializationObject.h>

namespace ovrix
{

BaseSerializationObject::~BaseSerializationObject() = default;

BoolResult BaseSerializationObject::write(BaseOArchive&) const
{
    return true;
}

BoolResult BaseSerializationObject::read(BaseIArchive&)
{
    return true;
}

} // namespace ovrix
