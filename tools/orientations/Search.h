#pragma once

#include "PointSet.h"

#include <chrono>
#include <cstddef>
#include <functional>
#include <vector>

namespace ovrix
{
namespace orientations
{

/// What a search does, and for how long.
struct SearchPlan
{
    /// The sets to search, by their numbers of points; they are visited in turn until the time is over.
    std::vector<std::size_t> sizes;

    /// Hops of a visit.
    std::size_t nbHops = 100;

    /// Rounds over all sizes.
    std::size_t nbRounds = 1;

    std::chrono::duration<double> time = std::chrono::hours(1);

    /// Seed of the random generator. With the same tables, sizes and hops, a seed gives the same search.
    unsigned long seed = 1;
};

/// A place of a search.
struct SearchState
{
    std::size_t nbPoints = 0;
    std::size_t round = 0;
    std::size_t hop = 0;

    /// Energy of the table.
    double energy = 0.0;

    /// By how much a new table's energy is lower than that of the old one; 0 where there is no new table, and for the
    /// first table of a size.
    double fall = 0.0;
};

using SearchListener = std::function<void(const SearchState&)>;

/// Looks for tables of lower energy by basin hopping.
///
/// In the first round and every second one after it, a visit starts from the table as it stands, so that a search goes
/// on from where another ended; in the rounds between, and where there is no table yet, from random points.
///
/// @param onHop called after each hop
/// @param onNewTable called when a table has been replaced or added
void search(Tables& tables, const SearchPlan& plan, const SearchListener& onHop, const SearchListener& onNewTable);

} // namespace orientations
} // namespace ovrix
