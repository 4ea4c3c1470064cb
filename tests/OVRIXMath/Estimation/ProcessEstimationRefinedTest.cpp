#include <OVRIXMath/Estimation/EstimationUtils.h>
#include <OVRIXMath/Optimization/NonLinearSolver.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <boost/make_shared.hpp>
#include <gmock/gmock.h>

#include <cmath>
#include <functional>
#include <support/Builders.h>
#include <support/CostFunctions.h>
#include <support/ExpectFailure.h>
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

using test::expectFailure;
using test::expectMathRaises;
using test::FreeCostFunction;
using test::makeVector;
using test::MockEstimator;
using test::toStd;
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

/// Data (0), (1), ..., (nbData - 1).
DataSet numberedData(ovUInt32 nbData)
{
    DataSet data;
    for (ovUInt32 i = 0; i < nbData; ++i)
        data.push_back(makeVector({static_cast<double>(i)}));
    return data;
}

/// A line with outliers on every fourth datum.
DataSet noisyLine()
{
    test::RandomData random(63);
    DataSet data;
    for (int i = 0; i < 80; ++i)
    {
        const double x = random.real(-2.0, 2.0);
        const double offset = i % 4 == 0 ? random.real(3.0, 9.0) : random.normal(0.1);
        data.push_back(makeVector({x, 0.5 * x - 1.0 + offset}));
    }
    return data;
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

/// One equation of one parameter with its derivative.
boost::shared_ptr<FreeCostFunction> createScalarCost(const std::function<double(double)>& equation,
                                                     const std::function<double(double)>& derivative)
{
    return boost::make_shared<FreeCostFunction>(
        1u, 1u,
        [equation](const Vector& params, Vector& equations)
        {
            equations(0) = equation(params(0));
            return BoolResult(true);
        },
        [derivative](const Vector& params, Matrix& jacobian)
        {
            jacobian(0, 0) = derivative(params(0));
            return BoolResult(true);
        });
}

/// The problem x - 5 = 0, solved in one step.
CostFunctionPtr createFive(const DataSet&)
{
    return createScalarCost([](double x) { return x - 5.0; }, [](double) { return 1.0; });
}

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
    const DataSet data = noisyLine();
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

TEST_F(RefinedEstimation, ASolverThatStopsCountsAsDone)
{
    // The sum of squares is |x|: most steps go beyond the kink and are refused until the evaluations run out.
    g_factory = [](const DataSet&)
    {
        return createScalarCost([](double x) { return std::sqrt(std::fabs(x)); },
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
    g_factory = [](const DataSet&) { return createScalarCost([](double) { return 1.0; }, [](double) { return 0.0; }); };
    process(numberedData(30));
    expectFailure("Non linear estimation pass failed\n"
                  "Fvec is orthogonal to the columns of the jacobian to machine precision",
                  _results.getEstimationStatus());
    EXPECT_EQ(log.getTexts(), std::vector<std::string>());
}

TEST_F(RefinedEstimation, AfterASolverThatFailsTheCountsStand)
{
    g_factory = [](const DataSet&) { return createScalarCost([](double) { return 1.0; }, [](double) { return 0.0; }); };
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
