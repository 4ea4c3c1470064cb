#include <OVRIXMath/LinearAlgebra/LapackCall.h>
#include <OVRIXMath/LinearAlgebra/LapackSize.h>
#include <OVRIXMath/LinearAlgebra/LinearAlgebraLogMessages.h>
#include <OVRIXMath/LinearAlgebra/SingularValueDecomposition.h>
#include <OVRIXMath/LinearAlgebra/SvdSolver.h>
#include <OVRIXMath/LinearAlgebra/WorkBuffer.h>
#include <OVRIXMath/OVRIXMathFailure.h>

#include <lapacke.h>

#include <algorithm>
#include <cstddef>

namespace ovrix
{
namespace math
{

using details::copyOf;
using details::MatrixBuffer;
using details::toLapackSize;
using details::uninitialised;
using details::VectorBuffer;

namespace
{

constexpr double g_tol = NumericLimits<double>::s_sqrt_eps;

/// LAPACK's decomposition of `a`, whose content is lost or replaced as the jobs say; `s` gets min(m, n) values.
void decompose(char jobu, char jobvt, std::size_t m, std::size_t n, double* a, double* s, double* u, std::size_t ldu,
               double* vt)
{
    OVRIXMATH_RAISE_UNLESS(details::doesSvdEnd(m, n, a), eLinearAlgebraMessage, 11);
    const auto columns = toLapackSize(n);
    VectorBuffer superb(std::min(m, n) - 1, uninitialised);
    const lapack_int info = details::callLapack(LAPACKE_dgesvd, LAPACK_ROW_MAJOR, jobu, jobvt, toLapackSize(m), columns,
                                                a, columns, s, u, toLapackSize(ldu), vt, columns, superb.data());
    OVRIXMATH_RAISE_UNLESS(info == 0, eLinearAlgebraMessage, 11);
}

/// Number of singular values above the tolerance, of n in falling order.
ovUInt32 computeRank(const double* s, std::size_t n)
{
    const double t = s[0] * g_tol;
    return static_cast<ovUInt32>(std::count_if(s, s + n, [t](double value) { return value > t; }));
}

} // namespace

ovUInt32 svdSolve(const Matrix& A, const Vector& b, Vector& x)
{
    const std::size_t m = A.size1();
    const std::size_t n = A.size2();
    OVRIXMATH_RAISE_UNLESS(m >= n, eLinearAlgebraMessage, 7, m, n);
    OVRIXMATH_RAISE_UNLESS(b.size() == m, eLinearAlgebraMessage, 10, m, b.size());
    OVRIXMATH_RAISE_UNLESS(x.size() == n, eLinearAlgebraMessage, 2, n, x.size());
    MatrixBuffer a = copyOf(A);
    VectorBuffer work = copyOf(b);
    const ovUInt32 rank = details::svdSolveInPlace(m, n, 1, a.data(), work.data());
    std::copy_n(work.begin(), n, x.data().begin());
    return rank;
}

ovUInt32 svdSolve(const Matrix& A, const Matrix& B, Matrix& X)
{
    const std::size_t m = A.size1();
    const std::size_t n = A.size2();
    const std::size_t nrhs = B.size2();
    OVRIXMATH_RAISE_UNLESS(m >= n, eLinearAlgebraMessage, 7, m, n);
    OVRIXMATH_RAISE_UNLESS(B.size1() == m, eLinearAlgebraMessage, 9, m, B.size1());
    OVRIXMATH_RAISE_UNLESS(X.size1() == n, eLinearAlgebraMessage, 8, X.size1(), n);
    OVRIXMATH_RAISE_UNLESS(X.size2() == nrhs, eLinearAlgebraMessage, 0, X.size2(), nrhs);
    MatrixBuffer a = copyOf(A);
    MatrixBuffer work = copyOf(B);
    const ovUInt32 rank = details::svdSolveInPlace(m, n, nrhs, a.data(), work.data());
    std::copy_n(work.begin(), n * nrhs, X.data().begin());
    return rank;
}

ovUInt32 svdSolve(const Matrix& A, Vector& x)
{
    const std::size_t m = A.size1();
    const std::size_t n = A.size2();
    OVRIXMATH_RAISE_UNLESS(m + 1 >= n, eLinearAlgebraMessage, 6, m, n);
    OVRIXMATH_RAISE_UNLESS(x.size() == n, eLinearAlgebraMessage, 2, n, x.size());
    if (m == 0 || n == 0)
        return 0;
    const std::size_t k = std::min(m, n);
    const std::size_t lastRow = (n - 1) * n;
    MatrixBuffer a = copyOf(A);
    VectorBuffer s(k, uninitialised);
    if (m >= n)
    {
        decompose('N', 'O', m, n, a.data(), s.data(), nullptr, k, nullptr);
        std::copy_n(a.data() + lastRow, n, x.data().begin());
    }
    else
    {
        MatrixBuffer vt(n * n, uninitialised);
        decompose('N', 'A', m, n, a.data(), s.data(), nullptr, k, vt.data());
        std::copy_n(vt.data() + lastRow, n, x.data().begin());
    }
    return computeRank(s.data(), k);
}

void svdDecomposition(const Matrix& A, Matrix& U, Vector& s, Matrix& Vt)
{
    const std::size_t m = A.size1();
    const std::size_t n = A.size2();
    const std::size_t k = std::min(m, n);
    OVRIXMATH_RAISE_UNLESS(s.size() == k, eLinearAlgebraMessage, 2, k, s.size());
    OVRIXMATH_RAISE_UNLESS(U.size1() == m && U.size2() == k, eLinearAlgebraMessage, 5, U.size1(), U.size2(), m, k);
    OVRIXMATH_RAISE_UNLESS(Vt.size1() == k && Vt.size2() == n, eLinearAlgebraMessage, 5, Vt.size1(), Vt.size2(), k, n);
    if (k == 0)
        return;
    MatrixBuffer a = copyOf(A);
    decompose('S', 'S', m, n, a.data(), s.data().begin(), U.data().begin(), k, Vt.data().begin());
}

ovUInt32 svdInverse(const Matrix& A, Matrix& Ainv)
{
    const std::size_t m = A.size1();
    const std::size_t n = A.size2();
    OVRIXMATH_RAISE_UNLESS(m >= n, eLinearAlgebraMessage, 7, m, n);
    OVRIXMATH_RAISE_UNLESS(Ainv.size1() == n && Ainv.size2() == m, eLinearAlgebraMessage, 5, Ainv.size1(), Ainv.size2(),
                           n, m);
    if (n == 0)
        return 0;
    MatrixBuffer vt = copyOf(A);
    MatrixBuffer u(m * n, uninitialised);
    VectorBuffer s(n, uninitialised);
    decompose('S', 'O', m, n, vt.data(), s.data(), u.data(), n, nullptr);

    // Row q of Vt times the reciprocal of s[q].
    for (std::size_t q = 0; q < n; ++q)
    {
        const double inv = s[q] == 0.0 ? 0.0 : 1.0 / s[q];
        std::for_each(vt.data() + q * n, vt.data() + (q + 1) * n, [inv](double& value) { value *= inv; });
    }
    // Column r of the inverse: n sums at once, each in the order of the singular values.
    VectorBuffer column(n, uninitialised);
    double* const sums = column.data();
    double* const inverse = Ainv.data().begin();
    for (std::size_t r = 0; r < m; ++r)
    {
        std::fill_n(sums, n, 0.0);
        for (std::size_t q = 0; q < n; ++q)
        {
            const double urq = u[r * n + q];
            const double* const row = vt.data() + q * n;
            for (std::size_t i = 0; i < n; ++i)
                sums[i] += row[i] * urq;
        }
        for (std::size_t i = 0; i < n; ++i)
            inverse[i * m + r] = sums[i];
    }
    return computeRank(s.data(), n);
}

} // namespace math
} // namespace ovrix
