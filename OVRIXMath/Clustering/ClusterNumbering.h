#pragma once

#include <OVRIXMath/Types.h>

namespace ovrix
{
namespace math
{
namespace clustering
{
namespace details
{

/// Numbers clusters by decreasing population, of equally large ones the higher former label first.
///
/// @param[in,out] assignments former labels, then new ones; those that are no label stay
/// @return the former label of each new one
UInt32Vector numberByPopulation(ovUInt32 nbClusters, UInt32Vector& assignments);

/// Whether two labellings of the same samples are the same partition, up to the numbers of its clusters.
///
/// @param nbClusters above all labels of both, or else they count as different
bool isSamePartition(ovUInt32 nbClusters, const UInt32Vector& first, const UInt32Vector& second);

} // namespace details
} // namespace clustering
} // namespace math
} // namespace ovrix
