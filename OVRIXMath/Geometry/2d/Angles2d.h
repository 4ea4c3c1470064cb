#pragma once

#include <OVRIXUtil/Types.h>

#include <cmath>

namespace ovrix
{
namespace math
{
namespace details
{

/// The orientation of an axis with that direction, in [-pi/2, pi/2).
inline ovReal64 foldToHalfTurn(ovReal64 angle)
{
    constexpr ovReal64 pi = 3.141592653589793;
    constexpr ovReal64 halfPi = 1.5707963267948966;

    // Within a turn the remainder is the angle or one subtraction, which is exact, too.
    ovReal64 folded = std::fabs(angle) < pi             ? angle
                      : angle >= pi && angle < 2.0 * pi ? angle - pi
                                                        : std::fmod(angle, pi);
    if (folded >= halfPi)
        folded -= pi;
    if (folded < -halfPi)
        folded += pi;
    return folded;
}

} // namespace details
} // namespace math
} // namespace ovrix
