#include <OVRIXMath/Geometry/3d/Transform/BaseLinearGeometricTransform3d.h>

namespace ovrix
{
namespace math
{
namespace transform
{

ovBool BaseLinearGeometricTransform3d::isLinear() const
{
    return true;
}

} // namespace transform
} // namespace math
} // namespace ovrix
