#include <OVRIXMath/Geometry/3d/Transform/TransformFamily3d.h>
#include <OVRIXMath/Geometry/Transform/LuInversion.h>

namespace ovrix
{
namespace math
{
namespace transform
{

bool details::TransformFamily3d::invertLinearPart(std::array<ovReal64, 9>& linear)
{
    return luInvert(linear.data(), s_dimension);
}

} // namespace transform
} // namespace math
} // namespace ovrix
