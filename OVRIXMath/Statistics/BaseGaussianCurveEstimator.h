#pragma once

#include <OVRIXMath/Estimation/BaseEstimator.h>
#include <OVRIXMath/Export.h>
#include <OVRIXMath/Types.h>

namespace ovrix
{
namespace math
{

/// An axis-aligned Gaussian over any number of dimensions.
///
/// y = amplitude * exp(-sum over k of (xk - meank)^2 / (2 sigmak^2))
///
/// A datum is (x0, ..., x(n-1), y) for n dimensions, the parameters are (amplitude, mean0, sigma0, mean1, sigma1, ...).
/// 2 n + 1 data fix the curve.
class OVRIXMATH_EXPORT BaseGaussianCurveEstimator : public BaseEstimator
{
public:
    ~BaseGaussianCurveEstimator() override;

protected:
    /// @param nbDims number of dimensions n; 0 makes a model of a constant
    explicit BaseGaussianCurveEstimator(ovUInt32 nbDims);

    /// Fits ln y = c + sum over k of (bk xk + ak xk^2) by unweighted linear least squares, in one pass over the data.
    ///
    /// Data with y <= 0 are left out. The products of different dimensions are not formed, so for n above 1 the normal
    /// equations are taken as blocks, one for each dimension: meant. Exact samples of a curve then give it back where
    /// those products are 0, on the axes, and need not do so elsewhere.
    ///
    /// @return failure when the equations are not of full rank, and when a fitted ak is not negative; parameters that
    ///         were found before stay in `estimParams` then
    /// @throws OVRIXMathException when LAPACK refuses a value that is not finite
    BoolResult processEstimation(const DataSet& dataSet, ParameterType& estimParams) override;

    /// Residuals y - model(x), in the units of y.
    ///
    /// @return success
    BoolResult processResiduals(const DataSet& dataSet, const ParameterType& estimParams,
                                ResidualsSet& residuals) const override;
};

} // namespace math
} // namespace ovrix
