#pragma once

#include <OVRIXMath/Export.h>

#include <cstddef>
#include <cstdint>
#include <cstring>

/// @file
/// Loops over several independent results at once. For the library's own sources.
///
/// A kernel is a class with a static function template `run<Lanes>`, always inlined, that works on packs of `Lanes`
/// doubles. runKernel() calls it with the widest packs that the processor at hand has. Each lane does what the plain
/// loop does for its element, in the same order and without fused operations, so that the width changes the speed and
/// nothing else.
///
/// ```cpp
/// struct Subtract
/// {
///     template <int Lanes>
///     [[gnu::always_inline]] static inline void run(double* values, std::size_t paddedCount, double amount)
///     {
///         for (std::size_t i = 0; i < paddedCount; i += Lanes)
///         {
///             typename Pack<Lanes>::Reals value;
///             loadPack(value, values + i);
///             value -= amount;
///             storePack(values + i, value);
///         }
///     }
/// };
/// runKernel<Subtract>(values, paddedCount, 1.0);
/// ```

namespace ovrix
{
namespace math
{
namespace details
{

/// Elements that are processed side by side. Comparing packs gives longs, all bits of a lane set for true.
template <int Lanes>
struct Pack
{
    typedef double Reals __attribute__((vector_size(Lanes * sizeof(double))));
    typedef std::int64_t Longs __attribute__((vector_size(Lanes * sizeof(double))));
};

/// Largest number of doubles in a pack.
constexpr std::size_t g_maxLanes = 4;

/// The next multiple of `multiple` that is not below the size.
constexpr std::size_t paddedSize(std::size_t size, std::size_t multiple = g_maxLanes)
{
    return (size + multiple - 1) / multiple * multiple;
}

/// Reads a pack from memory of any alignment. Packs are passed by reference only: by value they would need the
/// registers of the wider instruction sets in the interface of a function.
template <class AnyPack, class Element>
[[gnu::always_inline]] inline void loadPack(AnyPack& pack, const Element* source)
{
    static_assert(sizeof(pack[0]) == sizeof(Element), "The pack has elements of another size");
    std::memcpy(&pack, source, sizeof(pack));
}

/// Writes a pack to memory of any alignment.
template <class AnyPack, class Element>
[[gnu::always_inline]] inline void storePack(Element* target, const AnyPack& pack)
{
    static_assert(sizeof(pack[0]) == sizeof(Element), "The pack has elements of another size");
    std::memcpy(target, &pack, sizeof(pack));
}

/// The lanes' numbers, from 0.
template <int Lanes>
[[gnu::always_inline]] inline void setLaneNumbers(typename Pack<Lanes>::Longs& pack)
{
    for (int lane = 0; lane < Lanes; ++lane)
        pack[lane] = lane;
}

/// All bits that are set in some lane.
template <int Lanes>
[[gnu::always_inline]] inline std::int64_t anyBits(const typename Pack<Lanes>::Longs& pack)
{
    std::int64_t bits = 0;
    for (int lane = 0; lane < Lanes; ++lane)
        bits |= pack[lane];
    return bits;
}

template <class Kernel, class... Arguments>
auto runKernelOn2Lanes(Arguments... arguments)
{
    return Kernel::template run<2>(arguments...);
}

#ifdef __x86_64__

template <class Kernel, class... Arguments>
[[gnu::target("avx2")]] auto runKernelOn4Lanes(Arguments... arguments)
{
    return Kernel::template run<4>(arguments...);
}

#endif

/// Whether kernels run with AVX2: once the library is loaded, if the processor has it. The library's tests set it to
/// false before anything runs, to see the same results.
extern OVRIXMATH_EXPORT bool g_bAvx2;

/// Runs a kernel with the widest packs that the processor has: AVX2's, or those of plain x86-64.
template <class Kernel, class... Arguments>
auto runKernel(Arguments... arguments)
{
#ifdef __x86_64__
    if (g_bAvx2)
        return runKernelOn4Lanes<Kernel>(arguments...);
#endif
    return runKernelOn2Lanes<Kernel>(arguments...);
}

} // namespace details
} // namespace math
} // namespace ovrix
