#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Types.h>

/// @file
/// QR decomposition and the least-squares solution that rests on it, by LAPACK's Householder reflections.
///
/// Sizes are checked first; whatever is raised by such a check leaves the outputs unchanged. A failure of LAPACK
/// raises; NaN in an input is such a failure and leaves the outputs unchanged too.
///
/// An input and an output may be one object where the sizes allow it, such as b and x; two outputs must be two objects.

namespace ovrix
{
namespace math
{

/// Least-squares solution of an over-constrained system: the x with the smallest |A x - b|.
///
/// Faster than svdSolve(), for matrices that are known to have full rank. Only an exact zero on the diagonal of R is
/// seen as a lack of rank. A matrix of nothing but zeros is solved by x = 0, and that counts as full rank. Infinities
/// are not looked for: one in A ends in `false` or in an x of nothing but NaN.
///
/// @param A m x n, with m >= n
/// @param b m elements
/// @param[out] x n elements; unchanged when A has not full rank
/// @return whether A has full rank
/// @throws OVRIXMathException LinearAlgebra message 7 when m < n, 10 when b has not m elements, 2 when x has not n, 11
///         when LAPACK fails
OVRIXMATH_EXPORT bool qrSolve(const Matrix& A, const Vector& b, Vector& x);

/// Thin QR decomposition A = Q R, with k = min(m, n): the columns of Q are orthonormal, R is upper trapezoidal.
///
/// The diagonal of R has the signs that the reflections give it.
///
/// Infinities are not looked for: either one becomes NaN within the reflections, which LAPACK then refuses, with R
/// written already, or R is not finite.
///
/// @param A m x n
/// @param[out] Q m x k
/// @param[out] R k x n, exactly zero below the diagonal
/// @throws OVRIXMathException LinearAlgebra message 5 when Q or then R has another size, 11 when LAPACK fails
OVRIXMATH_EXPORT void qrDecomposition(const Matrix& A, Matrix& Q, Matrix& R);

} // namespace math
} // namespace ovrix
