#include <OVRIXUtil/OVRIXUtilException.h>

namespace ovrix
{

OVRIXUtilException::~OVRIXUtilException() = default;

} // namespace ovrix
