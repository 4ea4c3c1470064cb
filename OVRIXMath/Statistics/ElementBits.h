#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <vector>

/// @file
/// One bit per element of a sequence, for searches that would mispredict a branch per element in noise. Not part of the
/// interface.

namespace ovrix
{
namespace math
{
namespace details
{

/// The bits of 64 elements, the first one lowest.
using Word = std::uint64_t;

/// The bits of a sequence; those behind its end are clear.
using Bits = std::vector<Word>;

constexpr std::size_t g_wordSize = 64;

/// Number of words for n elements.
constexpr std::size_t countWords(std::size_t n)
{
    return (n + g_wordSize - 1) / g_wordSize;
}

/// The lowest bit of each of 64 bytes, which are 0 or 1.
inline Word packBytes(const unsigned char* pBytes)
{
    Word word = 0;
    for (std::size_t k = 0; k < g_wordSize; k += 8)
    {
        Word bytes = 0;
        for (std::size_t i = 0; i < 8; ++i)
            bytes |= static_cast<Word>(pBytes[k + i]) << 8 * i;
        // Moves bit 8 i to bit 56 + i; no two products meet in one place.
        word |= (bytes * 0x0102040810204080u) >> 56 << k;
    }
    return word;
}

/// The bits of a word, one by one.
struct SingleBits
{
    constexpr SingleBits() : bits()
    {
        for (std::size_t i = 0; i < g_wordSize; ++i)
            bits[i] = Word(1) << i;
    }

    Word bits[g_wordSize];
};

constexpr SingleBits g_singleBits;

/// For which of 64 pairs of elements a relation holds. Written so that the compiler takes several pairs at once: by way
/// of whole words for `double`, of bytes for smaller types.
template <class T, class Relation>
inline Word compareWord(const T* a, const T* b, Relation relation)
{
    if constexpr (std::is_same<T, double>::value)
    {
        Word word = 0;
        for (std::size_t i = 0; i < g_wordSize; ++i)
            word |= relation(a[i], b[i]) ? g_singleBits.bits[i] : 0;
        return word;
    }
    else
    {
        unsigned char bytes[g_wordSize];
        for (std::size_t i = 0; i < g_wordSize; ++i)
            bytes[i] = relation(a[i], b[i]);
        return packBytes(bytes);
    }
}

/// Sets each bit of `path` that can be reached from a set bit through bits of `path`, upwards.
inline Word spreadUp(Word bits, Word path)
{
    if (path == 0)
        return bits;
    for (std::size_t distance = 1; distance < g_wordSize; distance *= 2)
    {
        bits |= path & bits << distance;
        path &= path << distance;
    }
    return bits;
}

/// The same downwards.
inline Word spreadDown(Word bits, Word path)
{
    if (path == 0)
        return bits;
    for (std::size_t distance = 1; distance < g_wordSize; distance *= 2)
    {
        bits |= path & bits >> distance;
        path &= path >> distance;
    }
    return bits;
}

/// Number of set bits, counted in ever larger groups.
inline std::size_t countBits(Word word)
{
    word -= word >> 1 & 0x5555555555555555u;
    word = (word & 0x3333333333333333u) + (word >> 2 & 0x3333333333333333u);
    word = (word + (word >> 4)) & 0x0f0f0f0f0f0f0f0fu;
    return (word * 0x0101010101010101u) >> 56;
}

/// Number of set bits.
inline std::size_t countBits(const Bits& bits)
{
    std::size_t count = 0;
    for (const Word word : bits)
        count += countBits(word);
    return count;
}

inline bool isBitSet(const Bits& bits, std::size_t i)
{
    return (bits[i / g_wordSize] >> i % g_wordSize & 1) != 0;
}

inline void setBit(Bits& bits, std::size_t i)
{
    bits[i / g_wordSize] |= Word(1) << i % g_wordSize;
}

inline void clearBit(Bits& bits, std::size_t i)
{
    bits[i / g_wordSize] &= ~(Word(1) << i % g_wordSize);
}

/// Calls `visit` with the index of each set bit of word number w, ascending.
template <class Visit>
inline void visitBits(Word word, std::size_t w, const Visit& visit)
{
    for (; word != 0; word &= word - 1)
        visit(w * g_wordSize + static_cast<std::size_t>(__builtin_ctzll(word)));
}

} // namespace details
} // namespace math
} // namespace ovrix
