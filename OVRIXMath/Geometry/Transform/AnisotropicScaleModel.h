#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Geometry/Transform/HomogenousMatrix.h>
#include <OVRIXMath/Geometry/Transform/InverseScale.h>
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

/// x' = diag(scales) x, parameters the scale of each axis.
template <class Family>
class OVRIXMATH_EXPORT AnisotropicScaleModel
{
public:
    static constexpr std::size_t s_nbParams = Family::s_dimension;

    AnisotropicScaleModel()
    {
        _scales.fill(1.0);
    }

    void load(const ovReal64* params)
    {
        std::copy_n(params, s_nbParams, _scales.begin());
    }

    void store(ovReal64* params) const
    {
        std::copy_n(_scales.begin(), s_nbParams, params);
    }

    void apply(Coordinates<Family>& point) const
    {
        for (std::size_t i = 0; i < Family::s_dimension; ++i)
            point[i] = _scales[i] * point[i];
    }

    typename Family::HomogenousMatrix getMatrix() const
    {
        typename Family::HomogenousMatrix matrix = makeHomogenousIdentity<Family>();
        for (std::size_t i = 0; i < Family::s_dimension; ++i)
            matrix(i, i) = _scales[i];
        return matrix;
    }

    static bool invert(ovReal64* params)
    {
        for (std::size_t i = 0; i < s_nbParams; ++i)
            params[i] = inverseScale(params[i]);
        return true;
    }

private:
    Coordinates<Family> _scales;
};

} // namespace details
} // namespace transform
} // namespace math
} // namespace ovrix
