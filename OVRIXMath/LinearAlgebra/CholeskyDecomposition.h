#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Types.h>

/// @file
/// Cholesky decomposition A = Ut U of a symmetric positive definite matrix, and its inverse, by LAPACK.
///
/// Only the upper triangle of A is read. Sizes are checked first; whatever is raised by such a check leaves the outputs
/// unchanged. `false` means that the matrix is not positive definite; the outputs then hold nothing usable. A 0 x 0
/// matrix succeeds. A failure of LAPACK of any other kind raises; NaN in the upper triangle is such a failure. After
/// message 11 an output of its own may hold a copy of A. Infinities are not looked for: they may give `true` and
/// outputs that hold nothing usable.
///
/// The input and the output may be one object.

namespace ovrix
{
namespace math
{

/// The upper triangular U with A = Ut U and a positive diagonal.
///
/// @param A n x n
/// @param[out] U n x n, exactly zero below the diagonal
/// @return whether A is positive definite
/// @throws OVRIXMathException LinearAlgebra message 3 when A is not square, 5 when U has not the size of A, 11 when
///         LAPACK fails
OVRIXMATH_EXPORT bool choleskyDecomposition(const Matrix& A, Matrix& U);

/// Replaces A by its inverse, which is symmetric to the last bit.
///
/// Whether the second step, from the factor to the inverse, succeeds is not looked at, and that is meant. It can
/// fail only for want of memory within LAPACKE, or where infinities in A became NaN in the factor: the result is `true`
/// then, and A holds the factor and its mirror image.
///
/// @param[in,out] A n x n; overwritten by a part of the factor when it is not positive definite
/// @return whether A is positive definite
/// @throws OVRIXMathException LinearAlgebra message 3 when A is not square, 11 when LAPACK fails
OVRIXMATH_EXPORT bool choleskyInverse(Matrix& A);

/// Inverse of A, symmetric to the last bit; otherwise as the form above.
///
/// @param A n x n
/// @param[out] Ainv n x n
/// @return whether A is positive definite
/// @throws OVRIXMathException LinearAlgebra message 5 when Ainv has not the size of A, 3 when A is not square, 11 when
///         LAPACK fails
OVRIXMATH_EXPORT bool choleskyInverse(const Matrix& A, Matrix& Ainv);

} // namespace math
} // namespace ovrix
