#include "TableCheck.h"

#include "CoulombEnergy.h"
#include "TableText.h"
#include "Vector3.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <iomanip>
#include <limits>
#include <map>
#include <sstream>

namespace ovrix
{
namespace orientations
{

namespace
{

/// Points that are nearer than that are one: the angles have twelve digits.
constexpr double g_leastDistance = 1e-6;

constexpr double g_longestGradient = 1e-7;

bool hasFewDigits(double value)
{
    return std::strtod(cutDigits(value).c_str(), nullptr) == value;
}

std::size_t countDigits(double value)
{
    const std::string text = cutDigits(value);
    const std::size_t first = text.find_first_of("123456789");
    if (first == std::string::npos)
        return 0;
    return static_cast<std::size_t>(
        std::count_if(text.begin() + static_cast<std::ptrdiff_t>(first), text.end(), [](char c) { return c != '.'; }));
}

/// Whether the angles of the table have been rounded: zeros at the end are rare then among twelve digits. Small tables
/// have round angles.
bool isRounded(const Records& records)
{
    constexpr std::size_t nbDigits = 11;
    const auto isRound = [](const Record& record) { return countDigits(record.theta) < nbDigits; };
    const auto nbRound = std::count_if(records.begin(), records.end(), isRound);
    return records.size() > 4 && 2 * static_cast<std::size_t>(nbRound) > records.size();
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
    for (std::size_t i = 0; i < points.size(); ++i)
    {
        const double radial = dot(getPoint(gradient, i), getPoint(points, i));
        gradient.x()[i] -= radial * points.x()[i];
        gradient.y()[i] -= radial * points.y()[i];
        gradient.z()[i] -= radial * points.z()[i];
    }
    return getMaxLength(gradient.coordinates());
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
    if (!(report.smallestDistance > g_leastDistance))
        report.faults.push_back("two of its points are the same");
    if (report.faults.empty() && isRounded(records))
        report.faults.push_back("most of its angles have less than twelve digits");
    return report;
}

const std::vector<std::size_t>& getLooseSizes()
{
    static const std::vector<std::size_t> g_sizes{4, 13, 300, 400};
    return g_sizes;
}

std::vector<std::string> checkTables(const Tables& tables, std::size_t nbTables)
{
    std::vector<std::string> faults;
    for (std::size_t nbPoints = 1; nbPoints <= nbTables; ++nbPoints)
        if (tables.count(nbPoints) == 0)
            faults.push_back("there is no table of " + std::to_string(nbPoints) + " points");
    for (const auto& entry : tables)
        if (entry.first < 1 || entry.first > nbTables)
            faults.push_back("there is a table of " + std::to_string(entry.first) + " points");
    for (const auto& [size, records] : tables)
    {
        TableReport report = checkTable(size, records);
        const bool bLoose = std::count(getLooseSizes().begin(), getLooseSizes().end(), size) != 0;
        if (!bLoose && !(report.gradient <= g_longestGradient))
            report.faults.push_back("it is not converged");
        for (const std::string& fault : report.faults)
            faults.push_back("table " + std::to_string(size) + ": " + fault);
    }
    return faults;
}

std::vector<std::string> checkEnergies(const Tables& tables, std::istream& list)
{
    std::map<std::size_t, std::string> listed;
    std::size_t size = 0;
    std::string energy;
    while (list >> size >> energy)
        listed[size] = energy;

    std::vector<std::string> faults;
    if (!list.eof())
        faults.push_back("the list of energies can't be read to its end");
    for (const auto& entry : listed)
        if (tables.count(entry.first) == 0)
            faults.push_back("there is no table of " + std::to_string(entry.first) + " points");
    for (const auto& [nbPoints, records] : tables)
    {
        std::ostringstream text;
        text << std::fixed << std::setprecision(9) << computeExactEnergy(records);
        const auto entry = listed.find(nbPoints);
        if (entry == listed.end() || entry->second != text.str())
            faults.push_back("table " + std::to_string(nbPoints) + ": its energy is " + text.str() + ", in the list " +
                             (entry == listed.end() ? "there is none" : "it is " + entry->second));
    }
    return faults;
}

} // namespace orientations
} // namespace ovrix
