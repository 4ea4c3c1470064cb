#include <OVRIXMath/LinearAlgebra/LinearAlgebraSerializationOperators.h>
#include <OVRIXSerialization/ArchiveSectionManager.h>
#include <OVRIXSerialization/ContainerSerializationOperators.h>

namespace ovrix
{

BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<math::Vector>& item)
{
    const ArchiveSectionManager section(archive, item.getName());
    const math::Vector& vector = item.getValue();
    const auto size = static_cast<ovUInt32>(vector.size());
    archive << makeOItem("size", size);
    if (archive.isText())
        details::writeValues(archive, vector.begin(), vector.size());
    else
        archive.writeBlock(vector.data().begin(), vector.size() * sizeof(double));
    return archive;
}

BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<math::Vector>& item)
{
    const ArchiveSectionManager section(archive, item.getName());
    ovUInt32 size = 0;
    archive >> makeIItem("size", size);
    archive.checkRemainingSize(size, archive.isText() ? details::g_minItemSize : sizeof(double));
    math::Vector vector(size);
    if (archive.isText())
        details::readValues(archive, vector.begin(), vector.size());
    else
        archive.readBlock(vector.data().begin(), vector.size() * sizeof(double));
    item.getValue().swap(vector);
    return archive;
}

} // namespace ovrix
