// Segments a photograph: clusters its pixels by grey value and place with k-means, and draws the photograph and, beside
// it, each segment in its mean grey.

#include "support/CommandLine.h"
#include "support/GreyImage.h"

#include <OVRIXMath/Clustering/KMeansClustering.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <algorithm>
#include <cstddef>
#include <iomanip>
#include <iostream>
#include <optional>
#include <stdexcept>
#include <string>

namespace
{

using namespace ovrix::math;
using namespace ovrix::math::clustering;
using examples::GreyImage;
using ovrix::ovUInt32;

struct Options
{
    std::string input;
    std::string output;
    unsigned int nbSegments = 0;
    unsigned int nbAttempts = 0;
    double placeWeight = 0.0;
    unsigned int seed = 0;
};

/// Reads the command line; there are no options when only the help was asked for.
std::optional<Options> readOptions(int argc, char** argv)
{
    namespace po = boost::program_options;
    Options options;
    examples::CommandLine commandLine("segment_photograph", "picture");
    commandLine.addOptions()("output,o", po::value(&options.output)->default_value("segment_photograph.png"),
                             "PNG to write: photograph and segments");
    commandLine.addOptions()("segments,k", po::value(&options.nbSegments)->default_value(6), "number of segments");
    commandLine.addOptions()("place,p", po::value(&options.placeWeight)->default_value(60.0),
                             "grey values that the longer side of the photograph counts as; 0 leaves the places out");
    commandLine.addOptions()("attempts", po::value(&options.nbAttempts)->default_value(5),
                             "attempts from other first pixels, of which the best is kept");
    commandLine.addOptions()("seed", po::value(&options.seed)->default_value(5489), "seed of the random generator");
    if (!commandLine.read(argc, argv))
        return std::nullopt;
    if (options.placeWeight != 0.0 && !(options.placeWeight >= 1e-3 && options.placeWeight <= 1e6))
        throw std::runtime_error("The weight of the place should be 0, or from 0.001 to 1000000");
    options.input = commandLine.getInput();
    return options;
}

/// One sample (grey, x, y) for each pixel. k-means adds up the squares of all coordinates, so the places are scaled to
/// units of grey.
VectorColl makeSamples(const GreyImage& photo, double placeWeight)
{
    const double scale = placeWeight / static_cast<double>(std::max(photo.width, photo.height));
    VectorColl samples;
    samples.reserve(photo.pixels.size());
    Vector sample(3);
    for (std::size_t y = 0; y < photo.height; ++y)
    {
        for (std::size_t x = 0; x < photo.width; ++x)
        {
            sample(0) = photo.at(x, y);
            sample(1) = scale * static_cast<double>(x);
            sample(2) = scale * static_cast<double>(y);
            samples.push_back(sample);
        }
    }
    return samples;
}

KMeansClustering segment(const Options& options, const GreyImage& photo)
{
    // The first centres are drawn by their distance to each other, which is 0 between equal samples.
    const auto range = std::minmax_element(photo.pixels.begin(), photo.pixels.end());
    if (options.nbSegments > 1 && options.placeWeight == 0.0 && *range.first == *range.second)
        throw std::runtime_error(options.input + " has one grey value only, and the places are left out");

    KMeansClusteringConfig config;
    config.setNbAttempts(options.nbAttempts);
    // An attempt counts when no pixel changes its segment any more, which takes long in a large photograph.
    config.setNbMaxIteration(2000);
    KMeansClustering clustering;
    clustering.setConfig(config);
    ovrix::RandomUniformGenerator::getGen().seed(options.seed);
    if (!clustering.compute(options.nbSegments, makeSamples(photo, options.placeWeight)))
        throw std::runtime_error("The segments have not settled; try fewer --segments or more --attempts");
    return clustering;
}

void printFigures(const KMeansClustering& clustering)
{
    std::cout << "Attempt     " << clustering.getNbIteration() << " iterations, " << clustering.getNbFailedAttempts()
              << " attempts failed\n"
              << "Segment  pixels  grey  deviation\n"
              << std::fixed << std::setprecision(1);
    for (ovUInt32 label = 0; label < clustering.getNbClusters(); ++label)
    {
        std::cout << std::setw(7) << label << std::setw(8) << clustering.getClusterPopulation(label) << std::setw(6)
                  << clustering.getClusterCenter(label)(0) << std::setw(11) << clustering.getClusterStdDev(label)
                  << '\n';
    }
}

/// Each pixel in the mean grey of its segment.
GreyImage drawSegments(const GreyImage& photo, const KMeansClustering& clustering)
{
    GreyImage segments(photo.width, photo.height);
    for (std::size_t i = 0; i < photo.pixels.size(); ++i)
        segments.pixels[i] = examples::toGrey(clustering.getClusterCenter(clustering.getAssignments()[i])(0));
    return segments;
}

void run(const Options& options)
{
    examples::showStage("Reading " + options.input);
    const GreyImage photo = examples::readGreyImage(options.input);
    std::cout << options.input << ": " << photo.width << " x " << photo.height << " pixels\n";

    examples::showStage("Clustering the pixels");
    const KMeansClustering clustering = segment(options, photo);
    printFigures(clustering);

    examples::showStage("Writing the pictures");
    examples::writePng(options.output, examples::placeSideBySide({photo, drawSegments(photo, clustering)}));
    std::cout << "Picture     " << options.output << '\n';
}

} // namespace

int main(int argc, char** argv)
{
    return examples::runProgram("segment_photograph", argc, argv, readOptions, run);
}
