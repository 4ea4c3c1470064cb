// Follows points from one frame to the next: points move along with a common current, each a little in its own way,
// some get lost and new ones come in. Matches the two frames by an optimal partial matching and, beside it, in the
// plain way, each point with the nearest one that is left. Draws both as lines.

#include "support/CommandLine.h"
#include "support/TextFile.h"

#include <OVRIXMath/Graph/BipartitePartialMatch.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <boost/random/normal_distribution.hpp>
#include <boost/random/uniform_real_distribution.hpp>

#include <cmath>
#include <cstddef>
#include <iostream>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace
{

using ovrix::ovUInt32;
using ovrix::RandomUniformGenerator;
using ovrix::math::BipartitePartialMatch;

struct Options
{
    std::string output;
    unsigned int nbPoints = 0;
    double noise = 0.0;
    double lostRatio = 0.0;
    double reach = 0.0;
    unsigned int seed = 0;
};

/// Reads the command line; there are no options when only the help was asked for.
std::optional<Options> readOptions(int argc, char** argv)
{
    namespace po = boost::program_options;
    Options options;
    examples::CommandLine commandLine("match_points");
    commandLine.addOptions()("output,o", po::value(&options.output)->default_value("match_points.svg"),
                             "SVG to write: both matchings");
    commandLine.addOptions()("points,n", po::value(&options.nbPoints)->default_value(100),
                             "number of points in the first frame");
    commandLine.addOptions()("noise", po::value(&options.noise)->default_value(0.6, "0.6"),
                             "how far points leave the current, as a share of 100 for the side of a frame");
    commandLine.addOptions()("lost", po::value(&options.lostRatio)->default_value(0.1, "0.1"),
                             "share of the points that get lost, and of new ones");
    commandLine.addOptions()("reach", po::value(&options.reach)->default_value(7.0),
                             "longest way of a point from one frame to the next");
    commandLine.addOptions()("seed", po::value(&options.seed)->default_value(1), "seed of the random generator");
    if (!commandLine.read(argc, argv))
        return std::nullopt;
    if (options.nbPoints == 0 || options.nbPoints > 5000)
        throw std::runtime_error("The number of points should be from 1 to 5000");
    if (!(options.noise >= 0.0 && options.noise <= 100.0))
        throw std::runtime_error("The noise should be from 0 to 100");
    if (!(options.lostRatio >= 0.0 && options.lostRatio <= 1.0))
        throw std::runtime_error("The share of lost points should be from 0 to 1");
    if (!(options.reach > 0.0 && options.reach <= 1000.0))
        throw std::runtime_error("The reach should be above 0, and 1000 at most");
    return options;
}

struct Point
{
    double x;
    double y;
};

double distance(const Point& a, const Point& b)
{
    return std::hypot(a.x - b.x, a.y - b.y);
}

constexpr ovUInt32 g_none = ovrix::NumericLimits<ovUInt32>::s_max;

/// The points of two frames, and the truth about them.
struct Frames
{
    std::vector<Point> first;
    std::vector<Point> second;
    std::vector<ovUInt32> truth; ///< by point of the first frame: its place in the second, or g_none
};

double draw(double end)
{
    return boost::random::uniform_real_distribution<double>(0.0, end)(RandomUniformGenerator::getGen());
}

/// Where the current and a point's own will carry it.
Point move(const Point& point, double noise)
{
    boost::random::normal_distribution<double> own(0.0, noise);
    const double dx = 2.6 + 1.4 * std::sin(point.y / 16.0);
    const double dy = 1.4 * std::cos(point.x / 20.0);
    return {point.x + dx + own(RandomUniformGenerator::getGen()), point.y + dy + own(RandomUniformGenerator::getGen())};
}

Frames makeFrames(const Options& options)
{
    Frames frames;
    for (unsigned int i = 0; i < options.nbPoints; ++i)
        frames.first.push_back({draw(100.0), draw(100.0)});
    for (const Point& point : frames.first)
    {
        const bool bLost = draw(1.0) < options.lostRatio;
        frames.truth.push_back(bLost ? g_none : static_cast<ovUInt32>(frames.second.size()));
        if (!bLost)
            frames.second.push_back(move(point, options.noise));
    }
    const double nbNew = options.lostRatio * options.nbPoints;
    for (unsigned int i = 0; i < nbNew; ++i)
        frames.second.push_back({draw(100.0), draw(100.0)});
    return frames;
}

/// How likely a way of this length is, from 1 down. Its logarithm falls with the square, so that two short ways count
/// more than a very short one with a long one. Ways out of reach are next to nothing: they do not weigh in the sum that
/// decides about all pairs.
double weigh(double way, double reach)
{
    const double sigma = reach / 2.0;
    return std::exp(-0.5 * (way / sigma) * (way / sigma));
}

/// The partner of each point of the first frame, such that the sum of the weights is the largest possible.
std::vector<ovUInt32> matchOptimally(const Frames& frames, double reach)
{
    if (frames.second.empty())
        return std::vector<ovUInt32>(frames.first.size(), g_none);
    BipartitePartialMatch match;
    match.init(static_cast<ovUInt32>(frames.first.size()), static_cast<ovUInt32>(frames.second.size()),
               weigh(reach, reach));
    for (ovUInt32 row = 0; row < match.getNbRows(); ++row)
    {
        double* const weights = match.getWeights(row);
        for (ovUInt32 column = 0; column < match.getNbColumns(); ++column)
            weights[column] = weigh(distance(frames.first[row], frames.second[column]), reach);
    }
    match.solve();
    return match.getRowAssignments();
}

/// The partner of each point of the first frame, one after the other: the nearest within reach that is left.
std::vector<ovUInt32> matchNearest(const Frames& frames, double reach)
{
    std::vector<ovUInt32> partners;
    std::vector<bool> bTaken(frames.second.size(), false);
    for (const Point& point : frames.first)
    {
        ovUInt32 partner = g_none;
        double shortest = reach;
        for (ovUInt32 i = 0; i < frames.second.size(); ++i)
        {
            const double way = distance(point, frames.second[i]);
            if (!bTaken[i] && way <= shortest)
            {
                shortest = way;
                partner = i;
            }
        }
        if (partner != g_none)
            bTaken[partner] = true;
        partners.push_back(partner);
    }
    return partners;
}

/// An SVG of two panels.
class Picture
{
public:
    explicit Picture(const Frames& frames) : _frames(frames) {}

    /// Draws a matching and tells how good it is.
    void add(const std::string& name, const std::vector<ovUInt32>& partners)
    {
        std::size_t nbPairs = 0;
        std::size_t nbRight = 0;
        std::string lines;
        for (std::size_t i = 0; i < partners.size(); ++i)
        {
            if (partners[i] == g_none)
                continue;
            const bool bRight = partners[i] == _frames.truth[i];
            ++nbPairs;
            nbRight += bRight ? 1 : 0;
            const Point& from = _frames.first[i];
            const Point& to = _frames.second[partners[i]];
            lines += std::string("<line class=\"") + (bRight ? "right" : "wrong") + "\" x1=\"" + scale(from.x) +
                     "\" y1=\"" + scale(from.y) + "\" x2=\"" + scale(to.x) + "\" y2=\"" + scale(to.y) + "\"/>\n";
        }
        const std::string title =
            name + ": " + std::to_string(nbRight) + " of " + std::to_string(nbPairs) + " pairs are right";
        std::cout << title << '\n';
        _panels += "<g transform=\"translate(" + std::to_string(_nbPanels * g_step + 10) + ",40)\">\n<text x=\"" +
                   std::to_string(g_size / 2) + "\" y=\"-14\">" + title + "</text>\n" + lines;
        for (const Point& point : _frames.first)
            drawPoint("first", point);
        for (const Point& point : _frames.second)
            drawPoint("second", point);
        _panels += "</g>\n";
        ++_nbPanels;
    }

    void write(const std::string& path) const
    {
        examples::writeSvg(path, static_cast<double>(_nbPanels * g_step), g_step + 20.0,
                           "text{font:16px sans-serif;text-anchor:middle;fill:#333}.first{fill:none;stroke:#1f5fa8}"
                           ".second{fill:#c8560b}.right{stroke:#888}.wrong{stroke:#d01c1c;stroke-width:2}",
                           _panels);
    }

private:
    static constexpr std::size_t g_size = 540;
    static constexpr std::size_t g_step = g_size + 20;

    /// Frames reach a little beyond 100, where the current carries points.
    static std::string scale(double coordinate)
    {
        return examples::toText(coordinate / 108.0 * g_size);
    }

    void drawPoint(const std::string& style, const Point& point)
    {
        _panels +=
            "<circle class=\"" + style + "\" cx=\"" + scale(point.x) + "\" cy=\"" + scale(point.y) + "\" r=\"3\"/>\n";
    }

    const Frames& _frames;
    std::size_t _nbPanels = 0;
    std::string _panels;
};

void run(const Options& options)
{
    RandomUniformGenerator::getGen().seed(options.seed);
    const Frames frames = makeFrames(options);
    std::cout << frames.first.size() << " points, then " << frames.second.size() << '\n';
    Picture picture(frames);
    picture.add("Nearest one left", matchNearest(frames, options.reach));
    picture.add("Partial matching", matchOptimally(frames, options.reach));
    picture.write(options.output);
    std::cout << "Picture " << options.output << '\n';
}

} // namespace

int main(int argc, char** argv)
{
    return examples::runProgram("match_points", argc, argv, readOptions, run);
}
