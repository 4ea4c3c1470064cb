#pragma once

#include <algorithm>
#include <cstddef>

namespace ovrix
{
namespace details
{

/// Whether numbers stand in memory as they stand in a binary archive.
constexpr bool g_bLittleEndian = __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__;

/// Reverses the bytes of each element.
inline void reverseElements(void* pFirst, std::size_t count, std::size_t elementSize)
{
    char* p = static_cast<char*>(pFirst);
    for (char* const pEnd = p + count * elementSize; p != pEnd; p += elementSize)
        std::reverse(p, p + elementSize);
}

} // namespace details
} // namespace ovrix
