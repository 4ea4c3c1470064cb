#pragma once

#include <OVRIXMath/LinearAlgebra/LinearAlgebraLogMessages.h>
#include <OVRIXMath/OVRIXMathFailure.h>
#include <OVRIXUtil/NumericLimits.h>

#include <cstddef>

namespace ovrix
{
namespace math
{
namespace details
{

/// A number of rows, columns or elements as LAPACK takes it, which counts in 32 bits.
///
/// @throws OVRIXMathException for 2^31 or more: LinearAlgebra message 11, as for whatever else LAPACK cannot do. That
///         many numbers fill 16 GB
inline int toLapackSize(std::size_t size)
{
    constexpr std::size_t largest = NumericLimits<int>::s_max;
    OVRIXMATH_RAISE_UNLESS(size <= largest, eLinearAlgebraMessage, 11);
    return static_cast<int>(size);
}

} // namespace details
} // namespace math
} // namespace ovrix
