#include <OVRIXMath/LinearAlgebra/LapackCall.h>
#include <OVRIXMath/LinearAlgebra/LapackSize.h>
#include <OVRIXMath/LinearAlgebra/LinearAlgebraLogMessages.h>
#include <OVRIXMath/LinearAlgebra/QRDecomposition.h>
#include <OVRIXMath/LinearAlgebra/WorkBuffer.h>
#include <OVRIXMath/OVRIXMathFailure.h>

#include <lapacke.h>

#include <algorithm>
#include <cstddef>

namespace ovrix
{
namespace math
{

bool qrSolve(const Matrix& A, const Vector& b, Vector& x)
{
    const std::size_t m = A.size1();
    const std::size_t n = A.size2();
    OVRIXMATH_RAISE_UNLESS(m >= n, eLinearAlgebraMessage, 7, m, n);
    OVRIXMATH_RAISE_UNLESS(b.size() == m, eLinearAlgebraMessage, 10, m, b.size());
    OVRIXMATH_RAISE_UNLESS(x.size() == n, eLinearAlgebraMessage, 2, n, x.size());
    if (m == 0)
        return true;
    const auto columns = details::toLapackSize(n);
    details::MatrixBuffer a = details::copyOf(A);
    details::VectorBuffer work = details::copyOf(b);
    const lapack_int info = details::callLapack(LAPACKE_dgels, LAPACK_ROW_MAJOR, 'N', details::toLapackSize(m), columns,
                                                1, a.data(), columns, work.data(), 1);
    OVRIXMATH_RAISE_UNLESS(info >= 0, eLinearAlgebraMessage, 11);
    if (info > 0)
        return false;
    std::copy_n(work.data(), n, x.data().begin());
    return true;
}

void qrDecomposition(const Matrix& A, Matrix& Q, Matrix& R)
{
    const std::size_t m = A.size1();
    const std::size_t n = A.size2();
    const std::size_t k = std::min(m, n);
    OVRIXMATH_RAISE_UNLESS(Q.size1() == m && Q.size2() == k, eLinearAlgebraMessage, 5, Q.size1(), Q.size2(), m, k);
    OVRIXMATH_RAISE_UNLESS(R.size1() == k && R.size2() == n, eLinearAlgebraMessage, 5, R.size1(), R.size2(), k, n);
    if (k == 0)
        return;
    const auto rows = details::toLapackSize(m);
    const auto columns = details::toLapackSize(n);
    const auto reflectors = details::toLapackSize(k);
    details::MatrixBuffer work = details::copyOf(A);
    double* const a = work.data();
    details::VectorBuffer tau(k, details::uninitialised);
    const lapack_int factorInfo =
        details::callLapack(LAPACKE_dgeqrf, LAPACK_ROW_MAJOR, rows, columns, a, columns, tau.data());
    OVRIXMATH_RAISE_UNLESS(factorInfo == 0, eLinearAlgebraMessage, 11);

    double* const r = R.data().begin();
    for (std::size_t i = 0; i < k; ++i)
    {
        std::fill_n(r + i * n, i, 0.0);
        std::copy_n(a + i * n + i, n - i, r + i * n + i);
    }

    const lapack_int reflectorsInfo =
        details::callLapack(LAPACKE_dorgqr, LAPACK_ROW_MAJOR, rows, reflectors, reflectors, a, columns, tau.data());
    OVRIXMATH_RAISE_UNLESS(reflectorsInfo == 0, eLinearAlgebraMessage, 11);
    double* const q = Q.data().begin();
    for (std::size_t i = 0; i < m; ++i)
        std::copy_n(a + i * n, k, q + i * k);
}

} // namespace math
} // namespace ovrix
