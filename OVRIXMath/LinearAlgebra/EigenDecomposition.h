#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Types.h>

/// @file
/// Eigenvalues and eigenvectors of symmetric matrices: of any size by LAPACK, of 2 x 2 and 3 x 3 in closed form.
///
/// The forms on Matrix read the upper triangle of A only. They check sizes first, and whatever is raised by such a
/// check leaves the outputs unchanged; outputs keep the size that the caller gave them. A failure of LAPACK raises;
/// NaN in the upper triangle is such a failure. An infinity in it gives eigenvalues that are NaN, and the rank n.
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
/// @throws OVRIXMathException when a matrix is not square, a size does not fit or LAPACK fails
OVRIXMATH_EXPORT ovUInt32 eigenDecomposition(const Matrix& A, Vector& w, Matrix& V);

/// The q largest eigenvalues of a symmetric matrix and their eigenvectors; q is the size of w.
///
/// @param A n x n
/// @param[in,out] w q elements, with 1 <= q <= n, in rising order
/// @param[out] V n x q; column j is the eigenvector of w[j], of unit length
/// @throws OVRIXMathException when q is above n or, with n above 0, is 0; when A is not square, a size does not fit or
///         LAPACK fails
OVRIXMATH_EXPORT void eigenPartialDecomposition(const Matrix& A, Vector& w, Matrix& V);

/// Eigenvalues of ((a, b), (b, c)), and the orientation of the larger one's eigenvector.
///
/// With r = sqrt(4 b^2 + (a - c)^2) they are (a + c - r) / 2 and (a + c + r) / 2.
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
/// Accuracy for a largest absolute eigenvalue of about 1, with eps the machine epsilon and `gap` the distance of the
/// two nearest eigenvalues: the eigenvalues, A v = l v and the right angles between eigenvectors hold to within
/// 10 eps / gap, and never worse than to within 4 sqrt(eps). So eigenvalues that nearly coincide are known to half of
/// the type's digits, and their vectors, within the plane that the two span, to about 10 eps / gap^2. Where that
/// distance times the distance to the third eigenvalue is below about tol, the two count as equal: any two vectors
/// square to each other stand for theirs. Of three eigenvalues within sqrt(tol) of each other, as matrices of such
/// small elements have them, fixed directions stand for all vectors.
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
/// With R the matrix whose rows are v0, v1, v2, the angles are those of R = Rz(psi) Ry(theta) Rx(phi). Where theta
/// comes to a right angle, to within tol in its sine, psi is 0. Of NaN in the matrix, the eigenvalues and phi become
/// NaN, unless the matrix counts as diagonal.
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
