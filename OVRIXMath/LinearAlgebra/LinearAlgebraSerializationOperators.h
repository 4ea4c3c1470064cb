#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Types.h>
#include <OVRIXSerialization/SerializationItem.h>

namespace ovrix
{

/// Section of the item's name; item "size", then the elements: as items "value" in a text archive, as one block in any
/// other.
OVRIXMATH_EXPORT BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<math::Vector>& item);

/// Reads what the operator above wrote.
OVRIXMATH_EXPORT BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<math::Vector>& item);

} // namespace ovrix
