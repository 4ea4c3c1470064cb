#include <OVRIXMath/Geometry/3d/Transform/Rotation3dPart.h>

#include <cmath>

namespace ovrix
{
namespace math
{
namespace transform
{

void details::Rotation3dPart::storeInverse(ovReal64* angles) const
{
    constexpr ovReal64 halfPi = 1.5707963267948966;

    const std::array<ovReal64, 9> t = math::details::transpose(_matrix);
    const ovReal64 t20 = t[6];
    if (1.0 - std::fabs(t20) > NumericLimits<ovReal64>::s_sqrt_eps)
    {
        const ovReal64 b = std::asin(t20);
        const ovReal64 cb = std::cos(b);
        angles[0] = std::atan2(t[3] / cb, t[0] / cb);
        angles[1] = -b;
        angles[2] = std::atan2(t[7] / cb, t[8] / cb);
        return;
    }
    angles[0] = 0.0;
    if (t20 < 0.0)
    {
        angles[1] = halfPi;
        angles[2] = std::atan2(t[1], t[2]);
    }
    else
    {
        angles[1] = -halfPi;
        angles[2] = std::atan2(-t[1], -t[2]);
    }
}

} // namespace transform
} // namespace math
} // namespace ovrix
