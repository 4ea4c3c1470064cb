#include <OVRIXSerialization/ArchiveName.h>
#include <OVRIXSerialization/MemoryGrowth.h>
#include <OVRIXSerialization/MessageQuote.h>
#include <OVRIXSerialization/OVRIXSerializationFailure.h>
#include <OVRIXSerialization/StreamReader.h>
#include <OVRIXSerialization/TextCheck.h>
#include <OVRIXSerialization/TextForm.h>
#include <OVRIXSerialization/TextIArchive.h>

#include <pugixml.hpp>

#include <algorithm>
#include <cstring>
#include <deque>
#include <iterator>
#include <new>

namespace ovrix
{

namespace
{

constexpr char g_whiteSpace[] = " \t\r\n";

/// Comments and processing instructions are kept, to be seen where they must not stand.
constexpr unsigned int g_parseOptions = pugi::parse_default | pugi::parse_fragment | pugi::parse_declaration |
                                        pugi::parse_doctype | pugi::parse_comments | pugi::parse_pi |
                                        pugi::parse_ws_pcdata_single;

bool isWhiteSpace(std::string_view text)
{
    return text.find_first_not_of(g_whiteSpace) == std::string_view::npos;
}

/// The node itself, or the first one behind it that means something.
pugi::xml_node skipMeaningless(pugi::xml_node node)
{
    while (node.type() == pugi::node_comment || node.type() == pugi::node_pi ||
           (node.type() == pugi::node_pcdata && isWhiteSpace(node.value())))
        node = node.next_sibling();
    return node;
}

bool isUtf8(std::string_view encoding)
{
    constexpr std::string_view name = "utf-8";
    const auto isSame = [](char letter, char wanted)
    { return letter == wanted || ('A' <= letter && letter <= 'Z' && letter - 'A' + 'a' == wanted); };
    return std::equal(encoding.begin(), encoding.end(), name.begin(), name.end(), isSame);
}

/// The first character of the stream that is not white space; nothing at its end. A byte order mark is skipped.
///
/// @param nbSkipped set to the number of bytes that stand before it
std::string readFirstCharacter(details::StreamReader& reader, std::size_t& nbSkipped)
{
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    std::string text(byteOrderMark.size(), ' ');
    text.resize(reader.read(&text[0], text.size()));
    const std::size_t first = text == byteOrderMark ? text.size() : text.find_first_not_of(g_whiteSpace);
    nbSkipped = std::min(first, text.size());
    text.erase(0, nbSkipped);
    while (text.empty())
    {
        text.resize(1);
        text.resize(reader.read(&text[0], 1));
        if (text.empty() || !isWhiteSpace(text))
            break;
        ++nbSkipped;
        text.clear();
    }
    return text;
}

/// Reads the stream to its end, or until there is a zero byte in what has been read: no text holds one, and the hole of
/// a file gives more of them than memory has room for.
///
/// @param[in,out] text what has been read is put behind it
/// @return whether the end has been reached
bool readRest(details::StreamReader& reader, std::string& text)
{
    const bool bLengthKnown = reader.isLengthKnown();
    const std::size_t firstStep = bLengthKnown ? details::g_firstStepOfFile : details::g_firstStepOfPipe;
    const std::size_t firstRoom = bLengthKnown ? details::g_firstRoomOfFile : details::g_firstStepOfPipe;
    while (true)
    {
        const std::size_t size = text.size();
        const std::size_t step = details::getNextStep(size, reader.getRest(), firstStep);
        text.reserve(details::getCapacity(size, reader.getRest(), step, firstRoom));
        text.resize(size + step);
        const std::size_t nbRead = reader.read(&text[size], step);
        text.resize(size + nbRead);
        if (nbRead < step || reader.getRest() == 0)
            break;
        if (text.find('\0', size) != std::string::npos)
            return false;
    }
    text.shrink_to_fit();
    return true;
}

} // namespace

/// The archive as a tree, and the place in it.
class TextIArchive::Document
{
public:
    Document(std::istream& stream, const BaseArchive& archive) : _archive(archive)
    {
        read(stream);
        parse();
        findRoot();
        _next = skipMeaningless(_section.first_child());
    }

    /// The entry that stands next. It stays the next one until consume().
    ArchiveEntry peek() const
    {
        if (_next.empty())
            return {_archive.getSectionDepth() > 0 ? eAE_SectionEnd : eAE_ArchiveEnd, std::string(), 0};
        checkNode(_next.type() == pugi::node_element, "there is something else than an element");
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
        _next = skipMeaningless(_next.next_sibling());
    }

    std::string_view openSection(const std::string& name)
    {
        const std::string_view kept = _sectionNames.emplace_back(name);
        _section = _next;
        _next = skipMeaningless(_section.first_child());
        return kept;
    }

    void closeSection()
    {
        _sectionNames.pop_back();
        _next = skipMeaningless(_section.next_sibling());
        _section = _section.parent();
    }

    /// Bytes of the text.
    std::size_t getSize() const
    {
        return _text.size();
    }

    /// How many entries follow in the section, counted to `maxCount`.
    std::size_t countEntries(std::size_t maxCount) const
    {
        std::size_t count = 0;
        for (pugi::xml_node node = _next; !node.empty() && count < maxCount; node = node.next_sibling())
            count += node.type() == pugi::node_element;
        return count;
    }

private:
    /// Reads the stream to its end, unless its first character shows that it is no XML.
    void read(std::istream& stream)
    {
        details::StreamReader reader(stream, _archive);
        _text = readFirstCharacter(reader, _nbSkipped);
        OVRIXSERIALIZATION_RAISE_UNLESS(!_text.empty(), 8, "it is empty");
        OVRIXSERIALIZATION_RAISE_UNLESS(_text[0] == '<', 8, "it is no XML");
        _bReadToEnd = readRest(reader, _text);
    }

    /// @param offset place in what was read behind the bytes that were skipped
    [[noreturn]] void raiseMalformed(const std::string& reason, std::size_t offset) const
    {
        details::raiseFailure(OVRIX_FAILURE_SITE, 19, reason, _nbSkipped + offset, _archive.getSectionPath());
    }

    void checkNode(bool bCorrect, const char* reason) const
    {
        if (!bCorrect)
            raiseMalformed(reason, static_cast<std::size_t>(std::max<std::ptrdiff_t>(_next.offset_debug(), 0)));
    }

    void parse()
    {
        const details::TextCheck check = details::checkText(_text);
        const char* reason = check.reason;
        std::size_t offset = check.offset;
        if (!reason)
        {
            const pugi::xml_parse_result result =
                _document.load_buffer_inplace(&_text[0], _text.size(), g_parseOptions, pugi::encoding_utf8);
            if (result)
                return;
            if (result.status == pugi::status_out_of_memory)
                throw std::bad_alloc();
            reason = result.description();
            offset = static_cast<std::size_t>(result.offset);
        }
        OVRIXSERIALIZATION_RAISE_UNLESS(check.bComplete || !_bReadToEnd, 4, "its end", _archive.getSectionPath());
        raiseMalformed(reason, offset);
    }

    void findRoot()
    {
        pugi::xml_node node = skipMeaningless(_document.first_child());
        if (node.type() == pugi::node_declaration)
        {
            const std::string_view encoding = node.attribute("encoding").value();
            OVRIXSERIALIZATION_RAISE_UNLESS(encoding.empty() || isUtf8(encoding), 8, "it is not encoded in UTF-8");
            node = skipMeaningless(node.next_sibling());
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
        const pugi::xml_node behind = skipMeaningless(node.next_sibling());
        OVRIXSERIALIZATION_RAISE_UNLESS(behind.empty(), 23, describe(behind.type()));
        _section = node;
    }

    static const char* describe(pugi::xml_node_type type)
    {
        return type == pugi::node_element ? "an element" : type == pugi::node_pcdata ? "a text" : "something else";
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
    std::string _text; // the tree points into it
    bool _bReadToEnd = false;
    std::size_t _nbSkipped = 0;
    pugi::xml_document _document;
    pugi::xml_node _section;
    pugi::xml_node _next;
    std::deque<std::string> _sectionNames;
};

TextIArchive::TextIArchive(std::istream& stream) : BaseIArchive(true), _pDocument(new Document(stream, *this))
{
    setInputSize(_pDocument->getSize());
}

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

BaseIArchive::BlockGrant TextIArchive::openBlock(std::size_t)
{
    details::raiseFailure(OVRIX_FAILURE_SITE, 21);
}

void TextIArchive::readBlockPart(void*, std::size_t) {} // openBlock() has raised

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
