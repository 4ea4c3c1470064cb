#pragma once

#include <OVRIXMath/Export.h>

#include <vector>

namespace ovrix
{
namespace math
{

/// Smooths a sequence with a Gaussian of standard deviation `sigma`, in elements.
///
/// The kernel has `size = trunc(2 sigma + 0.5)` taps, one more if that is even. With `size = 2 h + 1` it is
/// `kernel[k] = exp(-(k - h)^2 / (2 sigma^2))` for k from 0 to `2 h - 1`, in `float`; the last tap, at +h, is 0. So the
/// kernel is not symmetric, and one of a single tap is all zero, which is meant: results that were made with this
/// kernel depend on it. For `|sigma| < 0.0001` every tap is 1 instead.
///
/// Each result is the mean of the elements below the kernel, weighted by its taps, whose central one (h) stands on the
/// element itself; elements beyond the ends of the sequence do not count, nor do their taps. A result whose weights sum
/// up to no more than 1e-6 is 0. Sums are computed in `float`, in the order of the taps.
///
/// So `sigma` 0 gives the input, and a `sigma` from 0.0001 to below 0.75 gives 0 everywhere; so do every negative one
/// of at least that magnitude and one that is not a number.
///
/// Takes time proportional to `input.size()` times the smaller of `size` and `input.size()`.
///
/// @return as many elements as `input` has
/// @tparam T `signed char`, `unsigned char`, `short`, `unsigned short`, `int`, `unsigned int` or `float`
template <class T>
OVRIXMATH_EXPORT std::vector<float> gaussianSmoothing1D(const std::vector<T>& input, float sigma);

extern template OVRIXMATH_EXPORT std::vector<float> gaussianSmoothing1D<int>(const std::vector<int>&, float);
extern template OVRIXMATH_EXPORT std::vector<float> gaussianSmoothing1D<signed char>(const std::vector<signed char>&,
                                                                                     float);
extern template OVRIXMATH_EXPORT std::vector<float>
gaussianSmoothing1D<unsigned char>(const std::vector<unsigned char>&, float);
extern template OVRIXMATH_EXPORT std::vector<float> gaussianSmoothing1D<float>(const std::vector<float>&, float);
extern template OVRIXMATH_EXPORT std::vector<float>
gaussianSmoothing1D<unsigned short>(const std::vector<unsigned short>&, float);
extern template OVRIXMATH_EXPORT std::vector<float> gaussianSmoothing1D<short>(const std::vector<short>&, float);
extern template OVRIXMATH_EXPORT std::vector<float> gaussianSmoothing1D<unsigned int>(const std::vector<unsigned int>&,
                                                                                      float);

} // namespace math
} // namespace ovrix
