#pragma once

namespace ovrix
{
namespace test
{

/// Uses the library in each way whose outcome could hang on static objects of it, and prints a line that starts with
/// `when` and lists what worked.
void useLibrary(const char* when);

} // namespace test
} // namespace ovrix
