#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace examples
{

/// A grey picture of 8 bits a pixel, row after row.
struct GreyImage
{
    GreyImage() = default;
    GreyImage(std::size_t imageWidth, std::size_t imageHeight, std::uint8_t grey = 0)
        : width(imageWidth), height(imageHeight), pixels(imageWidth * imageHeight, grey)
    {
    }

    std::uint8_t& at(std::size_t x, std::size_t y)
    {
        return pixels[y * width + x];
    }

    std::uint8_t at(std::size_t x, std::size_t y) const
    {
        return pixels[y * width + x];
    }

    std::size_t width = 0;
    std::size_t height = 0;
    std::vector<std::uint8_t> pixels;
};

/// Reads a PNG or PGM picture with 8 bits of grey a pixel.
///
/// @throws std::runtime_error with one line that says what is wrong with the file
GreyImage readGreyImage(const std::string& path);

/// Writes a PNG picture.
///
/// @throws std::runtime_error when the file cannot be written
void writePng(const std::string& path, const GreyImage& image);

/// Pictures of one height side by side, with a narrow white gap between them.
GreyImage placeSideBySide(const std::vector<GreyImage>& images);

/// The nearest grey value; what lies outside of 0 to 255 becomes the nearer end.
std::uint8_t toGrey(double value);

} // namespace examples
