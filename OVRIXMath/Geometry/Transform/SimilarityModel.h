#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Geometry/Transform/InverseScale.h>
#include <OVRIXMath/Geometry/Transform/RigidModel.h>
#include <OVRIXUtil/Types.h>

#include <cstddef>

namespace ovrix
{
namespace math
{
namespace transform
{
namespace details
{

/// x' = scale (R x) + t, parameters scale, the angles of R, then t.
template <class Family>
class OVRIXMATH_EXPORT SimilarityModel
{
public:
    using Rotation = typename Family::Rotation;

    static constexpr std::size_t s_nbParams = 1 + Rotation::s_nbAngles + Family::s_dimension;

    void load(const ovReal64* params)
    {
        _scale = params[0];
        _rotation.load(params + 1);
        std::copy_n(params + s_translationIndex, Family::s_dimension, _translation.begin());
    }

    void store(ovReal64* params) const
    {
        params[0] = _scale;
        _rotation.store(params + 1);
        std::copy_n(_translation.begin(), Family::s_dimension, params + s_translationIndex);
    }

    void apply(Coordinates<Family>& point) const
    {
        _rotation.rotate(point);
        for (std::size_t i = 0; i < Family::s_dimension; ++i)
            point[i] = _scale * point[i] + _translation[i];
    }

    typename Family::HomogenousMatrix getMatrix() const
    {
        LinearPart<Family> linear = _rotation.getMatrix();
        for (ovReal64& entry : linear)
            entry = _scale * entry;
        typename Family::HomogenousMatrix matrix = makeHomogenousIdentity<Family>();
        setLinearPart<Family>(matrix, linear);
        setTranslation<Family>(matrix, _translation);
        return matrix;
    }

    /// With r = 1 / scale: x = r R^T x' - r R^T t; r is 0 for a scale of 0.
    static bool invert(ovReal64* params)
    {
        RigidModel<Family>::invert(params + 1);
        params[0] = inverseScale(params[0]);
        for (std::size_t i = 0; i < Family::s_dimension; ++i)
            params[s_translationIndex + i] *= params[0];
        return true;
    }

private:
    static constexpr std::size_t s_translationIndex = 1 + Rotation::s_nbAngles;

    ovReal64 _scale = 1.0;
    Rotation _rotation;
    Coordinates<Family> _translation{};
};

} // namespace details
} // namespace transform
} // namespace math
} // namespace ovrix
