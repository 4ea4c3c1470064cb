#include <OVRIXSerialization/ArchiveEntry.h>
#include <OVRIXSerialization/MessageQuote.h>

#include <iterator>

namespace ovrix
{

namespace
{

const char* const g_itemTypeNames[] = {"bool", "int32", "uint32", "int64", "uint64", "double", "string"};

} // namespace

const char* getItemTypeName(eArchiveEntry type)
{
    return type >= 0 && static_cast<std::size_t>(type) < std::size(g_itemTypeNames) ? g_itemTypeNames[type] : nullptr;
}

std::string describe(const ArchiveEntry& entry)
{
    switch (entry.type)
    {
    case eAE_Section:
        return "section \"" + details::quote(entry.name) + "\"";
    case eAE_SectionEnd:
        return "the end of the section";
    case eAE_ArchiveEnd:
        return "the end of the archive";
    case eAE_Block:
        return "a block of " + std::to_string(entry.blockSize) + " bytes";
    default:
        return "item \"" + details::quote(entry.name) + "\"";
    }
}

} // namespace ovrix
