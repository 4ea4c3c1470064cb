#include <OVRIXMath/Geometry/3d/Angles3d.h>

#include <cmath>

namespace ovrix
{
namespace math
{

void eulerToQuaternion(ovReal64 rz, ovReal64 ry, ovReal64 rx, ovReal64& q0, ovReal64& q1, ovReal64& q2, ovReal64& q3)
{
    ovReal64 cz, sz, cy, sy, cx, sx;
    sincos(rz / 2.0, &sz, &cz);
    sincos(ry / 2.0, &sy, &cy);
    sincos(rx / 2.0, &sx, &cx);
    q0 = cz * cy * cx + sz * sy * sx;
    q1 = cz * cy * sx - sz * sy * cx;
    q2 = cz * sy * cx + sz * cy * sx;
    q3 = sz * cy * cx - cz * sy * sx;
}

void quaternionToEuler(ovReal64 q0, ovReal64 q1, ovReal64 q2, ovReal64 q3, ovReal64& rz, ovReal64& ry, ovReal64& rx)
{
    rz = std::atan2(2.0 * (q0 * q3 + q1 * q2), 1.0 - 2.0 * (q2 * q2 + q3 * q3));
    ry = std::asin(2.0 * (q0 * q2 - q1 * q3));
    rx = std::atan2(2.0 * (q0 * q1 + q2 * q3), 1.0 - 2.0 * (q1 * q1 + q2 * q2));
}

} // namespace math
} // namespace ovrix
