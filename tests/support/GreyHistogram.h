#pragma once

#include <array>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace ovrix
{
namespace test
{

/// Number of pixels of each grey value.
using GreyHistogram = std::array<unsigned int, 256>;

/// Counts the grey values of a photograph of tests/data/images, a binary PGM with 8 bits a pixel.
inline GreyHistogram readGreyHistogram(const std::string& name)
{
    std::ifstream file(std::string(OVRIX_TEST_DATA_DIR) + "/images/" + name, std::ios::binary);
    std::string magic;
    std::size_t width = 0;
    std::size_t height = 0;
    unsigned int maxValue = 0;
    file >> magic >> width >> height >> maxValue;
    file.get();
    const std::string pixels((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    if (magic != "P5" || maxValue != 255 || pixels.size() != width * height)
        throw std::runtime_error("Cannot read the picture " + name);
    GreyHistogram histogram{};
    for (const char pixel : pixels)
        ++histogram[static_cast<unsigned char>(pixel)];
    return histogram;
}

} // namespace test
} // namespace ovrix
