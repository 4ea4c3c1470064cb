#pragma once

#include "PointSet.h"

#include <cstddef>
#include <string>

namespace ovrix
{
namespace orientations
{

/// Name of the source file of a table, such as ThomsonTable_005.cpp.
std::string getSourceName(std::size_t nbPoints);

/// C++ source of a function that returns the table as a constant array of its own: phi and theta of each record.
std::string makeTableSource(const Records& records);

/// C++ source of the function that selects a table by its number of points, for tables of 1 to `nbTables` points.
std::string makeSelectionSource(std::size_t nbTables);

/// Writes the sources of the tables of 1 to `nbTables` points, and of their selection, into a folder.
///
/// @throws std::runtime_error when checkTables() finds a fault, before anything is written; when a file can't be
/// written
void writeSources(const Tables& tables, std::size_t nbTables, const std::string& folder);

} // namespace orientations
} // namespace ovrix
