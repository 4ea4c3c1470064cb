#include "PointSet.h"

#include <cmath>

namespace ovrix
{
namespace orientations
{

PointSet::PointSet(const Records& records) : PointSet(records.size())
{
    for (std::size_t i = 0; i < records.size(); ++i)
    {
        x()[i] = std::sin(records[i].theta) * std::cos(records[i].phi);
        y()[i] = std::sin(records[i].theta) * std::sin(records[i].phi);
        z()[i] = std::cos(records[i].theta);
    }
}

void PointSet::normalise()
{
    for (std::size_t i = 0; i < size(); ++i)
    {
        const double scale = 1.0 / std::sqrt(x()[i] * x()[i] + y()[i] * y()[i] + z()[i] * z()[i]);
        x()[i] *= scale;
        y()[i] *= scale;
        z()[i] *= scale;
    }
}

Records toRecords(const PointSet& points)
{
    constexpr double twoPi = 6.283185307179586;
    Records records(points.size());
    for (std::size_t i = 0; i < points.size(); ++i)
    {
        const double phi = std::atan2(points.y()[i], points.x()[i]);
        records[i].phi = phi < 0.0 ? phi + twoPi : phi;
        records[i].theta = std::atan2(std::hypot(points.x()[i], points.y()[i]), points.z()[i]);
    }
    return records;
}

} // namespace orientations
} // namespace ovrix
