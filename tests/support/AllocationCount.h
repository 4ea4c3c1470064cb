#pragma once

#include <cstddef>

namespace ovrix
{
namespace test
{

/// Number of calls of `operator new` so far, in the whole program.
///
/// A program that calls this has its `operator new` and `operator delete` replaced by counting ones.
std::size_t getNbAllocations();

} // namespace test
} // namespace ovrix
