// Reports on the grey values of a photograph: draws their histogram with its peaks and valleys, in the colours of its
// clusters and with a Gaussian fitted to its highest peak, and writes it as a table.

#include "support/CommandLine.h"
#include "support/GreyImage.h"
#include "support/TextFile.h"

#include <OVRIXMath/Statistics/Histogram.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <algorithm>
#include <array>
#include <cmath>
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

constexpr std::size_t g_nbGreys = 256;

struct Options
{
    std::string input;
    std::string output;
    std::string csv;
    std::string method;
    ovUInt32 nbClusters = 0;
    double rise = 0.0;
    unsigned int seed = 0;
};

/// Reads the command line; there are no options when only the help was asked for.
std::optional<Options> readOptions(int argc, char** argv)
{
    namespace po = boost::program_options;
    Options options;
    examples::CommandLine commandLine("histogram_report", "picture");
    commandLine.addOptions()("output,o", po::value(&options.output)->default_value("histogram_report.svg"),
                             "SVG to write: the histogram with what was found in it");
    commandLine.addOptions()("csv", po::value(&options.csv)->default_value("histogram_report.csv"),
                             "CSV to write: bounds and population of each class");
    commandLine.addOptions()("clusters,k", po::value(&options.nbClusters)->default_value(3), "number of clusters");
    commandLine.addOptions()("rise,r", po::value(&options.rise)->default_value(0.1, "0.1"),
                             "how far a peak must rise above its surroundings, as a share of the highest population");
    commandLine.addOptions()("method,m", po::value(&options.method)->default_value("ransac"),
                             "how the Gaussian is fitted: ransac or lms");
    commandLine.addOptions()("seed", po::value(&options.seed)->default_value(5489), "seed of the random generator");
    if (!commandLine.read(argc, argv))
        return std::nullopt;
    options.input = commandLine.getInput();
    if (!(options.rise >= 0.0 && options.rise <= 1.0))
        throw std::runtime_error("The rise of a peak should be in [0, 1]");
    return options;
}

UInt64Vector countGreys(const examples::GreyImage& photo)
{
    UInt64Vector population(g_nbGreys);
    for (const std::uint8_t grey : photo.pixels)
        ++population[grey];
    return population;
}

/// Clusters the grey values. Every counted pixel becomes a sample; those of a large photograph are thinned out evenly.
KMeansClusteringPtr findClusters(const UInt64Vector& population, ovUInt32 nbClusters)
{
    const auto nbUsed = static_cast<std::size_t>(
        std::count_if(population.begin(), population.end(), [](unsigned long count) { return count != 0; }));
    if (nbUsed < nbClusters)
        throw std::runtime_error("The picture has " + std::to_string(nbUsed) + " grey values, too few for " +
                                 std::to_string(nbClusters) + " clusters");
    const unsigned long maxSamples = 200000;
    unsigned long nbPixels = 0;
    for (const unsigned long count : population)
        nbPixels += count;
    const unsigned long share = 1 + nbPixels / maxSamples;
    UInt64Vector thinned(population);
    for (unsigned long& count : thinned)
        count = (count + share - 1) / share;

    Histogram<false> histogram;
    histogram.initFromExisting(0.0, 256.0, 1.0, thinned, eHOOBP_Ignored);
    const KMeansClusteringPtr pClustering =
        histogram.applyKMeansClustering(nbClusters, false, KMeansClusteringConfig());
    if (!pClustering->isClusteringDone())
        throw std::runtime_error("No clusters were found");
    return pClustering;
}

/// A Gaussian over grey values.
struct Gaussian
{
    double amplitude = 0.0;
    double mean = 0.0;
    double sigma = 0.0;
    std::string failure;

    double operator()(double grey) const
    {
        const double z = (grey - mean) / sigma;
        return amplitude * std::exp(-0.5 * z * z);
    }
};

EstimationConfig makeConfig(const std::string& method, double height)
{
    EstimationConfig config;
    if (method == "ransac")
        config.initRANSAC(0.1 * height, 0.3);
    else if (method == "lms")
        config.initLMS(0.3);
    else
        throw std::runtime_error("Unknown method " + method + ", expecting ransac or lms");
    return config;
}

/// Fits a Gaussian to the highest peak and its surroundings, down to half of its height. They are put on an axis on
/// which they are at most 1 long and the peak is near 0: the fit works with fourth powers, which would cost grey values
/// of some hundred all their digits. The unit is a power of two, so that classes and bounds are exact.
Gaussian fitHighestPeak(const UInt64Vector& population, const std::string& method)
{
    const auto peak = std::max_element(population.begin(), population.end());
    auto begin = peak;
    auto end = peak + 1;
    while (begin != population.begin() && 2 * *(begin - 1) >= *peak)
        --begin;
    while (end != population.end() && 2 * *end >= *peak)
        ++end;
    const auto nbClasses = static_cast<double>(end - begin);
    double unit = 1.0;
    while (unit < nbClasses)
        unit *= 2.0;
    const double origin = static_cast<double>(peak - population.begin());
    const double first = -static_cast<double>(peak - begin) / unit;

    Histogram<false> surroundings;
    surroundings.initFromExisting(first, first + nbClasses / unit, 1.0 / unit, UInt64Vector(begin, end),
                                  eHOOBP_Ignored);
    const HistogramGaussianCurveFit fit =
        surroundings.fitGaussianCurve(makeConfig(method, static_cast<double>(*peak)), false);
    Gaussian gaussian;
    if (const ovrix::BoolResult& status = fit._estimationResults.getEstimationStatus(); !status)
        gaussian.failure = status.getMessage();
    gaussian.amplitude = fit._csteA;
    gaussian.mean = fit._csteMu * unit + origin;
    gaussian.sigma = fit._csteSigma * unit;
    return gaussian;
}

/// What is found in a photograph. Grey value g is the class [g, g + 1), so that its middle is g + 0.5.
struct Report
{
    Report(const Options& options, const examples::GreyImage& photo)
        : population(countGreys(photo)), pClustering(findClusters(population, options.nbClusters)),
          gaussian(fitHighestPeak(population, options.method))
    {
        histogram.initFromExisting(0.0, 256.0, 1.0, population, eHOOBP_Ignored);
        height = *std::max_element(population.begin(), population.end());
        const auto rise = static_cast<unsigned long>(options.rise * static_cast<double>(height));
        peaks = histogram.findLocalDilatedMaxima(rise, eEBP_Include, 0.0, 0);
        valleys = histogram.findLocalDilatedMinima(rise, eEBP_Exclude, 0.0, photo.pixels.size());
        // Grey values that no pixel has are gaps rather than valleys; without a population they have no place either.
        const auto isGap = [](const HistogramExtrema& valley) { return valley._population == 0; };
        valleys.erase(std::remove_if(valleys.begin(), valleys.end(), isGap), valleys.end());
    }

    ovUInt32 labelOf(std::size_t grey) const
    {
        return pClustering->computeAssignment(Vector(1, static_cast<double>(grey) + 0.5));
    }

    UInt64Vector population;
    KMeansClusteringPtr pClustering;
    Gaussian gaussian;
    Histogram<false> histogram; // an interval [0, 256), in which grey value 255 is as wide as any other
    unsigned long height = 0;
    std::vector<HistogramExtrema> peaks;
    std::vector<HistogramExtrema> valleys;
};

/// A cluster in words: its mean, its deviation and its share of the pixels.
std::string describeCluster(const KMeansClustering& clustering, ovUInt32 label)
{
    const double share = 100.0 * clustering.getClusterPopulation(label) / clustering.getNbInputData();
    return toText(clustering.getClusterCenter(label)(0) - 0.5) + " \u00b1 " +
           toText(clustering.getClusterStdDev(label)) + ", " + toText(share) + " %";
}

/// The Gaussian in words.
std::string describeGaussian(const Gaussian& gaussian)
{
    return toText(gaussian.mean - 0.5) + " \u00b1 " + toText(gaussian.sigma) + ", height " +
           toText(gaussian.amplitude, 0);
}

/// Clusters in the order of their grey values.
std::vector<ovUInt32> sortClusters(const KMeansClustering& clustering)
{
    std::vector<ovUInt32> labels(clustering.getNbClusters());
    for (ovUInt32 label = 0; label < labels.size(); ++label)
        labels[label] = label;
    std::sort(labels.begin(), labels.end(),
              [&clustering](ovUInt32 a, ovUInt32 b)
              { return clustering.getClusterCenter(a)(0) < clustering.getClusterCenter(b)(0); });
    return labels;
}

/// The drawing, an SVG.
class Picture
{
public:
    Picture(const Report& report, const std::string& title) : _report(report)
    {
        const double highest = std::max(static_cast<double>(report.height), report.gaussian.amplitude);
        _step = chooseStep(highest);
        _top = _step * std::ceil(highest / _step);
        drawAxes(title);
        drawBars();
        drawGaussian();
        drawExtrema();
        drawLegend();
    }

    void write(const std::string& path) const
    {
        examples::writeSvg(path, g_right + 20.0, legendTop() + 22.0 * static_cast<double>(nbLegendLines()),
                           "text{font:13px sans-serif;fill:#333}.title{font-size:16px}.end{text-anchor:end}"
                           ".middle{text-anchor:middle}.grid{stroke:#ddd}.axis{stroke:#666}.peak{fill:#222}"
                           ".valley{fill:#fff;stroke:#222}.curve{fill:none;stroke:#222;stroke-width:1.8}",
                           _content.str());
    }

private:
    static constexpr double g_left = 70.0;
    static constexpr double g_right = 838.0; // three pixels a grey value
    static constexpr double g_ceiling = 90.0;
    static constexpr double g_floor = 390.0;

    static double chooseStep(double highest)
    {
        const double power = std::pow(10.0, std::floor(std::log10(highest / 4.0)));
        for (const double factor : {1.0, 2.0, 5.0})
        {
            if (highest / (factor * power) <= 6.0)
                return factor * power;
        }
        return 10.0 * power;
    }

    static const char* colourOf(std::size_t place)
    {
        static const std::array<const char*, 6> g_colours = {"#35618f", "#c8792b", "#5d9b63",
                                                             "#9a5f9e", "#8a8a3a", "#4aa3b5"};
        return g_colours[place % g_colours.size()];
    }

    static double toX(double value)
    {
        return g_left + (g_right - g_left) * value / static_cast<double>(g_nbGreys);
    }

    double toY(double population) const
    {
        return g_floor - (g_floor - g_ceiling) * population / _top;
    }

    static double legendTop()
    {
        return g_floor + 65.0;
    }

    std::size_t nbLegendLines() const
    {
        return std::max<std::size_t>(_report.pClustering->getNbClusters(), 3);
    }

    void writeText(double x, double y, const char* style, const std::string& text)
    {
        _content << "<text class=\"" << style << "\" x=\"" << toText(x) << "\" y=\"" << toText(y) << "\">"
                 << escape(text) << "</text>\n";
    }

    static std::string escape(const std::string& text)
    {
        std::string escaped;
        for (const char letter : text)
        {
            if (letter == '<')
                escaped += "&lt;";
            else if (letter == '&')
                escaped += "&amp;";
            else
                escaped += letter;
        }
        return escaped;
    }

    void drawAxes(const std::string& title)
    {
        writeText(g_left, 28.0, "title", title);
        for (double population = 0.0; population <= _top; population += _step)
        {
            _content << "<path class=\"grid\" d=\"M" << g_left << " " << toText(toY(population)) << "H" << g_right
                     << "\"/>\n";
            writeText(g_left - 8.0, toY(population) + 4.0, "end", toText(population, 0));
        }
        for (std::size_t grey = 0; grey < g_nbGreys; grey += 32)
            writeText(toX(static_cast<double>(grey) + 0.5), g_floor + 20.0, "middle", std::to_string(grey));
        writeText(toX(255.5), g_floor + 20.0, "middle", "255");
        writeText(toX(128.0), g_floor + 40.0, "middle", "grey value");
    }

    void drawBars()
    {
        const std::vector<ovUInt32> labels = sortClusters(*_report.pClustering);
        for (std::size_t place = 0; place < labels.size(); ++place)
        {
            _content << "<path fill=\"" << colourOf(place) << "\" d=\"";
            for (std::size_t grey = 0; grey < g_nbGreys; ++grey)
            {
                if (_report.labelOf(grey) == labels[place] && _report.population[grey] != 0)
                    _content << "M" << toText(toX(static_cast<double>(grey))) << " " << g_floor << "V"
                             << toText(toY(static_cast<double>(_report.population[grey]))) << "h3V" << g_floor << "z";
            }
            _content << "\"/>\n";
        }
        _content << "<path class=\"axis\" d=\"M" << g_left << " " << g_floor << "H" << g_right << "\"/>\n";
    }

    void drawGaussian()
    {
        const Gaussian& gaussian = _report.gaussian;
        if (!gaussian.failure.empty())
            return;
        const double begin = std::max(0.0, gaussian.mean - 4.0 * gaussian.sigma);
        const double end = std::min(static_cast<double>(g_nbGreys), gaussian.mean + 4.0 * gaussian.sigma);
        const int nbSteps = 200;
        _content << "<path class=\"curve\" d=\"";
        for (int i = 0; i <= nbSteps; ++i)
        {
            const double grey = begin + (end - begin) * i / nbSteps;
            _content << (i == 0 ? "M" : "L") << toText(toX(grey)) << " " << toText(toY(gaussian(grey)));
        }
        _content << "\"/>\n";
    }

    /// A place of the drawing that is taken.
    struct Box
    {
        double left;
        double top;
        double right;
        double bottom;

        bool touches(const Box& other) const
        {
            return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
        }
    };

    /// Marks peaks with a triangle and their grey value, valleys with a circle. A label rises until nothing is in its
    /// way.
    void drawExtrema()
    {
        std::vector<Box> taken;
        for (const HistogramExtrema& peak : _report.peaks)
        {
            const double x = toX(peak._coord);
            const double y = toY(findHighest(peak._coord)) - 5.0;
            _content << "<path class=\"peak\" d=\"M" << toText(x) << " " << toText(y) << "l-5 -8h10z\"/>\n";
            taken.push_back({x - 5.0, y - 8.0, x + 5.0, y});
        }
        for (std::size_t i = 0; i < _report.peaks.size(); ++i)
        {
            const double x = toX(_report.peaks[i]._coord);
            Box label = {x - 14.0, taken[i].top - 15.0, x + 14.0, taken[i].top - 2.0};
            while (std::any_of(taken.begin(), taken.end(), [&label](const Box& box) { return label.touches(box); }))
            {
                label.top -= 2.0;
                label.bottom -= 2.0;
            }
            taken.push_back(label);
            writeText(x, label.bottom - 2.0, "middle", toText(_report.peaks[i]._coord - 0.5, 0));
        }
        for (const HistogramExtrema& valley : _report.valleys)
            drawValley(toX(valley._coord), toY(static_cast<double>(_report.population[greyAt(valley._coord)])));
    }

    void drawValley(double x, double y)
    {
        _content << "<circle class=\"valley\" cx=\"" << toText(x) << "\" cy=\"" << toText(y) << "\" r=\"4\"/>\n";
    }

    static std::size_t greyAt(double coord)
    {
        return std::min(static_cast<std::size_t>(std::max(coord, 0.0)), g_nbGreys - 1);
    }

    /// The highest population beside a place, which a mark must stand above.
    double findHighest(double coord) const
    {
        const auto bar = _report.population.begin() + static_cast<std::ptrdiff_t>(greyAt(coord));
        const auto begin = bar == _report.population.begin() ? bar : bar - 1;
        const auto end = bar + 1 == _report.population.end() ? bar + 1 : bar + 2;
        return static_cast<double>(*std::max_element(begin, end));
    }

    void drawLegend()
    {
        const std::vector<ovUInt32> labels = sortClusters(*_report.pClustering);
        double y = legendTop();
        for (std::size_t place = 0; place < labels.size(); ++place, y += 22.0)
        {
            _content << "<rect x=\"" << g_left << "\" y=\"" << y - 11.0 << "\" width=\"14\" height=\"12\" fill=\""
                     << colourOf(place) << "\"/>\n";
            writeText(g_left + 24.0, y, "legend", "cluster, " + describeCluster(*_report.pClustering, labels[place]));
        }

        const double x = g_left + 330.0;
        y = legendTop();
        _content << "<path class=\"peak\" d=\"M" << x + 10.0 << " " << y << "l-5 -8h10z\"/>\n";
        writeText(x + 30.0, y, "legend", "peak, at its mean grey value");
        y += 22.0;
        drawValley(x + 10.0, y - 4.0);
        writeText(x + 30.0, y, "legend", "valley");
        y += 22.0;
        if (_report.gaussian.failure.empty())
        {
            _content << "<path class=\"curve\" d=\"M" << x << " " << y - 4.0 << "h20\"/>\n";
            writeText(x + 30.0, y, "legend", "Gaussian of the highest peak, " + describeGaussian(_report.gaussian));
        }
    }

    const Report& _report;
    double _top = 0.0;
    double _step = 0.0;
    std::ostringstream _content;
};

void printFigures(const Report& report)
{
    std::cout << "Median      " << report.histogram.getQuantileClassIdx(0.5) << "\nPeaks      ";
    for (const HistogramExtrema& peak : report.peaks)
        std::cout << " " << toText(peak._coord - 0.5);
    std::cout << "\nValleys    ";
    for (const HistogramExtrema& valley : report.valleys)
        std::cout << " " << toText(valley._coord - 0.5);
    std::cout << '\n';
    for (const ovUInt32 label : sortClusters(*report.pClustering))
        std::cout << "Cluster     " << describeCluster(*report.pClustering, label) << '\n';
    if (report.gaussian.failure.empty())
        std::cout << "Gaussian    " << describeGaussian(report.gaussian) << '\n';
    else
        std::cout << "Gaussian    none: " << report.gaussian.failure << '\n';
}

void run(const Options& options)
{
    examples::showStage("Reading " + options.input);
    const examples::GreyImage photo = examples::readGreyImage(options.input);
    const std::string title =
        options.input + ": " + std::to_string(photo.width) + " x " + std::to_string(photo.height) + " pixels";
    std::cout << title << '\n';

    examples::showStage("Looking for peaks and clusters");
    ovrix::RandomUniformGenerator::getGen().seed(options.seed);
    const Report report(options, photo);
    printFigures(report);

    examples::showStage("Writing the report");
    Picture(report, title.substr(title.find_last_of('/') + 1)).write(options.output);
    std::cout << "Picture     " << options.output << '\n';
    exportToCsv(options.csv, report.histogram);
    std::cout << "Table       " << options.csv << '\n';
}

} // namespace

int main(int argc, char** argv)
{
    return examples::runProgram("histogram_report", argc, argv, readOptions, run);
}
