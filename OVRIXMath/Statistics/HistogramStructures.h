#pragma once

#include <OVRIXMath/Estimation/EstimationResults.h>
#include <OVRIXMath/Export.h>
#include <OVRIXUtil/Types.h>

#include <iosfwd>

/// @file
/// What BaseHistogram tells of a population curve.

namespace ovrix
{
namespace math
{

/// An extremum that may span several bins.
struct HistogramExtrema
{
    ovUInt32 _binIdx = 0;          ///< bin that holds the extremum
    ovReal64 _coord = 0.0;         ///< its place on the axis of values
    unsigned long _population = 0; ///< its population
};

/// Whether all fields are equal.
OVRIXMATH_EXPORT bool operator==(const HistogramExtrema& a, const HistogramExtrema& b);

/// Writes "{BinIdx=3, Coord=0.5, Population=7}".
OVRIXMATH_EXPORT std::ostream& operator<<(std::ostream& stream, const HistogramExtrema& extrema);

/// The Gaussian `A exp(-(x - mu)^2 / (2 sigma^2))` fitted to a histogram. The three values are those of a successful
/// estimation, and 0 otherwise.
struct HistogramGaussianCurveFit
{
    ovReal64 _csteA = 0.0;                ///< amplitude, a population
    ovReal64 _csteMu = 0.0;               ///< mean
    ovReal64 _csteSigma = 0.0;            ///< standard deviation
    EstimationResults _estimationResults; ///< outcome of the estimation; to be asked first
};

/// Writes "{CsteA=6, CsteMu=4, CsteSigma=1, EstimationResults=...}", with the text form of the results.
OVRIXMATH_EXPORT std::ostream& operator<<(std::ostream& stream, const HistogramGaussianCurveFit& fit);

} // namespace math
} // namespace ovrix
