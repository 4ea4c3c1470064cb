#include "TableCheck.h"

#include "CoulombEnergy.h"
#include "TableText.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace ovrix
{
namespace orientations
{

namespace
{

bool hasFewDigits(double value)
{
    return std::strtod(cutDigits(value).c_str(), nullptr) == value;
}

double computeSmallestDistance(const PointSet& points)
{
    double squared = std::numeric_limits<double>::infinity();
    for (std::size_t i = 0; i < points.size(); ++i)
    {
        for (std::size_t j = i + 1; j < points.size(); ++j)
        {
            const double dx = points.x()[i] - points.x()[j];
            const double dy = points.y()[i] - points.y()[j];
            const double dz = points.z()[i] - points.z()[j];
            squared = std::min(squared, dx * dx + dy * dy + dz * dz);
        }
    }
    return std::sqrt(squared);
}

double computeLongestGradient(const PointSet& points)
{
    PointSet gradient(points.size());
    computeEnergy(points, gradient);
    double longest = 0.0;
    for (std::size_t i = 0; i < points.size(); ++i)
    {
        const double radial =
            gradient.x()[i] * points.x()[i] + gradient.y()[i] * points.y()[i] + gradient.z()[i] * points.z()[i];
        const double x = gradient.x()[i] - radial * points.x()[i];
        const double y = gradient.y()[i] - radial * points.y()[i];
        const double z = gradient.z()[i] - radial * points.z()[i];
        const double length = std::sqrt(x * x + y * y + z * z);
        if (!(length <= longest)) // also for what is not a number
            longest = length;
    }
    return longest;
}

} // namespace

TableReport checkTable(std::size_t nbPoints, const Records& records)
{
    TableReport report;
    if (records.size() != nbPoints)
        report.faults.push_back("it has " + std::to_string(records.size()) + " records");
    for (const Record& record : records)
    {
        if (!(record.phi >= 0.0 && record.phi <= g_maxPhi))
            report.faults.push_back("phi is out of its range: " + std::to_string(record.phi));
        else if (!hasFewDigits(record.phi))
            report.faults.push_back("phi has more than twelve digits: " + std::to_string(record.phi));
        if (!(record.theta >= 0.0 && record.theta <= g_maxTheta))
            report.faults.push_back("theta is out of its range: " + std::to_string(record.theta));
        else if (!hasFewDigits(record.theta))
            report.faults.push_back("theta has more than twelve digits: " + std::to_string(record.theta));
    }
    const PointSet points(records);
    report.energy = computeExactEnergy(records);
    report.smallestDistance = computeSmallestDistance(points);
    report.gradient = computeLongestGradient(points);
    if (!(report.smallestDistance > 0.0))
        report.faults.push_back("two of its points are the same");
    return report;
}

std::vector<std::string> checkSizes(const Tables& tables, std::size_t nbTables)
{
    std::vector<std::string> faults;
    for (std::size_t nbPoints = 1; nbPoints <= nbTables; ++nbPoints)
        if (tables.count(nbPoints) == 0)
            faults.push_back("there is no table of " + std::to_string(nbPoints) + " points");
    for (const auto& entry : tables)
        if (entry.first < 1 || entry.first > nbTables)
            faults.push_back("there is a table of " + std::to_string(entry.first) + " points");
    return faults;
}

} // namespace orientations
} // namespace ovrix
