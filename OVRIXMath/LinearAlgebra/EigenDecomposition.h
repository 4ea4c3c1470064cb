#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Types.h>

/// @file
/// Eigenvalues and eigenvectors of symmetric matrices: of any size by LAPACK, of 2 x 2 and 3 x 3 in closed form.
///
/// The forms on Matrix read the upper triangle of A only. They check sizes first, and whatever is raised by such a
/// check leaves the outputs unchanged; outputs keep the size that the caller gave them. A failure of LAPACK raises; NaN
/// in the upper triangle is such a failure, and makes w and V zero, in eigenPartialDecomposition() V alone. An infinity
/// in it gives eigenvalues that are NaN, and the rank n; a single infinite element is its own eigenvalue, of rank 0. V
/// may be A.
///
/// The closed forms never fail, never iterate and allocate nothing. They return what their arithmetic gives: NaN stays
/// NaN. Their tolerances are absolute, made for matrices whose elements are of the order of 1; `tol` stands for
/// NumericLimits<T>::s_sqrt_eps.

namespace ovrix
{
namespace math
{

/// All eigenvalues and eigenvectors of a symmetric matrix: A V = V diag(w).
///
/// A V = V diag(w) holds to within some n eps |A|, and so do the right angles between eigenvectors, but for one case:
/// where eigenvalues of both signs reach over many decades, those of the vectors of nearly vanishing eigenvalues keep
/// half of the digits only.
///
/// @param A n x n
/// @param[out] w n elements, in rising order
/// @param[out] V n x n; column j is the eigenvector of w[j], of unit length
/// @return the rank of A: the number of eigenvalues whose absolute value is above tol times the largest one, 0 for a
///         matrix of zeros
/// @throws OVRIXMathException LinearAlgebra message 3 when A is not square, 2 when w has not as many elements as V
///         columns, 3 when V is not square, 5 when it has not the size of A, 11 when LAPACK fails; after an iteration
///         that does not converge w and V hold nothing usable
OVRIXMATH_EXPORT ovUInt32 eigenDecomposition(const Matrix& A, Vector& w, Matrix& V);

/// The q largest eigenvalues of a symmetric matrix and their eigenvectors; q is the size of w.
///
/// @param A n x n
/// @param[in,out] w q elements, with 1 <= q <= n, in rising order
/// @param[out] V n x q; column j is the eigenvector of w[j], of unit length
/// @throws OVRIXMathException LinearAlgebra message 4 when q is above n, 3 when A is not square, 2 when V has not q
///         columns, 5 when it has not n rows, 11 when q is 0, with n above 0, or LAPACK fails; after an iteration that
///         does not converge V holds nothing usable, and w is unchanged
OVRIXMATH_EXPORT void eigenPartialDecomposition(const Matrix& A, Vector& w, Matrix& V);

/// Eigenvalues of ((a, b), (b, c)), and the orientation of the larger one's eigenvector.
///
/// With r = sqrt(4 b^2 + (a - c)^2) they are (a + c - r) / 2 and (a + c + r) / 2.
///
/// The angle is known to about eps |A| / |b|, eps being machine epsilon, and where a is the larger, a b of zero or
/// nearly so leaves it to rounding: it may then be off by a right angle, as for ((1.5000000000000002, 0), (0, 0.5)),
/// which gives -pi / 2. The formula is meant to stay as it is.
///
/// @param a, b, c elements of the matrix
/// @param[out] minValue, maxValue the eigenvalues
/// @param[out] angle atan2(maxValue - a, b), in radians
OVRIXMATH_EXPORT void eigenDecomposition(double a, double b, double c, double& minValue, double& maxValue,
                                         double& angle);

/// Eigenvalues l0 <= l1 <= l2 of ((a, b, c), (b, d, e), (c, e, f)) and their eigenvectors v0, v1, v2.
///
/// The eigenvalues are the roots of the characteristic polynomial in their trigonometric form (O. K. Smith, 1961); the
/// eigenvector of the better separated end and then the middle one are columns of products (A - lp I)(A - lq I), which
/// vanish on the eigenvectors of lp and lq; the third is their cross product, in the order that makes (v0, v1, v2) a
/// right-handed system.
///
/// A matrix with b^2 + c^2 + e^2 below tol^2 counts as diagonal: its diagonal in rising order, and the axes, which need
/// not be a right-handed system then. Equal eigenvalues have orthonormal eigenvectors all the same, and their order
/// holds to within rounding.
///
/// Accuracy of any other matrix for a largest absolute eigenvalue of about 1, with eps the machine epsilon, `gap` the
/// distance of the two nearest eigenvalues and `far` that of the third from the middle one:
///
/// - The eigenvalues and the right angles between eigenvectors hold to within 10 eps / gap, and never worse than to
///   within 4 sqrt(eps). So eigenvalues that nearly coincide are known to half of the type's digits.
/// - A v = l v holds to within 10 eps / gap, and 8 sqrt(eps) at worst, as long as gap * far is above 2 tol. The vectors
///   of the two eigenvalues are known to about 10 eps / gap^2 within the plane that they span.
/// - Where gap * far is below that, the two eigenvalues may count as equal: any two vectors of the plane, square to
///   each other, stand for theirs, and A v = l v holds to within gap + 8 sqrt(eps).
/// - Where far * (far + gap) is below it too, as for matrices of so small elements, fixed directions may stand for
///   all vectors, and A v = l v holds to within far + gap + sqrt(eps), and 2 sqrt(tol) at worst.
///
/// @tparam T `float` or `double`
/// @param a, b, c, d, e, f elements of the matrix
/// @param[out] l0, l1, l2 the eigenvalues
/// @param[out] v0x, v0y, v0z, v1x, v1y, v1z, v2x, v2y, v2z the eigenvectors, of unit length, of either sign
template <typename T>
OVRIXMATH_EXPORT void eigenDecomposition(T a, T b, T c, T d, T e, T f, T& l0, T& l1, T& l2, T& v0x, T& v0y, T& v0z,
                                         T& v1x, T& v1y, T& v1z, T& v2x, T& v2y, T& v2z);

/// As above, with the orientation of the eigenvectors as three angles.
///
/// With R the matrix whose rows are v0, v1, v2, the angles are those of R = Rz(psi) Ry(theta) Rx(phi), but for the sign
/// of one row where a matrix that counts as diagonal has a left-handed system. Where theta comes to a right angle, to
/// within tol in its sine, psi is 0. Of NaN in the matrix, the eigenvalues and phi become NaN, unless the matrix counts
/// as diagonal.
///
/// @tparam T `float` or `double`
/// @param a, b, c, d, e, f elements of the matrix
/// @param[out] l0, l1, l2 the eigenvalues
/// @param[out] psi, theta, phi the angles about z, y and x, in radians
template <typename T>
OVRIXMATH_EXPORT void eigenDecomposition(T a, T b, T c, T d, T e, T f, T& l0, T& l1, T& l2, T& psi, T& theta, T& phi);

extern template void eigenDecomposition(float, float, float, float, float, float, float&, float&, float&, float&,
                                        float&, float&, float&, float&, float&, float&, float&, float&);
extern template void eigenDecomposition(double, double, double, double, double, double, double&, double&, double&,
                                        double&, double&, double&, double&, double&, double&, double&, double&,
                                        double&);
extern template void eigenDecomposition(float, float, float, float, float, float, float&, float&, float&, float&,
                                        float&, float&);
extern template void eigenDecomposition(double, double, double, double, double, double, double&, double&, double&,
                                        double&, double&, double&);

} // namespace math
} // namespace ovrix
