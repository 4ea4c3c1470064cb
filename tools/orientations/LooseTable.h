#pragma once

#include "Moves.h"
#include "PointSet.h"

namespace ovrix
{
namespace orientations
{

/// The same arrangement less converged: a table next to the same local minimum whose energy is the wanted one, to nine
/// decimals.
///
/// The points are set a little out of their places, and their way back to the minimum is stopped at the energy.
///
/// @param energy above that of the minimum by less than about a ten-thousandth
/// @throws std::runtime_error when the energy is not reached
Records makeLooseTable(const Records& table, double energy, Generator& generator);

} // namespace orientations
} // namespace ovrix
