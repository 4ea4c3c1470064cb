#pragma once

#include <cstddef>

namespace ovrix
{
namespace test
{

/// Number of calls of `operator new` so far, in the whole program.
///
/// A program that calls a function of this header has its `operator new` and `operator delete` replaced by counting
/// ones.
std::size_t getNbAllocations();

/// The largest size that `operator new` has been called with since resetLargestAllocation().
std::size_t getLargestAllocation();

void resetLargestAllocation();

/// While it stands, one call of `operator new` finds no memory: the one behind the next `nbBefore` calls.
class FailingAllocation
{
public:
    explicit FailingAllocation(std::size_t nbBefore);
    ~FailingAllocation();
    FailingAllocation(const FailingAllocation&) = delete;
    FailingAllocation& operator=(const FailingAllocation&) = delete;

    /// Whether that call has come.
    bool hasFailed() const;
};

/// Allocations of the second of two calls.
template <class Call>
std::size_t countSteadyAllocations(Call&& call)
{
    call();
    const std::size_t nbBefore = getNbAllocations();
    call();
    return getNbAllocations() - nbBefore;
}

} // namespace test
} // namespace ovrix
