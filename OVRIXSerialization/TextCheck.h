#pragma once

#include <cstddef>
#include <string_view>

namespace ovrix
{
namespace details
{

/// What the parser of XML does not tell of a document.
struct TextCheck
{
    /// What stands in it that XML forbids and the parser overlooks, or null.
    const char* reason = nullptr;

    /// The place of that.
    std::size_t offset = 0;

    /// Whether it goes to the end of its root element at least.
    bool bComplete = false;
};

/// Looks for bytes that are no XML character in UTF-8, for references to entities other than the five that are
/// predefined and to characters that XML doesn't have, and for tags in tags. Comments and processing instructions may
/// hold ampersands.
TextCheck checkText(std::string_view text);

} // namespace details
} // namespace ovrix
