#include <OVRIXSerialization/ArchiveSectionManager.h>
#include <OVRIXSerialization/OVRIXSerializationFailure.h>
#include <OVRIXSerialization/SerializationItem.h>

namespace ovrix
{

namespace
{

template <class T>
BaseOArchive& writeValue(BaseOArchive& archive, const SerializationOItem<T>& item)
{
    archive.writeItem(item.getName(), item.getValue());
    return archive;
}

template <class T>
BaseIArchive& readValue(BaseIArchive& archive, const SerializationIItem<T>& item)
{
    archive.readItem(item.getName(), item.getValue());
    return archive;
}

} // namespace

BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<bool>& item)
{
    return writeValue(archive, item);
}

BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<int>& item)
{
    return writeValue(archive, item);
}

BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<unsigned int>& item)
{
    return writeValue(archive, item);
}

BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<unsigned long>& item)
{
    return writeValue(archive, item);
}

BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<double>& item)
{
    return writeValue(archive, item);
}

BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<std::string>& item)
{
    return writeValue(archive, item);
}

BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<BoolResult>& item)
{
    const ArchiveSectionManager section(archive, item.getName());
    archive.writeItem("outcome", static_cast<bool>(item.getValue()));
    archive.writeItem("message", item.getValue().getMessage());
    return archive;
}

BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<BaseSerializationObject>& item)
{
    const ArchiveSectionManager section(archive, item.getName());
    const BoolResult result = item.getValue().write(archive);
    OVRIXSERIALIZATION_RAISE_UNLESS(result, 11, item.getValue().getClassName(), result.getMessage());
    return archive;
}

BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<bool>& item)
{
    return readValue(archive, item);
}

BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<int>& item)
{
    return readValue(archive, item);
}

BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<unsigned int>& item)
{
    return readValue(archive, item);
}

BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<unsigned long>& item)
{
    return readValue(archive, item);
}

BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<double>& item)
{
    return readValue(archive, item);
}

BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<std::string>& item)
{
    return readValue(archive, item);
}

BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<BoolResult>& item)
{
    const ArchiveSectionManager section(archive, item.getName());
    bool outcome = false;
    std::string message;
    archive.readItem("outcome", outcome);
    archive.readItem("message", message);
    item.getValue() = BoolResult(outcome, message);
    return archive;
}

BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<BaseSerializationObject>& item)
{
    const ArchiveSectionManager section(archive, item.getName());
    const BoolResult result = item.getValue().read(archive);
    OVRIXSERIALIZATION_RAISE_UNLESS(result, 12, item.getValue().getClassName(), result.getMessage());
    return archive;
}

} // namespace ovrix
