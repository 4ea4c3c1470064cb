#include <OVRIXMath/LinearAlgebra/SvdSolver.h>
#include <OVRIXMath/LinearAlgebra/WorkBuffer.h>
#include <OVRIXMath/OVRIXMathFailure.h>
#include <OVRIXMath/Statistics/BaseGaussianCurveEstimator.h>
#include <OVRIXMath/Statistics/StatisticsLogMessages.h>

#include <cmath>
#include <cstddef>

namespace ovrix
{
namespace math
{

BaseGaussianCurveEstimator::BaseGaussianCurveEstimator(ovUInt32 nbDims)
{
    initBase(2 * nbDims + 1, 2 * nbDims + 1, nbDims + 1);
}

BaseGaussianCurveEstimator::~BaseGaussianCurveEstimator() = default;

BoolResult BaseGaussianCurveEstimator::processEstimation(const DataSet& dataSet, ParameterType& estimParams)
{
    const ovUInt32 nbParams = getNbEstimParams();
    const ovUInt32 nbDims = (nbParams - 1) / 2;
    details::MatrixBuffer matrix(std::size_t(nbParams) * nbParams, 0.0);
    details::VectorBuffer v(nbParams, 0.0);
    const auto M = [&matrix, nbParams](ovUInt32 row, ovUInt32 column) -> ovReal64&
    { return matrix[std::size_t(row) * nbParams + column]; };
    for (const Vector& datum : dataSet)
    {
        const ovReal64* const d = datum.data().begin();
        const ovReal64 y = d[nbDims];
        if (!(y > 0.0))
            continue;
        const ovReal64 logY = std::log(y);
        M(0, 0) += 1.0;
        v[0] += logY;
        for (ovUInt32 k = 0; k < nbDims; ++k)
        {
            const ovReal64 x = d[k];
            const ovUInt32 i = 2 * k + 1;
            const ovUInt32 j = 2 * k + 2;
            M(0, i) += x;
            M(0, j) += x * x;
            M(i, j) += x * x * x;
            M(j, j) += x * x * x * x;
            v[i] += logY * x;
            v[j] += logY * x * x;
        }
    }
    for (ovUInt32 k = 0; k < nbDims; ++k)
    {
        const ovUInt32 i = 2 * k + 1;
        const ovUInt32 j = 2 * k + 2;
        M(i, 0) = M(0, i);
        M(j, 0) = M(0, j);
        M(i, i) = M(0, j);
        M(j, i) = M(i, j);
    }

    const ovUInt32 rank = details::svdSolveInPlace(nbParams, nbParams, 1, matrix.data(), v.data());
    const ovReal64* const solution = v.data();
    if (nbParams > rank)
        return failure<eStatisticsMessage>(3, rank, nbParams);

    ovReal64 c = solution[0];
    for (ovUInt32 k = 0; k < nbDims; ++k)
    {
        const ovReal64 b = solution[2 * k + 1];
        const ovReal64 a = solution[2 * k + 2];
        if (a >= 0.0)
            return failure<eStatisticsMessage>(2);
        estimParams(2 * k + 1) = -b / (a + a);
        estimParams(2 * k + 2) = std::sqrt(-1.0 / (a + a));
        c -= b * b / (4.0 * a);
    }
    estimParams(0) = std::exp(c);
    return true;
}

BoolResult BaseGaussianCurveEstimator::processResiduals(const DataSet& dataSet, const ParameterType& estimParams,
                                                        ResidualsSet& residuals) const
{
    const ovUInt32 nbDims = getDataSize() - 1;
    const ovReal64* const params = estimParams.data().begin();
    const ovReal64 amplitude = params[0];
    ovReal64* residual = residuals.data().begin();
    for (const Vector& datum : dataSet)
    {
        const ovReal64* const d = datum.data().begin();
        ovReal64 q = 0.0;
        for (ovUInt32 k = 0; k < nbDims; ++k)
        {
            const ovReal64 mean = params[2 * k + 1];
            const ovReal64 sigma = params[2 * k + 2];
            q += (d[k] - mean) * (d[k] - mean) / ((sigma + sigma) * sigma);
        }
        *residual++ = d[nbDims] - std::exp(-q) * amplitude;
    }
    return true;
}

} // namespace math
} // namespace ovrix
