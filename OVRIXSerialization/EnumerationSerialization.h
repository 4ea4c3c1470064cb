#pragma once

#include <OVRIXSerialization/Export.h>
#include <OVRIXSerialization/SerializationItem.h>

#include <cstddef>
#include <string_view>

namespace ovrix
{

/// Names of an enumeration's values, which count from 0.
class OVRIXSERIALIZATION_EXPORT EnumerationNames
{
public:
    /// @param names one text per value, of static storage
    template <std::size_t N>
    explicit constexpr EnumerationNames(const char* const (&names)[N]) : _names(names), _nbNames(N)
    {
    }

    /// Name of a value, or null for a value outside of the enumeration.
    template <class E>
    const char* find(E value) const
    {
        return findName(static_cast<int>(value));
    }

    /// Writes a value: by name into a text archive, as `int` into any other.
    ///
    /// @throws std::logic_error for a value outside of the enumeration
    template <class E>
    BaseOArchive& write(BaseOArchive& archive, const SerializationOItem<E>& item) const
    {
        writeValue(archive, item.getName(), static_cast<int>(item.getValue()));
        return archive;
    }

    /// Reads what write() wrote.
    ///
    /// @throws OVRIXSerializationException for an unknown name or value
    template <class E>
    BaseIArchive& read(BaseIArchive& archive, const SerializationIItem<E>& item) const
    {
        item.getValue() = static_cast<E>(readValue(archive, item.getName()));
        return archive;
    }

private:
    const char* findName(int value) const;
    void writeValue(BaseOArchive& archive, std::string_view name, int value) const;
    int readValue(BaseIArchive& archive, std::string_view name) const;

    const char* const* _names;
    std::size_t _nbNames;
};

} // namespace ovrix
