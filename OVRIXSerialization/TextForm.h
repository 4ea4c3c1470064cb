#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// @file
/// What the two sides of the text archive form agree on; docs/guides/archives.md tells the form as a whole.

namespace ovrix
{
namespace details
{

/// Names of the elements and attributes.
constexpr char g_textRoot[] = "archive";
constexpr char g_textSection[] = "section";
constexpr char g_textItem[] = "item";
constexpr char g_textName[] = "name";
constexpr char g_textType[] = "type";
constexpr char g_textFormat[] = "format";
constexpr char g_textVersion[] = "version";

/// Value of the root's attribute "format".
constexpr char g_textFormatName[] = "OVRIXArchive";

/// Version of the form, value of the root's attribute "version".
constexpr unsigned int g_textVersionNumber = 1;

/// @name Texts of numbers
///
/// A number is the shortest decimal that reads back to the same bits. Infinities are "inf" and "-inf"; the usual NaN is
/// "nan", every other one "nan(...)" with its 64 bits in 16 hexadecimal digits.
/// @{
std::string formatValue(bool value);
std::string formatValue(int value);
std::string formatValue(unsigned int value);
std::string formatValue(long value);
std::string formatValue(unsigned long value);
std::string formatValue(double value);
/// @}

/// @name Numbers of texts
///
/// @return whether the whole text is a value of that type; `value` is left alone otherwise
/// @{
bool parseValue(std::string_view text, bool& value);
bool parseValue(std::string_view text, int& value);
bool parseValue(std::string_view text, unsigned int& value);
bool parseValue(std::string_view text, long& value);
bool parseValue(std::string_view text, unsigned long& value);
bool parseValue(std::string_view text, double& value);
/// @}

/// Length of the XML character that stands first in the text in UTF-8, or 0 when there is none.
///
/// @param text not empty
std::size_t measureCharacter(std::string_view text);

/// Appends a byte as escape() writes those that can't stand for themselves.
void appendEscaped(std::string& text, char byte);

/// The bytes as text that XML can hold: a backslash becomes "\\", line feed, carriage return and tabulator "\n", "\r"
/// and "\t", every other byte that is not part of an XML character in UTF-8 "\x" with two hexadecimal digits.
std::string escape(std::string_view bytes);

/// The bytes that escape() made the text of.
///
/// @return whether all backslashes stand as escape() writes them; `bytes` is left alone otherwise
bool unescape(std::string_view text, std::string& bytes);

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
