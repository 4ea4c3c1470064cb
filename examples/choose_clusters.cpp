// Chooses the number of clusters: runs k-means for a range of numbers, rates each result by the five validity indices,
// and draws the indices over the number, beside the samples in the clusters that most of them call the best.

#include "support/CommandLine.h"
#include "support/TextFile.h"

#include <OVRIXMath/Clustering/KMeansClustering.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <boost/random/normal_distribution.hpp>

#include <algorithm>
#include <cstddef>
#include <iostream>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace
{

using namespace ovrix::math;
using namespace ovrix::math::clustering;
using examples::toText;
using ovrix::ovUInt32;
using ovrix::RandomUniformGenerator;

struct Options
{
    std::string output;
    unsigned int nbMost = 0;
    unsigned int seed = 0;
};

/// Reads the command line; there are no options when only the help was asked for.
std::optional<Options> readOptions(int argc, char** argv)
{
    namespace po = boost::program_options;
    Options options;
    examples::CommandLine commandLine("choose_clusters");
    commandLine.addOptions()("output,o", po::value(&options.output)->default_value("choose_clusters.svg"),
                             "SVG to write: samples and indices");
    commandLine.addOptions()("most,k", po::value(&options.nbMost)->default_value(10), "largest number of clusters");
    commandLine.addOptions()("seed", po::value(&options.seed)->default_value(1), "seed of the random generator");
    if (!commandLine.read(argc, argv))
        return std::nullopt;
    if (options.nbMost < 3 || options.nbMost > 20)
        throw std::runtime_error("The largest number of clusters should be from 3 to 20");
    return options;
}

/// Five heaps, not all of one size.
VectorColl makeSamples()
{
    struct Heap
    {
        double x, y, width;
        int nbSamples;
    };
    VectorColl samples;
    Vector sample(2);
    for (const Heap& heap : {Heap{-2.2, 2.0, 0.35, 80}, Heap{0.2, 2.4, 0.3, 60}, Heap{2.4, 1.2, 0.4, 80},
                             Heap{-1.4, -1.6, 0.45, 100}, Heap{1.6, -1.8, 0.3, 60}})
    {
        boost::random::normal_distribution<double> deviation(0.0, heap.width);
        for (int i = 0; i < heap.nbSamples; ++i)
        {
            sample(0) = heap.x + deviation(RandomUniformGenerator::getGen());
            sample(1) = heap.y + deviation(RandomUniformGenerator::getGen());
            samples.push_back(sample);
        }
    }
    return samples;
}

/// An index, and what it says about each number of clusters from 2 on.
struct Rating
{
    eValidityIndexType type;
    std::string name;
    std::string advice;
    bool bLargestIsBest;
    bool bChooses; ///< whether its best value tells the number; that of the others grows or falls with every cluster
    std::vector<double> values;

    std::size_t getBest() const
    {
        const auto best = bLargestIsBest ? std::max_element(values.begin(), values.end())
                                         : std::min_element(values.begin(), values.end());
        return static_cast<std::size_t>(best - values.begin()) + 2;
    }
};

/// The SVG: samples on the left, one small plot for each index on the right.
class Picture
{
public:
    void drawSamples(const VectorColl& samples, const KMeansClustering& clustering)
    {
        _content << "<g transform=\"translate(20,40)\">\n<text x=\"240\" y=\"-14\">" << clustering.getNbClusters()
                 << " clusters</text>\n";
        for (std::size_t i = 0; i < samples.size(); ++i)
            drawCircle(samples[i], "c" + std::to_string(clustering.getAssignments()[i] % g_nbColours), 3);
        for (const Vector& center : clustering.getClustersCenters())
            drawCircle(center, "centre", 6);
        _content << "</g>\n";
    }

    void drawRating(const Rating& rating)
    {
        const double left = 560.0;
        const double top = 40.0 + 104.0 * static_cast<double>(_nbPlots++);
        const auto range = std::minmax_element(rating.values.begin(), rating.values.end());
        const double step = 300.0 / static_cast<double>(rating.values.size() - 1);
        _content << "<g transform=\"translate(" << left << "," << top << ")\">\n<text x=\"150\" y=\"-4\">"
                 << rating.name << ": " << rating.advice
                 << "</text>\n<path class=\"axis\" d=\"M0,0V60H300\"/>\n<polyline points=\"";
        for (std::size_t i = 0; i < rating.values.size(); ++i)
            _content << place(rating, range, step, i) << " ";
        _content << "\"/>\n";
        for (std::size_t i = 0; i < rating.values.size(); ++i)
        {
            const bool bBest = rating.bChooses && i + 2 == rating.getBest();
            const std::string place = this->place(rating, range, step, i);
            const std::size_t comma = place.find(',');
            _content << "<circle class=\"" << (bBest ? "best" : "dot") << "\" cx=\"" << place.substr(0, comma)
                     << "\" cy=\"" << place.substr(comma + 1) << "\" r=\"" << (bBest ? 5 : 3)
                     << "\"/>\n<text class=\"k\" x=\"" << place.substr(0, comma) << "\" y=\"74\">" << i + 2
                     << "</text>\n";
        }
        _content << "</g>\n";
    }

    void write(const std::string& path) const
    {
        std::string style = "text{font:15px sans-serif;text-anchor:middle;fill:#333}.k{font-size:11px}"
                            ".axis{fill:none;stroke:#bbb}polyline{fill:none;stroke:#1f5fa8;stroke-width:1.5}"
                            ".dot{fill:#1f5fa8}.best{fill:#d01c1c}.centre{fill:none;stroke:#000;stroke-width:2}";
        const char* const colours[g_nbColours] = {"#1f5fa8", "#c8560b", "#2a8a4a", "#8a4fa3", "#b5942a", "#5a5a5a"};
        for (std::size_t i = 0; i < g_nbColours; ++i)
            style += ".c" + std::to_string(i) + "{fill:" + colours[i] + "}";
        examples::writeSvg(path, 900.0, 560.0, style, _content.str());
    }

private:
    static constexpr std::size_t g_nbColours = 6;

    using Range = std::pair<std::vector<double>::const_iterator, std::vector<double>::const_iterator>;

    static std::string place(const Rating& rating, const Range& range, double step, std::size_t i)
    {
        const double height = *range.second - *range.first;
        const double share = height > 0.0 ? (rating.values[i] - *range.first) / height : 0.5;
        return toText(step * static_cast<double>(i)) + "," + toText(56.0 - 50.0 * share);
    }

    void drawCircle(const Vector& point, const std::string& style, int radius)
    {
        _content << "<circle class=\"" << style << "\" cx=\"" << toText(240.0 + 60.0 * point(0)) << "\" cy=\""
                 << toText(240.0 - 60.0 * point(1)) << "\" r=\"" << radius << "\"/>\n";
    }

    std::ostringstream _content;
    std::size_t _nbPlots = 0;
};

void run(const Options& options)
{
    RandomUniformGenerator::getGen().seed(options.seed);
    const VectorColl samples = makeSamples();
    std::vector<Rating> ratings = {{eVIT_Dunn, "Dunn", "the largest", true, true, {}},
                                   {eVIT_DaviesBouldin, "Davies-Bouldin", "the smallest", false, true, {}},
                                   {eVIT_SD, "SD", "the smallest", false, true, {}},
                                   {eVIT_RMSStd, "RMSStd", "the bend", false, false, {}},
                                   {eVIT_RS, "RS", "the bend", true, false, {}}};
    std::vector<KMeansClustering> clusterings;
    for (ovUInt32 nbClusters = 2; nbClusters <= options.nbMost; ++nbClusters)
    {
        KMeansClusteringConfig config;
        config.setNbAttempts(50);
        KMeansClustering clustering;
        clustering.setConfig(config);
        if (!clustering.compute(nbClusters, samples))
            throw std::runtime_error("No attempt settled for " + std::to_string(nbClusters) + " clusters");
        for (Rating& rating : ratings)
            rating.values.push_back(clustering.computeValidityIndex(rating.type));
        clusterings.push_back(clustering);
    }

    std::vector<std::size_t> nbVotes(options.nbMost + 1, 0);
    Picture picture;
    for (const Rating& rating : ratings)
    {
        picture.drawRating(rating);
        if (!rating.bChooses)
            continue;
        std::cout << rating.name << " chooses " << rating.getBest() << " clusters\n";
        ++nbVotes[rating.getBest()];
    }
    const auto chosen = std::max_element(nbVotes.begin(), nbVotes.end()) - nbVotes.begin();
    picture.drawSamples(samples, clusterings[static_cast<std::size_t>(chosen) - 2]);
    picture.write(options.output);
    std::cout << "Picture " << options.output << '\n';
}

} // namespace

int main(int argc, char** argv)
{
    return examples::runProgram("choose_clusters", argc, argv, readOptions, run);
}
