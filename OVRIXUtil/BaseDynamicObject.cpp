#include <OVRIXUtil/BaseDynamicObject.h>

namespace ovrix
{

BaseDynamicObject::~BaseDynamicObject() = default;

void BaseDynamicObject::initCtorCopy(const BaseDynamicObject& other)
{
    copy(other);
}

void BaseDynamicObject::copy(const BaseDynamicObject&) {}

} // namespace ovrix
