#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Geometry/Transform/HomogenousMatrix.h>
#include <OVRIXUtil/Types.h>

#include <algorithm>
#include <cstddef>

namespace ovrix
{
namespace math
{
namespace transform
{
namespace details
{

/// x' = R x + t, parameters the angles of R, then t.
template <class Family>
class OVRIXMATH_EXPORT RigidModel
{
public:
    using Rotation = typename Family::Rotation;

    static constexpr std::size_t s_nbParams = Rotation::s_nbAngles + Family::s_dimension;

    void load(const ovReal64* params)
    {
        _rotation.load(params);
        std::copy_n(params + Rotation::s_nbAngles, Family::s_dimension, _translation.begin());
    }

    void store(ovReal64* params) const
    {
        _rotation.store(params);
        std::copy_n(_translation.begin(), Family::s_dimension, params + Rotation::s_nbAngles);
    }

    void apply(Coordinates<Family>& point) const
    {
        _rotation.rotate(point);
        for (std::size_t i = 0; i < Family::s_dimension; ++i)
            point[i] += _translation[i];
    }

    typename Family::HomogenousMatrix getMatrix() const
    {
        typename Family::HomogenousMatrix matrix = makeHomogenousIdentity<Family>();
        setLinearPart<Family>(matrix, _rotation.getMatrix());
        setTranslation<Family>(matrix, _translation);
        return matrix;
    }

    /// x = R^T x' - R^T t.
    static bool invert(ovReal64* params)
    {
        RigidModel model;
        model.load(params);
        model._rotation.rotateBack(model._translation);
        for (std::size_t i = 0; i < Family::s_dimension; ++i)
            params[Rotation::s_nbAngles + i] = -model._translation[i];
        model._rotation.storeInverse(params);
        return true;
    }

private:
    Rotation _rotation;
    Coordinates<Family> _translation{};
};

} // namespace details
} // namespace transform
} // namespace math
} // namespace ovrix
