#include <OVRIXMath/OVRIXMathException.h>

namespace ovrix
{
namespace math
{

OVRIXMathException::~OVRIXMathException() = default;

} // namespace math
} // namespace ovrix
