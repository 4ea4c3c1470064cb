#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXUtil/Types.h>

#include <vector>

namespace ovrix
{
namespace math
{

/// The point that tophatThreshold1D() reports of a run [first, last]. For any other value the first run is reported as
/// by `eTHET_Middle`, and every later one by the index of the first run again.
enum eTopHat1DExtremumType : int
{
    eTHET_Middle = 0,  ///< `(first + last) / 2`, rounded down
    eTHET_First = 1,   ///< `first`
    eTHET_Last = 2,    ///< `last`
    eTHET_Extremum = 3 ///< the lowest input of the run for valleys, the highest for peaks; the earliest of equal ones
};

/// Finds isolated peaks or valleys of a sequence by a morphological top-hat.
///
/// The structuring window at index i is [i - r, i + r] with `r = width / step`, computed in `float` and truncated, cut
/// at the ends of the sequence. The profile is `input - opening` for peaks and `closing - input` for valleys, computed
/// in T (a difference that T cannot hold wraps around), where the opening is the dilation (running maximum) of the
/// erosion (running minimum) and the closing is the erosion of the dilation. A run is a maximal stretch of the profile
/// above `threshold`, compared in `float`.
///
/// A run that is still open at the end of the sequence is not reported: it takes a following element at or below the
/// threshold. A `width / step` that is negative or not a number counts as 0, which makes the profile 0. In a window of
/// floating values a NaN that comes first is the extremum of the window, any other is passed over. Takes time
/// proportional to `input.size()` times r.
///
/// @param bValleys whether valleys are searched, otherwise peaks
/// @param width half the width of the window, in the unit of `step`
/// @param step distance between two elements
/// @param[out] indices the reported index of each run, ascending by run; not `input` itself
/// @return the number of runs, which is the size of `indices`
/// @tparam T `signed char`, `unsigned char`, `short`, `unsigned short`, `int`, `unsigned int` or `float`
template <class T>
OVRIXMATH_EXPORT ovUInt32 tophatThreshold1D(const std::vector<T>& input, bool bValleys,
                                            const eTopHat1DExtremumType& type, float width, float step, float threshold,
                                            std::vector<int>& indices);

extern template OVRIXMATH_EXPORT ovUInt32 tophatThreshold1D<unsigned int>(const std::vector<unsigned int>&, bool,
                                                                          const eTopHat1DExtremumType&, float, float,
                                                                          float, std::vector<int>&);
extern template OVRIXMATH_EXPORT ovUInt32 tophatThreshold1D<unsigned char>(const std::vector<unsigned char>&, bool,
                                                                           const eTopHat1DExtremumType&, float, float,
                                                                           float, std::vector<int>&);
extern template OVRIXMATH_EXPORT ovUInt32 tophatThreshold1D<signed char>(const std::vector<signed char>&, bool,
                                                                         const eTopHat1DExtremumType&, float, float,
                                                                         float, std::vector<int>&);
extern template OVRIXMATH_EXPORT ovUInt32 tophatThreshold1D<float>(const std::vector<float>&, bool,
                                                                   const eTopHat1DExtremumType&, float, float, float,
                                                                   std::vector<int>&);
extern template OVRIXMATH_EXPORT ovUInt32 tophatThreshold1D<int>(const std::vector<int>&, bool,
                                                                 const eTopHat1DExtremumType&, float, float, float,
                                                                 std::vector<int>&);
extern template OVRIXMATH_EXPORT ovUInt32 tophatThreshold1D<unsigned short>(const std::vector<unsigned short>&, bool,
                                                                            const eTopHat1DExtremumType&, float, float,
                                                                            float, std::vector<int>&);
extern template OVRIXMATH_EXPORT ovUInt32 tophatThreshold1D<short>(const std::vector<short>&, bool,
                                                                   const eTopHat1DExtremumType&, float, float, float,
                                                                   std::vector<int>&);

} // namespace math
} // namespace ovrix
