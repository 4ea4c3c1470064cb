#include <OVRIXMath/Geometry/2d/Transform/TransformFamily2d.h>

namespace ovrix
{
namespace math
{
namespace transform
{

bool details::TransformFamily2d::invertLinearPart(std::array<ovReal64, 4>& linear)
{
    const std::array<ovReal64, 4> a = linear;
    const ovReal64 det = a[0] * a[3] - a[2] * a[1];
    if (det == 0.0)
        return false;
    linear = {a[3] / det, -a[1] / det, -a[2] / det, a[0] / det};
    return true;
}

} // namespace transform
} // namespace math
} // namespace ovrix
