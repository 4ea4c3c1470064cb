#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Statistics/ExtremaSearch.h>
#include <OVRIXUtil/Types.h>

#include <boost/function.hpp>

#include <vector>

/// @file
/// The choice among extrema whose values are `signed char`, `unsigned char`, `short`, `unsigned short`, `int`,
/// `unsigned int`, `long`, `unsigned long`, `float` or `double`.

namespace ovrix
{
namespace math
{

/// Gives the coordinate and the value of an extremum that is described by a C.
template <class C, class T>
using ExtremumCoords = boost::function<void(const C&, ovReal64&, T&)>;

/// Keeps the strongest extrema that pass a threshold and lie apart from each other: strongest first, each one is kept
/// unless it is too weak or too close to one that was kept before.
///
/// Too weak is a value that is not above the threshold (maxima) or not below (minima). Too close is a distance of
/// coordinates of up to `minDistance`; coordinates do not wrap around. Of equally strong extrema any may come first. A
/// value that is NaN comes last and is not too weak.
///
/// Takes O(n log n). An empty `getCoords` raises `boost::bad_function_call` if there is an extremum to call it for.
///
/// @param type another value than the two listed goes through the extrema in their order, without a threshold
/// @param minDistance 0 or less, or NaN, for no such condition
/// @param[in,out] extrema descriptions of extrema; what is kept comes back ascending
/// @tparam C `unsigned int`, `unsigned long` or `ExtremaRange`
template <class C, class T>
OVRIXMATH_EXPORT void filterExtrema(const eExtremaType& type, ovReal64 minDistance, T valueThreshold,
                                    ExtremumCoords<C, T> getCoords, std::vector<C>& extrema);

/// Coordinate and value of the middle of a range (s, l), for filterExtrema().
///
/// The coordinate is `s + l / 2`. The value is the mean of the elements at `s + l / 2` and `s + (l + 1) / 2`, both
/// rounded down: integers are added in their promoted type, where 32 and 64-bit ones wrap around, and divided toward
/// zero. Each of the three positions is reduced by n where it reaches n. So a range of length 1 gives s + 0.5 and takes
/// in the element behind it, which is meant: both belong to the upper edge of the element.
///
/// @pre `values` has n > 0 elements, and the range starts and ends within two turns, that is `s + (l + 1) / 2 < 2 n`
template <class T>
OVRIXMATH_EXPORT void extractBasicExtremaCoords(const std::vector<T>& values, const ExtremaRange& range,
                                                ovReal64& coord, T& value);

extern template OVRIXMATH_EXPORT void
filterExtrema<unsigned int, signed char>(const eExtremaType&, ovReal64, signed char,
                                         ExtremumCoords<unsigned int, signed char>, std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void
filterExtrema<unsigned int, unsigned char>(const eExtremaType&, ovReal64, unsigned char,
                                           ExtremumCoords<unsigned int, unsigned char>, std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void filterExtrema<unsigned int, short>(const eExtremaType&, ovReal64, short,
                                                                         ExtremumCoords<unsigned int, short>,
                                                                         std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void
filterExtrema<unsigned int, unsigned short>(const eExtremaType&, ovReal64, unsigned short,
                                            ExtremumCoords<unsigned int, unsigned short>, std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void filterExtrema<unsigned int, int>(const eExtremaType&, ovReal64, int,
                                                                       ExtremumCoords<unsigned int, int>,
                                                                       std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void
filterExtrema<unsigned int, unsigned int>(const eExtremaType&, ovReal64, unsigned int,
                                          ExtremumCoords<unsigned int, unsigned int>, std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void filterExtrema<unsigned int, long>(const eExtremaType&, ovReal64, long,
                                                                        ExtremumCoords<unsigned int, long>,
                                                                        std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void
filterExtrema<unsigned int, unsigned long>(const eExtremaType&, ovReal64, unsigned long,
                                           ExtremumCoords<unsigned int, unsigned long>, std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void filterExtrema<unsigned int, float>(const eExtremaType&, ovReal64, float,
                                                                         ExtremumCoords<unsigned int, float>,
                                                                         std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void filterExtrema<unsigned int, double>(const eExtremaType&, ovReal64, double,
                                                                          ExtremumCoords<unsigned int, double>,
                                                                          std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void
filterExtrema<unsigned long, signed char>(const eExtremaType&, ovReal64, signed char,
                                          ExtremumCoords<unsigned long, signed char>, std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void
filterExtrema<unsigned long, unsigned char>(const eExtremaType&, ovReal64, unsigned char,
                                            ExtremumCoords<unsigned long, unsigned char>, std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void filterExtrema<unsigned long, short>(const eExtremaType&, ovReal64, short,
                                                                          ExtremumCoords<unsigned long, short>,
                                                                          std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void
filterExtrema<unsigned long, unsigned short>(const eExtremaType&, ovReal64, unsigned short,
                                             ExtremumCoords<unsigned long, unsigned short>,
                                             std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void filterExtrema<unsigned long, int>(const eExtremaType&, ovReal64, int,
                                                                        ExtremumCoords<unsigned long, int>,
                                                                        std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void
filterExtrema<unsigned long, unsigned int>(const eExtremaType&, ovReal64, unsigned int,
                                           ExtremumCoords<unsigned long, unsigned int>, std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void filterExtrema<unsigned long, long>(const eExtremaType&, ovReal64, long,
                                                                         ExtremumCoords<unsigned long, long>,
                                                                         std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void
filterExtrema<unsigned long, unsigned long>(const eExtremaType&, ovReal64, unsigned long,
                                            ExtremumCoords<unsigned long, unsigned long>, std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void filterExtrema<unsigned long, float>(const eExtremaType&, ovReal64, float,
                                                                          ExtremumCoords<unsigned long, float>,
                                                                          std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void filterExtrema<unsigned long, double>(const eExtremaType&, ovReal64, double,
                                                                           ExtremumCoords<unsigned long, double>,
                                                                           std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void
filterExtrema<ExtremaRange, signed char>(const eExtremaType&, ovReal64, signed char,
                                         ExtremumCoords<ExtremaRange, signed char>, std::vector<ExtremaRange>&);
extern template OVRIXMATH_EXPORT void
filterExtrema<ExtremaRange, unsigned char>(const eExtremaType&, ovReal64, unsigned char,
                                           ExtremumCoords<ExtremaRange, unsigned char>, std::vector<ExtremaRange>&);
extern template OVRIXMATH_EXPORT void filterExtrema<ExtremaRange, short>(const eExtremaType&, ovReal64, short,
                                                                         ExtremumCoords<ExtremaRange, short>,
                                                                         std::vector<ExtremaRange>&);
extern template OVRIXMATH_EXPORT void
filterExtrema<ExtremaRange, unsigned short>(const eExtremaType&, ovReal64, unsigned short,
                                            ExtremumCoords<ExtremaRange, unsigned short>, std::vector<ExtremaRange>&);
extern template OVRIXMATH_EXPORT void filterExtrema<ExtremaRange, int>(const eExtremaType&, ovReal64, int,
                                                                       ExtremumCoords<ExtremaRange, int>,
                                                                       std::vector<ExtremaRange>&);
extern template OVRIXMATH_EXPORT void
filterExtrema<ExtremaRange, unsigned int>(const eExtremaType&, ovReal64, unsigned int,
                                          ExtremumCoords<ExtremaRange, unsigned int>, std::vector<ExtremaRange>&);
extern template OVRIXMATH_EXPORT void filterExtrema<ExtremaRange, long>(const eExtremaType&, ovReal64, long,
                                                                        ExtremumCoords<ExtremaRange, long>,
                                                                        std::vector<ExtremaRange>&);
extern template OVRIXMATH_EXPORT void
filterExtrema<ExtremaRange, unsigned long>(const eExtremaType&, ovReal64, unsigned long,
                                           ExtremumCoords<ExtremaRange, unsigned long>, std::vector<ExtremaRange>&);
extern template OVRIXMATH_EXPORT void filterExtrema<ExtremaRange, float>(const eExtremaType&, ovReal64, float,
                                                                         ExtremumCoords<ExtremaRange, float>,
                                                                         std::vector<ExtremaRange>&);
extern template OVRIXMATH_EXPORT void filterExtrema<ExtremaRange, double>(const eExtremaType&, ovReal64, double,
                                                                          ExtremumCoords<ExtremaRange, double>,
                                                                          std::vector<ExtremaRange>&);

extern template OVRIXMATH_EXPORT void
extractBasicExtremaCoords<signed char>(const std::vector<signed char>&, const ExtremaRange&, ovReal64&, signed char&);
extern template OVRIXMATH_EXPORT void extractBasicExtremaCoords<unsigned char>(const std::vector<unsigned char>&,
                                                                               const ExtremaRange&, ovReal64&,
                                                                               unsigned char&);
extern template OVRIXMATH_EXPORT void extractBasicExtremaCoords<short>(const std::vector<short>&, const ExtremaRange&,
                                                                       ovReal64&, short&);
extern template OVRIXMATH_EXPORT void extractBasicExtremaCoords<unsigned short>(const std::vector<unsigned short>&,
                                                                                const ExtremaRange&, ovReal64&,
                                                                                unsigned short&);
extern template OVRIXMATH_EXPORT void extractBasicExtremaCoords<int>(const std::vector<int>&, const ExtremaRange&,
                                                                     ovReal64&, int&);
extern template OVRIXMATH_EXPORT void extractBasicExtremaCoords<unsigned int>(const std::vector<unsigned int>&,
                                                                              const ExtremaRange&, ovReal64&,
                                                                              unsigned int&);
extern template OVRIXMATH_EXPORT void extractBasicExtremaCoords<long>(const std::vector<long>&, const ExtremaRange&,
                                                                      ovReal64&, long&);
extern template OVRIXMATH_EXPORT void extractBasicExtremaCoords<unsigned long>(const std::vector<unsigned long>&,
                                                                               const ExtremaRange&, ovReal64&,
                                                                               unsigned long&);
extern template OVRIXMATH_EXPORT void extractBasicExtremaCoords<float>(const std::vector<float>&, const ExtremaRange&,
                                                                       ovReal64&, float&);
extern template OVRIXMATH_EXPORT void extractBasicExtremaCoords<double>(const std::vector<double>&, const ExtremaRange&,
                                                                        ovReal64&, double&);

} // namespace math
} // namespace ovrix
