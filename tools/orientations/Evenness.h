#pragma once

#include "PointSet.h"

#include <cstddef>
#include <utility>
#include <vector>

namespace ovrix
{
namespace orientations
{

/// How points divide the sphere among them: a point's cell is what is nearer to it than to all others.
struct SphereDivision
{
    /// Pairs of points whose cells have an edge in common.
    std::vector<std::pair<std::size_t, std::size_t>> neighbours;

    /// Angle of the smallest distance of two points, in radians.
    double smallestAngle = 0.0;

    /// Angle from the place that is furthest from all points to the nearest of them, in radians.
    double largestHole = 0.0;
};

/// @param points at least two, no two in one place
SphereDivision divideSphere(const PointSet& points);

/// Points along a spiral from pole to pole, each a golden angle on and the same area down from the last.
PointSet makeFibonacciSpiral(std::size_t nbPoints);

} // namespace orientations
} // namespace ovrix
