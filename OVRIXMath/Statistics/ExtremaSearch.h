#pragma once

#include <OVRIXMath/Export.h>

#include <utility>
#include <vector>

/// @file
/// The search of local minima and maxima in a sequence of `signed char`, `unsigned char`, `short`, `unsigned short`,
/// `int`, `unsigned int`, `long`, `unsigned long`, `float` or `double`.

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

/// Consecutive elements: index of the first, then their number, at least 1. In a circular sequence of n elements an
/// index i >= n stands for i - n.
using ExtremaRange = std::pair<unsigned long, unsigned long>;

/// Ranges of several extrema.
using ExtremaRangeColl = std::vector<ExtremaRange>;

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

/// Finds the plateaus, of one element or more, that have no better neighbour: findLocalDilatedExtrema() with a factor
/// of 0, every element of every range listed.
///
/// @param type any other value than `eET_Minima` finds maxima
/// @param[out] extrema indices by range, as they run: those of a range across the end of a circular sequence begin
///             before the end
/// @tparam I `unsigned int` or `unsigned long`
template <class T, class I>
OVRIXMATH_EXPORT void findLocalExtrema(const std::vector<T>& values, const eExtremaBorderPolicy& policy,
                                       const eExtremaType& type, std::vector<I>& extrema);

/// Finds the extrema that stand out of their surroundings by more than a height (h-extrema by morphological
/// reconstruction; P. Soille, "Morphological Image Analysis", 2003, section 6.3).
///
/// The sequence is shifted by `dilateFactor`, up for minima and down for maxima, and reconstructed over (under) the
/// original, which fills lower extrema and cuts off the tops of the others. The plateaus of the result that have no
/// better neighbour are the ranges. The shift is computed in T: integers wrap around, except that unsigned ones stop at
/// 0 when shifted down.
///
/// With `eEBP_Include` and `eEBP_Exclude` what lies beyond the ends is the worst and the best value of T, infinities
/// left aside. So a constant sequence is one range unless its value is the worst one (0 for maxima of an unsigned
/// type), and with `eEBP_Exclude` none unless its value is the best one. An element that is NaN bounds the search to
/// either side; it is neither better nor worse than its neighbours and is reported with those that remain.
///
/// In a circular sequence a range at the start and one at the end are joined to one that runs across the end, if there
/// are at least three ranges in all.
///
/// Raises Statistics message 10 if `dilateFactor` is negative; `ranges` is as before then. Takes linear time, with
/// three bits per element and, unless the factor is 0, one copy of the sequence.
///
/// @param type any other value than `eET_Minima` finds maxima
/// @param dilateFactor 0 finds all plateaus
/// @param[out] ranges in ascending order of their first elements
template <class T>
OVRIXMATH_EXPORT void findLocalDilatedExtrema(const std::vector<T>& values, const eExtremaBorderPolicy& policy,
                                              const eExtremaType& type, const T& dilateFactor,
                                              ExtremaRangeColl& ranges);

extern template OVRIXMATH_EXPORT void findLocalStrictExtrema<signed char, unsigned int>(const std::vector<signed char>&,
                                                                                        const eExtremaBorderPolicy&,
                                                                                        const eExtremaType&,
                                                                                        std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void
findLocalStrictExtrema<unsigned char, unsigned int>(const std::vector<unsigned char>&, const eExtremaBorderPolicy&,
                                                    const eExtremaType&, std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void findLocalStrictExtrema<short, unsigned int>(const std::vector<short>&,
                                                                                  const eExtremaBorderPolicy&,
                                                                                  const eExtremaType&,
                                                                                  std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void
findLocalStrictExtrema<unsigned short, unsigned int>(const std::vector<unsigned short>&, const eExtremaBorderPolicy&,
                                                     const eExtremaType&, std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void findLocalStrictExtrema<int, unsigned int>(const std::vector<int>&,
                                                                                const eExtremaBorderPolicy&,
                                                                                const eExtremaType&,
                                                                                std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void
findLocalStrictExtrema<unsigned int, unsigned int>(const std::vector<unsigned int>&, const eExtremaBorderPolicy&,
                                                   const eExtremaType&, std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void findLocalStrictExtrema<long, unsigned int>(const std::vector<long>&,
                                                                                 const eExtremaBorderPolicy&,
                                                                                 const eExtremaType&,
                                                                                 std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void
findLocalStrictExtrema<unsigned long, unsigned int>(const std::vector<unsigned long>&, const eExtremaBorderPolicy&,
                                                    const eExtremaType&, std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void findLocalStrictExtrema<float, unsigned int>(const std::vector<float>&,
                                                                                  const eExtremaBorderPolicy&,
                                                                                  const eExtremaType&,
                                                                                  std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void findLocalStrictExtrema<double, unsigned int>(const std::vector<double>&,
                                                                                   const eExtremaBorderPolicy&,
                                                                                   const eExtremaType&,
                                                                                   std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void
findLocalStrictExtrema<signed char, unsigned long>(const std::vector<signed char>&, const eExtremaBorderPolicy&,
                                                   const eExtremaType&, std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void
findLocalStrictExtrema<unsigned char, unsigned long>(const std::vector<unsigned char>&, const eExtremaBorderPolicy&,
                                                     const eExtremaType&, std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void findLocalStrictExtrema<short, unsigned long>(const std::vector<short>&,
                                                                                   const eExtremaBorderPolicy&,
                                                                                   const eExtremaType&,
                                                                                   std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void
findLocalStrictExtrema<unsigned short, unsigned long>(const std::vector<unsigned short>&, const eExtremaBorderPolicy&,
                                                      const eExtremaType&, std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void findLocalStrictExtrema<int, unsigned long>(const std::vector<int>&,
                                                                                 const eExtremaBorderPolicy&,
                                                                                 const eExtremaType&,
                                                                                 std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void
findLocalStrictExtrema<unsigned int, unsigned long>(const std::vector<unsigned int>&, const eExtremaBorderPolicy&,
                                                    const eExtremaType&, std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void findLocalStrictExtrema<long, unsigned long>(const std::vector<long>&,
                                                                                  const eExtremaBorderPolicy&,
                                                                                  const eExtremaType&,
                                                                                  std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void
findLocalStrictExtrema<unsigned long, unsigned long>(const std::vector<unsigned long>&, const eExtremaBorderPolicy&,
                                                     const eExtremaType&, std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void findLocalStrictExtrema<float, unsigned long>(const std::vector<float>&,
                                                                                   const eExtremaBorderPolicy&,
                                                                                   const eExtremaType&,
                                                                                   std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void findLocalStrictExtrema<double, unsigned long>(const std::vector<double>&,
                                                                                    const eExtremaBorderPolicy&,
                                                                                    const eExtremaType&,
                                                                                    std::vector<unsigned long>&);

extern template OVRIXMATH_EXPORT void findLocalExtrema<signed char, unsigned int>(const std::vector<signed char>&,
                                                                                  const eExtremaBorderPolicy&,
                                                                                  const eExtremaType&,
                                                                                  std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void findLocalExtrema<unsigned char, unsigned int>(const std::vector<unsigned char>&,
                                                                                    const eExtremaBorderPolicy&,
                                                                                    const eExtremaType&,
                                                                                    std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void findLocalExtrema<short, unsigned int>(const std::vector<short>&,
                                                                            const eExtremaBorderPolicy&,
                                                                            const eExtremaType&,
                                                                            std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void findLocalExtrema<unsigned short, unsigned int>(const std::vector<unsigned short>&,
                                                                                     const eExtremaBorderPolicy&,
                                                                                     const eExtremaType&,
                                                                                     std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void findLocalExtrema<int, unsigned int>(const std::vector<int>&,
                                                                          const eExtremaBorderPolicy&,
                                                                          const eExtremaType&,
                                                                          std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void findLocalExtrema<unsigned int, unsigned int>(const std::vector<unsigned int>&,
                                                                                   const eExtremaBorderPolicy&,
                                                                                   const eExtremaType&,
                                                                                   std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void findLocalExtrema<long, unsigned int>(const std::vector<long>&,
                                                                           const eExtremaBorderPolicy&,
                                                                           const eExtremaType&,
                                                                           std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void findLocalExtrema<unsigned long, unsigned int>(const std::vector<unsigned long>&,
                                                                                    const eExtremaBorderPolicy&,
                                                                                    const eExtremaType&,
                                                                                    std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void findLocalExtrema<float, unsigned int>(const std::vector<float>&,
                                                                            const eExtremaBorderPolicy&,
                                                                            const eExtremaType&,
                                                                            std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void findLocalExtrema<double, unsigned int>(const std::vector<double>&,
                                                                             const eExtremaBorderPolicy&,
                                                                             const eExtremaType&,
                                                                             std::vector<unsigned int>&);
extern template OVRIXMATH_EXPORT void findLocalExtrema<signed char, unsigned long>(const std::vector<signed char>&,
                                                                                   const eExtremaBorderPolicy&,
                                                                                   const eExtremaType&,
                                                                                   std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void findLocalExtrema<unsigned char, unsigned long>(const std::vector<unsigned char>&,
                                                                                     const eExtremaBorderPolicy&,
                                                                                     const eExtremaType&,
                                                                                     std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void findLocalExtrema<short, unsigned long>(const std::vector<short>&,
                                                                             const eExtremaBorderPolicy&,
                                                                             const eExtremaType&,
                                                                             std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void
findLocalExtrema<unsigned short, unsigned long>(const std::vector<unsigned short>&, const eExtremaBorderPolicy&,
                                                const eExtremaType&, std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void findLocalExtrema<int, unsigned long>(const std::vector<int>&,
                                                                           const eExtremaBorderPolicy&,
                                                                           const eExtremaType&,
                                                                           std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void findLocalExtrema<unsigned int, unsigned long>(const std::vector<unsigned int>&,
                                                                                    const eExtremaBorderPolicy&,
                                                                                    const eExtremaType&,
                                                                                    std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void findLocalExtrema<long, unsigned long>(const std::vector<long>&,
                                                                            const eExtremaBorderPolicy&,
                                                                            const eExtremaType&,
                                                                            std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void findLocalExtrema<unsigned long, unsigned long>(const std::vector<unsigned long>&,
                                                                                     const eExtremaBorderPolicy&,
                                                                                     const eExtremaType&,
                                                                                     std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void findLocalExtrema<float, unsigned long>(const std::vector<float>&,
                                                                             const eExtremaBorderPolicy&,
                                                                             const eExtremaType&,
                                                                             std::vector<unsigned long>&);
extern template OVRIXMATH_EXPORT void findLocalExtrema<double, unsigned long>(const std::vector<double>&,
                                                                              const eExtremaBorderPolicy&,
                                                                              const eExtremaType&,
                                                                              std::vector<unsigned long>&);

extern template OVRIXMATH_EXPORT void findLocalDilatedExtrema<signed char>(const std::vector<signed char>&,
                                                                           const eExtremaBorderPolicy&,
                                                                           const eExtremaType&, const signed char&,
                                                                           ExtremaRangeColl&);
extern template OVRIXMATH_EXPORT void findLocalDilatedExtrema<unsigned char>(const std::vector<unsigned char>&,
                                                                             const eExtremaBorderPolicy&,
                                                                             const eExtremaType&, const unsigned char&,
                                                                             ExtremaRangeColl&);
extern template OVRIXMATH_EXPORT void findLocalDilatedExtrema<short>(const std::vector<short>&,
                                                                     const eExtremaBorderPolicy&, const eExtremaType&,
                                                                     const short&, ExtremaRangeColl&);
extern template OVRIXMATH_EXPORT void findLocalDilatedExtrema<unsigned short>(const std::vector<unsigned short>&,
                                                                              const eExtremaBorderPolicy&,
                                                                              const eExtremaType&,
                                                                              const unsigned short&, ExtremaRangeColl&);
extern template OVRIXMATH_EXPORT void findLocalDilatedExtrema<int>(const std::vector<int>&, const eExtremaBorderPolicy&,
                                                                   const eExtremaType&, const int&, ExtremaRangeColl&);
extern template OVRIXMATH_EXPORT void findLocalDilatedExtrema<unsigned int>(const std::vector<unsigned int>&,
                                                                            const eExtremaBorderPolicy&,
                                                                            const eExtremaType&, const unsigned int&,
                                                                            ExtremaRangeColl&);
extern template OVRIXMATH_EXPORT void findLocalDilatedExtrema<long>(const std::vector<long>&,
                                                                    const eExtremaBorderPolicy&, const eExtremaType&,
                                                                    const long&, ExtremaRangeColl&);
extern template OVRIXMATH_EXPORT void findLocalDilatedExtrema<unsigned long>(const std::vector<unsigned long>&,
                                                                             const eExtremaBorderPolicy&,
                                                                             const eExtremaType&, const unsigned long&,
                                                                             ExtremaRangeColl&);
extern template OVRIXMATH_EXPORT void findLocalDilatedExtrema<float>(const std::vector<float>&,
                                                                     const eExtremaBorderPolicy&, const eExtremaType&,
                                                                     const float&, ExtremaRangeColl&);
extern template OVRIXMATH_EXPORT void findLocalDilatedExtrema<double>(const std::vector<double>&,
                                                                      const eExtremaBorderPolicy&, const eExtremaType&,
                                                                      const double&, ExtremaRangeColl&);

} // namespace math
} // namespace ovrix
