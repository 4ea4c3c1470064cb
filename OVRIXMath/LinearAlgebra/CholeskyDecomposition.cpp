#include <OVRIXMath/LinearAlgebra/CholeskyDecomposition.h>
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

/// Replaces the upper triangle of an n x n matrix by its Cholesky factor; `false` when it is not positive definite.
bool factorize(std::size_t size, double* a)
{
    const auto n = details::toLapackSize(size);
    const lapack_int info = details::callLapack(LAPACKE_dpotrf, LAPACK_ROW_MAJOR, 'U', n, a, n);
    OVRIXMATH_RAISE_UNLESS(info >= 0, eLinearAlgebraMessage, 11);
    return info == 0;
}

/// Copies the upper triangle of an n x n matrix onto the lower one, in blocks: the elements of a column are far apart.
void mirrorUpperTriangle(std::size_t n, double* a)
{
    constexpr std::size_t blockSize = 32;
    for (std::size_t firstRow = 0; firstRow < n; firstRow += blockSize)
    {
        const std::size_t endOfRows = std::min(firstRow + blockSize, n);
        for (std::size_t firstColumn = firstRow; firstColumn < n; firstColumn += blockSize)
        {
            const std::size_t endOfColumns = std::min(firstColumn + blockSize, n);
            for (std::size_t r = firstRow; r < endOfRows; ++r)
            {
                for (std::size_t c = std::max(firstColumn, r + 1); c < endOfColumns; ++c)
                    a[c * n + r] = a[r * n + c];
            }
        }
    }
}

} // namespace

bool choleskyDecomposition(const Matrix& A, Matrix& U)
{
    const std::size_t n = A.size2();
    OVRIXMATH_RAISE_UNLESS(A.size1() == n, eLinearAlgebraMessage, 3, A.size1(), n);
    OVRIXMATH_RAISE_UNLESS(U.size1() == n && U.size2() == n, eLinearAlgebraMessage, 5, U.size1(), U.size2(), A.size1(),
                           n);
    if (n == 0)
        return true;
    double* const u = U.data().begin();
    details::copyElements(A, u);
    if (!factorize(n, u))
        return false;
    for (std::size_t i = 1; i < n; ++i)
        std::fill_n(u + i * n, i, 0.0);
    return true;
}

bool choleskyInverse(Matrix& A)
{
    const std::size_t n = A.size2();
    OVRIXMATH_RAISE_UNLESS(A.size1() == n, eLinearAlgebraMessage, 3, A.size1(), n);
    if (n == 0)
        return true;
    double* const a = A.data().begin();
    if (!factorize(n, a))
        return false;
    // The outcome is left alone, and that is meant: a finite factor with a positive diagonal has an inverse.
    details::callLapack(LAPACKE_dpotri, LAPACK_ROW_MAJOR, 'U', details::toLapackSize(n), a, details::toLapackSize(n));
    mirrorUpperTriangle(n, a);
    return true;
}

bool choleskyInverse(const Matrix& A, Matrix& Ainv)
{
    OVRIXMATH_RAISE_UNLESS(Ainv.size1() == A.size1() && Ainv.size2() == A.size2(), eLinearAlgebraMessage, 5,
                           Ainv.size1(), Ainv.size2(), A.size1(), A.size2());
    OVRIXMATH_RAISE_UNLESS(A.size1() == A.size2(), eLinearAlgebraMessage, 3, A.size1(), A.size2());
    details::copyElements(A, Ainv.data().begin());
    return choleskyInverse(Ainv);
}

} // namespace math
} // namespace ovrix
