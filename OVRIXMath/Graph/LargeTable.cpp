#include <OVRIXMath/Graph/LargeTable.h>

#include <cstdlib>
#include <new>
#include <sys/mman.h>

namespace ovrix
{
namespace math
{
namespace details
{

namespace
{

constexpr std::size_t g_cacheLine = 64;
constexpr std::size_t g_largePage = std::size_t(1) << 21;

} // namespace

LargeTable::LargeTable(std::size_t count)
{
    const std::size_t alignment = count * sizeof(double) < 2 * g_largePage ? g_cacheLine : g_largePage;
    const std::size_t size = (count * sizeof(double) + alignment - 1) / alignment * alignment;
    void* memory = std::aligned_alloc(alignment, size);
    if (memory == nullptr)
        throw std::bad_alloc();
    // A wish only: without large pages all works the same.
    if (alignment == g_largePage)
        madvise(memory, size, MADV_HUGEPAGE);
    _elements.reset(static_cast<double*>(memory));
}

void LargeTable::Free::operator()(double* elements) const
{
    std::free(elements);
}

} // namespace details
} // namespace math
} // namespace ovrix
