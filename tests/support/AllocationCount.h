#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <new>

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

/// Allocations of the second of two calls.
template <class Call>
std::size_t countSteadyAllocations(Call&& call)
{
    call();
    const std::size_t nbBefore = getNbAllocations();
    call();
    return getNbAllocations() - nbBefore;
}

/// While one of these lives, a single allocation fails: `operator new` throws std::bad_alloc, or gives null.
class FailingAllocation
{
public:
    /// @param nbBefore allocations from now on that still succeed
    explicit FailingAllocation(std::size_t nbBefore);

    FailingAllocation(const FailingAllocation&) = delete;
    FailingAllocation& operator=(const FailingAllocation&) = delete;

    ~FailingAllocation();

    /// Whether that allocation has come.
    bool hasFailed() const;

    /// Whether that allocation has come and threw; false where it gave null.
    bool hasThrown() const;
};

/// Calls a function on an object with the first of its allocations failing, on another such object with the second, and
/// so on until none fails.
///
/// A call that returns although an allocation threw has swallowed std::bad_alloc, which is a failure of the test. One
/// that returns after an allocation that gave null has made do without that memory, as std::stable_sort can.
///
/// @param make gives the object
/// @param call is called with the object, and lets std::bad_alloc pass
/// @param check is called with the object after each failure that was not swallowed
/// @return number of failures
template <class Make, class Call, class Check>
std::size_t failEachAllocation(const Make& make, const Call& call, const Check& check)
{
    for (std::size_t nbFailures = 0;; ++nbFailures)
    {
        auto object = make();
        try
        {
            const FailingAllocation failing(nbFailures);
            call(object);
            if (!failing.hasFailed())
                return nbFailures;
            if (failing.hasThrown())
            {
                ADD_FAILURE() << "std::bad_alloc did not come out; allocations before it: " << nbFailures;
                continue;
            }
        }
        catch (const std::bad_alloc&)
        {
            // As it should be.
        }
        check(object);
    }
}

} // namespace test
} // namespace ovrix
