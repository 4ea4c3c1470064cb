#include <OVRIXMath/Geometry/2d/Line2d.h>

#include <cmath>

namespace ovrix
{
namespace math
{

ovBool lineFromPoints(ovReal64 x1, ovReal64 y1, ovReal64 x2, ovReal64 y2, ovReal64& rho, ovReal64& theta)
{
    const ovReal64 dx = x1 - x2;
    const ovReal64 dy = y1 - y2;
    if (dx == 0.0 && dy == 0.0)
        return false;

    theta = std::atan2(dx, -dy);
    ovReal64 cosine, sine;
    sincos(theta, &sine, &cosine);
    rho = x1 * cosine + y1 * sine;
    return true;
}

} // namespace math
} // namespace ovrix
