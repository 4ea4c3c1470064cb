#pragma once

#include "PointSet.h"

#include <cstddef>
#include <istream>
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

    /// Length of the longest gradient of a point along the sphere: how far from converged the table is. Not a number
    /// where two points are in one place.
    double gradient = 0.0;

    /// Each rule that the table breaks: as many records as its key says, phi and theta in their ranges, twelve
    /// significant digits, no two points in one place.
    std::vector<std::string> faults;
};

TableReport checkTable(std::size_t nbPoints, const Records& records);

/// Numbers of points whose tables stand above their minima and stay so.
const std::vector<std::size_t>& getLooseSizes();

/// What is wrong with a set of tables: the sizes that are missing from 1 to `nbTables`, any other size, the faults of
/// each table, and tables that are not converged, but for the loose ones.
std::vector<std::string> checkTables(const Tables& tables, std::size_t nbTables);

/// Compares the energies with those of a list, which has a line with size and energy for each table.
///
/// @return a sentence for each table that has another energy, to nine decimals, or is not in the list, and for each
/// line without a table
std::vector<std::string> checkEnergies(const Tables& tables, std::istream& list);

} // namespace orientations
} // namespace ovrix
