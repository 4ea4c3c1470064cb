#include <OVRIXSerialization/SerializableObject.h>

namespace ovrix
{

void details::raiseWithoutCopySupport(const std::string& className)
{
    details::raise<details::OVRIXUtilFailures, eOVRIXUtilErrors::domain>(OVRIX_FAILURE_SITE, 3, className);
}

} // namespace ovrix
