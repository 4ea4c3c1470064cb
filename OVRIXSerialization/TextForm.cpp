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

/// Reads a number that takes up the whole text. `std::from_chars` takes no blank and no plus sign, nor does this.
template <class T, class... Base>
bool parseNumber(std::string_view text, T& value, Base... base)
{
    T number;
    const char* const pEnd = text.data() + text.size();
    const std::from_chars_result result = std::from_chars(text.data(), pEnd, number, base...);
    if (result.ec != std::errc() || result.ptr != pEnd)
        return false;
    value = number;
    return true;
}

bool isXmlCharacter(std::uint32_t code)
{
    return (code >= 0x20 && code < 0xD800) || (code >= 0xE000 && code < 0xFFFE) ||
           (code >= 0x10000 && code < 0x110000) || code == '\t' || code == '\n' || code == '\r';
}

/// Whether the text, which begins behind an ampersand, begins with what XML allows there.
bool isReference(std::string_view text)
{
    // Not beyond the next mark: each of many ampersands would be looked behind to the end of the text.
    const std::size_t size = text.find_first_of(";&<");
    if (size == std::string_view::npos || text[size] != ';')
        return false;
    const std::string_view name = text.substr(0, size);
    if (name.substr(0, 1) != "#")
        return name == "amp" || name == "lt" || name == "gt" || name == "quot" || name == "apos";
    std::uint32_t code = 0;
    const bool bHexadecimal = name.substr(0, 2) == "#x";
    return parseNumber(name.substr(bHexadecimal ? 2 : 1), code, bHexadecimal ? 16 : 10) && isXmlCharacter(code);
}

bool startsWith(std::string_view text, std::string_view start)
{
    return text.substr(0, start.size()) == start;
}

bool isMarkInTag(char character)
{
    return character == '>' || character == '"' || character == '\'' || character == '&' || character == '<';
}

/// Looks at the marks of an XML document, see checkText().
class MarkupCheck
{
public:
    explicit MarkupCheck(std::string_view text) : _text(text) {}

    TextCheck perform()
    {
        while (advanceTo([](char character) { return character == '<' || character == '&'; }))
        {
            if (getRest()[0] == '&')
                checkReference();
            else if (startsWith(getRest(), "<!--"))
                skip("<!--", "-->");
            else if (startsWith(getRest(), "<?"))
                skip("<?", "?>");
            else if (startsWith(getRest(), "<!"))
                ++_offset; // a document type or a CDATA section, which text archives don't have
            else
                checkTag();
        }
        return _check;
    }

private:
    std::string_view getRest() const
    {
        return _text.substr(_offset);
    }

    /// Goes on to the next character of that kind.
    ///
    /// @return whether there is one
    template <class IsWanted>
    bool advanceTo(const IsWanted& isWanted)
    {
        const auto found = std::find_if(_text.begin() + static_cast<std::ptrdiff_t>(_offset), _text.end(), isWanted);
        _offset = static_cast<std::size_t>(found - _text.begin());
        return found != _text.end();
    }

    /// Goes behind what begins and ends like that.
    void skip(std::string_view begin, std::string_view end)
    {
        const std::size_t found = _text.find(end, _offset + begin.size());
        _offset = found == std::string_view::npos ? _text.size() : found + end.size();
    }

    void checkReference()
    {
        if (!isReference(getRest().substr(1)))
            refuse("there is a reference to an unknown entity");
        ++_offset;
    }

    void checkTag()
    {
        const std::size_t begin = _offset;
        char quote = 0;
        ++_offset;
        while (advanceTo(isMarkInTag))
        {
            const char character = getRest()[0];
            if (character == '>' && quote == 0)
            {
                countTag(_text.substr(begin, _offset - begin));
                ++_offset;
                return;
            }
            if (character == '&')
            {
                checkReference();
                continue;
            }
            if (character == '<')
                refuse("there is a < inside of a tag");
            else if (character != '>' && quote == 0)
                quote = character;
            else if (character == quote)
                quote = 0;
            ++_offset;
        }
    }

    /// @param tag without its end
    void countTag(std::string_view tag)
    {
        if (startsWith(tag, "</"))
        {
            _depth -= std::min<std::size_t>(_depth, 1);
            _check.bComplete |= _depth == 0 || tag.substr(2) == g_textRoot;
        }
        else if (tag.back() == '/')
        {
            _check.bComplete |= _depth == 0;
        }
        else
        {
            ++_depth;
        }
    }

    void refuse(const char* reason)
    {
        if (_check.reason)
            return;
        _check.reason = reason;
        _check.offset = _offset;
    }

    std::string_view _text;
    std::size_t _offset = 0;
    std::size_t _depth = 0;
    TextCheck _check;
};

} // namespace

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

TextCheck checkText(std::string_view text)
{
    TextCheck check = MarkupCheck(text).perform();
    std::size_t offset = 0;
    while (offset < text.size())
    {
        const std::size_t length = measureCharacter(text.substr(offset));
        if (length == 0)
        {
            check.reason = "there is a byte that is part of no XML character in UTF-8";
            check.offset = offset;
            break;
        }
        offset += length;
    }
    return check;
}

} // namespace details
} // namespace ovrix
