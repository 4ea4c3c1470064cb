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

/// x' = x + t, parameters t.
template <class Family>
class OVRIXMATH_EXPORT TranslationModel
{
public:
    static constexpr std::size_t s_nbParams = Family::s_dimension;

    void load(const ovReal64* params)
    {
        std::copy_n(params, s_nbParams, _translation.begin());
    }

    void store(ovReal64* params) const
    {
        std::copy_n(_translation.begin(), s_nbParams, params);
    }

    void apply(Coordinates<Family>& point) const
    {
        for (std::size_t i = 0; i < Family::s_dimension; ++i)
            point[i] += _translation[i];
    }

    typename Family::HomogenousMatrix getMatrix() const
    {
        typename Family::HomogenousMatrix matrix = makeHomogenousIdentity<Family>();
        setTranslation<Family>(matrix, _translation);
        return matrix;
    }

    static bool invert(ovReal64* params)
    {
        for (std::size_t i = 0; i < s_nbParams; ++i)
            params[i] = -params[i];
        return true;
    }

private:
    Coordinates<Family> _translation{};
};

} // namespace details
} // namespace transform
} // namespace math
} // namespace ovrix
