#include <OVRIXSerialization/ArchiveName.h>
#include <OVRIXSerialization/MessageQuote.h>
#include <OVRIXSerialization/OVRIXSerializationFailure.h>
#include <OVRIXSerialization/StreamReader.h>
#include <OVRIXSerialization/TextForm.h>
#include <OVRIXSerialization/TextIArchive.h>

#include <pugixml.hpp>

#include <algorithm>
#include <cstring>
#include <deque>
#include <iterator>

namespace ovrix
{

namespace
{

constexpr char g_whiteSpace[] = " \t\r\n";

constexpr unsigned int g_parseOptions = pugi::parse_default | pugi::parse_fragment | pugi::parse_declaration |
                                        pugi::parse_doctype | pugi::parse_ws_pcdata_single;

bool isWhiteSpace(std::string_view text)
{
    return text.find_first_not_of(g_whiteSpace) == std::string_view::npos;
}

/// The node itself, or the first one behind it that is not just white space.
pugi::xml_node skipWhiteSpace(pugi::xml_node node)
{
    while (node.type() == pugi::node_pcdata && isWhiteSpace(node.value()))
        node = node.next_sibling();
    return node;
}

/// Whether that is the last of the text but for white space.
bool endsWith(std::string_view text, std::string_view ending)
{
    const std::size_t size = text.find_last_not_of(g_whiteSpace) + 1;
    return size >= ending.size() && text.substr(size - ending.size(), ending.size()) == ending;
}

/// The rest of the stream, without a byte order mark.
std::string readAll(std::istream& stream)
{
    constexpr char byteOrderMark[] = "\xEF\xBB\xBF";
    details::StreamReader reader(stream);
    std::string text;
    std::size_t size = 0;
    do
    {
        size = text.size();
        text.resize(std::max<std::size_t>(2 * size, 4096)); // no more than what was read vouches for
        text.resize(size + reader.read(&text[size], text.size() - size));
    } while (text.size() > size);
    if (text.compare(0, 3, byteOrderMark) == 0)
        text.erase(0, 3);
    return text;
}

} // namespace

/// The archive as a tree, and the place in it.
class TextIArchive::Document
{
public:
    Document(std::istream& stream, const BaseArchive& archive) : _archive(archive), _text(readAll(stream))
    {
        OVRIXSERIALIZATION_RAISE_UNLESS(!isWhiteSpace(_text), 8, "it is empty");
        parse();
        findRoot();
        _next = skipWhiteSpace(_section.first_child());
    }

    /// The entry that stands next. It stays the next one until consume().
    ArchiveEntry peek() const
    {
        if (_next.empty())
            return {_archive.getSectionDepth() > 0 ? eAE_SectionEnd : eAE_ArchiveEnd, std::string(), 0};
        checkNode(_next.type() == pugi::node_element, "there is text between the elements");
        const bool bSection = std::strcmp(_next.name(), details::g_textSection) == 0;
        checkNode(bSection || std::strcmp(_next.name(), details::g_textItem) == 0, "there is an unknown element");
        checkNode(countAttributes(_next) == (bSection ? 1 : 2), "there is an element with wrong attributes");
        return {bSection ? eAE_Section : getItemType(), getName(), 0};
    }

    /// The text of the item that stands next.
    std::string_view getText() const
    {
        const pugi::xml_node content = _next.first_child();
        if (content.empty())
            return std::string_view();
        checkNode(content.type() == pugi::node_pcdata && content.next_sibling().empty(),
                  "there is an item that holds something else than a text");
        return content.value();
    }

    void consume()
    {
        _next = skipWhiteSpace(_next.next_sibling());
    }

    std::string_view openSection(const std::string& name)
    {
        _section = _next;
        _next = skipWhiteSpace(_section.first_child());
        return _sectionNames.emplace_back(name);
    }

    void closeSection()
    {
        _sectionNames.pop_back();
        _next = skipWhiteSpace(_section.next_sibling());
        _section = _section.parent();
    }

    /// How many entries follow in the section, counted to `maxCount`.
    std::size_t countEntries(std::size_t maxCount) const
    {
        std::size_t count = 0;
        for (pugi::xml_node node = _next; !node.empty() && count < maxCount; node = node.next_sibling())
            ++count;
        return count;
    }

private:
    [[noreturn]] void raiseMalformed(const std::string& reason, std::size_t offset) const
    {
        details::raise<details::OVRIXSerializationFailures, eOVRIXSerializationMessage::domain>(
            OVRIX_FAILURE_SITE, 19, reason, offset, _archive.getSectionPath());
    }

    void checkNode(bool bCorrect, const char* reason) const
    {
        if (!bCorrect)
            raiseMalformed(reason, static_cast<std::size_t>(std::max<std::ptrdiff_t>(_next.offset_debug(), 0)));
    }

    void parse()
    {
        OVRIXSERIALIZATION_RAISE_UNLESS(_text[_text.find_first_not_of(g_whiteSpace)] == '<', 8, "it is no XML");
        const bool bComplete = endsWith(_text, "</" + std::string(details::g_textRoot) + ">");
        std::size_t offset = 0;
        const char* reason = details::findForbidden(_text, offset);
        if (!reason)
        {
            const pugi::xml_parse_result result =
                _document.load_buffer_inplace(&_text[0], _text.size(), g_parseOptions, pugi::encoding_utf8);
            if (result)
                return;
            reason = result.description();
            offset = static_cast<std::size_t>(result.offset);
        }
        OVRIXSERIALIZATION_RAISE_UNLESS(bComplete, 4, "its end", _archive.getSectionPath());
        raiseMalformed(reason, offset);
    }

    void findRoot()
    {
        pugi::xml_node node = skipWhiteSpace(_document.first_child());
        if (node.type() == pugi::node_declaration)
        {
            const std::string_view encoding = node.attribute("encoding").value();
            OVRIXSERIALIZATION_RAISE_UNLESS(encoding.empty() || encoding == "UTF-8" || encoding == "utf-8", 8,
                                            "it is not encoded in UTF-8");
            node = skipWhiteSpace(node.next_sibling());
        }
        const std::string_view format = node.attribute(details::g_textFormat).value();
        OVRIXSERIALIZATION_RAISE_UNLESS(std::strcmp(node.name(), details::g_textRoot) == 0 &&
                                            format == details::g_textFormatName,
                                        8, "it does not begin with the root element of text archives");
        unsigned int version = 0;
        const bool bVersion = details::parseValue(node.attribute(details::g_textVersion).value(), version);
        OVRIXSERIALIZATION_RAISE_UNLESS(bVersion && version > 0, 8, "it has no valid format version");
        OVRIXSERIALIZATION_RAISE_UNLESS(version <= details::g_textVersionNumber, 9, version,
                                        details::g_textVersionNumber);
        const pugi::xml_node behind = skipWhiteSpace(node.next_sibling());
        OVRIXSERIALIZATION_RAISE_UNLESS(behind.empty(), 23,
                                        behind.type() == pugi::node_element ? "an element" : "a text");
        _section = node;
    }

    static std::ptrdiff_t countAttributes(pugi::xml_node node)
    {
        return std::distance(node.attributes_begin(), node.attributes_end());
    }

    std::string getName() const
    {
        const pugi::xml_attribute attribute = _next.attribute(details::g_textName);
        std::string name;
        checkNode(!attribute.empty() && details::unescape(attribute.value(), name),
                  "there is an element without a valid name");
        details::checkNameSize(name.size(), _archive);
        return name;
    }

    eArchiveEntry getItemType() const
    {
        const std::string_view typeName = _next.attribute(details::g_textType).value();
        int type = eAE_Bool;
        while (type != eAE_Block && typeName != getItemTypeName(static_cast<eArchiveEntry>(type)))
            ++type;
        checkNode(type != eAE_Block, "there is an item without a valid type");
        return static_cast<eArchiveEntry>(type);
    }

    const BaseArchive& _archive;
    std::string _text;
    pugi::xml_document _document;
    pugi::xml_node _section;
    pugi::xml_node _next;
    std::deque<std::string> _sectionNames;
};

TextIArchive::TextIArchive(std::istream& stream) : BaseIArchive(true), _pDocument(new Document(stream, *this)) {}

TextIArchive::~TextIArchive() = default;

void TextIArchive::readItem(std::string_view name, bool& value)
{
    readValue(eAE_Bool, name, value);
}

void TextIArchive::readItem(std::string_view name, int& value)
{
    readValue(eAE_Int32, name, value);
}

void TextIArchive::readItem(std::string_view name, unsigned int& value)
{
    readValue(eAE_UInt32, name, value);
}

void TextIArchive::readItem(std::string_view name, long& value)
{
    readValue(eAE_Int64, name, value);
}

void TextIArchive::readItem(std::string_view name, unsigned long& value)
{
    readValue(eAE_UInt64, name, value);
}

void TextIArchive::readItem(std::string_view name, double& value)
{
    readValue(eAE_Double, name, value);
}

void TextIArchive::readItem(std::string_view name, std::string& value)
{
    const std::string_view text = takeItem(eAE_String, name);
    OVRIXSERIALIZATION_RAISE_UNLESS(details::unescape(text, value), 3, details::quote(name), details::quote(text),
                                    getItemTypeName(eAE_String), getSectionPath());
}

void TextIArchive::checkRemainingSize(std::size_t count, std::size_t)
{
    const std::size_t maxCount = _pDocument->countEntries(count);
    OVRIXSERIALIZATION_RAISE_UNLESS(count <= maxCount, 6, count, maxCount, getSectionPath());
}

ArchiveEntry TextIArchive::peekEntry()
{
    return _pDocument->peek();
}

std::size_t TextIArchive::openBlock(std::size_t)
{
    OVRIXSERIALIZATION_RAISE_UNLESS(!isText(), 21);
    return 0;
}

void TextIArchive::readBlockPart(void*, std::size_t) {}

std::string_view TextIArchive::processOpenSection(std::string_view name)
{
    const ArchiveEntry entry = peekEntry();
    OVRIXSERIALIZATION_RAISE_UNLESS(entry.type == eAE_Section && entry.name == name, 0, details::quote(name),
                                    describe(entry), getSectionPath());
    return _pDocument->openSection(entry.name);
}

void TextIArchive::processCloseSection()
{
    const ArchiveEntry entry = peekEntry();
    OVRIXSERIALIZATION_RAISE_UNLESS(entry.type == eAE_SectionEnd, 14, getSectionPath(), describe(entry));
    _pDocument->closeSection();
}

std::string_view TextIArchive::takeItem(eArchiveEntry type, std::string_view name)
{
    const ArchiveEntry entry = peekEntry();
    const char* const typeName = getItemTypeName(entry.type);
    OVRIXSERIALIZATION_RAISE_UNLESS(typeName && entry.name == name, 1, details::quote(name), describe(entry),
                                    getSectionPath());
    OVRIXSERIALIZATION_RAISE_UNLESS(entry.type == type, 2, details::quote(name), getItemTypeName(type), typeName,
                                    getSectionPath());
    const std::string_view text = _pDocument->getText();
    _pDocument->consume();
    return text;
}

template <class T>
void TextIArchive::readValue(eArchiveEntry type, std::string_view name, T& value)
{
    const std::string_view text = takeItem(type, name);
    OVRIXSERIALIZATION_RAISE_UNLESS(details::parseValue(text, value), 3, details::quote(name), details::quote(text),
                                    getItemTypeName(type), getSectionPath());
}

} // namespace ovrix
