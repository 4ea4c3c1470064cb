#pragma once

#include <OVRIXSerialization/Export.h>

#include <cstddef>
#include <string>

namespace ovrix
{

/// What can stand in an archive.
enum eArchiveEntry : int
{
    eAE_Bool,
    eAE_Int32,
    eAE_UInt32,
    eAE_Int64,
    eAE_UInt64,
    eAE_Double,
    eAE_String,
    eAE_Block,
    eAE_Section,
    eAE_SectionEnd,
    eAE_ArchiveEnd
};

/// What stands next in an archive that is being read, see BaseIArchive::peekEntry().
struct ArchiveEntry
{
    /// Its kind.
    eArchiveEntry type;

    /// Name of an item or a section, empty for the rest.
    std::string name;

    /// Bytes of a block, 0 for the rest.
    std::size_t blockSize;
};

/// Name of the type of an item: "bool", "int32", "uint32", "int64", "uint64", "double" or "string"; null for what is
/// not an item.
OVRIXSERIALIZATION_EXPORT const char* getItemTypeName(eArchiveEntry type);

/// An entry in words, for messages.
OVRIXSERIALIZATION_EXPORT std::string describe(const ArchiveEntry& entry);

} // namespace ovrix
