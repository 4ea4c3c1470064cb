#include <OVRIXSerialization/TextForm.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>

namespace ovrix
{
namespace details
{

namespace
{

constexpr char g_hexDigits[] = "0123456789abcdef";

std::uint64_t getBits(double value)
{
    std::uint64_t bits;
    std::memcpy(&bits, &value, sizeof(bits));
    return bits;
}

double fromBits(std::uint64_t bits)
{
    double value;
    std::memcpy(&value, &bits, sizeof(value));
    return value;
}

template <class T>
std::string formatNumber(T value)
{
    char text[32];
    const std::to_chars_result result = std::to_chars(text, text + sizeof(text), value);
    return std::string(text, result.ptr);
}

} // namespace

bool isXmlCharacter(std::uint32_t code)
{
    return (code >= 0x20 && code < 0xD800) || (code >= 0xE000 && code < 0xFFFE) ||
           (code >= 0x10000 && code < 0x110000) || code == '\t' || code == '\n' || code == '\r';
}

std::string formatValue(bool value)
{
    return value ? "true" : "false";
}

std::string formatValue(int value)
{
    return formatNumber(value);
}

std::string formatValue(unsigned int value)
{
    return formatNumber(value);
}

std::string formatValue(long value)
{
    return formatNumber(value);
}

std::string formatValue(unsigned long value)
{
    return formatNumber(value);
}

std::string formatValue(double value)
{
    if (!std::isnan(value))
        return formatNumber(value);
    std::uint64_t bits = getBits(value);
    if (bits == getBits(std::numeric_limits<double>::quiet_NaN()))
        return "nan";
    std::string text = "nan(0000000000000000)";
    for (std::size_t i = 0; i < 16; ++i, bits >>= 4)
        text[19 - i] = g_hexDigits[bits & 0xF];
    return text;
}

bool parseValue(std::string_view text, bool& value)
{
    if (text != "true" && text != "false")
        return false;
    value = text == "true";
    return true;
}

bool parseValue(std::string_view text, int& value)
{
    return parseNumber(text, value);
}

bool parseValue(std::string_view text, unsigned int& value)
{
    return parseNumber(text, value);
}

bool parseValue(std::string_view text, long& value)
{
    return parseNumber(text, value);
}

bool parseValue(std::string_view text, unsigned long& value)
{
    return parseNumber(text, value);
}

bool parseValue(std::string_view text, double& value)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    if (text == "inf" || text == "-inf")
    {
        value = text == "inf" ? infinity : -infinity;
        return true;
    }
    if (text == "nan")
    {
        value = std::numeric_limits<double>::quiet_NaN();
        return true;
    }
    if (text.size() == 21 && text.substr(0, 4) == "nan(" && text.back() == ')')
    {
        std::uint64_t bits = 0;
        if (!parseNumber(text.substr(4, 16), bits, 16) || !std::isnan(fromBits(bits)))
            return false;
        value = fromBits(bits);
        return true;
    }
    // No other text with these letters is a number, whatever the C++ library makes of it.
    return text.find_first_of("iInN") == std::string_view::npos && parseNumber(text, value);
}

std::size_t measureCharacter(std::string_view text)
{
    const auto first = static_cast<unsigned char>(text[0]);
    if (first < 0x80)
        return isXmlCharacter(first) ? 1 : 0;
    const std::size_t length = first < 0xC0 ? 0 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : first < 0xF8 ? 4 : 0;
    if (length == 0 || text.size() < length)
        return 0;
    std::uint32_t code = first & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i)
    {
        const auto next = static_cast<unsigned char>(text[i]);
        if ((next & 0xC0) != 0x80)
            return 0;
        code = code << 6 | (next & 0x3Fu);
    }
    constexpr std::uint32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    return code >= smallest[length] && isXmlCharacter(code) ? length : 0;
}

void appendEscaped(std::string& text, char byte)
{
    text += '\\';
    switch (byte)
    {
    case '\\':
        text += '\\';
        break;
    case '\n':
        text += 'n';
        break;
    case '\r':
        text += 'r';
        break;
    case '\t':
        text += 't';
        break;
    default:
        text += 'x';
        text += g_hexDigits[static_cast<unsigned char>(byte) >> 4];
        text += g_hexDigits[static_cast<unsigned char>(byte) & 0xF];
    }
}

std::string escape(std::string_view bytes)
{
    std::string text;
    text.reserve(bytes.size());
    while (!bytes.empty())
    {
        std::size_t length = measureCharacter(bytes);
        const char first = bytes[0];
        if (length > 0 && first != '\\' && first != '\n' && first != '\r' && first != '\t')
        {
            text += bytes.substr(0, length);
        }
        else
        {
            appendEscaped(text, first);
            length = 1;
        }
        bytes.remove_prefix(length);
    }
    return text;
}

bool unescape(std::string_view text, std::string& bytes)
{
    std::string result;
    result.reserve(text.size());
    while (!text.empty())
    {
        const std::size_t length = std::min(text.find('\\'), text.size());
        result += text.substr(0, length);
        text.remove_prefix(length);
        if (text.empty())
            break;
        const char kind = text.size() > 1 ? text[1] : '\0';
        unsigned char byte = 0;
        std::size_t size = 2;
        switch (kind)
        {
        case '\\':
            byte = '\\';
            break;
        case 'n':
            byte = '\n';
            break;
        case 'r':
            byte = '\r';
            break;
        case 't':
            byte = '\t';
            break;
        case 'x':
            size = 4;
            if (text.size() < size || !parseNumber(text.substr(2, 2), byte, 16))
                return false;
            break;
        default:
            return false;
        }
        result += static_cast<char>(byte);
        text.remove_prefix(size);
    }
    bytes.swap(result);
    return true;
}

} // namespace details
} // namespace ovrix
