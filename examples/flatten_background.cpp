// Takes uneven light out of a photograph: fits a quadratic surface to the grey values of the background, robustly, so
// that what stands on the background counts as outliers and does not bend the surface.

#include "support/CommandLine.h"
#include "support/GreyImage.h"
#include "support/TextFile.h"

#include <OVRIXMath/Estimation/EstimationUtils.h>
#include <OVRIXMath/Tools/Polynomial2dSurfaceEstimator.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <boost/make_shared.hpp>

#include <cstddef>
#include <iomanip>
#include <iostream>
#include <iterator>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>

namespace
{

using namespace ovrix::math;
using examples::GreyImage;

struct Options
{
    std::string input;
    std::string output;
    std::string csv;
    std::string method;
    double threshold = 0.0;
    double outlierRatio = 0.0;
    unsigned int seed = 0;
};

/// Reads the command line; there are no options when only the help was asked for.
std::optional<Options> readOptions(int argc, char** argv)
{
    namespace po = boost::program_options;
    Options options;
    examples::CommandLine commandLine("flatten_background", "picture");
    commandLine.addOptions()("output,o", po::value(&options.output)->default_value("flatten_background.png"),
                             "PNG to write: photograph, fitted light, flattened photograph, outliers");
    commandLine.addOptions()("csv", po::value(&options.csv), "CSV to write: the same, a line a pixel");
    commandLine.addOptions()("method,m", po::value(&options.method)->default_value("msac"),
                             "ransac, msac, mlesac, lms or none");
    commandLine.addOptions()("threshold,t", po::value(&options.threshold)->default_value(30.0),
                             "distance in grey values from which on a pixel is an outlier");
    commandLine.addOptions()("outliers,e", po::value(&options.outlierRatio)->default_value(0.45, "0.45"),
                             "share of outliers that is expected");
    commandLine.addOptions()("seed", po::value(&options.seed)->default_value(5489), "seed of the random generator");
    if (!commandLine.read(argc, argv))
        return std::nullopt;
    options.input = commandLine.getInput();
    return options;
}

EstimationConfig makeConfig(const Options& options)
{
    EstimationConfig config;
    if (options.method == "ransac")
        config.initRANSAC(options.threshold, options.outlierRatio);
    else if (options.method == "msac")
        config.initMSAC(options.threshold, options.outlierRatio);
    else if (options.method == "mlesac")
    {
        const double factor = 2.5; // an outlier lies 2.5 standard deviations away
        const double sigma = options.threshold / factor;
        config.initMLESAC(sigma, factor, 256.0 / sigma, options.outlierRatio);
    }
    else if (options.method == "lms")
        config.initLMS(options.outlierRatio);
    else if (options.method == "none")
        config.initNonRobust();
    else
        throw std::runtime_error("Unknown method " + options.method + ", expecting ransac, msac, mlesac, lms or none");
    return config;
}

/// Place of a pixel along its axis, scaled to [-1, 1]: powers of large coordinates would cost digits.
double scaleToUnit(std::size_t i, std::size_t size)
{
    return size < 2 ? 0.0 : 2.0 * static_cast<double>(i) / static_cast<double>(size - 1) - 1.0;
}

/// One datum (x, y, grey) for each pixel.
DataSet makeDataSet(const GreyImage& photo)
{
    DataSet dataSet;
    dataSet.reserve(photo.pixels.size());
    Vector datum(3);
    for (std::size_t y = 0; y < photo.height; ++y)
    {
        for (std::size_t x = 0; x < photo.width; ++x)
        {
            datum(0) = scaleToUnit(x, photo.width);
            datum(1) = scaleToUnit(y, photo.height);
            datum(2) = photo.at(x, y);
            dataSet.push_back(datum);
        }
    }
    return dataSet;
}

void printFigures(const Options& options, const EstimationResults& results, ovrix::ovUInt32 nbRuns)
{
    const char* const terms[] = {"x^2", "x y", "y^2", "x", "y", "1"};
    const std::size_t nbTerms = std::size(terms);
    std::cout << "Light, for x and y from -1 to 1 across the photograph:\n" << std::fixed << std::setprecision(3);
    for (std::size_t i = 0; i < nbTerms; ++i)
        std::cout << std::setw(12) << results.getEstimParams()(i) << "  " << terms[i] << '\n';
    std::cout << "Method      " << options.method;
    if (results.hasRobustEstimationDone())
        std::cout << ", " << nbRuns << " runs\nThreshold   " << results.getEstimOutlierThreshold() << " grey values";
    std::cout << "\nInliers     " << results.getNbInliers() << " of " << results.getNbInputData() << " pixels ("
              << std::setprecision(1) << 100.0 * results.getInlierRatio() << " %)\n"
              << std::setprecision(3) << "RMS         " << results.getGlobalRms() << " over all pixels, "
              << results.getInliersRms() << " from the inliers\n";
}

/// Photograph, light, flattened photograph and outliers.
struct Panels
{
    Panels(const GreyImage& photograph, const EstimationResults& results)
        : photo(photograph), light(photo.width, photo.height), flat(photo.width, photo.height),
          outliers(photo.width, photo.height)
    {
        const ResidualsSet& residuals = results.getResidualsSet();
        const OutlierFlags& flags = results.getOutlierFlags();
        const double level = results.getEstimParams()(5);
        for (std::size_t i = 0; i < photo.pixels.size(); ++i)
        {
            light.pixels[i] = examples::toGrey(photo.pixels[i] - residuals(i));
            flat.pixels[i] = examples::toGrey(level + residuals(i));
            outliers.pixels[i] = !flags.empty() && flags[i] ? 255 : 0;
        }
    }

    GreyImage photo;
    GreyImage light;
    GreyImage flat;
    GreyImage outliers;
};

void writeCsv(const std::string& path, const Panels& panels)
{
    std::ostringstream table;
    table << "x;y;grey;light;flattened;outlier\n";
    for (std::size_t y = 0; y < panels.photo.height; ++y)
    {
        for (std::size_t x = 0; x < panels.photo.width; ++x)
        {
            table << x << ';' << y << ';' << +panels.photo.at(x, y) << ';' << +panels.light.at(x, y) << ';'
                  << +panels.flat.at(x, y) << ';' << (panels.outliers.at(x, y) != 0) << '\n';
        }
    }
    examples::writeTextFile(path, table.str());
}

void flatten(const Options& options)
{
    const EstimationConfig config = makeConfig(options);
    examples::showStage("Reading " + options.input);
    const GreyImage photo = examples::readGreyImage(options.input);
    std::cout << options.input << ": " << photo.width << " x " << photo.height << " pixels\n";

    examples::showStage("Fitting the light");
    ovrix::RandomUniformGenerator::getGen().seed(options.seed);
    const auto pSurface = boost::make_shared<Polynomial2dSurfaceEstimator>();
    EstimationResults results;
    processEstimation(config, pSurface, makeDataSet(photo), results);
    if (const ovrix::BoolResult& status = results.getEstimationStatus(); !status)
    {
        const ovrix::ovUInt32 nbMinData = results.getNbMinDataForRobustEstimation();
        const bool bRobust = nbMinData > 0 && results.getNbInputData() >= nbMinData;
        throw std::runtime_error(status.getMessage() + (bRobust ? "; try another --threshold or --outliers" : ""));
    }
    const bool bRobust = results.hasRobustEstimationDone();
    printFigures(options, results, bRobust ? createRobustEstimator(config, pSurface)->getNbNeededRuns() : 0);

    examples::showStage("Writing the pictures");
    const Panels panels(photo, results);
    examples::writePng(options.output,
                       examples::placeSideBySide({panels.photo, panels.light, panels.flat, panels.outliers}));
    std::cout << "Picture     " << options.output << '\n';
    if (!options.csv.empty())
    {
        writeCsv(options.csv, panels);
        std::cout << "Table       " << options.csv << '\n';
    }
}

} // namespace

int main(int argc, char** argv)
{
    return examples::runProgram("flatten_background", argc, argv, readOptions, flatten);
}
