#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Types.h>

/// @file
/// Solution and inverse of square systems by the LU decomposition with partial pivoting, and inverses of triangular
/// matrices, by LAPACK.
///
/// Sizes are checked first; whatever is raised by such a check leaves the outputs unchanged. `false` means that the
/// matrix is singular to the last bit; the outputs then hold nothing usable. A 0 x 0 matrix succeeds. A failure of
/// LAPACK of any other kind raises; NaN in what is read is such a failure, but a singular A is told first.
///
/// Infinities are not looked for. One in A may end in any of the three ways: in `true`, with an output that is finite,
/// or not; in `false`; or in a raise, when it has become NaN within the factors.
///
/// The input and the output may be one object, as may b and x.

namespace ovrix
{
namespace math
{

/// Solves A x = b.
///
/// @param A n x n
/// @param b n elements
/// @param[out] x n elements; a copy of b when LAPACK refuses b or the factors of A
/// @return whether A is not singular
/// @throws OVRIXMathException LinearAlgebra message 3 when A is not square, 10 when b has not n elements, 2 when x has
///         not, 11 when LAPACK fails
OVRIXMATH_EXPORT bool luSolve(const Matrix& A, const Vector& b, Vector& x);

/// Replaces A by its inverse.
///
/// @param[in,out] A n x n; overwritten by its factors when it is singular or LAPACK refuses them
/// @return whether A is not singular
/// @throws OVRIXMathException LinearAlgebra message 3 when A is not square, 11 when LAPACK fails
OVRIXMATH_EXPORT bool luInverse(Matrix& A);

/// Inverse of A.
///
/// @param A n x n
/// @param[out] Ainv n x n; a copy of A or its factors when there is no inverse
/// @return whether A is not singular
/// @throws OVRIXMathException LinearAlgebra message 5 when Ainv has not the size of A, 3 when A is not square, 11 when
///         LAPACK fails
OVRIXMATH_EXPORT bool luInverse(const Matrix& A, Matrix& Ainv);

/// Replaces the upper triangle of A by the inverse of that triangle; the strict lower triangle is neither read nor
/// written.
///
/// @param[in,out] A n x n; unchanged when there is a zero on its diagonal
/// @return whether there is no zero on the diagonal of A
/// @throws OVRIXMathException LinearAlgebra message 3 when A is not square, 11 when LAPACK fails
OVRIXMATH_EXPORT bool upperTriangularInverse(Matrix& A);

/// Replaces the lower triangle of A by the inverse of that triangle; the strict upper triangle is neither read nor
/// written.
///
/// @param[in,out] A n x n; unchanged when there is a zero on its diagonal
/// @return whether there is no zero on the diagonal of A
/// @throws OVRIXMathException LinearAlgebra message 3 when A is not square, 11 when LAPACK fails
OVRIXMATH_EXPORT bool lowerTriangularInverse(Matrix& A);

} // namespace math
} // namespace ovrix
