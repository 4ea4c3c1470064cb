#pragma once

#include "PointSet.h"

#include <random>

namespace ovrix
{
namespace orientations
{

using Generator = std::mt19937_64;

/// Independent points, uniform on the sphere.
PointSet drawPoints(std::size_t nbPoints, Generator& generator);

/// Turns all points by one rotation, uniform over all rotations.
void turnAtRandom(PointSet& points, Generator& generator);

/// Moves the points of a random cap at random, most of them by less than the usual distance of neighbours.
void jigglePoints(PointSet& points, Generator& generator);

/// Takes up to three points out, those under most pressure or any, and puts each into a place of low potential.
void movePoints(PointSet& points, Generator& generator);

/// Turns a random cap about its axis, so that it meets the rest in another way.
void twistCap(PointSet& points, Generator& generator);

/// One of the three moves.
void moveAtRandom(PointSet& points, Generator& generator);

} // namespace orientations
} // namespace ovrix
