#pragma once

#include <OVRIXMath/Estimation/DataPartition/BaseDataPartition.h>
#include <OVRIXMath/Export.h>
#include <OVRIXSerialization/SerializationItem.h>

namespace ovrix
{

/// Writes the name of the enumerator into a text archive, its value as `int` into any other.
///
/// @throws std::logic_error for a value outside of the enumeration
OVRIXMATH_EXPORT BaseOArchive& operator<<(BaseOArchive& archive,
                                          const SerializationOItem<math::eDataPartitionType>& item);

/// Reads what the operator above wrote.
///
/// @throws OVRIXSerializationException for an unknown name or value
OVRIXMATH_EXPORT BaseIArchive& operator>>(BaseIArchive& archive,
                                          const SerializationIItem<math::eDataPartitionType>& item);

} // namespace ovrix
