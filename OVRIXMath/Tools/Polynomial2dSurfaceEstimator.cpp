#include <OVRIXMath/LinearAlgebra/SingularValueDecomposition.h>
#include <OVRIXMath/OVRIXMathFailure.h>
#include <OVRIXMath/Tools/Polynomial2dSurfaceEstimator.h>
#include <OVRIXMath/Tools/ToolsLogMessages.h>

namespace ovrix
{
namespace math
{

Polynomial2dSurfaceEstimator::Polynomial2dSurfaceEstimator()
{
    initBase(6, 6, 3);
}

Polynomial2dSurfaceEstimator::~Polynomial2dSurfaceEstimator() = default;

BoolResult Polynomial2dSurfaceEstimator::processEstimation(const DataSet& dataSet, ParameterType& estimParams)
{
    Matrix A(dataSet.size(), 6);
    Vector b(dataSet.size());
    ovReal64* row = A.data().begin();
    ovReal64* right = b.data().begin();
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
        row += 6;
        *right++ = d[2];
    }
    const ovUInt32 rank = svdSolve(A, b, estimParams);
    if (!(rank > 5))
        return failure<eToolsMessage>(0);
    return true;
}

BoolResult Polynomial2dSurfaceEstimator::processResiduals(const DataSet& dataSet, const ParameterType& estimParams,
                                                          ResidualsSet& residuals) const
{
    const ovReal64* const params = estimParams.data().begin();
    const ovReal64 c0 = params[0];
    const ovReal64 c1 = params[1];
    const ovReal64 c2 = params[2];
    const ovReal64 c3 = params[3];
    const ovReal64 c4 = params[4];
    const ovReal64 c5 = params[5];
    ovReal64* residual = residuals.data().begin();
    for (const Vector& datum : dataSet)
    {
        const ovReal64* const d = datum.data().begin();
        const ovReal64 x = d[0];
        const ovReal64 y = d[1];
        *residual++ = d[2] - (c0 * x * x + c1 * x * y + c2 * y * y + x * c3 + y * c4 + c5);
    }
    return true;
}

} // namespace math
} // namespace ovrix
