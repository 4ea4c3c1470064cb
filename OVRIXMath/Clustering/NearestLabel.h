#pragma once

#include <OVRIXMath/Types.h>

#include <cstddef>

namespace ovrix
{
namespace math
{
namespace clustering
{
namespace details
{

/// The first label of the least distance; `NumericLimits<ovUInt32>::s_max` if none is below
/// `NumericLimits<double>::s_max`, as without any label.
///
/// @param distanceTo gives the distance, or the squared one, to the centre of a label
template <class DistanceTo>
ovUInt32 findNearestLabel(std::size_t nbLabels, const DistanceTo& distanceTo)
{
    ovUInt32 nearest = NumericLimits<ovUInt32>::s_max;
    double least = NumericLimits<double>::s_max;
    for (std::size_t label = 0; label < nbLabels; ++label)
    {
        const double distance = distanceTo(label);
        if (distance < least)
        {
            least = distance;
            nearest = static_cast<ovUInt32>(label);
        }
    }
    return nearest;
}

} // namespace details
} // namespace clustering
} // namespace math
} // namespace ovrix
