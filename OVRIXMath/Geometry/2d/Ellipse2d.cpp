#include <OVRIXMath/Geometry/2d/Angles2d.h>
#include <OVRIXMath/Geometry/2d/Ellipse2d.h>
#include <OVRIXMath/Tools/Polynomial.h>

#include <cmath>

namespace ovrix
{
namespace math
{

namespace
{

constexpr ovReal64 g_pi = 3.141592653589793;
constexpr ovReal64 g_halfPi = 1.5707963267948966;

} // namespace

ovBool convertEllipseFromQuadratic(ovReal64 a, ovReal64 b, ovReal64 c, ovReal64 d, ovReal64 e, ovReal64 f, ovReal64& cx,
                                   ovReal64& cy, ovReal64& theta, ovReal64& r1, ovReal64& r2)
{
    const ovReal64 disc = a * c - b * b;
    if (disc <= 0.0)
        return false;

    cx = (b * e - c * d) / (2.0 * disc);
    cy = (b * d - a * e) / (2.0 * disc);

    // The form whose value at the ellipse, seen from the centre, is 1: its eigenvalues are the inverse squared radii.
    const ovReal64 g = 1.0 / (a * (cx * cx) + 2.0 * b * cx * cy + c * (cy * cy) - f);
    const ovReal64 ga = g * a;
    const ovReal64 gb = g * b;
    const ovReal64 gc = g * c;
    const ovReal64 root = std::sqrt(4.0 * (gb * gb) + (ga - gc) * (ga - gc));
    const ovReal64 l1 = (ga + gc - root) / 2.0;
    const ovReal64 l2 = (ga + gc + root) / 2.0;
    r1 = 1.0 / std::sqrt(l1);
    r2 = 1.0 / std::sqrt(l2);

    // Direction of the axis of r2.
    const ovReal64 phi = ga >= gc ? std::atan2(gb, l2 - gc) : std::atan2(l2 - ga, gb);
    theta = details::foldToHalfTurn(phi + g_halfPi);
    return true;
}

ovBool convertEllipseToQuadratic(ovReal64 cx, ovReal64 cy, ovReal64 theta, ovReal64 r1, ovReal64 r2, ovReal64& a,
                                 ovReal64& b, ovReal64& c, ovReal64& d, ovReal64& e, ovReal64& f)
{
    if (r1 <= 0.0 || r2 <= 0.0)
        return false;

    ovReal64 cosT, sinT;
    sincos(theta, &sinT, &cosT);
    const ovReal64 cos2 = cosT * cosT;
    const ovReal64 sin2 = sinT * sinT;
    const ovReal64 p = r1 * r1;
    const ovReal64 q = r2 * r2;
    a = q * cos2 + p * sin2;
    b = 2.0 * cosT * sinT * (q - p);
    c = p * cos2 + q * sin2;
    d = -2.0 * q * cos2 * cx - 2.0 * q * cosT * sinT * cy - 2.0 * p * sin2 * cx + 2.0 * p * cosT * sinT * cy;
    e = -2.0 * q * sin2 * cy - 2.0 * q * cosT * sinT * cx - 2.0 * p * cos2 * cy + 2.0 * p * cosT * sinT * cx;
    f = q * cos2 * (cx * cx) + q * sin2 * (cy * cy) + p * sin2 * (cx * cx) + p * cos2 * (cy * cy) +
        2.0 * q * cosT * sinT * cx * cy - 2.0 * p * cosT * sinT * cx * cy - p * q;
    return true;
}

ovReal64 ellipsePerimeterLowerBound(ovReal64 r1, ovReal64 r2)
{
    return 4.0 * std::sqrt(r1 * r1 + r2 * r2);
}

ovReal64 ellipsePerimeterUpperBound(ovReal64 r1, ovReal64 r2)
{
    return g_pi * std::sqrt(2.0 * (r1 * r1 + r2 * r2));
}

ovReal64 ellipseArea(ovReal64 r1, ovReal64 r2)
{
    return g_pi * r1 * r2;
}

ovReal64 ellipseExcentricity(ovReal64 r1, ovReal64 r2)
{
    const bool bFirst = r1 > r2;
    const ovReal64 big = bFirst ? r1 : r2;
    const ovReal64 small = bFirst ? r2 : r1;
    if (big <= 0.0)
        return 0.0;
    return std::sqrt(big * big - small * small) / big;
}

ovBool equivalentEllipse(ovReal64 perimeter, ovReal64 area, ovReal64& r1, ovReal64& r2)
{
    if (perimeter < 0.0 || area < 0.0)
        return false;

    // 2 pi^2 (r1^2 + r2^2) = perimeter^2 and pi r1 r2 = area: the squared radii are the roots of
    // 2 pi^2 x^2 - perimeter^2 x + 2 area^2.
    constexpr ovReal64 twoPiSquared = 19.739208802178716;
    ovReal64 u, v;
    if (solveQuadratic(twoPiSquared, -(perimeter * perimeter), 2.0 * (area * area), u, v) == 0)
        return false;
    r1 = std::sqrt(v);
    r2 = std::sqrt(u);
    return true;
}

ovReal64 ellipseRadius(ovReal64 r1, ovReal64 r2, ovReal64 angle)
{
    if (r1 <= 0.0 || r2 <= 0.0)
        return 0.0;
    ovReal64 cosine, sine;
    sincos(angle, &sine, &cosine);
    return r1 * r2 / std::sqrt(r2 * r2 * (cosine * cosine) + r1 * r1 * (sine * sine));
}

ovReal64 ellipseRadius(ovReal64 r1, ovReal64 r2, ovReal64 theta, ovReal64 angle)
{
    return ellipseRadius(r1, r2, angle - theta);
}

void ellipsePoint(ovReal64 cx, ovReal64 cy, ovReal64 r1, ovReal64 r2, ovReal64 theta, ovReal64 angle, ovReal64& x,
                  ovReal64& y)
{
    const ovReal64 rad = ellipseRadius(r1, r2, theta, angle);
    ovReal64 cosine, sine;
    sincos(angle, &sine, &cosine);
    x = cx + rad * cosine;
    y = cy + rad * sine;
}

} // namespace math
} // namespace ovrix
