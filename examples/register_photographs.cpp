// Registers two photographs of one scene: from matches of points, many of them wrong, finds the transform that takes
// the first photograph onto the second.
//
// The second photograph is made here, by a homography, so that the result can be held against the truth. The models are
// this program's own: a homography and a similarity, each a class of a few lines. The library brings the robust fit,
// the solvers and the transforms. What is fitted stands in the classes on top, how in makeMethods() and fit().

#include "support/CommandLine.h"
#include "support/GreyImage.h"

#include <OVRIXMath/Estimation/EstimationUtils.h>
#include <OVRIXMath/Geometry/2d/Transform/Homography2d.h>
#include <OVRIXMath/Geometry/2d/Transform/Similarity2d.h>
#include <OVRIXMath/Geometry/2d/Transform/Transform2dFactory.h>
#include <OVRIXMath/Geometry/2d/Transform/Translation2d.h>
#include <OVRIXMath/LinearAlgebra/SingularValueDecomposition.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <boost/make_shared.hpp>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iomanip>
#include <iostream>
#include <optional>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

namespace
{

using namespace ovrix::math;
using namespace ovrix::math::transform;
using examples::GreyImage;
using ovrix::BoolResult;

/// A model of how the matches come about: a transform takes the first point of each onto the second.
///
/// A datum is a match (x, y, u, v): the pixel (x, y) of the first photograph shows what (u, v) of the second one shows.
/// The parameters are those of the transform. How they come from the matches is left to the models below.
class MatchEstimator : public BaseEstimator
{
public:
    /// @param nbMatches number of matches that fix the transform
    MatchEstimator(eGeometricTransform2dType type, ovrix::ovUInt32 nbMatches) : _type(type)
    {
        initBase(nbMatches, Transform2dFactory::getNbParams(type), 4);
    }

    eGeometricTransform2dType getType() const
    {
        return _type;
    }

protected:
    /// Distances in pixels between where the transform takes the first points and the second ones.
    BoolResult processResiduals(const DataSet& matches, const ParameterType& params,
                                ResidualsSet& residuals) const override
    {
        const GeometricTransform2dPtr pTransform = Transform2dFactory::createTransform(_type, params);
        for (std::size_t i = 0; i < matches.size(); ++i)
        {
            double x = matches[i](0);
            double y = matches[i](1);
            pTransform->apply(x, y);
            residuals(i) = std::hypot(x - matches[i](2), y - matches[i](3));
        }
        return true;
    }

private:
    eGeometricTransform2dType _type;
};

/// Any view of a flat scene: straight lines stay straight. Four matches fix it.
class HomographyEstimator : public MatchEstimator
{
public:
    HomographyEstimator() : MatchEstimator(eGT2DT_Homography, 4) {}

protected:
    BoolResult processEstimation(const DataSet& matches, ParameterType& params) override
    {
        // The last fit of a robust estimation gets the inliers, however few they are.
        if (matches.size() < getNbMinRequestedData())
            return BoolResult(false, "A homography needs four matches");

        // u and v are two quotients; multiplied out, each match makes two equations in which all nine parameters are
        // linear and nothing stands on the other side. Coordinates in units of 256 pixels make terms of like size.
        const double unit = 256.0;
        Matrix equations(2 * matches.size(), 9);
        for (std::size_t i = 0; i < matches.size(); ++i)
        {
            const Vector match = matches[i] / unit;
            const double x = match(0), y = match(1), u = match(2), v = match(3);
            const double rows[] = {x,   y,   1.0, 0.0, 0.0, 0.0, -u * x, -u * y, -u, //
                                   0.0, 0.0, 0.0, x,   y,   1.0, -v * x, -v * y, -v};
            std::copy(std::begin(rows), std::end(rows), &equations(2 * i, 0));
        }
        if (svdSolve(equations, params) < 8)
            return BoolResult(false, "The matches do not fix a homography");

        // Back to pixels.
        params(2) *= unit;
        params(5) *= unit;
        params(6) /= unit;
        params(7) /= unit;
        return true;
    }
};

/// The same view turned, moved, nearer or farther: all angles stay. Two matches fix it.
class SimilarityEstimator : public MatchEstimator
{
public:
    SimilarityEstimator() : MatchEstimator(eGT2DT_Similarity, 2) {}

protected:
    BoolResult processEstimation(const DataSet& matches, ParameterType& params) override
    {
        if (matches.size() < getNbMinRequestedData())
            return BoolResult(false, "A similarity needs two matches");

        // With a = scale cos(theta) and b = scale sin(theta): u = a x - b y + tx, v = b x + a y + ty.
        Matrix equations(2 * matches.size(), 4);
        Vector right(2 * matches.size());
        for (std::size_t i = 0; i < matches.size(); ++i)
        {
            const double x = matches[i](0), y = matches[i](1);
            const double rows[] = {x, -y, 1.0, 0.0, //
                                   y, x,  0.0, 1.0};
            std::copy(std::begin(rows), std::end(rows), &equations(2 * i, 0));
            right(2 * i) = matches[i](2);
            right(2 * i + 1) = matches[i](3);
        }
        Vector solution(4);
        if (svdSolve(equations, right, solution) < 4)
            return BoolResult(false, "The matches do not fix a similarity");

        params(0) = std::hypot(solution(0), solution(1));
        params(1) = std::atan2(solution(1), solution(0));
        params(2) = solution(2);
        params(3) = solution(3);
        return true;
    }
};

struct Options
{
    std::string input;
    std::string output;
    unsigned int nbMatches = 0;
    double outlierRatio = 0.0;
    double noise = 0.0;
    unsigned int seed = 0;
};

/// Reads the command line; there are no options when only the help was asked for.
std::optional<Options> readOptions(int argc, char** argv)
{
    namespace po = boost::program_options;
    Options options;
    examples::CommandLine commandLine("register_photographs", "picture");
    commandLine.addOptions()(
        "output,o", po::value(&options.output)->default_value("register_photographs.png"),
        "PNG to write: photograph, second photograph, the second one registered onto the first by the "
        "similarity and by the homography");
    commandLine.addOptions()("matches,n", po::value(&options.nbMatches)->default_value(400), "number of matches");
    commandLine.addOptions()("outliers,e", po::value(&options.outlierRatio)->default_value(0.5, "0.5"),
                             "share of wrong matches");
    commandLine.addOptions()("noise,s", po::value(&options.noise)->default_value(0.5, "0.5"),
                             "standard deviation of the other matches in pixels");
    commandLine.addOptions()("seed", po::value(&options.seed)->default_value(5489), "seed of all random choices");
    if (!commandLine.read(argc, argv))
        return std::nullopt;
    options.input = commandLine.getInput();
    if (!(options.outlierRatio >= 0.0 && options.outlierRatio <= 0.7))
        throw std::runtime_error("The share of wrong matches should be from 0 to 0.7");
    if (!(options.noise > 0.0))
        throw std::runtime_error("The standard deviation should be above 0");
    return options;
}

Vector makeParams(std::initializer_list<double> values)
{
    Vector params(values.size());
    std::copy(values.begin(), values.end(), params.begin());
    return params;
}

/// The view of the second camera: slanted, turned and a little smaller, about the middle of the photograph.
Homography2d makeView(const GreyImage& photo)
{
    const double cx = static_cast<double>(photo.width) / 2.0;
    const double cy = static_cast<double>(photo.height) / 2.0;
    Translation2d toMiddle;
    toMiddle.setParams(makeParams({-cx, -cy}));
    Homography2d slant;
    slant.setParams(makeParams({1.0, 0.0, 0.0, 0.0, 1.0, 0.0, 0.06 / cx, -0.1 / cy, 1.0}));
    Similarity2d turnBack;
    turnBack.setParams(makeParams({0.8, 0.2, cx, cy}));

    // What comes first stands on the right.
    const HomogenousMatrix2d slanted =
        boost::numeric::ublas::prod(slant.getHomogenousMatrix(), toMiddle.getHomogenousMatrix());
    const HomogenousMatrix2d all = boost::numeric::ublas::prod(turnBack.getHomogenousMatrix(), slanted);
    Vector params(9);
    std::copy_n(all.data().begin(), params.size(), params.begin());
    Homography2d view;
    view.setParams(params);
    return view;
}

/// The grey value between four pixels; black outside of the picture.
double interpolate(const GreyImage& image, double x, double y)
{
    if (!(x >= 0.0 && y >= 0.0 && x < static_cast<double>(image.width - 1) &&
          y < static_cast<double>(image.height - 1)))
        return 0.0;
    const auto left = static_cast<std::size_t>(x);
    const auto top = static_cast<std::size_t>(y);
    const double right = x - static_cast<double>(left);
    const double bottom = y - static_cast<double>(top);
    return (1.0 - bottom) * ((1.0 - right) * image.at(left, top) + right * image.at(left + 1, top)) +
           bottom * ((1.0 - right) * image.at(left, top + 1) + right * image.at(left + 1, top + 1));
}

/// A picture of the same size whose pixels are fetched from where the transform takes them.
GreyImage warp(const GreyImage& image, const BaseGeometricTransform2d& transform)
{
    GreyImage warped(image.width, image.height);
    for (std::size_t row = 0; row < image.height; ++row)
    {
        for (std::size_t column = 0; column < image.width; ++column)
        {
            double x = static_cast<double>(column);
            double y = static_cast<double>(row);
            transform.apply(x, y);
            warped.at(column, row) = examples::toGrey(interpolate(image, x, y));
        }
    }
    return warped;
}

/// How many of the matches are wrong; they come first.
std::size_t countWrongMatches(const Options& options)
{
    return static_cast<std::size_t>(options.outlierRatio * options.nbMatches);
}

/// Matches as a program finds them that compares small patches: some lead anywhere, the others are right but for noise.
DataSet makeMatches(const Options& options, const GreyImage& photo, const BaseGeometricTransform2d& view)
{
    std::mt19937 generator(options.seed);
    std::uniform_real_distribution<double> anyX(0.0, static_cast<double>(photo.width));
    std::uniform_real_distribution<double> anyY(0.0, static_cast<double>(photo.height));
    std::normal_distribution<double> noise(0.0, options.noise);

    DataSet matches(options.nbMatches, Vector(4));
    for (std::size_t i = 0; i < matches.size(); ++i)
    {
        const bool bWrong = i < countWrongMatches(options);
        double x = matches[i](0) = anyX(generator);
        double y = matches[i](1) = anyY(generator);
        view.apply(x, y);
        matches[i](2) = bWrong ? anyX(generator) : x + noise(generator);
        matches[i](3) = bWrong ? anyY(generator) : y + noise(generator);
    }
    return matches;
}

/// How far at most the corners of the photograph land from where they should.
double computeCornerError(const BaseGeometricTransform2d& transform, const BaseGeometricTransform2d& truth,
                          const GreyImage& photo)
{
    double largest = 0.0;
    for (const double cornerX : {0.0, static_cast<double>(photo.width)})
    {
        for (const double cornerY : {0.0, static_cast<double>(photo.height)})
        {
            double x = cornerX, y = cornerY;
            double trueX = cornerX, trueY = cornerY;
            transform.apply(x, y);
            truth.apply(trueX, trueY);
            largest = std::max(largest, std::hypot(x - trueX, y - trueY));
        }
    }
    return largest;
}

/// What is fitted.
struct Model
{
    std::string name;
    boost::shared_ptr<MatchEstimator> pEstimator;
    double sigma; ///< standard deviation of right matches from the model, in pixels
};

/// How it is fitted.
struct Method
{
    std::string name;
    EstimationConfig config;
};

std::vector<Method> makeMethods(double sigma, double outlierRatio)
{
    const double factor = 3.0;                  // a match three standard deviations off is an outlier
    const double expected = outlierRatio + 0.2; // four noisy matches make right ones look wrong, too
    std::vector<Method> methods{{"MSAC", {}}, {"MLESAC", {}}};
    methods[0].config.initMSAC(factor * sigma, expected);
    methods[1].config.initMLESAC(sigma, factor, 500.0 / sigma, expected); // wrong matches are up to 500 pixels off
    for (Method& method : methods)
        method.config.setSuccessRatio(0.999);
    return methods;
}

/// Fits a model to the matches, prints a line and returns the transform that was found.
GeometricTransform2dPtr fit(const Method& method, const Model& model, const DataSet& matches, std::size_t nbWrong,
                            const GreyImage& photo, const BaseGeometricTransform2d& truth)
{
    EstimationResults results;
    processEstimation(method.config, model.pEstimator, matches, results);
    if (const BoolResult& status = results.getEstimationStatus(); !status)
        throw std::runtime_error(model.name + " by " + method.name + ": " + status.getMessage());
    if (!results.hasRobustEstimationDone())
        throw std::runtime_error("There are too few matches for a robust fit");

    const GeometricTransform2dPtr pTransform =
        Transform2dFactory::createTransform(model.pEstimator->getType(), results.getEstimParams());
    const OutlierFlags& flags = results.getOutlierFlags(); // true: the match does not belong to the model
    const auto nbBelieved = std::count(flags.begin(), flags.begin() + static_cast<std::ptrdiff_t>(nbWrong), false);
    std::cout << std::left << std::setw(12) << model.name << std::setw(8) << method.name << std::right << std::setw(7)
              << results.getNbInliers() << std::setw(15) << nbBelieved << std::setw(11)
              << computeCornerError(*pTransform, truth, photo) << " pixels\n";
    return pTransform;
}

void registerPhotographs(const Options& options)
{
    const GreyImage photo = examples::readGreyImage(options.input);
    const Homography2d view = makeView(photo);
    const GreyImage second = warp(photo, *view.createInverted());
    const DataSet matches = makeMatches(options, photo, view);

    std::cout << options.input << ": " << photo.width << " x " << photo.height << " pixels, " << matches.size()
              << " matches, " << std::setprecision(3) << 100.0 * options.outlierRatio << " % of them wrong\n\n"
              << "Model       Method  Inliers  Wrong of them  Corners off by\n"
              << std::fixed << std::setprecision(2);
    // A similarity cannot follow the slant: even the best one leaves right matches several pixels off.
    const Model models[] = {{"similarity", boost::make_shared<SimilarityEstimator>(), 8.0},
                            {"homography", boost::make_shared<HomographyEstimator>(), options.noise}};
    ovrix::RandomUniformGenerator::getGen().seed(options.seed);
    std::vector<GreyImage> panels{photo, second};
    for (const Model& model : models)
    {
        GeometricTransform2dPtr pTransform;
        for (const Method& method : makeMethods(model.sigma, options.outlierRatio))
            pTransform = fit(method, model, matches, countWrongMatches(options), photo, view);
        panels.push_back(warp(second, *pTransform));
    }
    examples::writePng(options.output, examples::placeSideBySide(panels));
    std::cout << "\nPicture     " << options.output << '\n';
}

} // namespace

int main(int argc, char** argv)
{
    return examples::runProgram("register_photographs", argc, argv, readOptions, registerPhotographs);
}
