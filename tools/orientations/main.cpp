// Makes, checks and shows the tables of directions that are spread evenly over the sphere.

#include "CoulombEnergy.h"
#include "Evenness.h"
#include "LooseTable.h"
#include "Search.h"
#include "SpherePicture.h"
#include "TableCheck.h"
#include "TableSources.h"
#include "TableText.h"
#include "Vector3.h"

#include <boost/program_options.hpp>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace
{

using namespace ovrix::orientations;
namespace po = boost::program_options;

using Arguments = std::vector<std::string>;

/// Tables of 1 to this many points make a whole set.
constexpr std::size_t g_nbTables = 400;

/// Sets of more points are not looked for.
constexpr std::size_t g_maxNbPoints = 10000;

constexpr double g_maxSeconds = 1e9;

/// Reads sizes as "205-399,12" gives them.
std::vector<std::size_t> readSizes(const std::string& text)
{
    std::vector<std::size_t> sizes;
    std::istringstream stream(text);
    std::string range;
    while (std::getline(stream, range, ','))
    {
        const char* const pEnd = range.data() + range.size();
        std::size_t first = 0;
        auto read = std::from_chars(range.data(), pEnd, first);
        std::size_t last = first;
        if (read.ptr != pEnd && *read.ptr == '-')
            read = std::from_chars(read.ptr + 1, pEnd, last);
        if (read.ec != std::errc() || read.ptr != pEnd || first < 1 || last < first || last > g_maxNbPoints)
            throw std::runtime_error(range + " is no number of points, nor a range of them");
        for (std::size_t size = first; size <= last; ++size)
            sizes.push_back(size);
    }
    return sizes;
}

/// Sizes as readSizes() takes them.
std::string toText(const std::vector<std::size_t>& sizes)
{
    std::ostringstream text;
    for (std::size_t i = 0; i < sizes.size(); ++i)
        text << (i == 0 ? "" : ",") << sizes[i];
    return text.str();
}

/// Reads a command's options and its one argument, the file of the tables.
po::variables_map readOptions(const po::options_description& options, const Arguments& arguments)
{
    po::options_description all;
    all.add(options).add_options()("tables", po::value<std::string>());
    po::positional_options_description positional;
    positional.add("tables", 1);
    po::variables_map values;
    po::store(po::command_line_parser(arguments).options(all).positional(positional).run(), values);
    po::notify(values);
    if (values.count("tables") == 0)
        throw std::runtime_error("The file of the tables is not given, see orientations --help");
    return values;
}

const std::string& getText(const po::variables_map& values, const char* name)
{
    return values[name].as<std::string>();
}

/// A number that counts; an unsigned option would take -1 for a huge one.
std::uint64_t getCount(const po::variables_map& values, const std::string& name)
{
    const std::int64_t count = values[name].as<std::int64_t>();
    if (count < 0)
        throw std::runtime_error("--" + name + " can't be negative");
    return static_cast<std::uint64_t>(count);
}

po::typed_value<std::int64_t>* takeCount()
{
    return po::value<std::int64_t>();
}

const Records& getTable(const Tables& tables, std::size_t nbPoints)
{
    const auto entry = tables.find(nbPoints);
    if (entry == tables.end())
        throw std::runtime_error("There is no table of " + std::to_string(nbPoints) + " directions");
    return entry->second;
}

po::options_description describeSearch()
{
    po::options_description options(
        "search TABLES    looks for tables of lower energy, puts them into the file at once, and "
        "lists size, energy and fall of each. The file is the state of the search: it goes on from there. Several "
        "searches can share it");
    options.add_options()("sizes", po::value<std::string>()->default_value("1-400"), "numbers of points");
    options.add_options()("except", po::value<std::string>()->default_value(toText(getLooseSizes())),
                          "numbers of points to leave out");
    options.add_options()("hops", takeCount()->default_value(100), "hops around a table");
    options.add_options()("rounds", takeCount()->default_value(1),
                          "rounds over all sizes; those of even numbers start from random points");
    options.add_options()("first-round", takeCount()->default_value(1), "number of the first round");
    options.add_options()("seconds", po::value<double>()->default_value(3600.0), "when to end at the latest");
    options.add_options()("seed", takeCount()->default_value(1), "seed of the random generator");
    return options;
}

SearchPlan readPlan(const po::variables_map& values)
{
    SearchPlan plan;
    const std::vector<std::size_t> sizes = readSizes(getText(values, "sizes"));
    if (sizes.empty())
        throw std::runtime_error("There is nothing to search: --sizes names no number of points");
    const std::vector<std::size_t> excepted = readSizes(getText(values, "except"));
    for (const std::size_t size : sizes)
        if (std::find(excepted.begin(), excepted.end(), size) == excepted.end())
            plan.sizes.push_back(size);
    if (plan.sizes.empty())
        throw std::runtime_error("There is nothing to search: --except leaves all sizes out");
    plan.nbHops = getCount(values, "hops");
    plan.nbRounds = getCount(values, "rounds");
    plan.firstRound = getCount(values, "first-round");
    const double seconds = values["seconds"].as<double>();
    if (!(seconds >= 0.0 && seconds <= g_maxSeconds))
        throw std::runtime_error("The search can take from 0 to 1e9 seconds");
    plan.time = std::chrono::duration<double>(seconds);
    plan.seed = getCount(values, "seed");
    return plan;
}

/// A line on the error stream that is written over, twice a second at most.
class ProgressLine
{
public:
    void show(const SearchState& state)
    {
        const auto now = std::chrono::steady_clock::now();
        if (now - _shown < std::chrono::milliseconds(500))
            return;
        _shown = now;
        _bOpen = true;
        std::cerr << std::fixed << std::setprecision(6) << "\rround " << state.round << "  N " << state.nbPoints
                  << "  hop " << state.hop << "  energy " << state.energy << "   " << std::flush;
    }

    /// What is written next stands on a line of its own.
    void end()
    {
        if (_bOpen)
            std::cerr << std::endl;
        _bOpen = false;
    }

private:
    std::chrono::steady_clock::time_point _shown = std::chrono::steady_clock::now();
    bool _bOpen = false;
};

/// Puts the new table of that size into the file, unless another search has put a better one there.
void keepTable(const std::string& path, std::size_t size, const Records& table)
{
    const auto keepBetter = [&](Tables& stored)
    {
        const auto entry = stored.find(size);
        if (entry == stored.end() || computeExactEnergy(table) < computeExactEnergy(entry->second))
            stored[size] = table;
    };
    changeTables(path, keepBetter);
}

void runSearch(const Arguments& arguments)
{
    const po::variables_map values = readOptions(describeSearch(), arguments);
    const std::string path = getText(values, "tables");
    const SearchPlan plan = readPlan(values);
    Tables tables;
    changeTables(path,
                 [&](Tables& stored) { tables = stored; }); // a file that can't be written is told before the work

    ProgressLine progress;
    const auto keep = [&](const SearchState& state)
    {
        keepTable(path, state.nbPoints, tables.at(state.nbPoints));
        progress.end();
        std::cout << std::fixed << std::setprecision(9) << state.nbPoints << ' ' << state.energy << ' ' << state.fall
                  << std::endl;
    };
    search(
        tables, plan, [&](const SearchState& state) { progress.show(state); }, keep);
    progress.end();
}

po::options_description describeLoosen()
{
    po::options_description options("loosen TABLES    sets one table out of its minimum, up to an energy");
    options.add_options()("size", takeCount()->required(), "number of points");
    options.add_options()("energy", po::value<double>()->required(), "energy of the table, to nine decimals");
    options.add_options()("seed", takeCount()->default_value(1), "seed of the random generator");
    return options;
}

void runLoosen(const Arguments& arguments)
{
    const po::variables_map values = readOptions(describeLoosen(), arguments);
    const std::size_t size = getCount(values, "size");
    Generator generator(getCount(values, "seed"));
    const auto loosen = [&](Tables& tables)
    { tables[size] = makeLooseTable(getTable(tables, size), values["energy"].as<double>(), generator); };
    changeExistingTables(getText(values, "tables"), loosen);
}

po::options_description describeCheck()
{
    po::options_description options(
        "check TABLES     tells energy, smallest distance and longest gradient of each table, "
        "and what is wrong");
    options.add_options()("energies", po::value<std::string>(), "list of the energies that the tables should have");
    return options;
}

void runCheck(const Arguments& arguments)
{
    const po::variables_map values = readOptions(describeCheck(), arguments);
    const Tables tables = readTables(getText(values, "tables"));
    std::cout << "  N            energy    distance    gradient\n";
    for (const auto& [size, records] : tables)
    {
        const TableReport report = checkTable(size, records);
        std::cout << std::setw(3) << size << std::fixed << std::setprecision(9) << std::setw(18) << report.energy
                  << std::setprecision(6) << std::setw(12) << report.smallestDistance << std::scientific
                  << std::setprecision(1) << std::setw(12) << report.gradient << '\n';
    }
    std::vector<std::string> faults = checkTables(tables, g_nbTables);
    if (values.count("energies") != 0)
    {
        std::ifstream list(getText(values, "energies"));
        const std::vector<std::string> others = checkEnergies(tables, list);
        faults.insert(faults.end(), others.begin(), others.end());
    }
    for (const std::string& fault : faults)
        std::cerr << fault << '\n';
    if (!faults.empty())
        throw std::runtime_error(std::to_string(faults.size()) + " faults");
}

po::options_description describeEnergies()
{
    return po::options_description("energies TABLES  lists the number of points and the energy of each table");
}

void runEnergies(const Arguments& arguments)
{
    const Tables tables = readTables(getText(readOptions(describeEnergies(), arguments), "tables"));
    std::cout << std::fixed << std::setprecision(9);
    for (const auto& [size, records] : tables)
        std::cout << size << ' ' << computeExactEnergy(records) << '\n';
}

po::options_description describeSources()
{
    po::options_description options("sources TABLES   writes the C++ sources of the tables");
    options.add_options()("folder", po::value<std::string>()->required(), "folder to write to");
    return options;
}

void runSources(const Arguments& arguments)
{
    const po::variables_map values = readOptions(describeSources(), arguments);
    writeSources(readTables(getText(values, "tables")), g_nbTables, getText(values, "folder"));
}

po::options_description describeEvenness()
{
    po::options_description options(
        "evenness TABLES  compares smallest angle and largest hole with a spiral's and with "
        "those of random points");
    options.add_options()("sizes", po::value<std::string>()->default_value("12,32,50,100,200,400"),
                          "numbers of points");
    options.add_options()("seed", takeCount()->default_value(1), "seed of the random generator");
    return options;
}

/// Fewer than two points have no distance.
void expectPair(std::size_t size)
{
    if (size < 2)
        throw std::runtime_error("Sets should have at least 2 points");
}

void printEvenness(const SphereDivision& division)
{
    constexpr double degrees = 180.0 / g_pi;
    std::cout << " | " << degrees * division.smallestAngle << " | " << degrees * division.largestHole;
}

/// Mean of smallest angle and of largest hole over a hundred random sets.
SphereDivision averageRandomSets(std::size_t nbPoints, Generator& generator)
{
    constexpr int nbSets = 100;
    SphereDivision mean;
    for (int i = 0; i < nbSets; ++i)
    {
        const SphereDivision division = divideSphere(drawPoints(nbPoints, generator));
        mean.smallestAngle += division.smallestAngle / nbSets;
        mean.largestHole += division.largestHole / nbSets;
    }
    return mean;
}

void runEvenness(const Arguments& arguments)
{
    const po::variables_map values = readOptions(describeEvenness(), arguments);
    const Tables tables = readTables(getText(values, "tables"));
    const std::vector<std::size_t> sizes = readSizes(getText(values, "sizes"));
    std::for_each(sizes.begin(), sizes.end(), expectPair);
    Generator generator(getCount(values, "seed"));
    std::cout << std::fixed << std::setprecision(1)
              << "| n | table: angle | hole | spiral: angle | hole | random: angle | hole |\n"
                 "|---|---|---|---|---|---|---|\n";
    for (const std::size_t size : sizes)
    {
        std::cout << "| " << size;
        printEvenness(divideSphere(PointSet(getTable(tables, size))));
        printEvenness(divideSphere(makeFibonacciSpiral(size)));
        printEvenness(averageRandomSets(size, generator));
        std::cout << " |\n";
    }
}

po::options_description describePicture()
{
    po::options_description options("picture TABLES   draws sets of directions beside each other, as an SVG");
    options.add_options()("sets", po::value<std::string>()->default_value("12,32,100,400"),
                          "numbers of points; spiral:400 and random:400 are the spiral and a random set");
    options.add_options()("seed", takeCount()->default_value(1), "seed of the random generator");
    options.add_options()("output", po::value<std::string>()->required(), "SVG to write");
    return options;
}

Panel makePanel(const std::string& set, const Tables& tables, Generator& generator)
{
    const std::size_t colon = set.find(':');
    const std::string kind = colon == std::string::npos ? "" : set.substr(0, colon);
    const std::string number = colon == std::string::npos ? set : set.substr(colon + 1);
    const std::vector<std::size_t> sizes = readSizes(number);
    if (sizes.size() == 1)
    {
        const std::size_t size = sizes.front();
        expectPair(size);
        if (kind == "spiral")
            return {makeFibonacciSpiral(size), number + " on a spiral"};
        if (kind == "random")
            return {drawPoints(size, generator), number + " at random"};
        if (colon == std::string::npos)
            return {PointSet(getTable(tables, size)), number + " directions"};
    }
    throw std::runtime_error("\"" + set + "\" is no set: give a number of points, spiral:number or random:number");
}

void runPicture(const Arguments& arguments)
{
    const po::variables_map values = readOptions(describePicture(), arguments);
    const Tables tables = readTables(getText(values, "tables"));
    Generator generator(getCount(values, "seed"));
    std::vector<Panel> panels;
    std::istringstream sets(getText(values, "sets"));
    std::string set;
    while (std::getline(sets, set, ','))
        panels.push_back(makePanel(set, tables, generator));
    const std::string path = getText(values, "output");
    std::ofstream stream(path);
    drawSpheres(panels, stream);
    stream.close();
    if (!stream)
        throw std::runtime_error(path + " can't be written");
}

struct Command
{
    const char* name;
    po::options_description (*describe)();
    void (*run)(const Arguments& arguments);
};

const Command g_commands[] = {{"search", describeSearch, runSearch},    {"loosen", describeLoosen, runLoosen},
                              {"check", describeCheck, runCheck},       {"energies", describeEnergies, runEnergies},
                              {"sources", describeSources, runSources}, {"evenness", describeEvenness, runEvenness},
                              {"picture", describePicture, runPicture}};

bool isHelp(const std::string& argument)
{
    return argument == "--help" || argument == "-h";
}

void printHelp()
{
    std::cout << "Usage: orientations COMMAND TABLES [options]\n\nTABLES is a file in the form of tables.txt.\n";
    for (const Command& command : g_commands)
        std::cout << '\n' << command.describe();
}

void runCommand(const std::string& name, const Arguments& arguments)
{
    const auto isNamed = [&](const Command& command) { return command.name == name; };
    const auto pCommand = std::find_if(std::begin(g_commands), std::end(g_commands), isNamed);
    if (pCommand == std::end(g_commands))
        throw std::runtime_error("Unknown command " + name + ", see orientations --help");
    if (std::any_of(arguments.begin(), arguments.end(), isHelp))
        std::cout << pCommand->describe();
    else
        pCommand->run(arguments);
}

} // namespace

int main(int argc, char** argv)
{
    try
    {
        if (argc < 2 || isHelp(argv[1]))
            printHelp();
        else
            runCommand(argv[1], Arguments(argv + 2, argv + argc));
        return EXIT_SUCCESS;
    }
    catch (const std::exception& exception)
    {
        std::cerr << "orientations: " << exception.what() << '\n';
        return EXIT_FAILURE;
    }
}
