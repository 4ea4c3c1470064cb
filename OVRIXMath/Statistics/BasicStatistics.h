#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXUtil/Types.h>

#include <utility>
#include <vector>

/// @file
/// Moments of plain collections of `signed char`, `unsigned char`, `short`, `unsigned short`, `int`, `unsigned int`,
/// `float` or `double`. Elements are widened to `double`, sums are computed in `double` in the order of the elements.

namespace ovrix
{
namespace math
{

/// The arithmetic mean; NaN for an empty collection.
template <class T>
OVRIXMATH_EXPORT ovReal64 mean(const std::vector<T>& values);

/// The population variance, that is with divisor n; 0 for an empty collection.
///
/// Computed in one pass by a running update of the mean (B. P. Welford, "Note on a Method for Calculating Corrected
/// Sums of Squares and Products", 1962), which stays accurate where the mean is large against the deviation.
template <class T>
OVRIXMATH_EXPORT ovReal64 variance(const std::vector<T>& values);

/// The square root of variance().
template <class T>
OVRIXMATH_EXPORT ovReal64 stdDev(const std::vector<T>& values);

/// The mean and the population variance in one pass; (NaN, 0) for an empty collection.
///
/// The mean is that of mean() to the bit. The variance uses running sums in place of running means, so it agrees with
/// variance() up to rounding only.
template <class T>
OVRIXMATH_EXPORT std::pair<ovReal64, ovReal64> meanAndVariance(const std::vector<T>& values);

/// Pearson's coefficient of correlation, `cov(x, y) / sqrt(var(x) var(y))`.
///
/// The covariance comes from a running update, the variances from raw moments, `var(x) = sum(x^2) / n - mean(x)^2`.
/// Their squares are formed in T before they are widened: integers wrap around at 8, 16 or 32 bits, `float` is rounded
/// to single precision. So the coefficient of integers whose squares T cannot hold (16 and above for `unsigned char`)
/// is a different one from that of the widened data. This is meant; widen the collections for the true coefficient.
///
/// Raises Statistics message 0 with the two sizes if they differ.
///
/// @return the coefficient; 0 if the product of the variances is exactly 0, as for a constant collection or one of a
///         single element whose squares and mean are exact (those of 0.1 are not: the product is then a tiny number of
///         either sign); NaN if that product is negative, which rounding and wrapped squares can bring about, and for
///         empty collections
template <class T>
OVRIXMATH_EXPORT ovReal64 correlation(const std::vector<T>& first, const std::vector<T>& second);

extern template OVRIXMATH_EXPORT ovReal64 mean<signed char>(const std::vector<signed char>&);
extern template OVRIXMATH_EXPORT ovReal64 mean<unsigned char>(const std::vector<unsigned char>&);
extern template OVRIXMATH_EXPORT ovReal64 mean<short>(const std::vector<short>&);
extern template OVRIXMATH_EXPORT ovReal64 mean<unsigned short>(const std::vector<unsigned short>&);
extern template OVRIXMATH_EXPORT ovReal64 mean<int>(const std::vector<int>&);
extern template OVRIXMATH_EXPORT ovReal64 mean<unsigned int>(const std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT ovReal64 mean<float>(const std::vector<float>&);
extern template OVRIXMATH_EXPORT ovReal64 mean<double>(const std::vector<double>&);

extern template OVRIXMATH_EXPORT ovReal64 variance<signed char>(const std::vector<signed char>&);
extern template OVRIXMATH_EXPORT ovReal64 variance<unsigned char>(const std::vector<unsigned char>&);
extern template OVRIXMATH_EXPORT ovReal64 variance<short>(const std::vector<short>&);
extern template OVRIXMATH_EXPORT ovReal64 variance<unsigned short>(const std::vector<unsigned short>&);
extern template OVRIXMATH_EXPORT ovReal64 variance<int>(const std::vector<int>&);
extern template OVRIXMATH_EXPORT ovReal64 variance<unsigned int>(const std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT ovReal64 variance<float>(const std::vector<float>&);
extern template OVRIXMATH_EXPORT ovReal64 variance<double>(const std::vector<double>&);

extern template OVRIXMATH_EXPORT ovReal64 stdDev<signed char>(const std::vector<signed char>&);
extern template OVRIXMATH_EXPORT ovReal64 stdDev<unsigned char>(const std::vector<unsigned char>&);
extern template OVRIXMATH_EXPORT ovReal64 stdDev<short>(const std::vector<short>&);
extern template OVRIXMATH_EXPORT ovReal64 stdDev<unsigned short>(const std::vector<unsigned short>&);
extern template OVRIXMATH_EXPORT ovReal64 stdDev<int>(const std::vector<int>&);
extern template OVRIXMATH_EXPORT ovReal64 stdDev<unsigned int>(const std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT ovReal64 stdDev<float>(const std::vector<float>&);
extern template OVRIXMATH_EXPORT ovReal64 stdDev<double>(const std::vector<double>&);

extern template OVRIXMATH_EXPORT std::pair<ovReal64, ovReal64>
meanAndVariance<signed char>(const std::vector<signed char>&);
extern template OVRIXMATH_EXPORT std::pair<ovReal64, ovReal64>
meanAndVariance<unsigned char>(const std::vector<unsigned char>&);
extern template OVRIXMATH_EXPORT std::pair<ovReal64, ovReal64> meanAndVariance<short>(const std::vector<short>&);
extern template OVRIXMATH_EXPORT std::pair<ovReal64, ovReal64>
meanAndVariance<unsigned short>(const std::vector<unsigned short>&);
extern template OVRIXMATH_EXPORT std::pair<ovReal64, ovReal64> meanAndVariance<int>(const std::vector<int>&);
extern template OVRIXMATH_EXPORT std::pair<ovReal64, ovReal64>
meanAndVariance<unsigned int>(const std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT std::pair<ovReal64, ovReal64> meanAndVariance<float>(const std::vector<float>&);
extern template OVRIXMATH_EXPORT std::pair<ovReal64, ovReal64> meanAndVariance<double>(const std::vector<double>&);

extern template OVRIXMATH_EXPORT ovReal64 correlation<signed char>(const std::vector<signed char>&,
                                                                   const std::vector<signed char>&);
extern template OVRIXMATH_EXPORT ovReal64 correlation<unsigned char>(const std::vector<unsigned char>&,
                                                                     const std::vector<unsigned char>&);
extern template OVRIXMATH_EXPORT ovReal64 correlation<short>(const std::vector<short>&, const std::vector<short>&);
extern template OVRIXMATH_EXPORT ovReal64 correlation<unsigned short>(const std::vector<unsigned short>&,
                                                                      const std::vector<unsigned short>&);
extern template OVRIXMATH_EXPORT ovReal64 correlation<int>(const std::vector<int>&, const std::vector<int>&);
extern template OVRIXMATH_EXPORT ovReal64 correlation<unsigned int>(const std::vector<unsigned int>&,
                                                                    const std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT ovReal64 correlation<float>(const std::vector<float>&, const std::vector<float>&);
extern template OVRIXMATH_EXPORT ovReal64 correlation<double>(const std::vector<double>&, const std::vector<double>&);

} // namespace math
} // namespace ovrix
