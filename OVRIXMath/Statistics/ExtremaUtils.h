#pragma once

#include <OVRIXMath/Statistics/ExtremaFilter.h>
#include <OVRIXMath/Statistics/ExtremaSearch.h>

/// @file
/// Local minima and maxima of a sequence: their search, and the choice of the strongest ones that lie apart.
///
/// ```cpp
/// // The peaks of a profile that rise by more than 5, are higher than 10 and stand more than 4 elements apart.
/// ExtremaRangeColl peaks;
/// findLocalDilatedExtrema<int>(profile, eEBP_Include, eET_Maxima, 5, peaks);
/// const auto getCoords = [&profile](const ExtremaRange& range, ovReal64& coord, int& value) {
///     extractBasicExtremaCoords<int>(profile, range, coord, value);
/// };
/// filterExtrema<ExtremaRange, int>(eET_Maxima, 4.0, 10, getCoords, peaks);
/// ```
