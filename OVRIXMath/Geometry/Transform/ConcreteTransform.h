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
/// A model holds the parameters with what is derived from them, and knows the formulas:
///
/// ```cpp
/// template <class Family>
/// class Model
/// {
/// public:
///     static constexpr std::size_t s_nbParams;
///     Model();                                      // the neutral element
///     void load(const ovReal64* params);            // s_nbParams values
///     void store(ovReal64* params) const;
///     void apply(Coordinates<Family>& point) const;
///     typename Family::HomogenousMatrix getMatrix() const;
///     static bool invert(ovReal64* params);         // false: singular, params untouched
/// };
/// ```
///
/// A new kind of transform is its model, an enumerator with its name, and a class that says only what is its own:
///
/// ```cpp
/// // Shear2d.h
/// class OVRIXMATH_EXPORT Shear2d : public details::ConcreteTransform2d<Shear2d, details::ShearModel>
/// {
/// public:
///     static constexpr eGeometricTransform2dType s_type = eGT2DT_Shear;
///     static Vector getIdentityParams();
///     HomogenousMatrix2d getInvHomogenousMatrix() const override;
/// };
///
/// // Shear2d.cpp
/// template class details::ConcreteTransform<details::TransformFamily2d, Shear2d, details::ShearModel>;
/// template class details::ConcreteTransform2d<Shear2d, details::ShearModel>;
/// static const TransformRegistrator2d<Shear2d> g_transformRegistrator;
/// ```
///
/// The bodies stand in ConcreteTransformBody.h, for the source files of the concrete classes.
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
