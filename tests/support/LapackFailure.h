#pragma once

namespace ovrix
{
namespace test
{

/// What is raised when LAPACK refuses a call or does not come to an end.
constexpr const char* g_lapackText = "LaPack repport an error during execution";

} // namespace test
} // namespace ovrix
