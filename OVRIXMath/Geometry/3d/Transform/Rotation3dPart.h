#pragma once

#include <OVRIXMath/Geometry/3d/EulerMatrix.h>
#include <OVRIXMath/Geometry/Transform/HomogenousMatrix.h>
#include <OVRIXUtil/Types.h>

#include <array>
#include <cstddef>

namespace ovrix
{
namespace math
{
namespace transform
{
namespace details
{

/// The rotation of Rotation3d, Rigid3d and Similarity3d: R = Rz(rz) Ry(ry) Rx(rx).
///
/// load() alone computes the cosines and sines. What is kept of them are the entries of R that they make, so that a
/// point costs nine products and not twenty-three; the bits are those of forming R for each point.
class Rotation3dPart
{
public:
    static constexpr std::size_t s_nbAngles = 3;

    void load(const ovReal64* angles)
    {
        _rz = angles[0];
        _ry = angles[1];
        _rx = angles[2];
        _matrix = math::details::makeEulerMatrix(_rz, _ry, _rx);
    }

    void store(ovReal64* angles) const
    {
        angles[0] = _rz;
        angles[1] = _ry;
        angles[2] = _rx;
    }

    void rotate(std::array<ovReal64, 3>& point) const
    {
        point = multiply(_matrix, point);
    }

    /// By the transpose of R.
    void rotateBack(std::array<ovReal64, 3>& point) const
    {
        point = multiply(math::details::transpose(_matrix), point);
    }

    const std::array<ovReal64, 9>& getMatrix() const
    {
        return _matrix;
    }

    /// The angles of the transpose. Where its middle angle comes within sqrt(epsilon) of a right angle (by the sine),
    /// rz and rx cannot be told apart and rz is set to 0.
    void storeInverse(ovReal64* angles) const;

private:
    ovReal64 _rz = 0.0;
    ovReal64 _ry = 0.0;
    ovReal64 _rx = 0.0;
    // R of cosines 1 and sines 0 has -sin(ry) in its corner.
    std::array<ovReal64, 9> _matrix{1.0, 0.0, 0.0, 0.0, 1.0, 0.0, -0.0, 0.0, 1.0};
};

} // namespace details
} // namespace transform
} // namespace math
} // namespace ovrix
