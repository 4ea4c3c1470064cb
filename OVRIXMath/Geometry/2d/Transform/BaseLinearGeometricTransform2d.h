#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Geometry/2d/Transform/BaseGeometricTransform2d.h>
#include <OVRIXUtil/Types.h>

#include <boost/numeric/ublas/matrix.hpp>

namespace ovrix
{
namespace math
{
namespace transform
{

/// 3 x 3 row-major matrix M that acts on columns: (x', y', 1)^T = M (x, y, 1)^T, up to a factor for Homography2d.
using HomogenousMatrix2d = boost::numeric::ublas::bounded_matrix<ovReal64, 3, 3>;

/// A planar transform that a homogeneous matrix expresses.
class OVRIXMATH_EXPORT BaseLinearGeometricTransform2d : public BaseGeometricTransform2d
{
public:
    /// `true`.
    ovBool isLinear() const override;

    /// The matrix of the transform.
    virtual HomogenousMatrix2d getHomogenousMatrix() const = 0;

    /// The matrix of the inverse transform for Translation2d, Rotation2d, Rigid2d, Affine2d and Homography2d. The three
    /// scaling kinds, Scale2d, AnisotropicScale2d and Similarity2d, return getHomogenousMatrix() itself; this is meant:
    /// their true inverse comes from getInvParams() or createInverted().
    ///
    /// @throws OVRIXMathException Transform2d message 3 for a singular Affine2d or Homography2d
    virtual HomogenousMatrix2d getInvHomogenousMatrix() const = 0;
};

} // namespace transform
} // namespace math
} // namespace ovrix
