#pragma once

#include <OVRIXMath/Types.h>

#include <cstddef>

namespace ovrix
{
namespace math
{
namespace transform
{
namespace details
{

/// Inverts a square matrix in place with luInverse().
///
/// @param entries size * size entries, row by row
/// @return `false` when luInverse() calls the matrix singular; the entries are then untouched
bool luInvert(ovReal64* entries, std::size_t size);

} // namespace details
} // namespace transform
} // namespace math
} // namespace ovrix
