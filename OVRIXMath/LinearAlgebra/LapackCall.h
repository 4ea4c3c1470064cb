#pragma once

#include <mutex>

namespace ovrix
{
namespace math
{
namespace details
{

/// The right to call LAPACK or BLAS, for as long as the result lives.
///
/// An OpenBLAS that is built for one thread hands the memory that its routines work in out without a lock: two calls at
/// the same time may get the same memory, and their results are wrong then. With such an OpenBLAS one call of the
/// library waits for the other; calls that a program makes itself take no turn. One that is built for threads has locks
/// of its own, and calls do not wait.
std::unique_lock<std::mutex> takeLapackTurn();

/// Calls a routine of LAPACK or BLAS in its turn.
template <class Routine, class... Arguments>
auto callLapack(Routine* routine, Arguments... arguments)
{
    const std::unique_lock<std::mutex> turn = takeLapackTurn();
    return routine(arguments...);
}

} // namespace details
} // namespace math
} // namespace ovrix
