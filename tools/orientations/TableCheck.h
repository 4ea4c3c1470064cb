#pragma once

#include "PointSet.h"

#include <cstddef>
#include <string>
#include <vector>

namespace ovrix
{
namespace orientations
{

/// What there is to say of a table.
struct TableReport
{
    /// The Coulomb energy, see computeExactEnergy().
    long double energy = 0.0L;

    /// Smallest distance of two points; infinite for a single one.
    double smallestDistance = 0.0;

    /// Length of the longest gradient of a point along the sphere: how far from converged the table is.
    double gradient = 0.0;

    /// Each rule that the table breaks: as many records as its key says, phi and theta in their ranges, no more than
    /// twelve significant digits.
    std::vector<std::string> faults;
};

TableReport checkTable(std::size_t nbPoints, const Records& records);

/// What is wrong with a set of tables as a whole: the sizes that are missing from 1 to `nbTables`, and any other size.
std::vector<std::string> checkSizes(const Tables& tables, std::size_t nbTables);

} // namespace orientations
} // namespace ovrix
