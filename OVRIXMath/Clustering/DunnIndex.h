#pragma once

#include <OVRIXMath/Types.h>

namespace ovrix
{
namespace math
{
namespace clustering
{
namespace details
{

/// The computation of computeValidityIndex() for `eVIT_Dunn`: many pairs of samples at once, without any allocation.
double computeDunnIndex(const VectorColl& data, const UInt32Vector& assignments);

} // namespace details
} // namespace clustering
} // namespace math
} // namespace ovrix
