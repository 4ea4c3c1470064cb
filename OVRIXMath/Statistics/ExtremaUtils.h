#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXUtil/Types.h>

#include <boost/function.hpp>

#include <utility>
#include <vector>

/// @file
/// Local minima and maxima of a sequence of `signed char`, `unsigned char`, `short`, `unsigned short`, `int`,
/// `unsigned int`, `long`, `unsigned long`, `float` or `double`.
///
/// ```cpp
/// // The peaks of a profile that rise by at least 5, are higher than 20 and stand more than 10 elements apart.
/// ExtremaRangeColl peaks;
/// findLocalDilatedExtrema<int>(profile, eEBP_Include, eET_Maxima, 5, peaks);
/// filterExtrema<ExtremaRange, int>(eET_Maxima, 10.0, 20, boost::bind(&extractBasicExtremaCoords<int>,
///                                  boost::cref(profile), _1, _2, _3), peaks);
/// ```

namespace ovrix
{
namespace math
{

/// What is searched.
enum eExtremaType : int
{
    eET_Minima = 0,
    eET_Maxima = 1
};

/// What lies beyond the two ends of the sequence.
enum eExtremaBorderPolicy : int
{
    eEBP_Include = 0, ///< an end element can be an extremum; it is judged by its one inner neighbour
    eEBP_Exclude = 1, ///< an end element is no extremum; so for every value outside of this list
    eEBP_Periodic = 2 ///< the sequence is circular
};

/// Consecutive elements: index of the first, then their number, at least 1. In a circular sequence of n elements an index
/// i >= n stands for i - n.
using ExtremaRange = std::pair<unsigned long, unsigned long>;

/// Ranges of several extrema.
using ExtremaRangeColl = std::vector<ExtremaRange>;

/// Gives the coordinate and the value of an extremum that is described by a C.
template <class C, class T>
using ExtremumCoords = boost::function<void(const C&, ovReal64&, T&)>;

/// Finds the elements that are strictly better than both neighbours; an element of a plateau is none.
///
/// The two ends of the sequence are not treated alike, which is meant; with n elements:
/// - element n - 2 is never examined, but for n = 2;
/// - with `eEBP_Include` the last element is reported if it beats element n - 2, and a second time if it also beats
///   element 0;
/// - with `eEBP_Periodic` the first element is examined against the last one, the last one is not examined.
///
/// @param type another value than the two listed finds nothing
/// @param[out] extrema indices in ascending order; empty for less than two elements
/// @tparam I `unsigned int` or `unsigned long`
template <class T, class I>
OVRIXMATH_EXPORT void findLocalStrictExtrema(const std::vector<T>& values, const eExtremaBorderPolicy& policy,
                                             const eExtremaType& type, std::vector<I>& extrema);

/// Finds the plateaus, of one element or more, that have no better neighbour: findLocalDilatedExtrema() with a factor of
/// 0, every element of every range listed.
///
/// @param type any other value than `eET_Minima` finds maxima
/// @param[out] extrema indices by range, as they run: those of a range across the end of a circular sequence begin
///             before the end
/// @tparam I `unsigned int` or `unsigned long`
template <class T, class I>
OVRIXMATH_EXPORT void findLocalExtrema(const std::vector<T>& values, const eExtremaBorderPolicy& policy,
                                       const eExtremaType& type, std::vector<I>& extrema);

/// Finds the extrema that stand out of their surroundings by at least a height (h-extrema by morphological
/// reconstruction; P. Soille, "Morphological Image Analysis", 2003, section 6.3).
///
/// The sequence is shifted by `dilateFactor`, up for minima and down for maxima, and reconstructed over (under) the
/// original, which fills lower extrema and cuts off the tops of the others. The plateaus of the result that have no
/// better neighbour are the ranges. The shift is computed in T: integers wrap around, except that unsigned ones stop at 0
/// when shifted down.
///
/// With `eEBP_Include` and `eEBP_Exclude` what lies beyond the ends is the worst and the best value of T, infinities left
/// aside. So a constant sequence is one range, and with `eEBP_Exclude` none, unless its value is that best one. An
/// element that is NaN bounds the search to either side; it is neither better nor worse than its neighbours and is
/// reported with those that remain.
///
/// In a circular sequence a range at the start and one at the end are joined to one that runs across the end, if there
/// are at least three ranges in all.
///
/// Raises Statistics message 10 if `dilateFactor` is negative; `ranges` is as before then. Takes linear time, with one
/// byte per element and, unless the factor is 0, one copy of the sequence.
///
/// @param type any other value than `eET_Minima` finds maxima
/// @param dilateFactor 0 finds all plateaus
/// @param[out] ranges in ascending order of their first elements
template <class T>
OVRIXMATH_EXPORT void findLocalDilatedExtrema(const std::vector<T>& values, const eExtremaBorderPolicy& policy,
                                              const eExtremaType& type, const T& dilateFactor,
                                              ExtremaRangeColl& ranges);

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
/// The coordinate is `s + l / 2`. The value is the mean of the elements at `s + l / 2` and `s + (l + 1) / 2`, both rounded
/// down: integers are added in their promoted type, where 32 and 64-bit ones wrap around, and divided toward zero. Each of
/// the three positions is reduced by n where it reaches n. So a range of length 1 gives s + 0.5 and takes in the element
/// behind it, which is meant: both belong to the upper edge of the element.
///
/// @pre `values` has n > 0 elements, and the range starts and ends within two turns, that is `s + (l + 1) / 2 < 2 n`
template <class T>
OVRIXMATH_EXPORT void extractBasicExtremaCoords(const std::vector<T>& values, const ExtremaRange& range,
                                                ovReal64& coord, T& value);

} // namespace math
} // namespace ovrix

#include <OVRIXMath/Statistics/ExtremaUtilsInstances.h>
