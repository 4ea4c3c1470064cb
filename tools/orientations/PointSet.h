#pragma once

#include <cstddef>
#include <map>
#include <vector>

namespace ovrix
{
namespace orientations
{

/// A direction as the tables hold it: azimuth from +x and polar angle from +z, in radians.
struct Record
{
    double phi = 0.0;
    double theta = 0.0;
};

using Records = std::vector<Record>;

/// Sets of directions by their number of points.
using Tables = std::map<std::size_t, Records>;

/// Points of space as one vector of 3 n coordinates: first all x, then all y, then all z.
class PointSet
{
public:
    PointSet() = default;

    explicit PointSet(std::size_t nbPoints) : _coordinates(3 * nbPoints) {}

    /// The unit vectors of the records, in their order.
    explicit PointSet(const Records& records);

    std::size_t size() const
    {
        return _coordinates.size() / 3;
    }

    std::vector<double>& coordinates()
    {
        return _coordinates;
    }

    const std::vector<double>& coordinates() const
    {
        return _coordinates;
    }

    double* x()
    {
        return _coordinates.data();
    }

    double* y()
    {
        return _coordinates.data() + size();
    }

    double* z()
    {
        return _coordinates.data() + 2 * size();
    }

    const double* x() const
    {
        return _coordinates.data();
    }

    const double* y() const
    {
        return _coordinates.data() + size();
    }

    const double* z() const
    {
        return _coordinates.data() + 2 * size();
    }

    /// Scales every point to length 1.
    void normalise();

private:
    std::vector<double> _coordinates;
};

/// The largest length of the points whose coordinates stand as in a PointSet, 0 without a point; not a number if any
/// length is not.
double getMaxLength(const std::vector<double>& coordinates);

/// The angles of unit vectors, in the order of the points; phi is in [0, 2 pi].
Records toRecords(const PointSet& points);

} // namespace orientations
} // namespace ovrix
