#pragma once

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <system_error>

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

/// Reads a number that takes up the whole text. `std::from_chars` takes no blank and no plus sign, and neither does
/// this. `value` is left alone where there is none.
///
/// @param base that of an integer, or nothing
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

/// Whether XML has a character of that code.
bool isXmlCharacter(std::uint32_t code);

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

} // namespace details
} // namespace ovrix
