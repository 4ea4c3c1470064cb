#include <OVRIXSerialization/MessageQuote.h>
#include <OVRIXSerialization/TextForm.h>

#include <algorithm>
#include <cstddef>

namespace ovrix
{
namespace details
{

namespace
{

constexpr std::size_t g_maxSize = 200;

bool isPrintable(char character)
{
    return character >= ' ' && character < 0x7F;
}

bool isControl(char character)
{
    return static_cast<unsigned char>(character) < 0x20 || character == 0x7F;
}

} // namespace

void appendQuote(std::string& message, std::string_view text)
{
    if (text.size() <= g_maxSize && std::all_of(text.begin(), text.end(), isPrintable))
    {
        message += text;
        return;
    }
    std::size_t offset = 0;
    while (offset < text.size())
    {
        const std::string_view rest = text.substr(offset);
        const std::size_t length = measureCharacter(rest);
        offset += std::max<std::size_t>(length, 1);
        if (offset > g_maxSize)
        {
            message += "...";
            return;
        }
        if (length == 0 || isControl(rest[0]))
            appendEscaped(message, rest[0]);
        else
            message += rest.substr(0, length);
    }
}

std::string quote(std::string_view text)
{
    std::string message;
    appendQuote(message, text);
    return message;
}

} // namespace details
} // namespace ovrix
