#include <OVRIXMath/Geometry/2d/Transform/BaseLinearGeometricTransform2d.h>

namespace ovrix
{
namespace math
{
namespace transform
{

ovBool BaseLinearGeometricTransform2d::isLinear() const
{
    return true;
}

} // namespace transform
} // namespace math
} // namespace ovrix
