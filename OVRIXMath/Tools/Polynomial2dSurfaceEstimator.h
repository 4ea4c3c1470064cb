#pragma once

#include <OVRIXMath/Estimation/BaseEstimator.h>
#include <OVRIXMath/Export.h>
#include <OVRIXMath/Types.h>

namespace ovrix
{
namespace math
{

/// A quadratic surface over the plane: z = c0 x^2 + c1 x y + c2 y^2 + c3 x + c4 y + c5.
///
/// A datum is (x, y, z), the parameters are (c0, c1, c2, c3, c4, c5). Six data fix the surface.
class OVRIXMATH_EXPORT Polynomial2dSurfaceEstimator : public BaseEstimator
{
public:
    Polynomial2dSurfaceEstimator();
    ~Polynomial2dSurfaceEstimator() override;

protected:
    /// Least-squares fit to all data by the singular values of the system itself, without normal equations.
    ///
    /// @return failure when the data do not fix the surface; `estimParams` then hold the solution of smallest norm
    /// @throws OVRIXMathException with fewer than six data, or when LAPACK refuses a value that is not finite
    BoolResult processEstimation(const DataSet& dataSet, ParameterType& estimParams) override;

    /// Residuals z - model(x, y).
    ///
    /// @return success
    BoolResult processResiduals(const DataSet& dataSet, const ParameterType& estimParams,
                                ResidualsSet& residuals) const override;
};

} // namespace math
} // namespace ovrix
