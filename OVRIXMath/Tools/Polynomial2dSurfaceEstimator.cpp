#include <OVRIXMath/LinearAlgebra/SvdSolver.h>
#include <OVRIXMath/LinearAlgebra/WorkBuffer.h>
#include <OVRIXMath/OVRIXMathFailure.h>
#include <OVRIXMath/Tools/Polynomial2dSurfaceEstimator.h>
#include <OVRIXMath/Tools/ToolsLogMessages.h>

#include <algorithm>
#include <cstddef>

namespace ovrix
{
namespace math
{

namespace
{

constexpr std::size_t g_nbParams = 6;

/// Data whose residuals are computed side by side.
constexpr std::size_t g_blockSize = 16;

inline ovReal64 computeResidual(ovReal64 x, ovReal64 y, ovReal64 z, const ovReal64* c)
{
    return z - (c[0] * x * x + c[1] * x * y + c[2] * y * y + x * c[3] + y * c[4] + c[5]);
}

/// Brings the coordinates of a block together, so that vector instructions work across its data.
void computeBlockOfResiduals(const Vector* pData, const ovReal64* c, ovReal64* residual)
{
    ovReal64 x[g_blockSize];
    ovReal64 y[g_blockSize];
    ovReal64 z[g_blockSize];
    for (std::size_t i = 0; i < g_blockSize; ++i)
    {
        const ovReal64* const d = pData[i].data().begin();
        x[i] = d[0];
        y[i] = d[1];
        z[i] = d[2];
    }
    for (std::size_t i = 0; i < g_blockSize; ++i)
        residual[i] = computeResidual(x[i], y[i], z[i], c);
}

} // namespace

Polynomial2dSurfaceEstimator::Polynomial2dSurfaceEstimator()
{
    initBase(g_nbParams, g_nbParams, 3);
}

Polynomial2dSurfaceEstimator::~Polynomial2dSurfaceEstimator() = default;

BoolResult Polynomial2dSurfaceEstimator::processEstimation(const DataSet& dataSet, ParameterType& estimParams)
{
    const std::size_t nbData = dataSet.size();
    details::MatrixBuffer a(nbData * g_nbParams, details::uninitialised);
    details::VectorBuffer b(std::max(nbData, g_nbParams), details::uninitialised);
    double* row = a.data();
    double* right = b.data();
    for (const Vector& datum : dataSet)
    {
        const ovReal64* const d = datum.data().begin();
        const ovReal64 x = d[0];
        const ovReal64 y = d[1];
        row[0] = x * x;
        row[1] = x * y;
        row[2] = y * y;
        row[3] = x;
        row[4] = y;
        row[5] = 1.0;
        row += g_nbParams;
        *right++ = d[2];
    }
    const ovUInt32 rank = details::svdSolveInPlace(nbData, g_nbParams, 1, a.data(), b.data());
    std::copy_n(b.data(), g_nbParams, estimParams.data().begin());
    if (!(rank > 5))
        return failure<eToolsMessage>(0);
    return true;
}

BoolResult Polynomial2dSurfaceEstimator::processResiduals(const DataSet& dataSet, const ParameterType& estimParams,
                                                          ResidualsSet& residuals) const
{
    ovReal64 c[g_nbParams];
    std::copy_n(estimParams.data().begin(), g_nbParams, c);
    ovReal64* const residual = residuals.data().begin();
    const std::size_t nbData = dataSet.size();
    std::size_t first = 0;
    for (; nbData - first >= g_blockSize; first += g_blockSize)
        computeBlockOfResiduals(&dataSet[first], c, residual + first);
    for (; first < nbData; ++first)
    {
        const ovReal64* const d = dataSet[first].data().begin();
        residual[first] = computeResidual(d[0], d[1], d[2], c);
    }
    return true;
}

} // namespace math
} // namespace ovrix
