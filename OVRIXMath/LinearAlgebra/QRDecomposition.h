#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Types.h>

/// @file
/// QR decomposition and the least-squares solution that rests on it, by LAPACK's Householder reflections.
///
/// Sizes are checked first; whatever is raised by such a check leaves the outputs unchanged. A failure of LAPACK
/// raises; NaN in an input is such a failure.

namespace ovrix
{
namespace math
{

/// Least-squares solution of an over-constrained system: the x with the smallest |A x - b|.
///
/// Faster than svdSolve(), for matrices that are known to have full rank. Only an exact zero on the diagonal of R is
/// seen as a lack of rank. A matrix of nothing but zeros is solved by x = 0, and that counts as full rank.
///
/// @param A m x n, with m >= n
/// @param b m elements
/// @param[out] x n elements; unchanged when A has not full rank
/// @return whether A has full rank
/// @throws OVRIXMathException when m < n, a size does not fit or LAPACK fails
OVRIXMATH_EXPORT bool qrSolve(const Matrix& A, const Vector& b, Vector& x);

/// Thin QR decomposition A = Q R, with k = min(m, n): the columns of Q are orthonormal, R is upper trapezoidal.
///
/// The diagonal of R has the signs that the reflections give it.
///
/// @param A m x n
/// @param[out] Q m x k
/// @param[out] R k x n, exactly zero below the diagonal
/// @throws OVRIXMathException when a size does not fit or LAPACK fails
OVRIXMATH_EXPORT void qrDecomposition(const Matrix& A, Matrix& Q, Matrix& R);

} // namespace math
} // namespace ovrix
