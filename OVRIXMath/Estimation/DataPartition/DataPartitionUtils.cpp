#include <OVRIXMath/Estimation/DataPartition/DataPartitionUtils.h>
#include <OVRIXSerialization/EnumerationSerialization.h>

namespace ovrix
{

namespace
{

constexpr const char* g_dataPartitionTypeTexts[] = {"eDPT_Regular", "eDPT_Adaptive"};
constexpr EnumerationNames g_dataPartitionTypeNames(g_dataPartitionTypeTexts);

} // namespace

BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<math::eDataPartitionType>& item)
{
    return g_dataPartitionTypeNames.write(archive, item);
}

BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<math::eDataPartitionType>& item)
{
    return g_dataPartitionTypeNames.read(archive, item);
}

} // namespace ovrix
