#pragma once

#include <cxxabi.h>

namespace ovrix
{
namespace details
{

/// Performs an operation of a stream, or of its buffer, and keeps what it throws: a stream may have been told to throw,
/// and a buffer may throw anything.
///
/// @return whether nothing was thrown
template <class Operation>
bool performStreamOperation(const Operation& operation)
{
    try
    {
        operation();
        return true;
    }
    catch (const abi::__forced_unwind&)
    {
        throw; // not an exception: the thread is being cancelled
    }
    catch (...)
    {
        return false;
    }
}

} // namespace details
} // namespace ovrix
