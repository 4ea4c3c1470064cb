#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Geometry/3d/Transform/GeometricTransform3dUtils.h>
#include <OVRIXMath/Types.h>

#include <boost/shared_ptr.hpp>

namespace ovrix
{
namespace math
{
namespace transform
{

class BaseGeometricTransform3d;

/// Shared ownership of a spatial transform.
using GeometricTransform3dPtr = boost::shared_ptr<BaseGeometricTransform3d>;

/// A transform of space: a vector of parameters in, a point out.
///
/// ```cpp
/// const GeometricTransform3dPtr pRigid = Transform3dFactory::createTransform(eGT3DT_Rigid, params); // angles, then t
/// pRigid->apply(x, y, z);                   // in place
/// pRigid->createInverted()->apply(x, y, z); // and back
/// ```
///
/// A rotation is given by three angles in radians in the order rz, ry, rx and has the matrix Rz(rz) Ry(ry) Rx(rx), each
/// factor being right-handed: a point is turned about x, then about y, then about z. Points are column vectors. Every
/// transform is valid from its construction on. It is a plain value: `const` operations may run on many threads as long
/// as none changes it.
class OVRIXMATH_EXPORT BaseGeometricTransform3d
{
public:
    virtual ~BaseGeometricTransform3d();

    /// The kind of this transform.
    virtual eGeometricTransform3dType getGeometricTransform3dType() const = 0;

    /// Number of parameters.
    virtual ovUInt32 getNbParams() const = 0;

    /// Whether a homogeneous matrix can express the transform.
    virtual ovBool isLinear() const = 0;

    /// Replaces the parameters. No value is rejected: zero scales, singular matrices and NaN are parameters as well.
    ///
    /// @param params getNbParams() values in the order that the class tells
    /// @throws OVRIXMathException Transform3d message 0 when the size of `params` is another; the former parameters
    /// stay
    virtual void setParams(const Vector& params) = 0;

    /// Sets the parameters that the class's `getIdentityParams()` returns.
    virtual void setIdentity() = 0;

    /// Transforms a point in place; neither allocates nor calls a trigonometric function.
    virtual void apply(ovReal64& x, ovReal64& y, ovReal64& z) const = 0;

    /// The getNbParams() parameters.
    virtual Vector getParams() const = 0;

    /// Whether the class can tell that an inverse exists. Only Homography3d looks at its parameters; all others answer
    /// `true`, even a singular Affine3d. NaN in the matrix of a Homography3d raises as in getInvParams().
    virtual ovBool isInvertible() const;

    /// Parameters of the inverse transform, which is of the same kind. The scale of Similarity3d is an exception, told
    /// there.
    ///
    /// @throws OVRIXMathException Transform3d message 3 for a singular Affine3d or Homography3d, LinearAlgebra message
    /// 11 for one with NaN in its matrix
    virtual Vector getInvParams() const = 0;

    /// A new transform of the same kind with the parameters of getInvParams().
    ///
    /// @throws OVRIXMathException as getInvParams()
    GeometricTransform3dPtr createInverted() const;

    /// Transforms a point and converts each coordinate with `round`: halves away from zero for the integer types,
    /// narrowed for `float`, unchanged for `double`. The outputs may be the variables of the inputs.
    ///
    /// @tparam T `int`, `unsigned int`, `float` or `double`
    template <class T>
    void apply(T xIn, T yIn, T zIn, T& xOut, T& yOut, T& zOut) const;
};

extern template OVRIXMATH_EXPORT void BaseGeometricTransform3d::apply(int, int, int, int&, int&, int&) const;
extern template OVRIXMATH_EXPORT void BaseGeometricTransform3d::apply(unsigned int, unsigned int, unsigned int,
                                                                      unsigned int&, unsigned int&,
                                                                      unsigned int&) const;
extern template OVRIXMATH_EXPORT void BaseGeometricTransform3d::apply(float, float, float, float&, float&,
                                                                      float&) const;
extern template OVRIXMATH_EXPORT void BaseGeometricTransform3d::apply(double, double, double, double&, double&,
                                                                      double&) const;

} // namespace transform
} // namespace math
} // namespace ovrix
