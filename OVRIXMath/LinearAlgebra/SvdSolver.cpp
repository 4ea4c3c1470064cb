#include <OVRIXMath/LinearAlgebra/LapackCall.h>
#include <OVRIXMath/LinearAlgebra/LapackSize.h>
#include <OVRIXMath/LinearAlgebra/LinearAlgebraLogMessages.h>
#include <OVRIXMath/LinearAlgebra/SvdSolver.h>
#include <OVRIXMath/LinearAlgebra/WorkBuffer.h>
#include <OVRIXMath/OVRIXMathFailure.h>
#include <OVRIXUtil/NumericLimits.h>

#include <lapacke.h>

#include <algorithm>
#include <cmath>

namespace ovrix
{
namespace math
{
namespace details
{

ovUInt32 svdSolveInPlace(std::size_t nbRows, std::size_t nbColumns, std::size_t nbRhs, double* a, double* b)
{
    OVRIXMATH_RAISE_UNLESS(nbRows >= nbColumns, eLinearAlgebraMessage, 7, nbRows, nbColumns);
    if (nbRows == 0)
        return 0;
    OVRIXMATH_RAISE_UNLESS(doesSvdEnd(nbRows, nbColumns, a), eLinearAlgebraMessage, 11);
    const auto m = toLapackSize(nbRows);
    const auto n = toLapackSize(nbColumns);
    const auto nrhs = toLapackSize(nbRhs);
    VectorBuffer s(nbColumns, uninitialised);
    lapack_int rank = 0;
    const lapack_int info = callLapack(LAPACKE_dgelss, LAPACK_ROW_MAJOR, m, n, nrhs, a, n, b, nrhs, s.data(),
                                       NumericLimits<double>::s_sqrt_eps, &rank);
    OVRIXMATH_RAISE_UNLESS(info == 0, eLinearAlgebraMessage, 11);
    return static_cast<ovUInt32>(rank);
}

bool doesSvdEnd(std::size_t nbRows, std::size_t nbColumns, const double* a)
{
    if (std::min(nbRows, nbColumns) <= 2)
        return true;
    return std::all_of(a, a + nbRows * nbColumns, [](double value) { return std::isfinite(value); });
}

} // namespace details
} // namespace math
} // namespace ovrix
