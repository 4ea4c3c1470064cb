#include <xxhash.h>

#include <support/BinaryArchiveBytes.h>

namespace ovrix
{
namespace test
{

namespace
{

template <class T>
std::string toLittleEndian(T value)
{
    std::string bytes;
    for (std::size_t i = 0; i < sizeof(T); ++i)
        bytes += static_cast<char>(static_cast<unsigned char>(value >> (8 * i)));
    return bytes;
}

} // namespace

std::string makeBinaryHeader(std::uint32_t version)
{
    return "\x89OVR\r\n\x1A\n" + toLittleEndian(version);
}

std::string makeBinaryFrame(const std::string& content, std::uint32_t number, bool bLast)
{
    const std::uint32_t length = static_cast<std::uint32_t>(content.size()) | (bLast ? 0x80000000u : 0u);
    const std::uint64_t seed = std::uint64_t(number) << 32 | length;
    const std::uint64_t checksum = XXH3_64bits_withSeed(content.data(), content.size(), seed);
    return toLittleEndian(length) + toLittleEndian(checksum) + content;
}

std::string makeBinaryArchive(std::initializer_list<std::string> contents)
{
    std::string bytes = makeBinaryHeader();
    std::uint32_t number = 0;
    for (const std::string& content : contents)
    {
        bytes += makeBinaryFrame(content, number, number + 1 == contents.size());
        ++number;
    }
    return bytes;
}

} // namespace test
} // namespace ovrix
