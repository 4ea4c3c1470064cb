#include "CommandLine.h"

#include <boost/algorithm/string/case_conv.hpp>

#include <cstdlib>
#include <exception>
#include <iostream>
#include <stdexcept>
#include <unistd.h>

namespace po = boost::program_options;

namespace examples
{

CommandLine::CommandLine(const std::string& program, const std::string& input)
    : _program(program), _input(input),
      _options("Usage: " + program + (input.empty() ? "" : " " + boost::to_upper_copy(input)) + " [options]\n\nOptions")
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
    all.add(_options);
    po::positional_options_description positional;
    if (!_input.empty())
    {
        all.add_options()(_input.c_str(), po::value(&_path));
        positional.add(_input.c_str(), 1);
    }

    po::variables_map values;
    po::store(po::command_line_parser(argc, argv).options(all).positional(positional).run(), values);
    po::notify(values);
    if (values.count("help") != 0)
    {
        std::cout << _options;
        return false;
    }
    if (!_input.empty() && _path.empty())
        throw std::runtime_error("No " + _input + " is given, see " + _program + " --help");
    return true;
}

const std::string& CommandLine::getInput() const
{
    return _path;
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

void showStage(const std::string& stage)
{
    if (isatty(STDERR_FILENO) != 0)
        std::cerr << stage << " ...\n";
}

} // namespace examples
