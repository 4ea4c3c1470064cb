#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Types.h>

/// @file
/// Singular value decomposition A = U diag(s) Vt and the solvers that rest on it, by LAPACK.
///
/// Throughout, A has m rows x n columns and k = min(m, n). Sizes are checked first, outputs keep the size that the
/// caller gave them, and whatever is raised by such a check leaves them unchanged. A matrix of deficient rank is no
/// failure: the returned rank tells. It is the number of singular values above `s[0] * tol`, s[0] being the largest and
/// tol NumericLimits<double>::s_sqrt_eps. A failure of LAPACK raises; NaN in an input is such a failure, and so is an
/// infinity in A when k is above 2, where LAPACK could run for ever. Of other infinities LAPACK makes what it will.
///
/// An input and an output may be one object where the sizes allow it, such as b and x; two outputs must be two objects.

namespace ovrix
{
namespace math
{

/// Minimum-norm least-squares solution of A x = b: of all x with the smallest |A x - b|, the shortest.
///
/// @param A m x n, with m >= n
/// @param b m elements
/// @param[out] x n elements; unchanged when m is 0
/// @return the rank of A; singular values that do not count for it count as zero in the solution too
/// @throws OVRIXMathException LinearAlgebra message 7 when m < n, 10 when b has not m elements, 2 when x has not n, 11
///         when LAPACK fails
OVRIXMATH_EXPORT ovUInt32 svdSolve(const Matrix& A, const Vector& b, Vector& x);

/// Minimum-norm least-squares solutions of A X = B, one for each column of B.
///
/// @param A m x n, with m >= n
/// @param B m x p
/// @param[out] X n x p; unchanged when m is 0
/// @return the rank of A; singular values that do not count for it count as zero in the solutions too
/// @throws OVRIXMathException LinearAlgebra message 7 when m < n, 9 when B has not m rows, 8 when X has not n rows, 0
///         when it has not the columns of B, 11 when LAPACK fails
OVRIXMATH_EXPORT ovUInt32 svdSolve(const Matrix& A, const Matrix& B, Matrix& X);

/// Solution of the homogeneous system A x = 0: the x of unit length with the smallest |A x|.
///
/// x is the right singular vector of the smallest singular value, with the sign that LAPACK gives it. With one equation
/// fewer than variables it is the direction that the missing equation leaves free.
///
/// @param A m x n, with m >= n - 1
/// @param[out] x n elements; unchanged when A has no rows or no columns
/// @return the rank of A
/// @throws OVRIXMathException LinearAlgebra message 6 when m < n - 1, 2 when x has not n elements, 11 when LAPACK fails
OVRIXMATH_EXPORT ovUInt32 svdSolve(const Matrix& A, Vector& x);

/// Thin singular value decomposition A = U diag(s) Vt; the columns of U and the rows of Vt are orthonormal.
///
/// @param A m x n
/// @param[out] U m x k
/// @param[out] s k elements, in falling order
/// @param[out] Vt k x n
/// @throws OVRIXMathException LinearAlgebra message 2 when s has not k elements, 5 when U or then Vt has another size,
///         11 when LAPACK fails; the outputs then hold nothing usable
OVRIXMATH_EXPORT void svdDecomposition(const Matrix& A, Matrix& U, Vector& s, Matrix& Vt);

/// Moore-Penrose inverse V diag(1 / s) Ut of an over-constrained matrix.
///
/// A singular value of exactly zero has zero as its reciprocal. Any other is inverted, also one too small to count for
/// the rank: its reciprocal then dominates the result. A caller who wants such values left out looks at the rank.
///
/// @param A m x n, with m >= n
/// @param[out] Ainv n x m; unchanged when A has no rows
/// @return the rank of A
/// @throws OVRIXMathException LinearAlgebra message 7 when m < n, 5 when Ainv has another size, 11 when LAPACK fails
OVRIXMATH_EXPORT ovUInt32 svdInverse(const Matrix& A, Matrix& Ainv);

} // namespace math
} // namespace ovrix
