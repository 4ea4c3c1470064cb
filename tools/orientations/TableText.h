#pragma once

#include "Moves.h"
#include "PointSet.h"

#include <functional>
#include <istream>
#include <ostream>
#include <string>

/// @file
/// The text form of the tables: for each set a line "N" and the number of its points, then a line with phi and theta
/// for each point.

namespace ovrix
{
namespace orientations
{

/// Ranges of the angles in all tables: from 0 to a little less than a full turn, and to half a turn.
constexpr double g_maxPhi = 6.28311766956;
constexpr double g_maxTheta = 3.14159265358;

/// The decimals of a number in [0, 10[, cut after 12 significant digits, without zeros at the end and without exponent.
/// What has no more digits keeps its value.
std::string cutDigits(double value);

/// The set as a table: turned at random, with angles of 12 significant digits, ascending by theta.
Records makeTable(const PointSet& points, Generator& generator);

/// @throws std::runtime_error for what is not a text of tables
Tables readTables(std::istream& stream);

/// Reads a file.
///
/// @throws std::runtime_error with the file's name
Tables readTables(const std::string& path);

void writeTables(const Tables& tables, std::ostream& stream);

/// Changes the tables of a file, which need not be there yet. The file holds either the old or the new tables at every
/// moment, and other programs that change it wait meanwhile, so that several searches can share a file.
///
/// @param change called with the tables of the file
/// @throws std::runtime_error with the file's name when it can't be locked, read or written; it stays as it was then
void changeTables(const std::string& path, const std::function<void(Tables&)>& change);

/// The same for a file that has to be there: one that is missing can't be read.
void changeExistingTables(const std::string& path, const std::function<void(Tables&)>& change);

} // namespace orientations
} // namespace ovrix
