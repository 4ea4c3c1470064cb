#include <OVRIXSerialization/TextCheck.h>
#include <OVRIXSerialization/TextForm.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace ovrix
{
namespace details
{

namespace
{

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
