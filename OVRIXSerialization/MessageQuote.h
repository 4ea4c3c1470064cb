#pragma once

#include <string>
#include <string_view>

namespace ovrix
{
namespace details
{

/// What an archive holds, fit to stand in a message: cut to a moderate length, since a broken archive can hold anything.
inline std::string quote(std::string_view text)
{
    constexpr std::size_t maxSize = 200;
    return text.size() <= maxSize ? std::string(text) : std::string(text.substr(0, maxSize)) + "...";
}

} // namespace details
} // namespace ovrix
