#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Geometry/2d/Transform/GeometricTransform2dUtils.h>
#include <OVRIXMath/Types.h>

#include <boost/shared_ptr.hpp>

namespace ovrix
{
namespace math
{
namespace transform
{

class BaseGeometricTransform2d;

/// Shared ownership of a planar transform.
using GeometricTransform2dPtr = boost::shared_ptr<BaseGeometricTransform2d>;

/// A transform of the plane: a vector of parameters in, a point out.
///
/// ```cpp
/// const GeometricTransform2dPtr pRigid = Transform2dFactory::createTransform(eGT2DT_Rigid, params); // theta, tx, ty
/// pRigid->apply(x, y);                   // in place
/// pRigid->createInverted()->apply(x, y); // and back
/// ```
///
/// Angles are radians and turn the x axis towards the y axis. Points are column vectors. Every transform is valid from
/// its construction on. It is a plain value: `const` operations may run on many threads as long as none changes it.
class OVRIXMATH_EXPORT BaseGeometricTransform2d
{
public:
    virtual ~BaseGeometricTransform2d();

    /// The kind of this transform.
    virtual eGeometricTransform2dType getGeometricTransform2dType() const = 0;

    /// Number of parameters.
    virtual ovUInt32 getNbParams() const = 0;

    /// Whether a homogeneous matrix can express the transform.
    virtual ovBool isLinear() const = 0;

    /// Replaces the parameters. No value is rejected: zero scales, singular matrices and NaN are parameters as well.
    ///
    /// @param params getNbParams() values in the order that the class tells
    /// @throws OVRIXMathException Transform2d message 0 when the size of `params` is another; the former parameters
    /// stay
    virtual void setParams(const Vector& params) = 0;

    /// Sets the parameters that the class's `getIdentityParams()` returns.
    virtual void setIdentity() = 0;

    /// Transforms a point in place; neither allocates nor calls a trigonometric function.
    virtual void apply(ovReal64& x, ovReal64& y) const = 0;

    /// The getNbParams() parameters.
    virtual Vector getParams() const = 0;

    /// Whether the class can tell that an inverse exists. Only Homography2d looks at its parameters; all others answer
    /// `true`, even a singular Affine2d. NaN in the matrix of a Homography2d raises as in getInvParams().
    virtual ovBool isInvertible() const;

    /// Parameters of the inverse transform, which is of the same kind.
    ///
    /// @throws OVRIXMathException Transform2d message 3 for a singular Affine2d or Homography2d, LinearAlgebra message
    /// 11 for a Homography2d with NaN
    virtual Vector getInvParams() const = 0;

    /// A new transform of the same kind with the parameters of getInvParams().
    ///
    /// @throws OVRIXMathException as getInvParams()
    GeometricTransform2dPtr createInverted() const;

    /// Transforms a point and converts each coordinate with `round`: halves away from zero for the integer types,
    /// narrowed for `float`, unchanged for `double`. The outputs may be the variables of the inputs.
    ///
    /// @tparam T `int`, `unsigned int`, `float` or `double`
    template <class T>
    void apply(T xIn, T yIn, T& xOut, T& yOut) const;
};

extern template OVRIXMATH_EXPORT void BaseGeometricTransform2d::apply(int, int, int&, int&) const;
extern template OVRIXMATH_EXPORT void BaseGeometricTransform2d::apply(unsigned int, unsigned int, unsigned int&,
                                                                      unsigned int&) const;
extern template OVRIXMATH_EXPORT void BaseGeometricTransform2d::apply(float, float, float&, float&) const;
extern template OVRIXMATH_EXPORT void BaseGeometricTransform2d::apply(double, double, double&, double&) const;

} // namespace transform
} // namespace math
} // namespace ovrix
