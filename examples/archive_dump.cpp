// Prints what an archive holds as an indented tree, whoever wrote it and in whichever of the two forms: for a look into
// a file, and to see how far a damaged one can be read and where it breaks.

#include "support/CommandLine.h"

#include <OVRIXSerialization/BinaryIArchive.h>
#include <OVRIXSerialization/SerializationItem.h>
#include <OVRIXSerialization/TextIArchive.h>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <exception>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace
{

using namespace ovrix;

// What goes beyond these is counted, and not printed.
constexpr std::size_t g_maxNbTextBytes = 60;
constexpr std::size_t g_maxNbEqualItems = 8;
constexpr std::size_t g_maxNbBytes = 16;
constexpr std::size_t g_maxNbDoubles = 6;
constexpr std::size_t g_maxNbIndentations = 40;

/// The bytes of a text, those that a terminal might take for a command told by their codes.
std::string escape(std::string_view text)
{
    constexpr char digits[] = "0123456789abcdef";
    std::string escaped;
    for (const char character : text)
    {
        const auto code = static_cast<unsigned char>(character);
        if (character == '\\')
            escaped += "\\\\";
        else if (code >= 0x20 && code < 0x7F)
            escaped += character;
        else if (character == '\n')
            escaped += "\\n";
        else
            escaped += {'\\', 'x', digits[code >> 4], digits[code & 0xF]};
    }
    return escaped;
}

std::string quote(std::string_view text)
{
    if (text.size() <= g_maxNbTextBytes)
        return '"' + escape(text) + '"';
    return '"' + escape(text.substr(0, g_maxNbTextBytes)) + "\"... (" + std::to_string(text.size()) + " bytes)";
}

/// A value as text; a real number as the shortest one that reads back as the same.
template <class T>
std::string format(const T& value)
{
    if constexpr (std::is_same<T, std::string>::value)
        return quote(value);
    else if constexpr (std::is_same<T, bool>::value)
        return value ? "true" : "false";
    else
    {
        char text[32];
        return std::string(text, std::to_chars(std::begin(text), std::end(text), value).ptr);
    }
}

/// Reads the item that stands next, a T of that name.
template <class T>
std::string readAs(BaseIArchive& archive, const std::string& name)
{
    T value{};
    archive >> makeIItem(name, value);
    return format(value);
}

/// Reads the item that stands next.
std::string readItem(BaseIArchive& archive, const ArchiveEntry& item)
{
    switch (item.type)
    {
    case eAE_Bool:
        return readAs<bool>(archive, item.name);
    case eAE_Int32:
        return readAs<int>(archive, item.name);
    case eAE_UInt32:
        return readAs<unsigned int>(archive, item.name);
    case eAE_Int64:
        return readAs<long>(archive, item.name);
    case eAE_UInt64:
        return readAs<unsigned long>(archive, item.name);
    case eAE_Double:
        return readAs<double>(archive, item.name);
    default:
        return readAs<std::string>(archive, item.name);
    }
}

using Bytes = std::vector<unsigned char>;

/// Reads the block that stands next. The memory grows while the bytes turn out to be there: a damaged archive may claim
/// any size.
Bytes readBlock(BaseIArchive& archive, std::size_t size)
{
    Bytes bytes;
    archive.readArray<unsigned char>(size,
                                     [&bytes](std::size_t count, std::size_t capacity)
                                     {
                                         bytes.reserve(capacity);
                                         bytes.resize(count);
                                         return bytes.data();
                                     });
    return bytes;
}

std::string formatByte(unsigned char byte)
{
    char text[] = "00";
    std::to_chars(byte < 16 ? text + 1 : text, std::end(text), byte, 16);
    return text;
}

/// The number of eight bytes, the lowest of which stands first.
double toDouble(const unsigned char* pBytes)
{
    std::uint64_t bits = 0;
    for (int i = 7; i >= 0; --i)
        bits = bits << 8 | pBytes[i];
    double number;
    std::memcpy(&number, &bits, sizeof(number));
    return number;
}

/// The first of `count` values behind each other.
template <class FormatOne>
std::string listFirst(std::size_t count, std::size_t maxCount, const char* separator, const FormatOne& formatOne)
{
    std::string text;
    for (std::size_t i = 0; i < std::min(count, maxCount); ++i)
        text += (i == 0 ? "" : separator) + formatOne(i);
    return count <= maxCount ? text : text + separator + "...";
}

/// Prints entries one by one, each on a line of its own.
class TreePrinter
{
public:
    explicit TreePrinter(std::ostream& output) : _output(output) {}

    void printSection(std::size_t depth, const std::string& name)
    {
        printLine(depth, "section " + quote(name));
    }

    /// Of items with one name and type that stand behind each other, such as the elements of a vector, the first ones
    /// are printed and the others counted.
    void printItem(std::size_t depth, const ArchiveEntry& item, const std::string& value)
    {
        if (_nbEqualItems == 0 || item.type != _item.type || item.name != _item.name)
        {
            endItems();
            _item = item;
            _itemDepth = depth;
        }
        if (++_nbEqualItems <= g_maxNbEqualItems)
            print(depth, getItemTypeName(item.type) + (' ' + quote(item.name)) + " = " + value);
    }

    /// An archive does not tell what the bytes of a block are. Mostly they are the elements of a vector of doubles.
    void printBlock(std::size_t depth, const Bytes& bytes)
    {
        printLine(depth, "block of " + std::to_string(bytes.size()) + " bytes");
        if (bytes.empty())
            return;
        print(depth + 1,
              listFirst(bytes.size(), g_maxNbBytes, " ", [&](std::size_t i) { return formatByte(bytes[i]); }));
        const std::size_t nbDoubles = bytes.size() / sizeof(double);
        if (nbDoubles * sizeof(double) == bytes.size())
            print(depth + 1, "as doubles: " + listFirst(nbDoubles, g_maxNbDoubles, ", ",
                                                        [&](std::size_t i)
                                                        { return format(toDouble(&bytes[i * sizeof(double)])); }));
    }

    /// Tells how many items were left out; to be called at the end of each section.
    void endItems()
    {
        if (_nbEqualItems > g_maxNbEqualItems)
            print(_itemDepth, "... and " + std::to_string(_nbEqualItems - g_maxNbEqualItems) + " more");
        _nbEqualItems = 0;
    }

private:
    void printLine(std::size_t depth, const std::string& text)
    {
        endItems();
        print(depth, text);
    }

    void print(std::size_t depth, const std::string& text)
    {
        _output << std::string(2 * std::min(depth, g_maxNbIndentations), ' ') << text << '\n';
    }

    std::ostream& _output;
    ArchiveEntry _item{};
    std::size_t _itemDepth = 0;
    std::size_t _nbEqualItems = 0;
};

/// Walks through the archive to its end.
void walk(BaseIArchive& archive, TreePrinter& tree)
{
    while (true)
    {
        const ArchiveEntry entry = archive.peekEntry();
        const std::size_t depth = archive.getSectionDepth();
        switch (entry.type)
        {
        case eAE_ArchiveEnd:
            tree.endItems();
            if (depth > 0)
                archive.closeSection(); // raises: the archive ends within a section
            return;
        case eAE_Section:
            archive.openSection(entry.name);
            tree.printSection(depth, entry.name);
            break;
        case eAE_SectionEnd:
            archive.closeSection();
            tree.endItems();
            break;
        case eAE_Block:
            tree.printBlock(depth, readBlock(archive, entry.blockSize));
            break;
        default:
            tree.printItem(depth, entry, readItem(archive, entry));
        }
    }
}

/// Prints the tree; that of a damaged archive as far as it can be read.
void dump(BaseIArchive& archive)
{
    TreePrinter tree(std::cout);
    try
    {
        walk(archive, tree);
    }
    catch (const std::exception&)
    {
        tree.endItems();
        throw;
    }
}

/// Opens the archive in the form that its first byte tells.
std::unique_ptr<BaseIArchive> openArchive(std::istream& stream)
{
    const bool bBinary = stream.peek() == 0x89;
    stream.clear(stream.rdstate() & ~std::ios::eofbit); // that there is no first byte is for the archive to tell
    if (bBinary)
        return std::make_unique<BinaryIArchive>(stream);
    return std::make_unique<TextIArchive>(stream);
}

/// Reads the command line; there is no file when only the help was asked for.
std::optional<std::string> readFileName(int argc, char** argv)
{
    examples::CommandLine commandLine("archive_dump", "file");
    if (!commandLine.read(argc, argv))
        return std::nullopt;
    return commandLine.getInput();
}

/// Prints the archives of a file: several binary ones can stand behind each other.
void dumpArchives(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw std::runtime_error("It can't be opened");
    do
    {
        const std::unique_ptr<BaseIArchive> pArchive = openArchive(file);
        std::cout << (pArchive->isText() ? "text archive\n" : "binary archive\n");
        dump(*pArchive);
    } while (file.peek() != std::ifstream::traits_type::eof());
}

void dumpFile(const std::string& path)
{
    try
    {
        dumpArchives(path);
        if (!std::cout.flush())
            throw std::runtime_error("What it holds can't be printed");
    }
    catch (const std::exception& exception)
    {
        std::cout.flush(); // what could be read stands in front of what is wrong
        throw std::runtime_error(path + ": " + exception.what());
    }
}

} // namespace

int main(int argc, char** argv)
{
    return examples::runProgram("archive_dump", argc, argv, readFileName, dumpFile);
}
