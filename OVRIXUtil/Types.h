#pragma once

#include <cstdint>

namespace ovrix
{

/// Unsigned 32-bit integer: every count, index and size of the public interfaces.
using ovUInt32 = std::uint32_t;

/// 64-bit IEEE floating point: every real value of the public interfaces.
using ovReal64 = double;

/// Boolean.
using ovBool = bool;

} // namespace ovrix
