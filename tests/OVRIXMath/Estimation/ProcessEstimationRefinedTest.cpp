#include <OVRIXMath/Estimation/EstimationUtils.h>
#include <OVRIXMath/Optimization/NonLinearSolver.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <boost/make_shared.hpp>
#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <functional>
#include <stdexcept>
#include <string>
#include <support/Builders.h>
#include <support/CostFunctions.h>
#include <support/DataSets.h>
#include <support/ExpectFailure.h>
#include <support/HeaderExample.h>
#include <support/LineEstimator.h>
#include <support/LogCapture.h>
#include <support/MockEstimators.h>
#include <support/RandomData.h>

namespace ovrix
{
namespace math
{

namespace
{

using test::DecayCostFunction;
using test::expectFailure;
using test::expectMathRaises;
using test::FreeCostFunction;
using test::makeScalarProblem;
using test::makeVector;
using test::MockEstimator;
using test::noisyLine;
using test::numberedData;
using test::toStd;
using testing::HasSubstr;
using testing::NiceMock;
using testing::Return;

const char* const g_notInitText = "Estimation results have not been initialized";
const char* const g_nullResidualsText = "Null residuals on last iteration";

/// What the factory of the running test makes; the driver takes a plain function, which cannot carry it.
std::function<CostFunctionPtr(const DataSet&)> g_factory;

CostFunctionPtr createCostFunction(const DataSet& inliers)
{
    return g_factory(inliers);
}

/// The sum of the fourth powers of a line's residuals: a problem with another solution than least squares.
boost::shared_ptr<FreeCostFunction> createSquaredLineCost(const DataSet& inliers)
{
    return boost::make_shared<FreeCostFunction>(2u, static_cast<ovUInt32>(inliers.size()),
                                                [inliers](const Vector& params, Vector& equations)
                                                {
                                                    for (std::size_t i = 0; i < inliers.size(); ++i)
                                                    {
                                                        const double r =
                                                            params(0) * inliers[i](0) + params(1) - inliers[i](1);
                                                        equations(i) = r * r;
                                                    }
                                                    return BoolResult(true);
                                                });
}

/// The problem x - 5 = 0, solved in one step.
CostFunctionPtr createFive(const DataSet&)
{
    return makeScalarProblem([](double x) { return x - 5.0; }, [](double) { return 1.0; });
}

/// What a factory or a cost function of the tests throws.
struct NoSuchModel
{
};

/// A robust estimation of a mocked model with one parameter, whose last fits' residuals are small, and a factory.
class RefinedEstimation : public testing::Test
{
protected:
    RefinedEstimation()
    {
        _config.initRANSAC(100.0, 0.4);
        g_factory = createFive;
    }

    ~RefinedEstimation() override
    {
        g_factory = nullptr;
    }

    void process(const DataSet& dataSet)
    {
        processEstimation(_config, _pEstimator, createCostFunction, dataSet, _results);
    }

    /// Expects that the factory is not called.
    void forbidFactory()
    {
        g_factory = [](const DataSet&)
        {
            ADD_FAILURE() << "The factory has been called";
            return CostFunctionPtr();
        };
    }

    void expectPassesOnWithRobustResults()
    {
        EXPECT_THROW(process(numberedData(30)), NoSuchModel);
        test::expectSuccess(_results.getEstimationStatus());
        EXPECT_TRUE(_results.hasRobustEstimationDone());
        EXPECT_EQ(toStd(_results.getEstimParams()), (std::vector<double>{11}));
    }

    EstimationConfig _config;
    boost::shared_ptr<NiceMock<MockEstimator>> _pEstimator = boost::make_shared<NiceMock<MockEstimator>>(2u, 1u, 1u);
    EstimationResults _results;
};

} // namespace

TEST_F(RefinedEstimation, GivesTheParametersOfTheSolver)
{
    process(numberedData(30));
    EXPECT_EQ(toStd(_results.getEstimParams()), (std::vector<double>{5}));
    EXPECT_TRUE(_results.hasRobustEstimationDone());
}

TEST_F(RefinedEstimation, GivesTheSolversTextWithTheSuccess)
{
    process(numberedData(30));
    EXPECT_TRUE(_results.getEstimationStatus());
    EXPECT_EQ(_results.getEstimationStatus().getMessage(), g_nullResidualsText);
}

TEST_F(RefinedEstimation, ComputesTheResidualsOfTheSolversParametersOnAllData)
{
    process(numberedData(30));
    EXPECT_EQ(toStd(_results.getResidualsSet()), std::vector<double>(30, 5.0));
}

TEST_F(RefinedEstimation, StartsFromTheRobustParameters)
{
    const auto pCost = boost::make_shared<FreeCostFunction>(1u, 1u);
    g_factory = [&](const DataSet&) { return pCost; };
    process(numberedData(30));
    // The eleventh fit is that to the inliers.
    EXPECT_EQ(pCost->getPoints().at(0), (std::vector<double>{11}));
}

TEST_F(RefinedEstimation, HandsTheInliersToTheFactory)
{
    DataSet handed;
    g_factory = [&](const DataSet& inliers)
    {
        handed = inliers;
        return createFive(inliers);
    };
    ON_CALL(*_pEstimator, processResiduals)
        .WillByDefault(
            [](const DataSet& dataSet, const ParameterType&, ResidualsSet& residuals)
            {
                for (std::size_t i = 0; i < dataSet.size(); ++i)
                    residuals(i) = i % 3 == 0 ? 100.0 : 0.0;
                return BoolResult(true);
            });
    process(numberedData(9));
    EXPECT_EQ(test::toStd(handed.at(0)), (std::vector<double>{1}));
    ASSERT_EQ(handed.size(), 6u);
    EXPECT_EQ(test::toStd(handed[5]), (std::vector<double>{8}));
}

TEST_F(RefinedEstimation, KeepsTheFlagsAndTheThresholdOfTheRobustFit)
{
    // After the runs every residual is far beyond the threshold.
    ON_CALL(*_pEstimator, processResiduals)
        .WillByDefault(
            [nbCalls = 0](const DataSet&, const ParameterType&, ResidualsSet& residuals) mutable
            {
                std::fill(residuals.begin(), residuals.end(), ++nbCalls > 10 ? 1000.0 : 1.0);
                residuals(3) = 500.0;
                return BoolResult(true);
            });
    process(numberedData(30));
    OutlierFlags expected(30, false);
    expected[3] = true;
    EXPECT_EQ(_results.getOutlierFlags(), expected);
    EXPECT_EQ(_results.getEstimOutlierThreshold(), 100.0);
    EXPECT_EQ(_results.getResidualsSet()(0), 1000.0);
}

TEST_F(RefinedEstimation, GivesWhatASolverGivesByHand)
{
    const auto pLine = boost::make_shared<LineEstimator>();
    const DataSet data = noisyLine(63);
    _config.initMSAC(0.4, 0.35);
    g_factory = [](const DataSet& inliers) { return createSquaredLineCost(inliers); };
    RandomUniformGenerator::getGen().seed(64);
    processEstimation(_config, pLine, createCostFunction, data, _results);

    EstimationResults robust;
    RandomUniformGenerator::getGen().seed(64);
    processEstimation(_config, pLine, data, robust);
    NonLinearSolver solver;
    const OptResult optResult =
        solver.solve(createSquaredLineCost(extractInliers(data, robust.getOutlierFlags())), robust.getEstimParams());
    ResidualsSet residuals(data.size());
    ASSERT_TRUE(pLine->computeResiduals(data, solver.getEstimParams(), residuals));

    ASSERT_NE(optResult.status, eOS_Failed);
    EXPECT_TRUE(_results.getEstimationStatus());
    EXPECT_EQ(_results.getEstimationStatus().getMessage(), optResult.msg);
    EXPECT_EQ(toStd(_results.getEstimParams()), toStd(solver.getEstimParams()));
    EXPECT_NE(toStd(_results.getEstimParams()), toStd(robust.getEstimParams()));
    EXPECT_EQ(toStd(_results.getResidualsSet()), toStd(residuals));
    EXPECT_EQ(_results.getNbNonLinearIteration(), solver.getNbIteration());
    EXPECT_GT(_results.getNbNonLinearIteration(), 0u);
    EXPECT_EQ(_results.getOutlierFlags(), robust.getOutlierFlags());
    EXPECT_EQ(_results.getNbInputData(), 80u);
}

namespace
{

/// Element i of each datum.
Vector columnOf(const DataSet& dataSet, std::size_t i)
{
    Vector column(dataSet.size());
    std::transform(dataSet.begin(), dataSet.end(), column.begin(), [i](const Vector& datum) { return datum(i); });
    return column;
}

/// The decay y = b0 exp(-b1 x) with the parameters (b0, b1), fitted as a line to the logarithms of y.
class DecayEstimator : public BaseEstimator
{
public:
    DecayEstimator()
    {
        initBase(2, 2, 2);
    }

protected:
    BoolResult processEstimation(const DataSet& dataSet, ParameterType& estimParams) override
    {
        DataSet logarithms = dataSet;
        for (Vector& datum : logarithms)
            datum(1) = std::log(datum(1));
        const BoolResult result = _line.computeEstimation(logarithms, estimParams);
        estimParams = makeVector({std::exp(estimParams(1)), -estimParams(0)});
        return result;
    }

    BoolResult processResiduals(const DataSet& dataSet, const ParameterType& estimParams,
                                ResidualsSet& residuals) const override
    {
        const DecayCostFunction decay(columnOf(dataSet, 0), columnOf(dataSet, 1));
        return decay.computeEquations(estimParams, residuals);
    }

private:
    LineEstimator _line;
};

/// Data (x, y) of y = 8 exp(-x / 2) with a little noise, every fourth of them an outlier above it.
DataSet noisyDecay()
{
    test::RandomData random(65);
    DataSet data;
    for (int i = 0; i < 80; ++i)
    {
        const double x = random.real(-2.0, 2.0);
        const double offset = i % 4 == 0 ? random.real(3.0, 9.0) : random.normal(0.01);
        data.push_back(makeVector({x, 8.0 * std::exp(-0.5 * x) + offset}));
    }
    return data;
}

} // namespace

TEST(ProcessEstimationExample, OfTheHeaderAndTheGuideFitsADecay)
{
    const DataSet dataSet = noisyDecay();
    RandomUniformGenerator::getGen().seed(66);

    // DecayEstimator fits a line to the logarithms of the data, DecayCostFunction a decay to the data themselves.
    const auto createCost = [](const DataSet& inliers) -> CostFunctionPtr
    {
        const Vector x = columnOf(inliers, 0);
        const Vector y = columnOf(inliers, 1);
        return boost::make_shared<DecayCostFunction>(x, y);
    };
    EstimationConfig config;
    config.initMSAC(0.1, 0.3);
    EstimationResults results;
    processEstimation(config, boost::make_shared<DecayEstimator>(), createCost, dataSet, results);
    if (!results.getEstimationStatus())
        throw std::runtime_error(results.getEstimationStatus().getMessage());
    const ParameterType params = results.getEstimParams();

    const std::string code = test::readCode(__FILE__);
    EXPECT_THAT(code, HasSubstr(test::readExamples("OVRIXMath/Estimation/EstimationUtils.h").at(1)));
    EXPECT_THAT(code, HasSubstr(test::readGuideExamples("docs/guides/least_squares.md").at(0)));
    EXPECT_NEAR(params(0), 8.0, 0.02);
    EXPECT_NEAR(params(1), 0.5, 0.002);
    EXPECT_LE(computeNbOutliers(results.getOutlierFlags()), 24u);
}

TEST_F(RefinedEstimation, ASolverThatStopsCountsAsDone)
{
    // The sum of squares is |x|: most steps go beyond the kink and are refused until the evaluations run out.
    g_factory = [](const DataSet&)
    {
        return makeScalarProblem([](double x) { return std::sqrt(std::fabs(x)); },
                                 [](double x) { return std::copysign(0.5 / std::sqrt(std::fabs(x)), x); });
    };
    ON_CALL(*_pEstimator, processEstimation)
        .WillByDefault(
            [](const DataSet&, ParameterType& estimParams)
            {
                estimParams(0) = 3.0;
                return BoolResult(true);
            });
    process(numberedData(30));
    EXPECT_TRUE(_results.getEstimationStatus());
    EXPECT_EQ(_results.getEstimationStatus().getMessage(),
              "Number of calls to fcn has reached or exceeded max number of iterations");
    EXPECT_LT(std::fabs(_results.getEstimParams()(0)), 3.0);
}

TEST_F(RefinedEstimation, ASolverThatFailsMakesTheResultsFail)
{
    // A gradient of zero where the equation is not.
    const test::LogCapture log;
    g_factory = [](const DataSet&)
    { return makeScalarProblem([](double) { return 1.0; }, [](double) { return 0.0; }); };
    process(numberedData(30));
    expectFailure("Non linear estimation pass failed\n"
                  "Fvec is orthogonal to the columns of the jacobian to machine precision",
                  _results.getEstimationStatus());
    EXPECT_EQ(log.getTexts(), std::vector<std::string>());
}

TEST_F(RefinedEstimation, AfterASolverThatFailsTheCountsStand)
{
    g_factory = [](const DataSet&)
    { return makeScalarProblem([](double) { return 1.0; }, [](double) { return 0.0; }); };
    process(numberedData(30));
    EXPECT_EQ(_results.getNbInputData(), 30u);
    EXPECT_EQ(_results.getNbMinDataForRobustEstimation(), 5u);
    expectMathRaises("Can't get results from a failed estimation", [this] { _results.getEstimParams(); });
}

TEST_F(RefinedEstimation, AnEvaluationThatFailsIsReportedWithoutItsReason)
{
    g_factory = [](const DataSet&)
    {
        return boost::make_shared<FreeCostFunction>(
            1u, 1u, [](const Vector&, Vector&) { return BoolResult(false, "No equations"); });
    };
    process(numberedData(30));
    expectFailure("Non linear estimation pass failed\nFunction evaluation failed with following reason\n",
                  _results.getEstimationStatus());
}

TEST_F(RefinedEstimation, FailedResidualsOfTheSolversParametersMakeTheResultsFail)
{
    const test::LogCapture log;
    ON_CALL(*_pEstimator, processResiduals)
        .WillByDefault(
            [](const DataSet&, const ParameterType& estimParams, ResidualsSet& residuals)
            {
                std::fill(residuals.begin(), residuals.end(), 1.0);
                return estimParams(0) == 5.0 ? BoolResult(false, "No residuals") : BoolResult(true);
            });
    ON_CALL(*_pEstimator, processEstimation).WillByDefault(Return(BoolResult(true)));
    process(numberedData(30));
    expectFailure("Residuals computation failed while estimation was successful\nNo residuals",
                  _results.getEstimationStatus());
    EXPECT_EQ(log.getTexts(), std::vector<std::string>());
}

TEST_F(RefinedEstimation, SolverParametersOfAnotherNumberRaise)
{
    g_factory = [](const DataSet&) { return boost::make_shared<FreeCostFunction>(2u, 2u); };
    expectMathRaises("Input parameter vector with size 1 is invalid regards to expected number of parameters 2",
                     [this] { process(numberedData(30)); });
}

TEST_F(RefinedEstimation, ACostFunctionThatIsNotInitialisedRaises)
{
    g_factory = [](const DataSet&) { return boost::make_shared<FreeCostFunction>(); };
    expectMathRaises("Cost function has not been initialized", [this] { process(numberedData(30)); });
}

TEST_F(RefinedEstimation, ANullCostFunctionRaises)
{
    g_factory = [](const DataSet&) { return CostFunctionPtr(); };
    expectMathRaises("Cost function shared pointer should not be null for estimation",
                     [this] { process(numberedData(30)); });
}

TEST_F(RefinedEstimation, ANullCostFunctionLeavesTheRobustResults)
{
    g_factory = [](const DataSet&) { return CostFunctionPtr(); };
    EXPECT_THROW(process(numberedData(30)), OVRIXMathException);
    test::expectSuccess(_results.getEstimationStatus());
    EXPECT_EQ(toStd(_results.getEstimParams()), (std::vector<double>{11}));
}

TEST_F(RefinedEstimation, AnExceptionOfTheFactoryComesThroughAndLeavesTheRobustResults)
{
    g_factory = [](const DataSet&) -> CostFunctionPtr { throw NoSuchModel(); };
    expectPassesOnWithRobustResults();
}

TEST_F(RefinedEstimation, AnExceptionOfTheEquationsComesThroughAndLeavesTheRobustResults)
{
    g_factory = [](const DataSet&)
    { return makeScalarProblem([](double) -> double { throw NoSuchModel(); }, [](double) { return 1.0; }); };
    expectPassesOnWithRobustResults();
}

TEST_F(RefinedEstimation, AnExceptionOfTheJacobianComesThroughAndLeavesTheRobustResults)
{
    g_factory = [](const DataSet&)
    { return makeScalarProblem([](double x) { return x; }, [](double) -> double { throw NoSuchModel(); }); };
    expectPassesOnWithRobustResults();
}

TEST_F(RefinedEstimation, AFailedEstimationIsNotRefined)
{
    forbidFactory();
    ON_CALL(*_pEstimator, processEstimation).WillByDefault(Return(BoolResult(false, "No fit")));
    process(numberedData(30));
    expectFailure("Robust estimation failed after 20 runs (with 0 successful runs), while expecting 10 successful runs",
                  _results.getEstimationStatus());
}

TEST_F(RefinedEstimation, TooFewDataWithoutPermissionRaise)
{
    forbidFactory();
    _config.setAllowSimpleEstimation(false);
    expectMathRaises(g_notInitText, [this] { process(numberedData(4)); });
}

TEST_F(RefinedEstimation, ASimpleFitThatStandsInRaisesForWantOfFlags)
{
    forbidFactory();
    expectMathRaises("Data set collection size 4 mismatch with outlier flags collection size 0",
                     [this] { process(numberedData(4)); });
    test::expectSuccess(_results.getEstimationStatus());
    EXPECT_FALSE(_results.hasRobustEstimationDone());
}

TEST_F(RefinedEstimation, TheNonRobustMethodRaisesForWantOfFlags)
{
    forbidFactory();
    _config.initNonRobust();
    expectMathRaises("Data set collection size 30 mismatch with outlier flags collection size 0",
                     [this] { process(numberedData(30)); });
    test::expectSuccess(_results.getEstimationStatus());
}

TEST_F(RefinedEstimation, RaisesAsTheFormWithoutRefinement)
{
    forbidFactory();
    expectMathRaises("Estimator shared pointer should not be null for robust estimator initialization", [this]
                     { processEstimation(_config, EstimatorPtr(), createCostFunction, numberedData(30), _results); });
    expectMathRaises(
        "Estimation configuration has not been initialized",
        [this] { processEstimation(EstimationConfig(), _pEstimator, createCostFunction, numberedData(30), _results); });
}

} // namespace math
} // namespace ovrix
