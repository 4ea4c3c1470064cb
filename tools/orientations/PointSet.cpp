#include "PointSet.h"

#include "Vector3.h"

#include <algorithm>
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

double getMaxLength(const std::vector<double>& coordinates)
{
    const std::size_t nbPoints = coordinates.size() / 3;
    double largest = 0.0;
    for (std::size_t i = 0; i < nbPoints; ++i)
    {
        const double x = coordinates[i];
        const double y = coordinates[nbPoints + i];
        const double z = coordinates[2 * nbPoints + i];
        const double squared = x * x + y * y + z * z;
        if (std::isnan(squared))
            return squared;
        largest = std::max(largest, squared);
    }
    return std::sqrt(largest);
}

Records toRecords(const PointSet& points)
{
    Records records(points.size());
    for (std::size_t i = 0; i < points.size(); ++i)
    {
        const double phi = std::atan2(points.y()[i], points.x()[i]);
        records[i].phi = phi < 0.0 ? phi + 2.0 * g_pi : phi;
        records[i].theta = std::atan2(std::hypot(points.x()[i], points.y()[i]), points.z()[i]);
    }
    return records;
}

} // namespace orientations
} // namespace ovrix
