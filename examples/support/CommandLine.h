#pragma once

#include <boost/program_options.hpp>

#include <functional>
#include <string>

namespace examples
{

/// The command line of a program that works on one picture: `PROGRAM PICTURE [options]`, with --help.
class CommandLine
{
public:
    explicit CommandLine(const std::string& program);

    /// Takes the program's own options, as `boost::program_options` describes them.
    boost::program_options::options_description_easy_init addOptions();

    /// Reads the picture and the options.
    ///
    /// @return whether there is work to do; `false` when the help was asked for, which is then printed
    /// @throws std::exception with one line that says what is wrong with the arguments
    bool read(int argc, char** argv);

    /// The path of the picture.
    const std::string& getPicture() const;

private:
    std::string _program;
    std::string _picture;
    boost::program_options::options_description _options;
};

/// Runs a program and reports what it throws in one line.
///
/// @return the exit status
int runProgram(const std::string& program, const std::function<void()>& run);

} // namespace examples
