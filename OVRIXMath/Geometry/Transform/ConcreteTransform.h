#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Types.h>

namespace ovrix
{
namespace math
{
namespace transform
{
namespace details
{

/// What the concrete transforms of both families repeat, written once around a model.
///
/// A model holds the parameters with what is derived from them, and knows the formulas; it is constructed as the
/// neutral element. A class adds what is its own. So a new kind of transform is one enumerator with its name, and:
///
/// ```cpp
/// namespace details
/// {
///
/// /// x' = x + shear y, the other coordinates as they are; parameter shear.
/// template <class Family>
/// class ShearModel
/// {
/// public:
///     static constexpr std::size_t s_nbParams = 1;
///
///     void load(const ovReal64* params)
///     {
///         _shear = params[0];
///     }
///
///     void store(ovReal64* params) const
///     {
///         params[0] = _shear;
///     }
///
///     void apply(Coordinates<Family>& point) const
///     {
///         point[0] += _shear * point[1];
///     }
///
///     typename Family::HomogenousMatrix getMatrix() const
///     {
///         typename Family::HomogenousMatrix matrix = makeHomogenousIdentity<Family>();
///         matrix(0, 1) = _shear;
///         return matrix;
///     }
///
///     static bool invert(ovReal64* params) // false would raise message 3
///     {
///         params[0] = -params[0];
///         return true;
///     }
///
/// private:
///     ovReal64 _shear = 0.0; // the neutral element
/// };
///
/// } // namespace details
///
/// class Shear2d : public details::ConcreteTransform2d<Shear2d, details::ShearModel>
/// {
/// public:
///     static constexpr eGeometricTransform2dType s_type = eGT2DT_Shear;
///
///     static Vector getIdentityParams()
///     {
///         return getDefaultParams();
///     }
///
///     HomogenousMatrix2d getInvHomogenousMatrix() const override
///     {
///         return getMatrixOfInverse();
///     }
/// };
///
/// const TransformRegistrator2d<Shear2d> g_shearRegistrator;
/// ```
///
/// What the library itself adds to that is the export, with the two templates instantiated in the source file of the
/// class. The bodies stand in ConcreteTransformBody.h, for the source files of the concrete classes.
///
/// @tparam Family TransformFamily2d or TransformFamily3d
/// @tparam Derived the concrete class; supplies `s_type` and `getIdentityParams()`
template <class Family, class Derived, template <class> class Model>
class OVRIXMATH_EXPORT ConcreteTransform : public Family::LinearBase
{
public:
    static constexpr ovUInt32 s_nbParams = static_cast<ovUInt32>(Model<Family>::s_nbParams);

    ovUInt32 getNbParams() const override;
    void setParams(const Vector& params) override;
    void setIdentity() override;
    Vector getParams() const override;
    Vector getInvParams() const override;
    typename Family::HomogenousMatrix getHomogenousMatrix() const override;

protected:
    /// Parameters of the default-constructed transform.
    static Vector getDefaultParams();

    /// The matrix of the transform with the parameters of the inverse.
    typename Family::HomogenousMatrix getMatrixOfInverse() const;

    /// Replaces s_nbParams parameters by those of the inverse.
    ///
    /// @throws OVRIXMathException message 3 of the family when there is none; the parameters are untouched
    template <class... Reals>
    static void invertInPlace(Reals&... params);

    /// Whether the transform has an inverse.
    bool hasInverse() const;

    /// Whether the transform with s_nbParams parameters has an inverse.
    template <class... Reals>
    static bool areInvertible(Reals... params);

    Model<Family> _model;

private:
    static void invertOrRaise(ovReal64* params);
};

} // namespace details
} // namespace transform
} // namespace math
} // namespace ovrix
