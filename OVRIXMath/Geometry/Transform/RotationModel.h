#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Geometry/Transform/HomogenousMatrix.h>
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

/// x' = R x, parameters the angles of R.
template <class Family>
class OVRIXMATH_EXPORT RotationModel
{
public:
    using Rotation = typename Family::Rotation;

    static constexpr std::size_t s_nbParams = Rotation::s_nbAngles;

    void load(const ovReal64* params)
    {
        _rotation.load(params);
    }

    void store(ovReal64* params) const
    {
        _rotation.store(params);
    }

    void apply(Coordinates<Family>& point) const
    {
        _rotation.rotate(point);
    }

    typename Family::HomogenousMatrix getMatrix() const
    {
        typename Family::HomogenousMatrix matrix = makeHomogenousIdentity<Family>();
        setLinearPart<Family>(matrix, _rotation.getMatrix());
        return matrix;
    }

    static bool invert(ovReal64* params)
    {
        Rotation rotation;
        rotation.load(params);
        rotation.storeInverse(params);
        return true;
    }

private:
    Rotation _rotation;
};

} // namespace details
} // namespace transform
} // namespace math
} // namespace ovrix
