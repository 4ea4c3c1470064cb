#pragma once

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
    catch (...)
    {
        return false;
    }
}

} // namespace details
} // namespace ovrix
