#pragma once

#include <OVRIXUtil/Types.h>

namespace ovrix
{
namespace math
{
namespace details
{

/// There are tables of 1 to this many directions.
constexpr unsigned long g_nbThomsonTables = 400;

/// The table of that many directions: phi and theta of each, one after the other.
///
/// @return null unless `nbPoints` is from 1 to `g_nbThomsonTables`
const ovReal64* selectThomsonTable(unsigned long nbPoints);

} // namespace details
} // namespace math
} // namespace ovrix
