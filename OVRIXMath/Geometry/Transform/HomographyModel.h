#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Geometry/Transform/HomogenousMatrix.h>
#include <OVRIXMath/Geometry/Transform/LuInversion.h>
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

/// x' = (H (x, 1)) / w with w the last coordinate of H (x, 1), parameters H row by row.
template <class Family>
class OVRIXMATH_EXPORT HomographyModel
{
public:
    static constexpr std::size_t s_size = Family::s_dimension + 1;
    static constexpr std::size_t s_nbParams = s_size * s_size;

    HomographyModel() : _matrix(makeHomogenousIdentity<Family>()) {}

    void load(const ovReal64* params)
    {
        std::copy_n(params, s_nbParams, _matrix.data().begin());
    }

    void store(ovReal64* params) const
    {
        std::copy_n(_matrix.data().begin(), s_nbParams, params);
    }

    /// A point whose w is exactly 0 stays where it is.
    void apply(Coordinates<Family>& point) const
    {
        const ovReal64 w = getRowValue(Family::s_dimension, point);
        if (w == 0.0)
            return;
        const Coordinates<Family> source = point;
        for (std::size_t i = 0; i < Family::s_dimension; ++i)
            point[i] = getRowValue(i, source) / w;
    }

    typename Family::HomogenousMatrix getMatrix() const
    {
        return _matrix;
    }

    /// The inverse matrix without any normalisation; `false` when the matrix is singular.
    static bool invert(ovReal64* params)
    {
        return luInvert(params, s_size);
    }

private:
    /// A row's product with (point, 1).
    ovReal64 getRowValue(std::size_t row, const Coordinates<Family>& point) const
    {
        const ovReal64* const entries = _matrix.data().begin() + row * s_size;
        ovReal64 value = entries[0] * point[0];
        for (std::size_t column = 1; column < Family::s_dimension; ++column)
            value += entries[column] * point[column];
        return value + entries[Family::s_dimension];
    }

    typename Family::HomogenousMatrix _matrix;
};

} // namespace details
} // namespace transform
} // namespace math
} // namespace ovrix
