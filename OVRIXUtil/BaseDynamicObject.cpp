#include <OVRIXUtil/BaseDynamicObject.h>

namespace ovrix
{

void BaseDynamicObject::initCtorCopy(const BaseDynamicObject& other)
{
    copy(other);
}

void BaseDynamicObject::copy(const BaseDynamicObject&) {}

} // namespace ovrix
