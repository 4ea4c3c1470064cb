#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Geometry/Transform/HomogenousMatrix.h>
#include <OVRIXMath/Geometry/Transform/InverseScale.h>
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

/// x' = scale x, parameter scale.
template <class Family>
class OVRIXMATH_EXPORT ScaleModel
{
public:
    static constexpr std::size_t s_nbParams = 1;

    void load(const ovReal64* params)
    {
        _scale = params[0];
    }

    void store(ovReal64* params) const
    {
        params[0] = _scale;
    }

    void apply(Coordinates<Family>& point) const
    {
        for (ovReal64& coordinate : point)
            coordinate = _scale * coordinate;
    }

    typename Family::HomogenousMatrix getMatrix() const
    {
        typename Family::HomogenousMatrix matrix = makeHomogenousIdentity<Family>();
        for (std::size_t i = 0; i < Family::s_dimension; ++i)
            matrix(i, i) = _scale;
        return matrix;
    }

    static bool invert(ovReal64* params)
    {
        params[0] = inverseScale(params[0]);
        return true;
    }

private:
    ovReal64 _scale = 1.0;
};

} // namespace details
} // namespace transform
} // namespace math
} // namespace ovrix
