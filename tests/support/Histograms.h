#pragma once

#include <OVRIXMath/Statistics/Histogram.h>

#include <cstddef>
#include <limits>
#include <random>
#include <string>
#include <support/GreyHistogram.h>
#include <vector>

namespace ovrix
{
namespace test
{

/// All policies, for loops.
const math::eHistogramOutOfBoundsPolicy g_outOfBoundsPolicies[] = {math::eHOOBP_Ignored, math::eHOOBP_Nearest,
                                                                   math::eHOOBP_Dedicated, math::eHOOBP_DedicatedUpper};

/// A histogram of real numbers whose classes have the width 1 and begin at 0.
///
/// @param population all bins
inline math::Histogram<false> makeHistogram(math::eHistogramOutOfBoundsPolicy policy,
                                            const math::UInt64Vector& population)
{
    const std::size_t nbExtraBins = math::computeHistogramNbBins(1, policy) - 1;
    math::Histogram<false> histogram;
    histogram.initFromExisting(0.0, static_cast<double>(population.size() - nbExtraBins), 1.0, population, policy);
    return histogram;
}

/// Populations of small numbers, with plateaus and empty bins.
inline math::UInt64Vector randomPopulation(std::mt19937& generator, std::size_t size)
{
    const unsigned int nbLevels = 1 + generator() % 9;
    math::UInt64Vector population(size);
    for (std::size_t i = 0; i < size; ++i)
        population[i] = i > 0 && generator() % 3 == 0 ? population[i - 1] : generator() % nbLevels;
    return population;
}

/// A histogram of up to 20 classes of any width and any policy, the last of which may be cut short.
template <bool bIntegral>
math::Histogram<bIntegral> randomHistogram(std::mt19937& generator)
{
    const math::eHistogramOutOfBoundsPolicy policy = g_outOfBoundsPolicies[generator() % 4];
    const double first = static_cast<double>(generator() % 41) - 20.0;
    const double last = first + 1.0 + static_cast<double>(generator() % 20);
    const double width = 1.0 + 0.25 * static_cast<double>(generator() % 12);
    const ovUInt32 nbClasses = math::computeHistogramNbClasses(bIntegral, first, last, width);
    math::Histogram<bIntegral> histogram;
    histogram.initFromExisting(first, last, width,
                               randomPopulation(generator, math::computeHistogramNbBins(nbClasses, policy)), policy);
    return histogram;
}

/// Population of each grey value of a picture of tests/data/images.
inline math::UInt64Vector countGreyValues(const std::string& fileName)
{
    const GreyHistogram counts = readGreyHistogram(fileName);
    return math::UInt64Vector(counts.begin(), counts.end());
}

} // namespace test
} // namespace ovrix
