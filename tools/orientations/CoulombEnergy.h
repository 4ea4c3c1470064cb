#pragma once

#include "PointSet.h"

namespace ovrix
{
namespace orientations
{

/// The Coulomb energy E = sum over pairs i < j of 1 / |xi - xj|, and its gradient in space, of the size of `points`.
///
/// The order of the sums is left to the compiler: the last digits are not the same in all builds.
double computeEnergy(const PointSet& points, PointSet& gradient);

/// The energy of the unit vectors of the records, in extended precision from the angles on.
long double computeExactEnergy(const Records& records);

} // namespace orientations
} // namespace ovrix
