#pragma once

#include "PointSet.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

namespace ovrix
{
namespace orientations
{

/// What a search does, and for how long.
struct SearchPlan
{
    /// The sets to search, by their numbers of points; they are visited in turn.
    std::vector<std::size_t> sizes;

    /// Hops of a visit.
    std::size_t nbHops = 100;

    /// Number of the first round over all sizes, by which a search that was broken off goes on.
    std::size_t firstRound = 1;

    /// Rounds over all sizes.
    std::size_t nbRounds = 1;

    /// The search ends when it is over, whatever is left to do.
    std::chrono::duration<double> time = std::chrono::hours(1);

    /// Seed of the random generator. One program does the same search again for the same seed, tables, sizes, hops and
    /// rounds, unless the time cuts it short.
    std::uint64_t seed = 1;
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
/// In rounds of odd numbers, the first among them, a visit starts from the table as it stands, so that a search goes
/// on from where another ended; in the rounds between, and where there is no table yet, from random points.
///
/// @param onHop called when a visit begins and after each hop
/// @param onNewTable called when a table has been replaced or added
void search(Tables& tables, const SearchPlan& plan, const SearchListener& onHop, const SearchListener& onNewTable);

} // namespace orientations
} // namespace ovrix
