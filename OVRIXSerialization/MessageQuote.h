#pragma once

#include <string>
#include <string_view>

namespace ovrix
{
namespace details
{

/// Appends what an archive holds, fit to stand in a message: at most 200 bytes of it and "..." behind them, since a
/// broken archive can hold anything, and control characters and bytes that are no UTF-8 as the text archive form
/// escapes them.
void appendQuote(std::string& message, std::string_view text);

/// The same as a string of its own.
std::string quote(std::string_view text);

} // namespace details
} // namespace ovrix
