#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Geometry/3d/Transform/BaseGeometricTransform3d.h>
#include <OVRIXUtil/Types.h>

#include <boost/numeric/ublas/matrix.hpp>

namespace ovrix
{
namespace math
{
namespace transform
{

/// 4 x 4 row-major matrix M that acts on column vectors: (x', y', z', 1)^T = M (x, y, z, 1)^T, up to a factor for
/// Homography3d. Translation3d alone returns it with 3 rows and 3 columns.
using HomogenousMatrix3d = boost::numeric::ublas::bounded_matrix<ovReal64, 4, 4>;

/// A spatial transform that a homogeneous matrix expresses.
class OVRIXMATH_EXPORT BaseLinearGeometricTransform3d : public BaseGeometricTransform3d
{
public:
    /// `true`.
    ovBool isLinear() const override;

    /// The matrix of the transform; for Translation3d the 3 x 3 identity, which is meant.
    virtual HomogenousMatrix3d getHomogenousMatrix() const = 0;

    /// The matrix of the inverse transform for Affine3d and Homography3d. All others return getHomogenousMatrix()
    /// itself; this is meant: the inverse comes from getInvParams() or createInverted(), but see Similarity3d.
    ///
    /// @throws OVRIXMathException Transform3d message 3 for a singular Affine3d or Homography3d
    virtual HomogenousMatrix3d getInvHomogenousMatrix() const = 0;
};

} // namespace transform
} // namespace math
} // namespace ovrix
