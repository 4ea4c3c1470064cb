#include <OVRIXSerialization/BaseSerializationObject.h>

namespace ovrix
{

BoolResult BaseSerializationObject::write(BaseOArchive&) const
{
    return true;
}

} // namespace ovrix
