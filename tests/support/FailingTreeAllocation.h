#pragma once

#include <pugixml.hpp>

#include <cstddef>

namespace ovrix
{
namespace test
{

/// While one of these lives, a single allocation fails of those for the trees of text archives: the XML library takes
/// its memory by functions of its own, and gives null where there is none.
class FailingTreeAllocation
{
public:
    /// @param nbBefore allocations from now on that still succeed
    explicit FailingTreeAllocation(std::size_t nbBefore)
    {
        s_previous = pugi::get_memory_allocation_function();
        s_nbUntilFailure = static_cast<std::ptrdiff_t>(nbBefore);
        pugi::set_memory_management_functions(allocate, pugi::get_memory_deallocation_function());
    }

    FailingTreeAllocation(const FailingTreeAllocation&) = delete;
    FailingTreeAllocation& operator=(const FailingTreeAllocation&) = delete;

    ~FailingTreeAllocation()
    {
        pugi::set_memory_management_functions(s_previous, pugi::get_memory_deallocation_function());
    }

    /// Whether that allocation has come.
    bool hasFailed() const
    {
        return s_nbUntilFailure < 0;
    }

private:
    static void* allocate(std::size_t size)
    {
        return s_nbUntilFailure-- == 0 ? nullptr : s_previous(size);
    }

    static inline pugi::allocation_function s_previous = nullptr;
    static inline std::ptrdiff_t s_nbUntilFailure = 0;
};

} // namespace test
} // namespace ovrix
