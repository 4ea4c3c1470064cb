#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXSerialization/SerializationItem.h>
#include <OVRIXUtil/Types.h>

#include <boost/filesystem/path.hpp>

/// @file
/// The arithmetic behind a histogram's grid, and its export to a file.
///
/// A range [first, last] is cut into classes of one width. Data that are integers make a difference: the range then
/// holds `last - first + 1` distinct values, so that the last value has a class of its own.

namespace ovrix
{
namespace math
{

class BaseHistogram;

/// Where data outside of the range of a histogram are counted. With n classes, "none" being
/// `NumericLimits<ovUInt32>::s_max`:
///
/// | Policy | Lower bin | Upper bin | Bin of class 0 | Bins |
/// |---|---|---|---|---|
/// | `eHOOBP_Ignored` | none | none | 0 | n |
/// | `eHOOBP_Nearest` | 0, the first class | n - 1, the last class | 0 | n |
/// | `eHOOBP_Dedicated` | 0 | n + 1 | 1 | n + 2 |
/// | `eHOOBP_DedicatedUpper` | n | n | 0 | n + 1 |
///
/// A value outside of this list counts as `eHOOBP_Ignored`.
enum eHistogramOutOfBoundsPolicy : int
{
    eHOOBP_Ignored = 0,       ///< they are not counted
    eHOOBP_Nearest = 1,       ///< in the first and in the last class
    eHOOBP_Dedicated = 2,     ///< in a bin before the classes and in one behind them
    eHOOBP_DedicatedUpper = 3 ///< all in one bin behind the classes
};

/// Length of the range: `last - first`, one more for integers.
///
/// @throws OVRIXMathException, Statistics message 12, unless `first < last`
OVRIXMATH_EXPORT ovReal64 computeHistogramRange(ovBool bIntegral, ovReal64 first, ovReal64 last);

/// Number of classes of that width that cover the range; the last one is cut short where the width does not divide it.
///
/// The quotient of range and width is truncated through a 64-bit integer that keeps its low 32 bits, so it means
/// nothing from 2^32 on; it can be 0 then.
///
/// @throws OVRIXMathException, Statistics message 11 unless `0 < binWidth`, then 12 unless `first < last`
OVRIXMATH_EXPORT ovUInt32 computeHistogramNbClasses(ovBool bIntegral, ovReal64 first, ovReal64 last, ovReal64 binWidth);

/// Width of each of `nbClasses` classes that share the range evenly.
///
/// @throws OVRIXMathException, Statistics message 13 for 0 classes, then 12 unless `first < last`
OVRIXMATH_EXPORT ovReal64 computeHistogramBinWidth(ovBool bIntegral, ovReal64 first, ovReal64 last, ovUInt32 nbClasses);

/// Layout of the bins under a policy, see eHistogramOutOfBoundsPolicy. Sums wrap around at 32 bits.
///
/// @param nbClasses at least 1
/// @param[out] lowerOutOfBoundsBinIdx bin of the data below the range
/// @param[out] upperOutOfBoundsBinIdx bin of the data above the range
/// @param[out] inBoundsBinOffset bin of class 0
/// @param[out] nbBins number of bins
/// @throws OVRIXMathException, Statistics message 13, for 0 classes; the outputs are as before then
OVRIXMATH_EXPORT void computeHistogramBoundsInfo(ovUInt32 nbClasses, const eHistogramOutOfBoundsPolicy& policy,
                                                 ovUInt32& lowerOutOfBoundsBinIdx, ovUInt32& upperOutOfBoundsBinIdx,
                                                 ovUInt32& inBoundsBinOffset, ovUInt32& nbBins);

/// Number of bins under a policy, see computeHistogramBoundsInfo().
///
/// @throws OVRIXMathException, Statistics message 13, for 0 classes
OVRIXMATH_EXPORT ovUInt32 computeHistogramNbBins(ovUInt32 nbClasses, const eHistogramOutOfBoundsPolicy& policy);

/// Writes the text form of a histogram, a table separated by semicolons, to a file; see BaseHistogram's `operator<<`.
///
/// What the file held before is lost. A histogram that is not initialised gives a file that says so.
///
/// @throws OVRIXMathException, Statistics message 1 with the path in quotes, when the file cannot be opened or written
OVRIXMATH_EXPORT void exportToCsv(const boost::filesystem::path& filePath, const BaseHistogram& histogram);

} // namespace math

/// Writes the name of the enumerator into a text archive, its value as `int` into any other.
///
/// @throws std::logic_error for a value outside of the enumeration
OVRIXMATH_EXPORT BaseOArchive& operator<<(BaseOArchive& archive,
                                          const SerializationOItem<math::eHistogramOutOfBoundsPolicy>& item);

/// Reads what the operator above wrote.
///
/// @throws OVRIXSerializationException for an unknown name or value
OVRIXMATH_EXPORT BaseIArchive& operator>>(BaseIArchive& archive,
                                          const SerializationIItem<math::eHistogramOutOfBoundsPolicy>& item);

} // namespace ovrix
