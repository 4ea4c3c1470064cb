#include <OVRIXMath/Graph/WeightRange.h>
#include <OVRIXMath/VectorPack.h>
#include <OVRIXUtil/NumericLimits.h>

#include <cmath>
#include <limits>

namespace ovrix
{
namespace math
{
namespace details
{

namespace
{

constexpr double g_infinity = std::numeric_limits<double>::infinity();

double largestMagnitude(const double* weights, std::size_t count)
{
    double largest = 0.0;
    for (std::size_t i = 0; i < count; ++i)
    {
        const double magnitude = std::abs(weights[i]);
        if (!(magnitude <= largest))
            largest = magnitude < g_infinity ? magnitude : g_infinity;
    }
    return largest;
}

bool areSumsExact(const double* weights, std::size_t count, double magnitude)
{
    if (magnitude == 0.0)
        return true;
    const double unitsPerWeight = std::ldexp(1.0, 49 - std::ilogb(magnitude));
    if (!(unitsPerWeight > 0.0 && unitsPerWeight < g_infinity))
        return false;
    // Adding and subtracting it rounds to an integer.
    constexpr double rounder = 1.5 * 4503599627370496.0; // 1.5 * 2^52
    for (std::size_t i = 0; i < count; ++i)
    {
        const double units = weights[i] * unitsPerWeight;
        const bool bLost = units == 0.0 && weights[i] != 0.0; // far below the smallest number
        if (bLost || (units + rounder) - rounder != units)
            return false;
    }
    return true;
}

} // namespace

WeightRange::WeightRange(const double* weights, std::size_t count)
    : magnitude(largestMagnitude(weights, count)), bFinite(magnitude <= NumericLimits<double>::s_max / 16.0),
      bExact(bFinite && areSumsExact(weights, count, magnitude))
{
}

} // namespace details
} // namespace math
} // namespace ovrix
