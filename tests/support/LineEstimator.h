#pragma once

#include <OVRIXMath/Estimation/BaseEstimator.h>
#include <OVRIXMath/LinearAlgebra/SingularValueDecomposition.h>

namespace ovrix
{
namespace math
{

// The example of BaseEstimator.h, word for word.

class LineEstimator : public BaseEstimator
{
public:
    LineEstimator()
    {
        initBase(2, 2, 2); // two data fix it, it has the parameters (a, b), a datum is (x, y)
    }

protected:
    BoolResult processEstimation(const DataSet& dataSet, ParameterType& estimParams) override
    {
        Matrix A(dataSet.size(), 2);
        Vector y(dataSet.size());
        for (std::size_t i = 0; i < dataSet.size(); ++i)
        {
            A(i, 0) = dataSet[i](0);
            A(i, 1) = 1.0;
            y(i) = dataSet[i](1);
        }
        const bool bFullRank = svdSolve(A, y, estimParams) == 2;
        return bFullRank ? BoolResult(true) : BoolResult(false, "All data have the same x");
    }

    BoolResult processResiduals(const DataSet& dataSet, const ParameterType& estimParams,
                                ResidualsSet& residuals) const override
    {
        for (std::size_t i = 0; i < dataSet.size(); ++i)
            residuals(i) = dataSet[i](1) - (estimParams(0) * dataSet[i](0) + estimParams(1));
        return true;
    }
};

} // namespace math
} // namespace ovrix
