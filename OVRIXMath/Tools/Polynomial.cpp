#include <OVRIXMath/Tools/Polynomial.h>

#include <cmath>

namespace ovrix
{
namespace math
{

ovUInt32 solveQuadratic(double a, double b, double c, double& x1, double& x2)
{
    if (a == 0.0)
    {
        if (b == 0.0)
            return 0;
        x1 = x2 = -c / b;
        return 1;
    }

    const double d = b * b - c * (4.0 * a);
    const double h = a + a;
    if (d == 0.0)
    {
        x1 = x2 = -b / h;
        return 1;
    }
    if (d < 0.0)
        return 0;

    const double s = std::sqrt(d);
    const double r1 = (-b - s) / h;
    const double r2 = (s - b) / h;
    const bool bSwap = r1 > r2; // a negative `a` turns the order round
    x1 = bSwap ? r2 : r1;
    x2 = bSwap ? r1 : r2;
    return 2;
}

} // namespace math
} // namespace ovrix
