#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Types.h>

#include <vector>

namespace ovrix
{
namespace math
{

/// Replaces `out` by a vector of `v.size()` elements with the values of `v`.
OVRIXMATH_EXPORT void toUBlas(const std::vector<double>& v, Vector& out);

/// A vector of `v.size()` elements with the values of `v`.
OVRIXMATH_EXPORT Vector toUBlas(const std::vector<double>& v);

/// Copies `v` into `out`, row after row; `out` keeps its size.
///
/// @throws OVRIXMathException LinearAlgebra message 12 when `out` has not `v.size()` elements; `out` is then unchanged
OVRIXMATH_EXPORT void toUBlas(const std::vector<double>& v, Matrix& out);

/// A matrix of `sizeY` rows x `sizeX` columns with the values of `v`, row after row.
///
/// ```cpp
/// toUBlas({1.0, 2.0, 3.0, 4.0, 5.0, 6.0}, 2, 3); // ((1, 2), (3, 4), (5, 6))
/// ```
///
/// @throws OVRIXMathException LinearAlgebra message 12 when `v` has not `sizeX * sizeY` elements
OVRIXMATH_EXPORT Matrix toUBlas(const std::vector<double>& v, ovUInt32 sizeX, ovUInt32 sizeY);

} // namespace math
} // namespace ovrix
