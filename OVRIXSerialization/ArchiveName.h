#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace ovrix
{

class BaseArchive;

namespace details
{

/// Checks the length of a name that is written to an archive or read from it, so that what can be written can be read.
///
/// @throws OVRIXSerializationException for a name above BaseArchive::s_maxNameSize bytes
void checkNameSize(std::size_t size, const BaseArchive& archive);

/// The bytes at an address as a number, in the order of this machine.
template <class T>
T loadBytes(const char* p)
{
    T bytes;
    std::memcpy(&bytes, p, sizeof(T));
    return bytes;
}

/// Whether both names hold the same bytes. It is asked for each item: most names are so short that a call of
/// std::memcmp would take longer than their comparison, and so would saving the registers around it.
inline bool areSameNames(std::string_view first, std::string_view second)
{
    const std::size_t size = first.size();
    if (size != second.size())
        return false;
    const auto areSameAt = [&](auto bytes, std::size_t offset)
    {
        using Bytes = decltype(bytes);
        return loadBytes<Bytes>(first.data() + offset) == loadBytes<Bytes>(second.data() + offset);
    };
    if (size >= 8)
    {
        for (std::size_t offset = 0; offset + 8 < size; offset += 8)
            if (!areSameAt(std::uint64_t(), offset))
                return false;
        return areSameAt(std::uint64_t(), size - 8);
    }
    if (size >= 4)
        return areSameAt(std::uint32_t(), 0) && areSameAt(std::uint32_t(), size - 4);
    for (std::size_t i = 0; i < size; ++i)
        if (first[i] != second[i])
            return false;
    return true;
}

} // namespace details
} // namespace ovrix
