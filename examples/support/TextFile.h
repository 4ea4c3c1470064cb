#pragma once

#include <string>

namespace examples
{

/// A number with as many digits behind the point, rounded.
std::string toText(double value, int nbDigits = 1);

/// Writes a text file.
///
/// @throws std::runtime_error when the file cannot be written
void writeTextFile(const std::string& path, const std::string& content);

/// Writes an SVG picture on a white ground.
///
/// @param width in pixels, as are all lengths of the content
/// @param height in pixels
/// @param style rules of CSS for the elements of the content
/// @param content the elements of the drawing
/// @throws std::runtime_error when the file cannot be written
void writeSvg(const std::string& path, double width, double height, const std::string& style,
              const std::string& content);

} // namespace examples
