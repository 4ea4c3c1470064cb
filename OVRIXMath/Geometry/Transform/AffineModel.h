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

/// x' = A x + t, parameters A row by row, then t.
template <class Family>
class OVRIXMATH_EXPORT AffineModel
{
public:
    static constexpr std::size_t s_nbParams = Family::s_dimension * (Family::s_dimension + 1);

    AffineModel()
    {
        for (std::size_t i = 0; i < Family::s_dimension; ++i)
            _linear[i * Family::s_dimension + i] = 1.0;
    }

    void load(const ovReal64* params)
    {
        std::copy_n(params, _linear.size(), _linear.begin());
        std::copy_n(params + _linear.size(), Family::s_dimension, _translation.begin());
    }

    void store(ovReal64* params) const
    {
        std::copy_n(_linear.begin(), _linear.size(), params);
        std::copy_n(_translation.begin(), Family::s_dimension, params + _linear.size());
    }

    void apply(Coordinates<Family>& point) const
    {
        const Coordinates<Family> product = multiply(_linear, point);
        for (std::size_t i = 0; i < Family::s_dimension; ++i)
            point[i] = product[i] + _translation[i];
    }

    typename Family::HomogenousMatrix getMatrix() const
    {
        typename Family::HomogenousMatrix matrix = makeHomogenousIdentity<Family>();
        setLinearPart<Family>(matrix, _linear);
        setTranslation<Family>(matrix, _translation);
        return matrix;
    }

    /// x = L x' - L t, with L the inverse of A as the family computes it; `false` when A is singular.
    static bool invert(ovReal64* params)
    {
        AffineModel model;
        model.load(params);
        if (!Family::invertLinearPart(model._linear))
            return false;
        model._translation = multiply(model._linear, model._translation);
        for (ovReal64& coordinate : model._translation)
            coordinate = -coordinate;
        model.store(params);
        return true;
    }

private:
    LinearPart<Family> _linear{};
    Coordinates<Family> _translation{};
};

} // namespace details
} // namespace transform
} // namespace math
} // namespace ovrix
