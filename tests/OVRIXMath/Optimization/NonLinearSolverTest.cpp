#include <OVRIXMath/Optimization/NonLinearSolver.h>

#include <boost/make_shared.hpp>
#include <gmock/gmock.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <set>
#include <stdexcept>
#include <support/AtOnce.h>
#include <support/Builders.h>
#include <support/CostFunctions.h>
#include <support/ExpectFailure.h>
#include <support/HeaderExample.h>
#include <support/LogCapture.h>
#include <vector>

namespace ovrix
{
namespace math
{

namespace
{

using test::DecayCostFunction;
using test::expectMathRaises;
using test::FreeCostFunction;
using test::makeScalarProblem;
using test::makeVector;
using test::toStd;
using testing::ElementsAre;
using testing::HasSubstr;

using FreeCostFunctionPtr = boost::shared_ptr<FreeCostFunction>;

const char* const g_noResult = "Non linear solver has not been successfully executed";
const char* const g_sumOfSquaresSettled =
    "Algorithm estimates that the relative error in the sum of squares is at most tol";
const char* const g_tooManyCalls = "Number of calls to fcn has reached or exceeded max number of iterations";
const char* const g_equationsFailed = "Function evaluation failed with following reason\n";
const char* const g_jacobianFailed = "Jacobian evaluation failed with following reason\n";
const char* const g_unexpectedInput = "Unexpected input parameters for minpack function wrapper";

/// x^2 - 2
FreeCostFunctionPtr makeSquareRootProblem()
{
    return makeScalarProblem([](double x) { return x * x - 2.0; }, [](double x) { return 2.0 * x; });
}

/// The equations x - value of two values: a root exists only where they are equal.
FreeCostFunctionPtr makeMeanProblem(double value1, double value2)
{
    return boost::make_shared<FreeCostFunction>(
        1, 2,
        [=](const Vector& p, Vector& equations)
        {
            equations[0] = p[0] - value1;
            equations[1] = p[0] - value2;
            return BoolResult(true);
        },
        [](const Vector&, Matrix& jacobian)
        {
            jacobian(0, 0) = 1.0;
            jacobian(0, 1) = 1.0;
            return BoolResult(true);
        });
}

/// x0 - 1 and x1 + 2, and the slope of both.
FreeCostFunctionPtr makeLinearProblem()
{
    return boost::make_shared<FreeCostFunction>(2, 2,
                                                [](const Vector& p, Vector& equations)
                                                {
                                                    equations[0] = p[0] - 1.0;
                                                    equations[1] = p[1] + 2.0;
                                                    return BoolResult(true);
                                                });
}

void expectNoResult(const NonLinearSolver& solver)
{
    expectMathRaises(g_noResult, [&] { solver.getNbIteration(); });
    expectMathRaises(g_noResult, [&] { solver.getEstimParams(); });
}

void expectOutcome(eOptStatus status, const std::string& msg, const OptResult& result)
{
    EXPECT_EQ(result.status, status);
    EXPECT_EQ(result.msg, msg);
}

/// Expects a failed solve, with no result to read afterwards.
void expectFailedSolve(const std::string& msg, const CostFunctionConstPtr& pCostFunction, const Vector& start)
{
    NonLinearSolver solver;
    expectOutcome(eOS_Failed, msg, solver.solve(pCostFunction, start));
    expectNoResult(solver);
}

} // namespace

TEST(NonLinearSolver, TheExampleOfTheHeaderCompiles)
{
    const Vector x = makeVector({0.0, 1.0, 2.0});
    const Vector y = makeVector({8.0, 4.0, 2.0});
    const Vector start = makeVector({1.0, 1.0});
    NonLinearSolver solver;
    const OptResult result = solver.solve(boost::make_shared<DecayCostFunction>(x, y), start);
    if (result.status == eOS_Failed)
        throw std::runtime_error(result.msg);
    const Vector fitted = solver.getEstimParams();

    EXPECT_THAT(test::readCode(__FILE__), HasSubstr(test::readExample("OVRIXMath/Optimization/NonLinearSolver.h")));
    EXPECT_NEAR(fitted[0], 8.0, 1e-12);
    EXPECT_NEAR(fitted[1], std::log(2.0), 1e-12);
}

TEST(NonLinearSolver, TheStatusesHaveTheirNumbers)
{
    EXPECT_EQ(static_cast<int>(eOS_Converged), 0);
    EXPECT_EQ(static_cast<int>(eOS_Stopped), 1);
    EXPECT_EQ(static_cast<int>(eOS_Failed), 2);
}

TEST(NonLinearSolver, HasNoResultWhenNew)
{
    expectNoResult(NonLinearSolver());
}

TEST(NonLinearSolver, RaisesOnANullPointerAndIsCleared)
{
    NonLinearSolver solver;
    solver.solve(makeLinearProblem(), makeVector({5.0, 5.0}));
    const Vector& params = solver.getEstimParams();
    expectMathRaises("Input cost function shared pointer should not be null",
                     [&] {
                         solver.solve(CostFunctionConstPtr(), makeVector({1.0, 1.0}));
                     });
    expectNoResult(solver);
    EXPECT_THAT(toStd(params), ElementsAre(0.0, 0.0));
}

TEST(NonLinearSolver, RaisesOnACostFunctionThatIsNotInitialised)
{
    NonLinearSolver solver;
    expectMathRaises("Cost function has not been initialized",
                     [&] { solver.solve(boost::make_shared<FreeCostFunction>(), makeVector({1.0})); });
    expectNoResult(solver);
}

TEST(NonLinearSolver, RaisesOnAStartOfAnotherSizeAtTheFirstEvaluation)
{
    NonLinearSolver solver;
    expectMathRaises("Input parameter vector with size 3 is invalid regards to expected number of parameters 2",
                     [&] {
                         solver.solve(makeLinearProblem(), makeVector({1.0, 2.0, 3.0}));
                     });
    expectMathRaises("Input parameter vector with size 0 is invalid regards to expected number of parameters 2",
                     [&] { solver.solve(makeLinearProblem(), Vector()); });
    expectNoResult(solver);
}

TEST(NonLinearSolver, LogsNothingUnlessItRaises)
{
    const test::LogCapture log;
    NonLinearSolver solver;
    solver.solve(makeSquareRootProblem(), makeVector({3.0}));
    solver.solve(makeMeanProblem(-1.0, 1.0), makeVector({0.0}));
    EXPECT_TRUE(log.getTexts().empty());
}

TEST(NonLinearSolver, ConvergesWhenTheSumOfSquaresSettles)
{
    NonLinearSolver solver;
    const auto pProblem = makeScalarProblem([](double x) { return x * x + 1.0; }, [](double x) { return 2.0 * x; });
    expectOutcome(eOS_Converged, g_sumOfSquaresSettled, solver.solve(pProblem, makeVector({3.0})));
    EXPECT_NEAR(solver.getEstimParams()[0], 0.0, 1e-7);
}

TEST(NonLinearSolver, ConvergesWhenTheParametersSettle)
{
    NonLinearSolver solver;
    expectOutcome(eOS_Converged,
                  "Algorithm estimates that the relative error between x and the solution is at most tol",
                  solver.solve(makeSquareRootProblem(), makeVector({3.0})));
    EXPECT_NEAR(solver.getEstimParams()[0], std::sqrt(2.0), 1e-15);
}

TEST(NonLinearSolver, ConvergesWhenBothSettle)
{
    NonLinearSolver solver;
    expectOutcome(
        eOS_Converged,
        "Algorithm estimates that the relative error in the sum of squares and between x and the solution is at "
        "most tol",
        solver.solve(makeMeanProblem(1.0, 2.5), makeVector({3.0})));
    EXPECT_NEAR(solver.getEstimParams()[0], 1.75, 1e-15);
}

TEST(NonLinearSolver, ConvergesWithNullResidualsAtAnExactSolution)
{
    NonLinearSolver solver;
    expectOutcome(eOS_Converged, "Null residuals on last iteration",
                  solver.solve(makeMeanProblem(2.0, 2.0), makeVector({3.0})));
    EXPECT_THAT(toStd(solver.getEstimParams()), ElementsAre(2.0));
}

TEST(NonLinearSolver, CountsResidualsWhoseSquaresVanishAsNull)
{
    // No step can better an equation that has no derivative left, and 1e-200 squared is zero.
    const auto pProblem = makeScalarProblem([](double) { return 1e-200; }, [](double) { return 0.0; });
    NonLinearSolver solver;
    expectOutcome(eOS_Converged, "Null residuals on last iteration", solver.solve(pProblem, makeVector({3.0})));
}

TEST(NonLinearSolver, FailsWhereTheGradientVanishesAndTheEquationsDoNot)
{
    expectFailedSolve("Fvec is orthogonal to the columns of the jacobian to machine precision",
                      makeMeanProblem(-1.0, 1.0), makeVector({0.0}));
}

TEST(NonLinearSolver, FailsWithFewerEquationsThanParameters)
{
    const auto pProblem = boost::make_shared<FreeCostFunction>(2, 1);
    expectFailedSolve("Improper input parameters", pProblem, makeVector({1.0, 1.0}));
    EXPECT_TRUE(pProblem->getPoints().empty());
}

TEST(NonLinearSolver, FailsWhenTheIterationsRunOutFirst)
{
    // R. R. Meyer's thermistor problem from its usual start, a valley so curved that the way along it takes 116 steps.
    const auto pProblem = boost::make_shared<FreeCostFunction>(
        3, 16,
        [](const Vector& p, Vector& equations)
        {
            const double resistances[] = {34780, 28610, 23650, 19630, 16370, 13720, 11540, 9744,
                                          8261,  7030,  6005,  5147,  4427,  3820,  3307,  2872};
            for (std::size_t i = 0; i < 16; ++i)
                equations[i] = p[0] * std::exp(p[1] / (50.0 + 5.0 * static_cast<double>(i) + p[2])) - resistances[i];
            return BoolResult(true);
        },
        [](const Vector& p, Matrix& jacobian)
        {
            for (std::size_t i = 0; i < 16; ++i)
            {
                const double t = 50.0 + 5.0 * static_cast<double>(i) + p[2];
                const double e = std::exp(p[1] / t);
                jacobian(0, i) = e;
                jacobian(1, i) = p[0] * e / t;
                jacobian(2, i) = -p[0] * e * p[1] / (t * t);
            }
            return BoolResult(true);
        });
    expectFailedSolve(g_tooManyCalls, pProblem, makeVector({0.02, 4000.0, 250.0}));
    EXPECT_LT(pProblem->getPoints().size(), 400u);
}

TEST(NonLinearSolver, ExceedsTheIterationsByOneBeforeItFails)
{
    // Each step of the exponential succeeds, adds one to x and never converges: one evaluation for each iteration.
    int nbJacobians = 0;
    const auto pProblem = makeScalarProblem([](double x) { return std::exp(-x); },
                                            [&nbJacobians](double x)
                                            {
                                                ++nbJacobians;
                                                return -std::exp(-x);
                                            });
    expectFailedSolve(g_tooManyCalls, pProblem, makeVector({0.0}));
    EXPECT_EQ(nbJacobians, 101);
    EXPECT_EQ(pProblem->getPoints().size(), 101u);
}

TEST(NonLinearSolver, StopsWhenTheEvaluationsRunOutFirst)
{
    // The sum of squares is |x|: steps go beyond the kink and most of them are refused.
    const auto pProblem = makeScalarProblem([](double x) { return std::sqrt(std::fabs(x)); },
                                            [](double x) { return std::copysign(0.5 / std::sqrt(std::fabs(x)), x); });
    NonLinearSolver solver;
    expectOutcome(eOS_Stopped, g_tooManyCalls, solver.solve(pProblem, makeVector({3.0})));
    EXPECT_EQ(pProblem->getPoints().size(), 200u);
    EXPECT_LT(solver.getNbIteration(), 100u);
    EXPECT_NEAR(solver.getEstimParams()[0], 0.0, 1e-50);
}

TEST(NonLinearSolver, FailsForAnUnknownReasonWhenTheGradientIsBelowPrecisionButNotZero)
{
    // The slope at the start is so small that the step goes far off and nothing is gained.
    const auto pProblem = boost::make_shared<FreeCostFunction>(
        1, 2,
        [](const Vector& p, Vector& equations)
        {
            equations[0] = p[0] * p[0] + 1e-20 * p[0] + 1e-17;
            equations[1] = 1.0;
            return BoolResult(true);
        },
        [](const Vector& p, Matrix& jacobian)
        {
            jacobian(0, 0) = 2.0 * p[0] + 1e-20;
            jacobian(0, 1) = 0.0;
            return BoolResult(true);
        });
    expectFailedSolve("Algorithm ended for an unknown reason", pProblem, makeVector({0.0}));
}

TEST(NonLinearSolver, FailsOnEquationsThatAreNotANumber)
{
    const auto pProblem =
        makeScalarProblem([](double) { return std::numeric_limits<double>::quiet_NaN(); }, [](double) { return 1.0; });
    expectFailedSolve(g_tooManyCalls, pProblem, makeVector({0.0}));
}

TEST(NonLinearSolver, FailsOnAFailedEvaluationWithoutItsReason)
{
    const auto pProblem = boost::make_shared<FreeCostFunction>(
        1, 1, [](const Vector&, Vector&) { return BoolResult(false, "Out of range"); });
    expectFailedSolve(g_equationsFailed, pProblem, makeVector({0.0}));
    EXPECT_EQ(pProblem->getPoints().size(), 1u);
}

TEST(NonLinearSolver, FailsOnAFailedEvaluationAtATrialPoint)
{
    const auto pProblem = boost::make_shared<FreeCostFunction>(1, 1,
                                                               [](const Vector& p, Vector& equations)
                                                               {
                                                                   equations[0] = p[0] - 1.0;
                                                                   return BoolResult(p[0] > 2.0);
                                                               });
    expectFailedSolve(g_equationsFailed, pProblem, makeVector({3.0}));
}

TEST(NonLinearSolver, FailsOnAFailedJacobianWithoutItsReason)
{
    const auto pProblem = boost::make_shared<FreeCostFunction>(
        1, 1,
        [](const Vector& p, Vector& equations)
        {
            equations[0] = p[0];
            return BoolResult(true);
        },
        [](const Vector&, Matrix&) { return BoolResult(false, "Out of range"); });
    expectFailedSolve(g_jacobianFailed, pProblem, makeVector({3.0}));
    EXPECT_EQ(pProblem->getPoints().size(), 1u);
}

TEST(NonLinearSolver, FailsOnEquationsThatTakeOtherStorage)
{
    const auto pProblem = boost::make_shared<FreeCostFunction>(2, 2,
                                                               [](const Vector& p, Vector& equations)
                                                               {
                                                                   equations = 2.0 * p;
                                                                   return BoolResult(true);
                                                               });
    expectFailedSolve(g_unexpectedInput, pProblem, makeVector({3.0, 4.0}));
}

TEST(NonLinearSolver, FailsOnAJacobianThatTakesOtherStorage)
{
    const auto pProblem = boost::make_shared<FreeCostFunction>(
        1, 1,
        [](const Vector& p, Vector& equations)
        {
            equations[0] = p[0];
            return BoolResult(true);
        },
        [](const Vector&, Matrix& jacobian)
        {
            jacobian = 2.0 * boost::numeric::ublas::identity_matrix<double>(1);
            return BoolResult(true);
        });
    expectFailedSolve(g_unexpectedInput, pProblem, makeVector({3.0}));
}

TEST(NonLinearSolver, FailsOnAJacobianThatIsResizedToItsOwnSize)
{
    const auto pProblem = boost::make_shared<FreeCostFunction>(
        1, 1,
        [](const Vector& p, Vector& equations)
        {
            equations[0] = p[0];
            return BoolResult(true);
        },
        [](const Vector&, Matrix& jacobian)
        {
            jacobian.resize(1, 1);
            jacobian(0, 0) = 1.0;
            return BoolResult(true);
        });
    expectFailedSolve(g_unexpectedInput, pProblem, makeVector({3.0}));
}

TEST(NonLinearSolver, FailsOnEquationsOfAnotherSizeAtTheSameAddress)
{
    // Memory for two elements comes from where that for three has just gone.
    const auto pProblem = boost::make_shared<FreeCostFunction>(1, 3,
                                                               [](const Vector&, Vector& equations)
                                                               {
                                                                   equations.resize(0);
                                                                   equations.resize(2);
                                                                   return BoolResult(true);
                                                               });
    expectFailedSolve(g_unexpectedInput, pProblem, makeVector({3.0}));
    EXPECT_EQ(pProblem->getPoints().size(), 1u);
}

TEST(NonLinearSolver, FailsOnAJacobianWithRowsAndColumnsExchangedInTheSameStorage)
{
    const auto pProblem = boost::make_shared<FreeCostFunction>(
        2, 3,
        [](const Vector& p, Vector& equations)
        {
            equations[0] = p[0];
            equations[1] = p[1];
            equations[2] = 1.0;
            return BoolResult(true);
        },
        [](const Vector&, Matrix& jacobian)
        {
            const double* const storage = jacobian.data().begin();
            jacobian.resize(3, 2, false);
            EXPECT_EQ(jacobian.data().begin(), storage);
            return BoolResult(true);
        });
    expectFailedSolve(g_unexpectedInput, pProblem, makeVector({3.0, 4.0}));
}

namespace
{

struct NoSuchModel
{
    int value;
};

/// Expects that what an evaluation throws comes out of the solve as it is, and that the solver can be used again.
void expectPassesOn(const CostFunctionConstPtr& pCostFunction)
{
    NonLinearSolver solver;
    try
    {
        solver.solve(pCostFunction, makeVector({3.0}));
        ADD_FAILURE() << "Nothing was thrown";
    }
    catch (const NoSuchModel& exception)
    {
        EXPECT_EQ(exception.value, 42);
    }
    expectNoResult(solver);
    EXPECT_EQ(solver.solve(makeLinearProblem(), makeVector({5.0, 5.0})).status, eOS_Converged);
    EXPECT_THAT(toStd(solver.getEstimParams()), ElementsAre(1.0, -2.0));
}

} // namespace

TEST(NonLinearSolver, LetsAnExceptionOfTheEquationsThrough)
{
    expectPassesOn(boost::make_shared<FreeCostFunction>(
        1, 1, [](const Vector&, Vector&) -> BoolResult { throw NoSuchModel{42}; }));
}

TEST(NonLinearSolver, LetsAnExceptionOfTheJacobianThrough)
{
    expectPassesOn(makeScalarProblem([](double x) { return x; }, [](double) -> double { throw NoSuchModel{42}; }));
}

TEST(NonLinearSolver, LetsAnExceptionAtALaterTrialPointThrough)
{
    int nbEquations = 0;
    int nbJacobians = 0;
    expectPassesOn(makeScalarProblem(
        [&nbEquations](double x)
        {
            if (++nbEquations == 4)
                throw NoSuchModel{42};
            return x * x - 2.0;
        },
        [&nbJacobians](double x)
        {
            ++nbJacobians;
            return 2.0 * x;
        }));
    EXPECT_EQ(nbEquations, 4);
    EXPECT_GT(nbJacobians, 1);
}

TEST(NonLinearSolver, CanBeUsedAgainAfterAFailure)
{
    NonLinearSolver solver;
    EXPECT_EQ(solver.solve(makeMeanProblem(-1.0, 1.0), makeVector({0.0})).status, eOS_Failed);
    EXPECT_EQ(solver.solve(makeLinearProblem(), makeVector({5.0, 5.0})).status, eOS_Converged);
    EXPECT_THAT(toStd(solver.getEstimParams()), ElementsAre(1.0, -2.0));
}

TEST(NonLinearSolver, GivesTheSameAnswerWhenUsedAgain)
{
    NonLinearSolver used;
    used.solve(makeLinearProblem(), makeVector({5.0, 5.0}));
    used.solve(makeSquareRootProblem(), makeVector({3.0}));
    NonLinearSolver fresh;
    fresh.solve(makeSquareRootProblem(), makeVector({3.0}));
    EXPECT_EQ(toStd(used.getEstimParams()), toStd(fresh.getEstimParams()));
    EXPECT_EQ(used.getNbIteration(), fresh.getNbIteration());
}

TEST(NonLinearSolver, CountsAnIterationForEachJacobian)
{
    int nbJacobians = 0;
    const auto pProblem = makeScalarProblem([](double x) { return x * x - 2.0; },
                                            [&nbJacobians](double x)
                                            {
                                                ++nbJacobians;
                                                return 2.0 * x;
                                            });
    NonLinearSolver solver;
    solver.solve(pProblem, makeVector({3.0}));
    EXPECT_EQ(solver.getNbIteration(), static_cast<ovUInt32>(nbJacobians));
    EXPECT_GT(nbJacobians, 1);
}

TEST(NonLinearSolver, StartsWhereItIsTold)
{
    const auto pProblem = makeLinearProblem();
    const Vector start = makeVector({5.0, 7.0});
    NonLinearSolver().solve(pProblem, start);
    EXPECT_THAT(pProblem->getPoints().front(), ElementsAre(5.0, 7.0));
    EXPECT_THAT(toStd(start), ElementsAre(5.0, 7.0));
}

TEST(NonLinearSolver, StartsFromZerosWhenItIsGivenItsOwnEstimate)
{
    NonLinearSolver solver;
    solver.solve(makeLinearProblem(), makeVector({5.0, 5.0}));
    const auto pProblem = makeLinearProblem();
    solver.solve(pProblem, solver.getEstimParams());
    EXPECT_THAT(pProblem->getPoints().front(), ElementsAre(0.0, 0.0));
}

TEST(NonLinearSolver, ClearResultsTakesTheResultAway)
{
    NonLinearSolver solver;
    solver.solve(makeLinearProblem(), makeVector({5.0, 5.0}));
    const Vector& params = solver.getEstimParams();
    solver.clearResults();
    expectNoResult(solver);
    EXPECT_THAT(toStd(params), ElementsAre(0.0, 0.0));
}

TEST(NonLinearSolver, HoldsTheCostFunctionUntilItIsCleared)
{
    const auto pProblem = makeLinearProblem();
    NonLinearSolver solver;
    solver.solve(pProblem, makeVector({5.0, 5.0}));
    EXPECT_EQ(pProblem.use_count(), 2);
    solver.clearResults();
    EXPECT_EQ(pProblem.use_count(), 1);
}

TEST(NonLinearSolver, HandsTheSameFewArraysToEveryEvaluation)
{
    std::set<const Vector*> params;
    std::set<const Vector*> equations;
    std::set<const Matrix*> jacobians;
    const auto pProblem = boost::make_shared<FreeCostFunction>(
        1, 1,
        [&](const Vector& p, Vector& f)
        {
            params.insert(&p);
            equations.insert(&f);
            f[0] = p[0] * p[0] - 2.0;
            return BoolResult(true);
        },
        [&](const Vector& p, Matrix& jacobian)
        {
            params.insert(&p);
            jacobians.insert(&jacobian);
            jacobian(0, 0) = 2.0 * p[0];
            return BoolResult(true);
        });
    NonLinearSolver solver;
    solver.solve(pProblem, makeVector({3.0}));
    EXPECT_EQ(params.size(), 2u);
    EXPECT_EQ(params.count(&solver.getEstimParams()), 1u);
    EXPECT_EQ(equations.size(), 2u);
    EXPECT_EQ(jacobians.size(), 1u);
}

TEST(NonLinearSolver, LeavesZerosInAllButTheEstimate)
{
    const double* equations = nullptr;
    const double* jacobian = nullptr;
    const double* trialParams = nullptr;
    const double* trialEquations = nullptr;
    const auto pProblem = boost::make_shared<FreeCostFunction>(
        1, 1,
        [&](const Vector& p, Vector& f)
        {
            f[0] = p[0] * p[0] - 2.0;
            if (equations == nullptr)
            {
                equations = f.data().begin();
                return BoolResult(true);
            }
            trialParams = p.data().begin();
            trialEquations = f.data().begin();
            return BoolResult(true);
        },
        [&](const Vector& p, Matrix& j)
        {
            jacobian = j.data().begin();
            j(0, 0) = 2.0 * p[0];
            return BoolResult(true);
        });
    NonLinearSolver solver;
    solver.solve(pProblem, makeVector({3.0}));
    EXPECT_EQ(*equations, 0.0);
    EXPECT_EQ(*jacobian, 0.0);
    EXPECT_EQ(*trialParams, 0.0);
    EXPECT_EQ(*trialEquations, 0.0);
}

TEST(NonLinearSolver, SolvesOnSeveralThreadsAtOnce)
{
    test::expectSameAtOnce(
        [](std::size_t thread)
        {
            NonLinearSolver solver;
            solver.solve(makeSquareRootProblem(), makeVector({3.0 + static_cast<double>(thread)}));
            return test::outcomeOf(solver.getEstimParams(), solver.getNbIteration());
        });
}

} // namespace math
} // namespace ovrix
