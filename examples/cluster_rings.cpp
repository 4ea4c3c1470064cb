// Clusters two rings and two half moons in three ways: k-means cuts the plane by a straight line, kernel k-means bends
// the line, spectral clustering follows the samples from neighbour to neighbour. Draws the samples in the colours of
// their clusters, and behind them, for the first two ways, the cluster of every place of the plane.

#include "support/CommandLine.h"
#include "support/TextFile.h"

#include <OVRIXMath/Clustering/KMeansClustering.h>
#include <OVRIXMath/Clustering/KernelKMeansClustering.h>
#include <OVRIXMath/Clustering/SpectralClustering.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <boost/random/normal_distribution.hpp>
#include <boost/random/uniform_real_distribution.hpp>

#include <cmath>
#include <cstddef>
#include <functional>
#include <iostream>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace
{

using namespace ovrix::math;
using namespace ovrix::math::clustering;
using ovrix::ovUInt32;
using ovrix::RandomUniformGenerator;

constexpr double g_pi = 3.14159265358979323846;

struct Options
{
    std::string output;
    unsigned int seed = 0;
};

/// Reads the command line; there are no options when only the help was asked for.
std::optional<Options> readOptions(int argc, char** argv)
{
    namespace po = boost::program_options;
    Options options;
    examples::CommandLine commandLine("cluster_rings");
    commandLine.addOptions()("output,o", po::value(&options.output)->default_value("cluster_rings.svg"),
                             "SVG to write: rings and moons in their clusters");
    commandLine.addOptions()("seed", po::value(&options.seed)->default_value(1), "seed of the random generator");
    if (!commandLine.read(argc, argv))
        return std::nullopt;
    return options;
}

/// A sample near a point.
Vector makeSample(double x, double y, double noise)
{
    boost::random::normal_distribution<double> deviation(0.0, noise);
    Vector sample(2);
    sample(0) = x + deviation(RandomUniformGenerator::getGen());
    sample(1) = y + deviation(RandomUniformGenerator::getGen());
    return sample;
}

double drawAngle(double end)
{
    return boost::random::uniform_real_distribution<double>(0.0, end)(RandomUniformGenerator::getGen());
}

/// Samples of two rings, one around the other.
VectorColl makeRings(std::size_t nbSamples)
{
    VectorColl samples;
    for (std::size_t i = 0; i < nbSamples; ++i)
    {
        const double radius = i % 2 == 0 ? 1.0 : 3.0;
        const double angle = drawAngle(2.0 * g_pi);
        samples.push_back(makeSample(radius * std::cos(angle), radius * std::sin(angle), 0.1));
    }
    return samples;
}

/// Samples of two half moons that reach into each other.
VectorColl makeMoons(std::size_t nbSamples)
{
    VectorColl samples;
    for (std::size_t i = 0; i < nbSamples; ++i)
    {
        const double angle = drawAngle(g_pi);
        const double x = 2.0 * std::cos(angle);
        const double y = 2.0 * std::sin(angle);
        samples.push_back(i % 2 == 0 ? makeSample(x - 1.0, y - 0.6, 0.12) : makeSample(1.0 - x, 0.6 - y, 0.12));
    }
    return samples;
}

/// What a method made of the samples: a label for each, and perhaps one for any other place.
struct Partition
{
    std::string name;
    UInt32Vector labels;
    std::function<ovUInt32(const Vector&)> labelOf;
};

/// Runs any of the three clusterings; they have the same operations.
template <class Clustering>
Partition cluster(const std::string& name, Clustering& clustering, const VectorColl& samples)
{
    // `false` means that no attempt settled: more iterations, or another kernel, may help.
    if (!clustering.compute(2, samples))
        throw std::runtime_error(name + " found no clusters");
    std::cout << "  " << name << ": " << clustering.getClusterPopulation(0) << " and "
              << clustering.getClusterPopulation(1) << " samples\n";
    return {name, clustering.getAssignments(), nullptr};
}

/// An SVG of panels in rows and columns. A panel shows the square of [-4, 4] x [-4, 4].
class Picture
{
public:
    Picture(std::size_t nbRows, std::size_t nbColumns) : _width(nbColumns * g_stepX), _height(nbRows * g_stepY) {}

    void draw(std::size_t row, std::size_t column, const VectorColl& samples, const Partition& partition)
    {
        _panels += "<g transform=\"translate(" + std::to_string(column * g_stepX + 10) + "," +
                   std::to_string(row * g_stepY + 30) + ")\">\n<text x=\"150\" y=\"-10\">" + partition.name +
                   "</text>\n";
        if (partition.labelOf)
            drawPlane(partition);
        _panels += "<rect class=\"frame\" width=\"300\" height=\"300\"/>\n";
        for (std::size_t i = 0; i < samples.size(); ++i)
        {
            const double x = (samples[i](0) + 4.0) / 8.0 * g_size;
            const double y = (4.0 - samples[i](1)) / 8.0 * g_size;
            _panels += "<circle class=\"s" + std::to_string(partition.labels[i]) + "\" cx=\"" + examples::toText(x) +
                       "\" cy=\"" + examples::toText(y) + "\" r=\"2.5\"/>\n";
        }
        _panels += "</g>\n";
    }

    void write(const std::string& path) const
    {
        examples::writeSvg(path, static_cast<double>(_width), static_cast<double>(_height),
                           "text{font:16px sans-serif;text-anchor:middle;fill:#333}"
                           ".p0{fill:#fbe3d0}.p1{fill:#d7e6f5}.p0,.p1{shape-rendering:crispEdges}"
                           ".frame{fill:none;stroke:#ccc}"
                           "circle{stroke:#fff;stroke-width:.6}.s0{fill:#c8560b}.s1{fill:#1f5fa8}",
                           _panels);
    }

private:
    static constexpr std::size_t g_size = 300;
    static constexpr std::size_t g_stepX = g_size + 20;
    static constexpr std::size_t g_stepY = g_size + 40;

    /// Tints the plane by the labels of its places, one rectangle for each run of equal ones along a line.
    void drawPlane(const Partition& partition)
    {
        constexpr std::size_t pixel = 2;
        Vector place(2);
        for (std::size_t y = 0; y < g_size; y += pixel)
        {
            place(1) = 4.0 - 8.0 * (static_cast<double>(y) + 1.0) / g_size;
            std::size_t begin = 0;
            ovUInt32 label = 0;
            for (std::size_t x = 0; x <= g_size; x += pixel)
            {
                place(0) = 8.0 * (static_cast<double>(x) + 1.0) / g_size - 4.0;
                const ovUInt32 next = x < g_size ? partition.labelOf(place) : label + 1;
                if (x > begin && next != label)
                {
                    _panels += "<rect class=\"p" + std::to_string(label) + "\" x=\"" + std::to_string(begin) +
                               "\" y=\"" + std::to_string(y) + "\" width=\"" + std::to_string(x - begin) +
                               "\" height=\"2.2\"/>\n";
                    begin = x;
                }
                label = next;
            }
        }
    }

    std::size_t _width;
    std::size_t _height;
    std::string _panels;
};

void run(const Options& options)
{
    // All random choices, of the samples and of the clusterings, come from this generator.
    RandomUniformGenerator::getGen().seed(options.seed);
    Picture picture(2, 3);
    const std::vector<std::pair<std::string, VectorColl>> tasks = {{"Rings", makeRings(360)},
                                                                   {"Moons", makeMoons(360)}};
    for (std::size_t row = 0; row < tasks.size(); ++row)
    {
        const VectorColl& samples = tasks[row].second;
        std::cout << tasks[row].first << ", " << samples.size() << " samples\n";
        KMeansClustering kMeans;
        Partition partition = cluster("k-means", kMeans, samples);
        partition.labelOf = [&](const Vector& place) { return kMeans.computeAssignment(place); };
        picture.draw(row, 0, samples, partition);

        // Kernel k-means wants a wide kernel, of about the size of a cluster.
        KernelKMeansClustering<RadialBasisKernel> kernelKMeans(RadialBasisKernel::createKernel(1.2));
        partition = cluster("kernel k-means", kernelKMeans, samples);
        partition.labelOf = [&](const Vector& place) { return kernelKMeans.computeAssignment(place); };
        picture.draw(row, 1, samples, partition);

        // Spectral clustering wants a narrow one, of some times the distance between neighbours.
        SpectralClustering<RadialBasisKernel> spectral(RadialBasisKernel::createKernel(0.25));
        picture.draw(row, 2, samples, cluster("spectral clustering", spectral, samples));
    }
    picture.write(options.output);
    std::cout << "Picture " << options.output << '\n';
}

} // namespace

int main(int argc, char** argv)
{
    return examples::runProgram("cluster_rings", argc, argv, readOptions, run);
}
