#include "TextFile.h"

#include <fstream>
#include <iomanip>
#include <sstream>
#include <stdexcept>

namespace examples
{

std::string toText(double value, int nbDigits)
{
    std::ostringstream text;
    text << std::fixed << std::setprecision(nbDigits) << value;
    return text.str();
}

void writeTextFile(const std::string& path, const std::string& content)
{
    std::ofstream file(path);
    file << content;
    file.close();
    if (!file)
        throw std::runtime_error(path + " can't be written");
}

void writeSvg(const std::string& path, double width, double height, const std::string& style,
              const std::string& content)
{
    std::ostringstream picture;
    picture << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" << width << "\" height=\"" << height
            << "\" viewBox=\"0 0 " << width << ' ' << height << "\">\n<style>" << style << "</style>\n"
            << "<rect width=\"100%\" height=\"100%\" fill=\"#fff\"/>\n"
            << content << "</svg>\n";
    writeTextFile(path, picture.str());
}

} // namespace examples
