#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <new>
#include <support/AllocationCount.h>

namespace
{

std::atomic<std::size_t> g_nbAllocations{0};
std::atomic<std::size_t> g_largestAllocation{0};
std::atomic<std::ptrdiff_t> g_nbUntilFailure{-1}; ///< allocations before the one that fails; negative for none
std::atomic<bool> g_bThrown{false}; ///< whether operator new threw since the last FailingAllocation was made

/// Takes memory and counts it; null where there is none, or is to be none.
void* allocate(std::size_t size)
{
    if (g_nbUntilFailure.load(std::memory_order_relaxed) >= 0 &&
        g_nbUntilFailure.fetch_sub(1, std::memory_order_relaxed) == 0)
        return nullptr;
    g_nbAllocations.fetch_add(1, std::memory_order_relaxed);
    std::size_t largest = g_largestAllocation.load(std::memory_order_relaxed);
    while (size > largest && !g_largestAllocation.compare_exchange_weak(largest, size, std::memory_order_relaxed))
        ;
    return std::malloc(size);
}

} // namespace

void* operator new(std::size_t size)
{
    if (void* const pMemory = allocate(size))
        return pMemory;
    g_bThrown.store(true, std::memory_order_relaxed);
    throw std::bad_alloc();
}

// A sanitizer brings its own of all forms below, which would neither be counted nor fail.
void* operator new[](std::size_t size)
{
    return operator new(size);
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    return allocate(size);
}

void* operator new[](std::size_t size, const std::nothrow_t&) noexcept
{
    return allocate(size);
}

void operator delete(void* pMemory, const std::nothrow_t&) noexcept
{
    std::free(pMemory);
}

void operator delete[](void* pMemory, const std::nothrow_t&) noexcept
{
    std::free(pMemory);
}

void operator delete(void* pMemory) noexcept
{
    std::free(pMemory);
}

void operator delete(void* pMemory, std::size_t) noexcept
{
    std::free(pMemory);
}

void operator delete[](void* pMemory) noexcept
{
    std::free(pMemory);
}

void operator delete[](void* pMemory, std::size_t) noexcept
{
    std::free(pMemory);
}

std::size_t ovrix::test::getNbAllocations()
{
    return g_nbAllocations.load(std::memory_order_relaxed);
}

std::size_t ovrix::test::getLargestAllocation()
{
    return g_largestAllocation.load(std::memory_order_relaxed);
}

void ovrix::test::resetLargestAllocation()
{
    g_largestAllocation.store(0, std::memory_order_relaxed);
}

ovrix::test::FailingAllocation::FailingAllocation(std::size_t nbBefore)
{
    g_bThrown.store(false, std::memory_order_relaxed);
    g_nbUntilFailure.store(static_cast<std::ptrdiff_t>(nbBefore), std::memory_order_relaxed);
}

ovrix::test::FailingAllocation::~FailingAllocation()
{
    g_nbUntilFailure.store(-1, std::memory_order_relaxed);
}

bool ovrix::test::FailingAllocation::hasFailed() const
{
    return g_nbUntilFailure.load(std::memory_order_relaxed) < 0;
}

bool ovrix::test::FailingAllocation::hasThrown() const
{
    return hasFailed() && g_bThrown.load(std::memory_order_relaxed);
}
