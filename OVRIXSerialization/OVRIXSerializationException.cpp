#include <OVRIXSerialization/OVRIXSerializationException.h>

namespace ovrix
{

OVRIXSerializationException::~OVRIXSerializationException() = default;

} // namespace ovrix
