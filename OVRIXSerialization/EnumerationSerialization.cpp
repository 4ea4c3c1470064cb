#include <OVRIXSerialization/EnumerationSerialization.h>
#include <OVRIXSerialization/MessageQuote.h>
#include <OVRIXSerialization/OVRIXSerializationFailure.h>

#include <stdexcept>

namespace ovrix
{

const char* EnumerationNames::findName(int value) const
{
    return value >= 0 && static_cast<std::size_t>(value) < _nbNames ? _names[value] : nullptr;
}

void EnumerationNames::writeValue(BaseOArchive& archive, std::string_view name, int value) const
{
    const char* const valueName = findName(value);
    if (!valueName)
        throw std::logic_error("Enumeration value " + std::to_string(value) + " is out of range");
    if (archive.isText())
        archive.writeItem(name, valueName);
    else
        archive.writeItem(name, value);
}

int EnumerationNames::readValue(BaseIArchive& archive, std::string_view name) const
{
    int value = 0;
    if (!archive.isText())
    {
        archive.readItem(name, value);
        OVRIXSERIALIZATION_RAISE_UNLESS(findName(value) != nullptr, 27, static_cast<long long>(value));
        return value;
    }
    std::string valueName;
    archive.readItem(name, valueName);
    while (static_cast<std::size_t>(value) < _nbNames && valueName != _names[value])
        ++value;
    OVRIXSERIALIZATION_RAISE_UNLESS(findName(value) != nullptr, 26, details::quote(valueName));
    return value;
}

} // namespace ovrix
