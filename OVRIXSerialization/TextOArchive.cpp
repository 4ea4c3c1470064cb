#include <OVRIXSerialization/ArchiveEntry.h>
#include <OVRIXSerialization/ArchiveName.h>
#include <OVRIXSerialization/OArchiveEnd.h>
#include <OVRIXSerialization/OVRIXSerializationFailure.h>
#include <OVRIXSerialization/StreamWriter.h>
#include <OVRIXSerialization/TextForm.h>
#include <OVRIXSerialization/TextOArchive.h>

#include <pugixml.hpp>

#include <deque>
#include <new>
#include <string>
#include <utility>

namespace ovrix
{

namespace
{

/// The parser's library tells by a false value that memory is short.
void checkMemory(bool bDone)
{
    if (!bDone)
        throw std::bad_alloc();
}

// Elements and attributes get their names by set_name(): what appends them with a name does not tell when there is no
// memory for it, and leaves them without.

void appendAttribute(pugi::xml_node element, const char* name, const std::string& value)
{
    pugi::xml_attribute attribute = element.append_attribute("");
    checkMemory(attribute.set_name(name) && attribute.set_value(value.c_str()));
}

/// Appends an element and fills it; where memory is short nothing is left of it.
template <class Fill>
pugi::xml_node appendElement(pugi::xml_node parent, const char* name, const Fill& fill)
{
    pugi::xml_node element = parent.append_child(pugi::node_element);
    try
    {
        checkMemory(element.set_name(name));
        fill(element);
    }
    catch (...)
    {
        parent.remove_child(element);
        throw;
    }
    return element;
}

/// Hands what the document makes to a stream.
class DocumentWriter : public pugi::xml_writer
{
public:
    explicit DocumentWriter(details::StreamWriter& stream) : _stream(stream) {}

    void write(const void* pData, std::size_t size) override
    {
        _stream.write(pData, size);
    }

private:
    details::StreamWriter& _stream;
};

} // namespace

/// The archive as a tree.
class TextOArchive::Document
{
public:
    Document(std::ostream& stream, const BaseArchive& archive) : _stream(stream, archive), _archive(archive)
    {
        pugi::xml_node declaration = _document.append_child(pugi::node_declaration);
        checkMemory(!declaration.empty());
        appendAttribute(declaration, details::g_textVersion, "1.0");
        appendAttribute(declaration, "encoding", "UTF-8");
        const auto fill = [](pugi::xml_node root)
        {
            appendAttribute(root, details::g_textFormat, details::g_textFormatName);
            appendAttribute(root, details::g_textVersion, details::formatValue(details::g_textVersionNumber));
        };
        _section = appendElement(_document, details::g_textRoot, fill);
    }

    void addItem(eArchiveEntry type, std::string_view name, const std::string& text)
    {
        details::checkNameSize(name.size(), _archive);
        const auto fill = [&](pugi::xml_node item)
        {
            appendAttribute(item, details::g_textName, details::escape(name));
            appendAttribute(item, details::g_textType, getItemTypeName(type));
            if (!text.empty())
                checkMemory(item.text().set(text.c_str()));
        };
        appendElement(_section, details::g_textItem, fill);
    }

    std::string_view openSection(std::string_view name)
    {
        details::checkNameSize(name.size(), _archive);
        const auto fill = [&](pugi::xml_node section)
        {
            appendAttribute(section, details::g_textName, details::escape(name));
            _sectionNames.emplace_back(name);
        };
        _section = appendElement(_section, details::g_textSection, fill);
        return _sectionNames.back();
    }

    void closeSection()
    {
        _section = _section.parent();
        _sectionNames.pop_back();
    }

    void finish()
    {
        DocumentWriter writer(_stream);
        _document.save(writer, "  ", pugi::format_default, pugi::encoding_utf8);
        _stream.flush();
    }

    const details::StreamWriter& getStream() const
    {
        return _stream;
    }

private:
    details::StreamWriter _stream;
    const BaseArchive& _archive;
    pugi::xml_document _document;
    pugi::xml_node _section;
    std::deque<std::string> _sectionNames;
};

TextOArchive::TextOArchive(std::ostream& stream) : BaseOArchive(true), _pDocument(new Document(stream, *this)) {}

TextOArchive::~TextOArchive()
{
    details::finishArchiveQuietly(_pDocument, *this);
}

void TextOArchive::writeItem(std::string_view name, bool value)
{
    getDocument().addItem(eAE_Bool, name, details::formatValue(value));
}

void TextOArchive::writeItem(std::string_view name, int value)
{
    getDocument().addItem(eAE_Int32, name, details::formatValue(value));
}

void TextOArchive::writeItem(std::string_view name, unsigned int value)
{
    getDocument().addItem(eAE_UInt32, name, details::formatValue(value));
}

void TextOArchive::writeItem(std::string_view name, long value)
{
    getDocument().addItem(eAE_Int64, name, details::formatValue(value));
}

void TextOArchive::writeItem(std::string_view name, unsigned long value)
{
    getDocument().addItem(eAE_UInt64, name, details::formatValue(value));
}

void TextOArchive::writeItem(std::string_view name, double value)
{
    getDocument().addItem(eAE_Double, name, details::formatValue(value));
}

void TextOArchive::writeItem(std::string_view name, std::string_view value)
{
    getDocument().addItem(eAE_String, name, details::escape(value));
}

void TextOArchive::writeBlock(const void*, std::size_t)
{
    details::raiseFailure(OVRIX_FAILURE_SITE, 21);
}

void TextOArchive::close()
{
    details::finishArchive(_pDocument, *this);
}

std::string_view TextOArchive::processOpenSection(std::string_view name)
{
    return getDocument().openSection(name);
}

void TextOArchive::processCloseSection()
{
    getDocument().closeSection();
}

TextOArchive::Document& TextOArchive::getDocument()
{
    OVRIXSERIALIZATION_RAISE_UNLESS(_pDocument, 15);
    _pDocument->getStream().check();
    return *_pDocument;
}

} // namespace ovrix
