#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>

namespace ovrix
{
namespace test
{

/// The header of a binary archive.
std::string makeBinaryHeader(std::uint32_t version = 1);

/// A frame of a binary archive with a right checksum.
///
/// @param number how many frames stand before it
std::string makeBinaryFrame(const std::string& content, std::uint32_t number, bool bLast);

/// A binary archive of those contents, a frame for each.
std::string makeBinaryArchive(std::initializer_list<std::string> contents);

} // namespace test
} // namespace ovrix
