#pragma once

#include <OVRIXUtil/Types.h>

namespace ovrix
{
namespace math
{
namespace details
{

/// The table of that many directions: phi and theta of each, one after the other.
///
/// @return null unless `nbPoints` is from 1 to 400
const ovReal64* selectThomsonTable(unsigned long nbPoints);

} // namespace details
} // namespace math
} // namespace ovrix
