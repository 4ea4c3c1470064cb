#pragma once

#include <boost/program_options.hpp>

#include <functional>
#include <string>

namespace examples
{

/// The command line of a program that works on one file, `PROGRAM PICTURE [options]`, or on none, with --help.
class CommandLine
{
public:
    /// @param input what the program works on, such as "picture"; empty if it works on nothing
    explicit CommandLine(const std::string& program, const std::string& input = "");

    /// Takes the program's own options, as `boost::program_options` describes them.
    boost::program_options::options_description_easy_init addOptions();

    /// Reads the input, if the program works on one, and the options.
    ///
    /// @return whether there is work to do; `false` when the help was asked for, which is then printed
    /// @throws std::exception with one line that says what is wrong with the arguments
    bool read(int argc, char** argv);

    /// The path of the input.
    const std::string& getInput() const;

private:
    std::string _program;
    std::string _input;
    std::string _path;
    boost::program_options::options_description _options;
};

/// Runs a program and reports what it throws in one line.
///
/// @return the exit status
int runProgram(const std::string& program, const std::function<void()>& run);

/// Runs a program that reads its command line first and then works.
///
/// @param readOptions makes a `std::optional` of the command line, which is empty when there is nothing to do
/// @param work called with what is in it
template <class ReadOptions, class Work>
int runProgram(const std::string& program, int argc, char** argv, const ReadOptions& readOptions, const Work& work)
{
    return runProgram(program,
                      [&]
                      {
                          if (const auto options = readOptions(argc, argv))
                              work(*options);
                      });
}

/// Tells what is being done, to somebody who sits in front of a terminal.
void showStage(const std::string& stage);

} // namespace examples
