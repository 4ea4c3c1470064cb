#pragma once

#include <OVRIXSerialization/ArchiveEntry.h>
#include <OVRIXSerialization/ByteOrder.h>

#include <cstddef>
#include <cstdint>
#include <cstring>

/// @file
/// What the two sides of the binary archive form agree on; docs/guides/archives.md tells the form as a whole.

namespace ovrix
{
namespace details
{

/// The first bytes of a binary archive. They hold a byte above 127, a line break of each kind and the end-of-file
/// character of old systems, so that a transfer that takes the archive for a text is found out at once.
constexpr unsigned char g_binaryMagic[8] = {0x89, 'O', 'V', 'R', '\r', '\n', 0x1A, '\n'};

/// Version of the form; stands behind the magic number in 4 bytes.
constexpr std::uint32_t g_binaryVersion = 1;

constexpr std::size_t g_binaryHeaderSize = sizeof(g_binaryMagic) + 4;

/// The most bytes that a frame holds.
constexpr std::size_t g_maxFrameSize = std::size_t(1) << 20;

/// A frame's header: the length of its content in 4 bytes, and the checksum of its content in 8.
constexpr std::size_t g_frameHeaderSize = 12;

/// Set in the length of the last frame.
constexpr std::uint32_t g_lastFrameFlag = std::uint32_t(1) << 31;

/// The checksum of a frame's content. It covers the frame's place and its length field as well.
///
/// @param length the length field as it stands in the frame's header
std::uint64_t computeFrameChecksum(const void* pContent, std::uint32_t frameNumber, std::uint32_t length);

/// The byte that stands before an entry.
///
/// @param type any entry but eAE_ArchiveEnd
constexpr char getTag(eArchiveEntry type)
{
    constexpr char tags[] = {'b', 'i', 'u', 'l', 'L', 'd', 's', '#', '{', '}'};
    return tags[type];
}

/// The entry of a tag; eAE_ArchiveEnd for a byte that is none.
constexpr eArchiveEntry findEntry(char tag)
{
    int type = eAE_Bool;
    while (type != eAE_ArchiveEnd && getTag(static_cast<eArchiveEntry>(type)) != tag)
        ++type;
    return static_cast<eArchiveEntry>(type);
}

/// Bytes of the longest number of variable length: 7 bits of a 64-bit value in each.
constexpr std::size_t g_maxVarintSize = 10;

/// Stores the bytes of a number in little-endian order.
template <class T>
void storeLittleEndian(char* p, T value)
{
    std::memcpy(p, &value, sizeof(T));
    if constexpr (!g_bLittleEndian)
        reverseElements(p, 1, sizeof(T));
}

/// The number whose bytes stand in little-endian order.
template <class T>
T loadLittleEndian(const char* p)
{
    T value;
    std::memcpy(&value, p, sizeof(T));
    if constexpr (!g_bLittleEndian)
        reverseElements(&value, 1, sizeof(T));
    return value;
}

/// Stores a number in as few bytes as it takes, 7 bits in each from the lowest on, the top bit set in all but the last.
///
/// @return the address behind it
inline char* storeVarint(char* p, std::uint64_t value)
{
    while (value >= 0x80)
    {
        *p++ = static_cast<char>(static_cast<unsigned char>(value | 0x80));
        value >>= 7;
    }
    *p++ = static_cast<char>(value);
    return p;
}

} // namespace details
} // namespace ovrix
