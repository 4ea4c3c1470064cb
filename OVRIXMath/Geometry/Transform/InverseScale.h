#pragma once

#include <OVRIXMath/Types.h>

namespace ovrix
{
namespace math
{
namespace transform
{
namespace details
{

/// 1 / scale, and 0 for a scale of exactly 0: what collapses to a point stays there. NaN stays NaN.
inline ovReal64 inverseScale(ovReal64 scale)
{
    return scale == 0.0 ? 0.0 : 1.0 / scale;
}

} // namespace details
} // namespace transform
} // namespace math
} // namespace ovrix
