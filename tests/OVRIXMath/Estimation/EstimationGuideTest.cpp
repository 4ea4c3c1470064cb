// The examples of docs/guides/estimation.md, word for word, and the figures that the guide tells.

#include <OVRIXMath/Estimation/DataPartition/AdaptiveGridPartition.h>
#include <OVRIXMath/Estimation/EstimationUtils.h>
#include <OVRIXMath/LinearAlgebra/SingularValueDecomposition.h>
#include <OVRIXSerialization/TextIArchive.h>
#include <OVRIXSerialization/TextOArchive.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <boost/filesystem.hpp>
#include <boost/make_shared.hpp>
#include <gmock/gmock.h>

#include <cmath>
#include <cstddef>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <support/Builders.h>
#include <support/ExpectFailure.h>
#include <support/HeaderExample.h>
#include <support/OpenScorer.h>
#include <support/RandomData.h>

namespace ovrix
{
namespace math
{

namespace
{

using test::expectFailure;
using test::expectSuccess;
using test::makeVector;
using test::toStd;
using testing::HasSubstr;

const char* const g_guide = "docs/guides/estimation.md";

// A circle in the plane. A datum is a point (x, y), the parameters are (cx, cy, r).
class CircleEstimator : public BaseEstimator
{
public:
    CircleEstimator()
    {
        initBase(3, 3, 2); // three points fix it, it has three parameters, a point has two coordinates
    }

protected:
    // Fits x^2 + y^2 = 2 cx x + 2 cy y + s, which is linear in cx, cy and s = r^2 - cx^2 - cy^2.
    BoolResult processEstimation(const DataSet& points, ParameterType& circle) override
    {
        if (points.size() < getNbMinRequestedData())
            return BoolResult(false, "A circle needs three points");

        Matrix A(points.size(), 3);
        Vector b(points.size());
        for (std::size_t i = 0; i < points.size(); ++i)
        {
            const double x = points[i](0);
            const double y = points[i](1);
            A(i, 0) = 2.0 * x;
            A(i, 1) = 2.0 * y;
            A(i, 2) = 1.0;
            b(i) = x * x + y * y;
        }
        if (svdSolve(A, b, circle) < 3)
            return BoolResult(false, "The points lie on a line");
        circle(2) = std::sqrt(circle(2) + circle(0) * circle(0) + circle(1) * circle(1));
        return true;
    }

    // Distances to the circle, positive outside of it.
    BoolResult processResiduals(const DataSet& points, const ParameterType& circle,
                                ResidualsSet& residuals) const override
    {
        for (std::size_t i = 0; i < points.size(); ++i)
            residuals(i) = std::hypot(points[i](0) - circle(0), points[i](1) - circle(1)) - circle(2);
        return true;
    }
};

// The distances of points to a circle, for their sum of squares.
class CircleDistances : public BaseCostFunction
{
public:
    explicit CircleDistances(const DataSet& points) : _points(points)
    {
        initBase(3, static_cast<ovUInt32>(points.size()));
    }

protected:
    BoolResult processEquations(const Vector& circle, Vector& equations) const override
    {
        for (std::size_t i = 0; i < _points.size(); ++i)
            equations(i) = std::hypot(_points[i](0) - circle(0), _points[i](1) - circle(1)) - circle(2);
        return true;
    }

private:
    DataSet _points;
};

CostFunctionPtr createCircleDistances(const DataSet& inliers)
{
    return boost::make_shared<CircleDistances>(inliers);
}

struct CircleFit
{
    Vector circle;
    OutlierFlags outliers;
};

CircleFit fitCircle(const DataSet& points)
{
    EstimationConfig config;
    config.initMSAC(1.5, 0.5); // 1.5 pixels off the circle is an outlier; up to half of the points may be
    EstimationResults results;
    processEstimation(config, boost::make_shared<CircleEstimator>(), points, results);
    if (const BoolResult& status = results.getEstimationStatus(); !status)
        throw std::runtime_error(status.getMessage());
    const Vector circle = results.getEstimParams();          // (cx, cy, r)
    const OutlierFlags outliers = results.getOutlierFlags(); // true: the point does not belong to the circle
    return {circle, outliers};
}

void refineCircle(const EstimationConfig& config, const DataSet& points, EstimationResults& results)
{
    processEstimation(config, boost::make_shared<CircleEstimator>(), createCircleDistances, points, results);
}

OutlierFlags makeFinalFlags(const EstimationResults& results)
{
    OutlierFlags finalFlags(results.getNbInputData());
    for (std::size_t i = 0; i < finalFlags.size(); ++i)
        finalFlags[i] = std::abs(results.getResidualsSet()(i)) >= results.getEstimOutlierThreshold();
    return finalFlags;
}

void processAndGoBack(const EstimationConfig& config, const EstimatorPtr& pEstimator, const DataSet& points,
                      EstimationResults& results)
{
    boost::random::mt19937& generator = RandomUniformGenerator::getGen();
    const boost::random::mt19937 before = generator;
    processEstimation(config, pEstimator, points, results);
    generator = before; // what follows draws the same sub-sets again
}

void archiveCircle(const EstimationConfig& config, const EstimationResults& results)
{
    std::ofstream file("circle.xml", std::ios::binary);
    TextOArchive archive(file);
    archive << makeOItem("config", config);
    archive << makeOItem("results", results);
    archive.close();
}

/// Points of the circle around (120, 80) with the radius 40, 0.3 off by noise; two in five of them are anywhere.
class EstimationGuide : public testing::Test
{
protected:
    EstimationGuide()
    {
        test::RandomData random(7);
        for (int i = 0; i < 200; ++i)
        {
            const bool bOutlier = i % 5 < 2;
            const double angle = random.real(0.0, 6.28);
            const double radius = 40.0 + random.normal(0.3);
            _points.push_back(bOutlier
                                  ? random.vector(2, 0.0, 200.0)
                                  : makeVector({120.0 + radius * std::cos(angle), 80.0 + radius * std::sin(angle)}));
        }
        _config.initMSAC(1.5, 0.5);
        RandomUniformGenerator::getGen().seed(7);
    }

    void process()
    {
        processEstimation(_config, _pEstimator, _points, _results);
        expectSuccess(_results.getEstimationStatus());
    }

    DataSet _points;
    EstimationConfig _config;
    EstimatorPtr _pEstimator = boost::make_shared<CircleEstimator>();
    EstimationResults _results;
};

double sumSquaredDistances(const DataSet& points, const Vector& circle)
{
    Vector distances(points.size());
    expectSuccess(CircleDistances(points).computeEquations(circle, distances));
    return inner_prod(distances, distances);
}

/// A row of the guide's table of runs.
std::string makeRowOfRuns(const std::string& model, ovUInt32 nbMinData)
{
    std::ostringstream row;
    row << "| m = " << nbMinData << ": " << model << " |";
    for (const double outlierRatio : {0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7})
    {
        EstimationConfig config;
        config.initRANSAC(1.0, outlierRatio);
        const auto pModel = boost::make_shared<testing::NiceMock<test::MockEstimator>>(nbMinData, 1u, 1u);
        row << ' ' << createRobustEstimator(config, pModel)->getNbNeededRuns() << " |";
    }
    return row.str() + '\n';
}

} // namespace

TEST_F(EstimationGuide, ItsExamplesCompile)
{
    const std::string code = test::readCode(__FILE__);
    for (const std::string& example : test::readGuideExamples(g_guide))
        EXPECT_THAT(code, HasSubstr(example));
}

TEST_F(EstimationGuide, ItsFirstExampleFindsTheCircle)
{
    const CircleFit fit = fitCircle(_points);
    EXPECT_LT(norm_inf(fit.circle - makeVector({120.0, 80.0, 40.0})), 0.3);
    for (std::size_t i = 0; i < _points.size(); ++i)
    {
        if (i % 5 >= 2)
        {
            EXPECT_FALSE(fit.outliers[i]) << i;
        }
    }
    EXPECT_GE(computeNbOutliers(fit.outliers), 70u);
}

TEST_F(EstimationGuide, ItsModelRefusesTooFewInliers)
{
    // All residuals are outliers, and all scores are accepted.
    class EmptyingRobustEstimator : public BaseRobustEstimator
    {
    public:
        using BaseRobustEstimator::initBase;

    protected:
        ovReal64 computeOutlierThreshold(ovReal64, ovUInt32, ovUInt32) const override
        {
            return 0.0;
        }

        ovReal64 computeScore(const ResidualsSet&) override
        {
            return 1.0;
        }
    };
    EmptyingRobustEstimator robustEstimator;
    robustEstimator.initBase(_pEstimator);
    expectFailure("Robust estimation final estimation failed\nA circle needs three points",
                  robustEstimator.computeEstimation(_points));
}

TEST_F(EstimationGuide, ItsModelRefusesPointsOfALine)
{
    ParameterType circle(3);
    expectFailure("The points lie on a line",
                  _pEstimator->computeEstimation(test::makeDataSet({{10, 20}, {11, 22}, {15, 30}, {18, 36}}), circle));
}

TEST_F(EstimationGuide, ItsRefinementFindsShorterDistances)
{
    process();
    RandomUniformGenerator::getGen().seed(7);
    EstimationResults refined;
    refineCircle(_config, _points, refined);
    expectSuccess(BoolResult(static_cast<bool>(refined.getEstimationStatus())));
    EXPECT_EQ(refined.getOutlierFlags(), _results.getOutlierFlags());
    const DataSet inliers = extractInliers(_points, _results.getOutlierFlags());
    EXPECT_LT(sumSquaredDistances(inliers, refined.getEstimParams()),
              sumSquaredDistances(inliers, _results.getEstimParams()));
}

TEST_F(EstimationGuide, ALambdaIsAFactoryToo)
{
    processEstimation(
        _config, _pEstimator, [](const DataSet& inliers) { return createCircleDistances(inliers); }, _points, _results);
    EXPECT_GT(_results.getNbNonLinearIteration(), 0u);
}

TEST_F(EstimationGuide, TheFlagsOfTheFinalFitAreThoseOfItsResiduals)
{
    process();
    const OutlierFlags finalFlags = makeFinalFlags(_results);
    EXPECT_LT(norm_inf(_results.getEstimParams() - makeVector({120.0, 80.0, 40.0})), 0.3);
    for (std::size_t i = 0; i < _points.size(); ++i)
    {
        const double distance =
            std::hypot(_points[i](0) - _results.getEstimParams()(0), _points[i](1) - _results.getEstimParams()(1)) -
            _results.getEstimParams()(2);
        EXPECT_EQ(finalFlags[i], distance >= 1.5 || distance <= -1.5) << i;
    }
}

TEST_F(EstimationGuide, TheRmsOfTheInliersIsThatOfTheResultsByTheRootOfTheirShare)
{
    process();
    double sum = 0.0;
    for (std::size_t i = 0; i < _points.size(); ++i)
    {
        if (!_results.getOutlierFlags()[i])
            sum += _results.getResidualsSet()(i) * _results.getResidualsSet()(i);
    }
    EXPECT_NEAR(_results.getInliersRms() / std::sqrt(_results.getInlierRatio()),
                std::sqrt(sum / _results.getNbInliers()), 1e-12);
}

TEST_F(EstimationGuide, AGeneratorPutBackDrawsTheSameSubSets)
{
    processAndGoBack(_config, _pEstimator, _points, _results);
    EstimationResults again;
    processEstimation(_config, _pEstimator, _points, again);
    EXPECT_EQ(toStd(again.getEstimParams()), toStd(_results.getEstimParams()));
    EXPECT_EQ(toStd(again.getResidualsSet()), toStd(_results.getResidualsSet()));
    EXPECT_EQ(again.getOutlierFlags(), _results.getOutlierFlags());
}

TEST_F(EstimationGuide, ItsArchiveGivesConfigurationAndResultsBack)
{
    process();
    const boost::filesystem::path path = boost::filesystem::current_path();
    boost::filesystem::current_path(OVRIX_TEST_OUTPUT_DIR);
    archiveCircle(_config, _results);
    std::ifstream file("circle.xml", std::ios::binary);
    boost::filesystem::current_path(path);

    TextIArchive archive(file);
    EstimationConfig config;
    EstimationResults results;
    archive >> makeIItem("config", config);
    archive >> makeIItem("results", results);
    EXPECT_EQ(config.getRobustEstimationType(), eRET_MSAC);
    EXPECT_EQ(config.getOutlierThreshold(), 1.5);
    EXPECT_EQ(toStd(results.getEstimParams()), toStd(_results.getEstimParams()));
    EXPECT_EQ(results.getOutlierFlags(), _results.getOutlierFlags());
}

TEST_F(EstimationGuide, ItsTableTellsTheNumbersOfRuns)
{
    const std::string guide = test::readCode(g_guide);
    EXPECT_THAT(guide, HasSubstr(makeRowOfRuns("line, similarity", 2)));
    EXPECT_THAT(guide, HasSubstr(makeRowOfRuns("circle, Gaussian curve", 3)));
    EXPECT_THAT(guide, HasSubstr(makeRowOfRuns("homography", 4)));
    EXPECT_THAT(guide, HasSubstr(makeRowOfRuns("quadratic surface", 6)));
}

TEST_F(EstimationGuide, AnExpectedShareNextToNothingMakesNoRun)
{
    _config.initMSAC(1.5, 1e-6);
    EXPECT_EQ(createRobustEstimator(_config, _pEstimator)->getNbNeededRuns(), 0u);
    processEstimation(_config, _pEstimator, _points, _results);
    expectFailure("Robust estimation failed, no valid estimation score computed, outlier threshold may be to high",
                  _results.getEstimationStatus());
}

TEST_F(EstimationGuide, AnExpectedShareOfOnePercentMakesARun)
{
    _config.initMSAC(1.5, 0.01);
    const auto pModel = boost::make_shared<testing::NiceMock<test::MockEstimator>>(1u, 1u, 1u);
    EXPECT_EQ(createRobustEstimator(_config, pModel)->getNbNeededRuns(), 1u);
}

TEST_F(EstimationGuide, AsManyStepsAsDataGiveEachDatumACell)
{
    AdaptiveGridPartition partition;
    partition.setNbBucketsByAxis(static_cast<ovUInt32>(_points.size()));
    BaseGridPartition::BucketPopulation cells;
    expectSuccess(partition.populateBuckets(_points, cells));
    EXPECT_EQ(cells.size(), _points.size());
}

TEST_F(EstimationGuide, APlainFitStandsInUnlessItIsForbidden)
{
    _points.resize(6);
    process();
    EXPECT_FALSE(_results.hasRobustEstimationDone());
    _config.setAllowSimpleEstimation(false);
    processEstimation(_config, _pEstimator, _points, _results);
    test::expectMathRaises("Estimation results have not been initialized", [this] { _results.getEstimationStatus(); });
}

TEST_F(EstimationGuide, TheConfigurationOfTheResultsHasToBeCopied)
{
    process();
    test::expectMathRaises("Estimation configuration has not been initialized", [this]
                           { processEstimation(_results.getEstimationConfig(), _pEstimator, _points, _results); });
}

} // namespace math
} // namespace ovrix
