#pragma once

#include "PointSet.h"

#include <ostream>
#include <string>
#include <vector>

namespace ovrix
{
namespace orientations
{

/// A set of points and what stands below its picture.
struct Panel
{
    PointSet points;
    std::string caption;
};

/// Draws sets of points on the sphere beside each other, as an SVG: seen along -z, lines between neighbours, points
/// coloured by their number of neighbours, the half behind faint.
void drawSpheres(const std::vector<Panel>& panels, std::ostream& stream);

} // namespace orientations
} // namespace ovrix
