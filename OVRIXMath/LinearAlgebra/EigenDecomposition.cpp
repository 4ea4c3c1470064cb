#include <OVRIXMath/LinearAlgebra/EigenDecomposition.h>
#include <OVRIXMath/LinearAlgebra/LapackCall.h>
#include <OVRIXMath/LinearAlgebra/LapackSize.h>
#include <OVRIXMath/LinearAlgebra/LinearAlgebraLogMessages.h>
#include <OVRIXMath/LinearAlgebra/WorkBuffer.h>
#include <OVRIXMath/OVRIXMathFailure.h>

#include <lapacke.h>

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace ovrix
{
namespace math
{

namespace
{

/// Number of eigenvalues that are not small beside the one of the largest absolute value.
ovUInt32 computeRank(const double* w, std::size_t n)
{
    double largest = NumericLimits<double>::s_min;
    for (std::size_t i = 0; i < n; ++i)
        largest = std::max(largest, std::fabs(w[i]));
    if (largest == 0.0)
        return 0;
    const double threshold = largest * NumericLimits<double>::s_sqrt_eps;
    const auto nbSmall = std::count_if(w, w + n, [threshold](double value) { return std::fabs(value) <= threshold; });
    return static_cast<ovUInt32>(n) - static_cast<ovUInt32>(nbSmall);
}

/// LAPACK's eigenvalues of A in rising order, as many as V has columns, and their eigenvectors. Zeros stand for those
/// that it does not find, and for all where it fails.
///
/// @param range 'A' for all of them, 'I' for those from number `il` to number `iu`
/// @param[out] w room for as many values as A has rows
void findEigenvalues(const Matrix& A, char range, lapack_int il, lapack_int iu, double* w, Matrix& V)
{
    const auto n = details::toLapackSize(A.size2());
    const std::size_t nbWanted = V.size2();
    details::MatrixBuffer a = details::copyOf(A);
    details::IndexBuffer<lapack_int> isuppz(2 * nbWanted, details::uninitialised);
    std::fill(w, w + A.size2(), 0.0);
    std::fill(V.data().begin(), V.data().end(), 0.0);
    lapack_int nbFound = 0;
    const lapack_int info =
        details::callLapack(LAPACKE_dsyevr, LAPACK_ROW_MAJOR, 'V', range, 'U', n, a.data(), n, 0.0, 0.0, il, iu, -1.0,
                            &nbFound, w, V.data().begin(), details::toLapackSize(nbWanted), isuppz.data());
    OVRIXMATH_RAISE_UNLESS(info == 0, eLinearAlgebraMessage, 11);

    // LAPACKE transposes all columns out of memory of its own, those too that LAPACK did not fill.
    const std::size_t firstMissing = std::min(static_cast<std::size_t>(nbFound), nbWanted);
    std::fill(w + firstMissing, w + nbWanted, 0.0);
    for (std::size_t i = 0; i < V.size1(); ++i)
    {
        double* const row = V.data().begin() + i * nbWanted;
        std::fill(row + firstMissing, row + nbWanted, 0.0);
    }
}

template <typename T>
constexpr T g_tol = NumericLimits<T>::s_sqrt_eps;

template <typename T>
struct Vector3
{
    T x;
    T y;
    T z;
};

template <typename T>
T squaredNorm(const Vector3<T>& v)
{
    return v.x * v.x + v.y * v.y + v.z * v.z;
}

template <typename T>
Vector3<T> cross(const Vector3<T>& u, const Vector3<T>& v)
{
    return {u.y * v.z - u.z * v.y, u.z * v.x - u.x * v.z, u.x * v.y - u.y * v.x};
}

/// Scales a vector to unit length unless it is too short for that.
///
/// @return the length it had
template <typename T>
T normalise(Vector3<T>& v, T vSquaredNorm)
{
    const T g = std::sqrt(vSquaredNorm);
    if (g > g_tol<T>)
        v = {v.x / g, v.y / g, v.z / g};
    return g;
}

template <typename T>
T normalise(Vector3<T>& v)
{
    return normalise(v, squaredNorm(v));
}

/// The symmetric matrix ((a, b, c), (b, d, e), (c, e, f)).
template <typename T>
struct Symmetric3
{
    T a;
    T b;
    T c;
    T d;
    T e;
    T f;
};

/// Eigenvalues in rising order, and their eigenvectors.
template <typename T>
struct Eigen3
{
    T l0;
    T l1;
    T l2;
    Vector3<T> v0;
    Vector3<T> v1;
    Vector3<T> v2;
};

/// The diagonal in rising order, and the axes.
template <typename T>
Eigen3<T> decomposeDiagonal(T a, T d, T f)
{
    constexpr Vector3<T> x{1, 0, 0};
    constexpr Vector3<T> y{0, 1, 0};
    constexpr Vector3<T> z{0, 0, 1};
    if (d > a)
    {
        if (f > d)
            return {a, d, f, x, y, z};
        if (f > a)
            return {a, f, d, x, z, y};
        return {f, a, d, z, x, y};
    }
    if (f > a)
        return {d, a, f, y, x, z};
    if (f > d)
        return {d, f, a, y, z, x};
    return {f, d, a, z, y, x};
}

/// Roots of the characteristic polynomial; `p1` is b^2 + c^2 + e^2.
template <typename T>
void computeEigenvalues(const Symmetric3<T>& A, T p1, T& l0, T& l1, T& l2)
{
    const T q = (A.a + A.d + A.f) / T(3);
    const T a = A.a - q;
    const T d = A.d - q;
    const T f = A.f - q;
    const T p = std::sqrt((a * a + d * d + f * f + T(2) * p1) / T(6));
    const T h = T(2) * p;
    // An undefined p has no r and takes the angle of r = 0.
    T r = T(0);
    if (std::fabs(p) > g_tol<T> * g_tol<T>)
        r = (a * d * f + T(2) * A.b * A.e * A.c - d * (A.c * A.c) - f * (A.b * A.b) - a * (A.e * A.e)) /
            (T(2) * (p * p * p));
    if (r <= T(-1))
    {
        l2 = l1 = h * T(0.5000000000000001);
    }
    else if (r >= T(1))
    {
        l2 = h;
        l1 = T(-0.4999999999999998) * h;
    }
    else
    {
        const T u = std::acos(r) / T(3);
        l2 = h * std::cos(u);
        l1 = h * std::cos(u - T(2.0943951023931953));
    }
    l2 += q;
    l1 += q;
    l0 = T(3) * q - l2 - l1;
}

/// The longest columns of two products (A - lp I)(A - lq I), each of which lies along the eigenvector of the third
/// eigenvalue.
///
/// The two products run side by side: index k tells them apart, so that the processor takes both in one instruction.
///
/// @param lp, lq eigenvalues of the first and of the second product
/// @param[out] v the columns, of unit length unless they were too short
/// @param[out] g the columns' lengths
template <typename T>
[[gnu::always_inline]] inline void computeEigenvectors(const Symmetric3<T>& A, const T (&lp)[2], const T (&lq)[2],
                                                       Vector3<T> (&v)[2], T (&g)[2])
{
    const T b = A.b;
    const T c = A.c;
    const T e = A.e;
    // Components and squared norms of column i of product k.
    T x[3][2];
    T y[3][2];
    T z[3][2];
    T norms[3][2];
    for (std::size_t k = 0; k < 2; ++k)
    {
        // The diagonals of A - lp I and A - lq I.
        const T ap = A.a - lp[k];
        const T dp = A.d - lp[k];
        const T fp = A.f - lp[k];
        const T aq = A.a - lq[k];
        const T dq = A.d - lq[k];
        const T fq = A.f - lq[k];
        x[0][k] = ap * aq + b * b + c * c;
        y[0][k] = b * aq + dp * b + e * c;
        z[0][k] = c * aq + e * b + fp * c;
        x[1][k] = ap * b + b * dq + c * e;
        y[1][k] = b * b + dp * dq + e * e;
        z[1][k] = c * b + e * dq + fp * e;
        x[2][k] = ap * c + b * e + c * fq;
        y[2][k] = b * c + dp * e + e * fq;
        z[2][k] = c * c + e * e + fp * fq;
        for (std::size_t i = 0; i < 3; ++i)
            norms[i][k] = x[i][k] * x[i][k] + y[i][k] * y[i][k] + z[i][k] * z[i][k];
    }
    for (std::size_t k = 0; k < 2; ++k)
    {
        // The longest column, a later one only if it is strictly longer; an index instead of jumps, which no processor
        // could foretell.
        std::size_t longest = norms[1][k] > norms[0][k] ? 1 : 0;
        longest = norms[2][k] > norms[longest][k] ? 2 : longest;
        v[k] = {x[longest][k], y[longest][k], z[longest][k]};
        g[k] = normalise(v[k], norms[longest][k]);
    }
}

/// The closed form with eigenvectors; part of its callers, so that the results stay in registers.
template <typename T>
[[gnu::always_inline]] inline Eigen3<T> decompose(const Symmetric3<T>& A)
{
    constexpr Vector3<T> x{1, 0, 0};
    constexpr Vector3<T> y{0, 1, 0};
    const T p1 = A.b * A.b + A.c * A.c + A.e * A.e;
    if (p1 < g_tol<T> * g_tol<T>)
        return decomposeDiagonal(A.a, A.d, A.f);
    T l0;
    T l1;
    T l2;
    computeEigenvalues(A, p1, l0, l1, l2);

    // The end that stands further off comes first, from its product with the two others, then the middle one.
    const bool bLastFirst = l2 - l1 > l1 - l0;
    const T lp[] = {bLastFirst ? l0 : l1, l2};
    const T lq[] = {bLastFirst ? l1 : l2, l0};
    Vector3<T> v[2];
    T g[2];
    computeEigenvectors(A, lp, lq, v, g);
    Vector3<T> vEnd = v[0];
    if (g[0] < g_tol<T>)
        vEnd = x;
    Vector3<T> vMiddle = v[1];
    if (g[1] < g_tol<T>)
    {
        // The middle eigenvalue coincides with the other end: any direction square to the first one will do.
        vMiddle = cross(vEnd, x);
        if (normalise(vMiddle) < g_tol<T>)
        {
            vMiddle = cross(vEnd, y);
            normalise(vMiddle);
        }
    }
    if (bLastFirst)
    {
        Vector3<T> v0 = cross(vMiddle, vEnd);
        normalise(v0);
        return {l0, l1, l2, v0, vMiddle, vEnd};
    }
    Vector3<T> v2 = cross(vEnd, vMiddle);
    normalise(v2);
    return {l0, l1, l2, vEnd, vMiddle, v2};
}

} // namespace

ovUInt32 eigenDecomposition(const Matrix& A, Vector& w, Matrix& V)
{
    OVRIXMATH_RAISE_UNLESS(A.size1() == A.size2(), eLinearAlgebraMessage, 3, A.size1(), A.size2());
    OVRIXMATH_RAISE_UNLESS(w.size() == V.size2(), eLinearAlgebraMessage, 2, V.size2(), w.size());
    OVRIXMATH_RAISE_UNLESS(V.size1() == V.size2(), eLinearAlgebraMessage, 3, V.size1(), V.size2());
    OVRIXMATH_RAISE_UNLESS(V.size1() == A.size1(), eLinearAlgebraMessage, 5, V.size1(), V.size2(), A.size1(),
                           A.size2());
    if (A.size2() == 0)
        return 0;
    findEigenvalues(A, 'A', 0, 0, w.data().begin(), V);
    return computeRank(w.data().begin(), w.size());
}

void eigenPartialDecomposition(const Matrix& A, Vector& w, Matrix& V)
{
    OVRIXMATH_RAISE_UNLESS(w.size() <= A.size1(), eLinearAlgebraMessage, 4, w.size(), A.size1());
    OVRIXMATH_RAISE_UNLESS(A.size1() == A.size2(), eLinearAlgebraMessage, 3, A.size1(), A.size2());
    OVRIXMATH_RAISE_UNLESS(V.size2() == w.size(), eLinearAlgebraMessage, 2, V.size2(), w.size());
    OVRIXMATH_RAISE_UNLESS(V.size1() == A.size1(), eLinearAlgebraMessage, 5, V.size1(), V.size2(), A.size1(),
                           A.size2());
    if (A.size2() == 0)
        return;
    // LAPACK refuses an empty range of indices too, but it prints about it first.
    OVRIXMATH_RAISE_UNLESS(!w.empty(), eLinearAlgebraMessage, 11);

    const auto n = details::toLapackSize(A.size2());
    const auto q = details::toLapackSize(w.size());
    details::VectorBuffer wtmp(A.size2(), details::uninitialised);
    findEigenvalues(A, 'I', n - q + 1, n, wtmp.data(), V);
    std::copy_n(wtmp.begin(), w.size(), w.data().begin());
}

void eigenDecomposition(double a, double b, double c, double& minValue, double& maxValue, double& angle)
{
    const double r = std::sqrt(4.0 * (b * b) + (a - c) * (a - c));
    minValue = (a + c - r) * 0.5;
    maxValue = (a + c + r) * 0.5;
    angle = std::atan2(maxValue - a, b);
}

template <typename T>
void eigenDecomposition(T a, T b, T c, T d, T e, T f, T& l0, T& l1, T& l2, T& v0x, T& v0y, T& v0z, T& v1x, T& v1y,
                        T& v1z, T& v2x, T& v2y, T& v2z)
{
    const Eigen3<T> eigen = decompose(Symmetric3<T>{a, b, c, d, e, f});
    l0 = eigen.l0;
    l1 = eigen.l1;
    l2 = eigen.l2;
    v0x = eigen.v0.x;
    v0y = eigen.v0.y;
    v0z = eigen.v0.z;
    v1x = eigen.v1.x;
    v1y = eigen.v1.y;
    v1z = eigen.v1.z;
    v2x = eigen.v2.x;
    v2y = eigen.v2.y;
    v2z = eigen.v2.z;
}

template <typename T>
void eigenDecomposition(T a, T b, T c, T d, T e, T f, T& l0, T& l1, T& l2, T& psi, T& theta, T& phi)
{
    constexpr T halfPi = T(1.5707963267948966);
    const Eigen3<T> eigen = decompose(Symmetric3<T>{a, b, c, d, e, f});
    l0 = eigen.l0;
    l1 = eigen.l1;
    l2 = eigen.l2;
    // The rotation's third row decides: sin(theta) is -r6.
    const T r6 = eigen.v2.x;
    if (T(1) - std::fabs(r6) > g_tol<T>)
    {
        const T u = std::asin(r6);
        const T g = std::cos(u);
        theta = -u;
        psi = std::atan2(eigen.v1.x / g, eigen.v0.x / g);
        phi = std::atan2(eigen.v2.y / g, eigen.v2.z / g);
    }
    else if (r6 < T(0))
    {
        psi = T(0);
        theta = halfPi;
        phi = std::atan2(eigen.v0.y, eigen.v0.z);
    }
    else
    {
        psi = T(0);
        theta = -halfPi;
        phi = std::atan2(-eigen.v0.y, -eigen.v0.z);
    }
}

template void eigenDecomposition(float, float, float, float, float, float, float&, float&, float&, float&, float&,
                                 float&, float&, float&, float&, float&, float&, float&);
template void eigenDecomposition(double, double, double, double, double, double, double&, double&, double&, double&,
                                 double&, double&, double&, double&, double&, double&, double&, double&);
template void eigenDecomposition(float, float, float, float, float, float, float&, float&, float&, float&, float&,
                                 float&);
template void eigenDecomposition(double, double, double, double, double, double, double&, double&, double&, double&,
                                 double&, double&);

} // namespace math
} // namespace ovrix
