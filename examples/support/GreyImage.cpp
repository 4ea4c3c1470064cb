#include "GreyImage.h"

#include <OVRIXMath/Tools/MathUtils.h>

#include <boost/crc.hpp>
#include <boost/gil.hpp>
#include <boost/gil/extension/io/png.hpp>
#include <boost/gil/extension/io/pnm.hpp>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <limits>
#include <sstream>
#include <stdexcept>

namespace examples
{

namespace
{

namespace gil = boost::gil;

constexpr std::size_t g_gap = 8;

std::string readFile(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream content;
    content << file.rdbuf();
    if (!file.is_open() || file.bad() || std::filesystem::is_directory(path))
        throw std::runtime_error(path + " can't be read");
    if (content.str().empty())
        throw std::runtime_error(path + " is empty");
    return content.str();
}

bool isPng(const std::string& content)
{
    return content.compare(0, 8, "\x89PNG\r\n\x1a\n") == 0;
}

std::uint32_t readBigEndian(const std::string& content, std::size_t position)
{
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < 4; ++i)
        value = value << 8 | static_cast<unsigned char>(content[position + i]);
    return value;
}

/// Whether the chunks of a PNG follow each other up to the end mark, each with the right checksum. What is checked here
/// never reaches libpng, which would print a line of its own.
bool isWholePng(const std::string& content)
{
    constexpr std::size_t frame = 12; // length, type and checksum around the data
    for (std::size_t position = 8; content.size() - position >= frame;)
    {
        const std::size_t length = readBigEndian(content, position);
        if (length > content.size() - position - frame)
            return false;
        boost::crc_32_type checksum;
        checksum.process_bytes(content.data() + position + 4, length + 4);
        if (checksum.checksum() != readBigEndian(content, position + 8 + length))
            return false;
        if (content.compare(position + 4, 4, "IEND") == 0)
            return true;
        position += frame + length;
    }
    return false;
}

bool isPgm(const std::string& content)
{
    return content.size() > 2 && content[0] == 'P' && (content[1] == '2' || content[1] == '5');
}

/// What the file says of itself, before memory is taken for its pixels.
struct Header
{
    std::size_t width;
    std::size_t height;
    bool bGrey;
    bool bEightBits;
};

Header readHeader(std::istream& stream, gil::png_tag)
{
    const auto info = gil::read_image_info(stream, gil::image_read_settings<gil::png_tag>())._info;
    return {info._width, info._height, info._color_type == PNG_COLOR_TYPE_GRAY, info._bit_depth == 8};
}

/// The next number of a PGM header; comments run from # to the end of their line.
std::size_t readNumber(std::istream& stream)
{
    while ((stream >> std::ws).peek() == '#')
        stream.ignore(std::numeric_limits<std::streamsize>::max(), '\n');
    std::size_t number = 0;
    stream >> number;
    return number;
}

Header readHeader(std::istream& stream, gil::pnm_tag)
{
    stream.ignore(2);
    const std::size_t width = readNumber(stream);
    const std::size_t height = readNumber(stream);
    const std::size_t maxGrey = readNumber(stream);
    return {width, height, true, stream && maxGrey == 255};
}

/// Least number of bytes that the pixels take in the file: a PNG is compressed, at most about a thousand times.
std::size_t computeMinSize(const Header& header, gil::png_tag)
{
    return header.width * header.height / 1100;
}

std::size_t computeMinSize(const Header& header, gil::pnm_tag)
{
    return header.width * header.height;
}

template <class Format>
GreyImage decode(const std::string& path, const std::string& content, Format format)
{
    std::istringstream headerStream(content);
    const Header header = readHeader(headerStream, format);
    if (!header.bGrey || !header.bEightBits)
        throw std::runtime_error(path + " is not a picture with 8 bits of grey a pixel");
    if (header.width == 0 || header.height == 0)
        throw std::runtime_error(path + " has no pixels");
    const std::size_t maxSize = std::size_t(1) << 31;
    if (header.width > maxSize / header.height)
        throw std::runtime_error(path + " has too many pixels");
    if (content.size() < computeMinSize(header, format))
        throw std::runtime_error(path + " is cut short");

    gil::gray8_image_t decoded;
    std::istringstream stream(content);
    gil::read_image(stream, decoded, format);
    GreyImage image(header.width, header.height);
    const auto target =
        gil::interleaved_view(image.width, image.height, reinterpret_cast<gil::gray8_pixel_t*>(image.pixels.data()),
                              static_cast<std::ptrdiff_t>(image.width));
    gil::copy_pixels(gil::const_view(decoded), target);
    return image;
}

} // namespace

GreyImage readGreyImage(const std::string& path)
{
    const std::string content = readFile(path);
    if (!isPng(content) && !isPgm(content))
        throw std::runtime_error(path + " is not a PNG or PGM picture");
    if (isPng(content) && !isWholePng(content))
        throw std::runtime_error(path + " is damaged");
    try
    {
        return isPng(content) ? decode(path, content, gil::png_tag()) : decode(path, content, gil::pnm_tag());
    }
    catch (const std::ios_base::failure&)
    {
        throw std::runtime_error(path + " is damaged");
    }
}

void writePng(const std::string& path, const GreyImage& image)
{
    const auto view = gil::interleaved_view(image.width, image.height,
                                            reinterpret_cast<const gil::gray8_pixel_t*>(image.pixels.data()),
                                            static_cast<std::ptrdiff_t>(image.width));
    std::ofstream file(path, std::ios::binary);
    if (file)
        gil::write_view(file, view, gil::png_tag());
    file.close();
    if (!file)
        throw std::runtime_error(path + " can't be written");
}

GreyImage placeSideBySide(const std::vector<GreyImage>& images)
{
    std::size_t width = 0;
    std::size_t height = 0;
    for (const GreyImage& image : images)
    {
        width += image.width + (width == 0 ? 0 : g_gap);
        height = std::max(height, image.height);
    }
    GreyImage row(width, height, 255);
    std::size_t left = 0;
    for (const GreyImage& image : images)
    {
        for (std::size_t y = 0; y < image.height; ++y)
            for (std::size_t x = 0; x < image.width; ++x)
                row.at(left + x, y) = image.at(x, y);
        left += image.width + g_gap;
    }
    return row;
}

std::uint8_t toGrey(double value)
{
    return ovrix::math::saturatedRound<unsigned char, double>(value);
}

} // namespace examples
