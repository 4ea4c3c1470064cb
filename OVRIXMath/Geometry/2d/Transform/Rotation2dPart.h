#pragma once

#include <OVRIXMath/Types.h>

#include <array>
#include <cmath>
#include <cstddef>

namespace ovrix
{
namespace math
{
namespace transform
{
namespace details
{

/// The rotation of Rotation2d, Rigid2d and Similarity2d: R has the rows (c, -s) and (s, c), with c and s the cosine and
/// sine of theta, which are computed by load() alone.
class Rotation2dPart
{
public:
    static constexpr std::size_t s_nbAngles = 1;

    void load(const ovReal64* angles)
    {
        _theta = angles[0];
        sincos(_theta, &_sinTheta, &_cosTheta);
    }

    void store(ovReal64* angles) const
    {
        angles[0] = _theta;
    }

    void rotate(std::array<ovReal64, 2>& point) const
    {
        const ovReal64 x = point[0];
        const ovReal64 y = point[1];
        point[0] = _cosTheta * x - _sinTheta * y;
        point[1] = _sinTheta * x + _cosTheta * y;
    }

    /// By the transpose of R.
    void rotateBack(std::array<ovReal64, 2>& point) const
    {
        const ovReal64 x = point[0];
        const ovReal64 y = point[1];
        point[0] = _cosTheta * x + _sinTheta * y;
        point[1] = _cosTheta * y - _sinTheta * x;
    }

    std::array<ovReal64, 4> getMatrix() const
    {
        return {_cosTheta, -_sinTheta, _sinTheta, _cosTheta};
    }

    /// The angle of the transpose.
    void storeInverse(ovReal64* angles) const
    {
        angles[0] = -_theta;
    }

private:
    ovReal64 _theta = 0.0;
    ovReal64 _cosTheta = 1.0;
    ovReal64 _sinTheta = 0.0;
};

} // namespace details
} // namespace transform
} // namespace math
} // namespace ovrix
