#pragma once

#include <OVRIXUtil/Types.h>

#include <cstddef>

namespace ovrix
{
namespace math
{
namespace details
{

/// Minimum-norm least-squares solution of A X = B by singular values, within the caller's own arrays.
///
/// What svdSolve() rests on, for code of the library that builds its system anew for every solution and has no use for
/// containers. Singular values up to s[0] * NumericLimits<double>::s_sqrt_eps count as zero.
///
/// Small systems need no heap here; what LAPACK takes for itself remains.
///
/// @param nbRows number m of equations
/// @param nbColumns number n of variables
/// @param nbRhs number of right-hand sides
/// @param a A, m x n, row after row; overwritten
/// @param b B, m x nbRhs, row after row; its first n rows become X
/// @return the rank of A, 0 without equations
/// @throws OVRIXMathException LinearAlgebra message 7 when m < n, 11 when LAPACK fails, NaN in A or B being such a
///         failure, or when A could keep LAPACK busy for ever, see doesSvdEnd()
ovUInt32 svdSolveInPlace(std::size_t nbRows, std::size_t nbColumns, std::size_t nbRhs, double* a, double* b);

/// Whether LAPACK is sure to finish a singular value decomposition of `a`.
///
/// Infinities turn into NaN within LAPACK, and its QR sweeps never settle on NaN. With at most two singular values
/// there are no sweeps.
bool doesSvdEnd(std::size_t nbRows, std::size_t nbColumns, const double* a);

} // namespace details
} // namespace math
} // namespace ovrix
