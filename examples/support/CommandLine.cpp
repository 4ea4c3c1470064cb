#include "CommandLine.h"

#include <cstdlib>
#include <exception>
#include <iostream>
#include <stdexcept>

namespace po = boost::program_options;

namespace examples
{

CommandLine::CommandLine(const std::string& program)
    : _program(program), _options("Usage: " + program + " PICTURE [options]\n\nOptions")
{
    _options.add_options()("help,h", "show this text");
}

po::options_description_easy_init CommandLine::addOptions()
{
    return _options.add_options();
}

bool CommandLine::read(int argc, char** argv)
{
    po::options_description all;
    all.add(_options).add_options()("picture", po::value(&_picture));
    po::positional_options_description positional;
    positional.add("picture", 1);

    po::variables_map values;
    po::store(po::command_line_parser(argc, argv).options(all).positional(positional).run(), values);
    po::notify(values);
    if (values.count("help") != 0)
    {
        std::cout << _options;
        return false;
    }
    if (_picture.empty())
        throw std::runtime_error("No picture is given, see " + _program + " --help");
    return true;
}

const std::string& CommandLine::getPicture() const
{
    return _picture;
}

int runProgram(const std::string& program, const std::function<void()>& run)
{
    try
    {
        run();
        return EXIT_SUCCESS;
    }
    catch (const std::exception& exception)
    {
        std::cerr << program << ": " << exception.what() << '\n';
        return EXIT_FAILURE;
    }
}

} // namespace examples
