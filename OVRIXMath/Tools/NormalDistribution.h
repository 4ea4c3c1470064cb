#pragma once

#include <OVRIXMath/Export.h>

/// @file
/// The normal distribution of standard deviation `sigma` around `mean`. Every function gives 0 when `sigma` is not
/// positive.

namespace ovrix
{
namespace math
{

/// The density `exp(-(x - mean)^2 / (2 sigma^2)) / (sigma sqrt(2 pi))`.
OVRIXMATH_EXPORT double normalDistribution(double x, double sigma, double mean);

/// The first derivative of the density in x: `normalDistribution(x) (mean - x) / sigma^2`.
OVRIXMATH_EXPORT double normalDistributionFirstDerivative(double x, double sigma, double mean);

/// The second derivative of the density in x: `normalDistribution(x) ((x - mean)^2 / sigma^2 - 1) / sigma^2`.
OVRIXMATH_EXPORT double normalDistributionSecondDerivative(double x, double sigma, double mean);

/// The probability of a value below x, by formula 26.2.17 of M. Abramowitz and I. A. Stegun, "Handbook of Mathematical
/// Functions" (1964), which is exact to 7.5e-8 for `x >= mean`.
///
/// Below the mean the polynomial is used as it stands, without the symmetry of the distribution: accuracy is lost the
/// further x is from the mean, and the values diverge near `x = mean - 4.317 sigma`. Results that were made with these
/// values depend on that.
OVRIXMATH_EXPORT double cumulativeNormalDistribution(double x, double sigma, double mean);

} // namespace math
} // namespace ovrix
