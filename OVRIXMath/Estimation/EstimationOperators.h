#pragma once

#include <OVRIXMath/Estimation/EstimationConfig.h>
#include <OVRIXMath/Estimation/EstimationResults.h>
#include <OVRIXMath/Export.h>
#include <OVRIXMath/Types.h>

#include <iosfwd>

namespace ovrix
{
namespace math
{

/// Writes "[", the elements separated by ", ", "]". Numbers go through the stream's own format.
OVRIXMATH_EXPORT std::ostream& operator<<(std::ostream& stream, const Vector& vector);

/// Writes method, threshold, expected outlier ratio, permission of plain estimation and success ratio on one line.
///
/// @throws OVRIXMathException when the configuration is not initialised
OVRIXMATH_EXPORT std::ostream& operator<<(std::ostream& stream, const EstimationConfig& config);

/// Writes everything that the results' getters give in their state, on one line: "[NotInit]" before an estimation.
OVRIXMATH_EXPORT std::ostream& operator<<(std::ostream& stream, const EstimationResults& results);

} // namespace math
} // namespace ovrix
