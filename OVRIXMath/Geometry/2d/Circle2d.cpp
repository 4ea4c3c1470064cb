#include <OVRIXMath/Geometry/2d/Circle2d.h>
#include <OVRIXUtil/NumericLimits.h>

#include <cmath>

namespace ovrix
{
namespace math
{

ovBool circleFromPoints(ovReal64 x1, ovReal64 y1, ovReal64 x2, ovReal64 y2, ovReal64 x3, ovReal64 y3, ovReal64& cx,
                        ovReal64& cy, ovReal64& r)
{
    const ovReal64 det = (x1 - x2) * (y2 - y3) - (x2 - x3) * (y1 - y2);
    if (!(std::fabs(det) > NumericLimits<ovReal64>::s_sqrt_eps))
        return false;

    const ovReal64 s2 = x2 * x2 + y2 * y2;
    const ovReal64 p = (x1 * x1 + y1 * y1 - s2) / 2.0;
    const ovReal64 q = (s2 - (x3 * x3 + y3 * y3)) / 2.0;
    cx = ((y2 - y3) * p - (y1 - y2) * q) / det;
    cy = ((x1 - x2) * q - (x2 - x3) * p) / det;
    r = std::sqrt((cx - x1) * (cx - x1) + (cy - y1) * (cy - y1));
    return true;
}

} // namespace math
} // namespace ovrix
