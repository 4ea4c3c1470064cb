#include <OVRIXMath/LinearAlgebra/LUDecomposition.h>
#include <OVRIXMath/LinearAlgebra/LapackCall.h>
#include <OVRIXMath/LinearAlgebra/LapackSize.h>
#include <OVRIXMath/LinearAlgebra/LinearAlgebraLogMessages.h>
#include <OVRIXMath/LinearAlgebra/WorkBuffer.h>
#include <OVRIXMath/OVRIXMathFailure.h>

#include <lapacke.h>

#include <algorithm>
#include <cstddef>

namespace ovrix
{
namespace math
{

namespace
{

using Pivots = boost::numeric::ublas::unbounded_array<lapack_int>;

bool triangularInverse(Matrix& A, char uplo)
{
    OVRIXMATH_RAISE_UNLESS(A.size1() == A.size2(), eLinearAlgebraMessage, 3, A.size1(), A.size2());
    const auto n = details::toLapackSize(A.size2());
    if (n == 0)
        return true;
    const lapack_int info = details::callLapack(LAPACKE_dtrtri, LAPACK_ROW_MAJOR, uplo, 'N', n, A.data().begin(), n);
    OVRIXMATH_RAISE_UNLESS(info >= 0, eLinearAlgebraMessage, 11);
    return info == 0;
}

} // namespace

bool luSolve(const Matrix& A, const Vector& b, Vector& x)
{
    OVRIXMATH_RAISE_UNLESS(A.size1() == A.size2(), eLinearAlgebraMessage, 3, A.size1(), A.size2());
    OVRIXMATH_RAISE_UNLESS(b.size() == A.size2(), eLinearAlgebraMessage, 10, A.size2(), b.size());
    OVRIXMATH_RAISE_UNLESS(x.size() == A.size2(), eLinearAlgebraMessage, 2, A.size2(), x.size());
    const auto n = details::toLapackSize(A.size2());
    if (n == 0)
        return true;

    details::MatrixBuffer a = details::copyOf(A);
    Pivots ipiv(A.size2());
    const lapack_int factorInfo =
        details::callLapack(LAPACKE_dgetrf, LAPACK_ROW_MAJOR, n, n, a.data(), n, ipiv.begin());
    OVRIXMATH_RAISE_UNLESS(factorInfo >= 0, eLinearAlgebraMessage, 11);
    if (factorInfo > 0)
        return false;

    details::copyElements(b, x.data().begin());
    const lapack_int solveInfo = details::callLapack(LAPACKE_dgetrs, LAPACK_ROW_MAJOR, 'N', n, 1, a.data(), n,
                                                     ipiv.begin(), x.data().begin(), 1);
    OVRIXMATH_RAISE_UNLESS(solveInfo == 0, eLinearAlgebraMessage, 11);
    return true;
}

bool luInverse(Matrix& A)
{
    OVRIXMATH_RAISE_UNLESS(A.size1() == A.size2(), eLinearAlgebraMessage, 3, A.size1(), A.size2());
    const auto n = details::toLapackSize(A.size2());
    if (n == 0)
        return true;

    double* const a = A.data().begin();
    Pivots ipiv(A.size2());
    const lapack_int factorInfo = details::callLapack(LAPACKE_dgetrf, LAPACK_ROW_MAJOR, n, n, a, n, ipiv.begin());
    OVRIXMATH_RAISE_UNLESS(factorInfo >= 0, eLinearAlgebraMessage, 11);
    if (factorInfo > 0)
        return false;

    const lapack_int inverseInfo = details::callLapack(LAPACKE_dgetri, LAPACK_ROW_MAJOR, n, a, n, ipiv.begin());
    OVRIXMATH_RAISE_UNLESS(inverseInfo >= 0, eLinearAlgebraMessage, 11);
    return inverseInfo == 0;
}

bool luInverse(const Matrix& A, Matrix& Ainv)
{
    OVRIXMATH_RAISE_UNLESS(Ainv.size1() == A.size1() && Ainv.size2() == A.size2(), eLinearAlgebraMessage, 5,
                           Ainv.size1(), Ainv.size2(), A.size1(), A.size2());
    OVRIXMATH_RAISE_UNLESS(A.size1() == A.size2(), eLinearAlgebraMessage, 3, A.size1(), A.size2());
    details::copyElements(A, Ainv.data().begin());
    return luInverse(Ainv);
}

bool upperTriangularInverse(Matrix& A)
{
    return triangularInverse(A, 'U');
}

bool lowerTriangularInverse(Matrix& A)
{
    return triangularInverse(A, 'L');
}

} // namespace math
} // namespace ovrix
