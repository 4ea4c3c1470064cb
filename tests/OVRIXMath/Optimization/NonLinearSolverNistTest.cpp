#include <OVRIXMath/Optimization/NonLinearSolver.h>

#include <boost/make_shared.hpp>
#include <cminpack.h>
#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <ostream>
#include <sstream>
#include <string>
#include <support/Builders.h>
#include <support/HeaderExample.h>
#include <support/NistProblems.h>
#include <vector>

namespace ovrix
{
namespace math
{

namespace
{

using test::getNistProblem;
using test::getNistProblems;
using test::NistCostFunction;
using test::NistCostFunctionWithJacobian;
using test::NistProblem;
using test::toStd;
using testing::ElementsAre;
using testing::HasSubstr;

/// How a solve ends, and the significant digits, at least, in which the parameters, the worst of them, and the sum of
/// squares then agree with the certified values.
struct Reached
{
    eOptStatus status;
    double paramDigits;
    double sumOfSquaresDigits;
};

/// Still under way after a hundred iterations.
constexpr Reached g_unfinished = {eOS_Failed, 0.0, 0.0};

/// Ended on a plateau or in another minimum.
constexpr Reached g_elsewhere = {eOS_Converged, 0.0, 0.0};

constexpr Reached converged(double paramDigits, double sumOfSquaresDigits)
{
    return {eOS_Converged, paramDigits, sumOfSquaresDigits};
}

struct Case
{
    const char* problem;
    int start; ///< 1 or 2, as the data sets count
    Reached withJacobian;
    Reached withDifferences;
};

std::ostream& operator<<(std::ostream& stream, const Case& theCase)
{
    return stream << theCase.problem << " from start " << theCase.start;
}

std::string getName(const testing::TestParamInfo<Case>& info)
{
    return std::string(info.param.problem) + "FromStart" + std::to_string(info.param.start);
}

// Differences reach fewer digits, and how many depends a little on the rounding of the C library's exponential.
const Case g_cases[] = {
    {"BoxBOD", 1, g_elsewhere, g_elsewhere},
    {"BoxBOD", 2, converged(5, 9), converged(5, 9)},
    {"Chwirut1", 1, converged(5, 10), converged(5, 10)},
    {"Chwirut1", 2, converged(5, 10), converged(5, 10)},
    {"DanWood", 1, converged(7, 10), converged(7, 10)},
    {"DanWood", 2, converged(8, 10), converged(8, 10)},
    {"Gauss1", 1, converged(6, 10), converged(6, 10)},
    {"Gauss1", 2, converged(6, 10), converged(6, 10)},
    {"Gauss3", 1, converged(9, 10), converged(8, 10)},
    {"Gauss3", 2, converged(7, 10), converged(7, 10)},
    {"Hahn1", 1, converged(5, 10), g_unfinished},
    {"Hahn1", 2, converged(5, 10), g_unfinished},
    {"Kirby2", 1, converged(6, 10), converged(5, 9)},
    {"Kirby2", 2, converged(5, 10), converged(4, 9)},
    {"Lanczos1", 1, converged(10, 6), converged(10, 6)},
    {"Lanczos1", 2, converged(10, 6), converged(10, 6)},
    {"Lanczos3", 1, converged(6, 10), converged(4, 9)},
    {"Lanczos3", 2, converged(7, 10), converged(4, 9)},
    {"MGH09", 1, g_unfinished, g_unfinished},
    {"MGH09", 2, converged(3, 8), converged(3, 8)},
    {"MGH17", 1, g_elsewhere, g_elsewhere},
    {"MGH17", 2, converged(6, 10), converged(5, 10)},
    {"Misra1a", 1, converged(9, 10), converged(7, 10)},
    {"Misra1a", 2, converged(10, 10), converged(7, 10)},
    {"Misra1b", 1, converged(9, 10), converged(7, 10)},
    {"Misra1b", 2, converged(9, 10), converged(7, 10)},
    {"Rat42", 1, converged(6, 10), converged(6, 10)},
    {"Rat42", 2, converged(7, 10), converged(6, 10)},
    {"Roszman1", 1, converged(5, 10), converged(5, 10)},
    {"Roszman1", 2, converged(5, 10), converged(5, 10)},
    {"Thurber", 1, converged(4, 8), converged(4, 8)},
    {"Thurber", 2, converged(4, 8), converged(4, 8)},
};

const std::vector<double>& getStart(const Case& theCase)
{
    return getNistProblem(theCase.problem).starts[theCase.start - 1];
}

OptResult solve(NonLinearSolver& solver, const CostFunctionPtr& pCostFunction, const Case& theCase)
{
    const std::vector<double>& values = getStart(theCase);
    Vector start(values.size());
    std::copy(values.begin(), values.end(), start.begin());
    return solver.solve(pCostFunction, start);
}

void expectReached(const Reached& expected, const NonLinearSolver& solver, const OptResult& result,
                   const NistProblem& problem)
{
    ASSERT_EQ(result.status, expected.status) << result.msg;
    if (expected.status == eOS_Failed)
    {
        EXPECT_EQ(result.msg, "Number of calls to fcn has reached or exceeded max number of iterations");
        return;
    }
    const double* const b = solver.getEstimParams().data().begin();
    EXPECT_GE(problem.computeParamDigits(b), expected.paramDigits);
    EXPECT_GE(problem.computeSumOfSquaresDigits(b), expected.sumOfSquaresDigits);
    if (expected.paramDigits == 0.0)
    {
        EXPECT_LT(problem.computeParamDigits(b), 1.0) << "It found the certified minimum after all";
    }
}

struct DirectSolution
{
    std::vector<double> params;
    int nbIterations;
};

int evaluateDirectly(void* p, int, int, const double* x, double* fvec, double* fjac, int, int iflag)
{
    const NistProblem& problem = *static_cast<const NistProblem*>(p);
    if (iflag == 1)
        problem.computeResiduals(x, fvec);
    else
        problem.computeJacobian(x, fjac);
    return 0;
}

/// MINPACK's routine on plain arrays, with the solver's tolerances and scaling.
DirectSolution solveDirectly(const NistProblem& problem, const std::vector<double>& start)
{
    const std::size_t m = problem.getNbObservations();
    const std::size_t n = problem.getNbParameters();
    DirectSolution solution{start, 0};
    std::vector<double> fvec(m), fjac(m * n), diag(n), qtf(n), wa1(n), wa2(n), wa3(n), wa4(m);
    std::vector<int> ipvt(n);
    int nfev = 0;
    const double tol = std::sqrt(std::numeric_limits<double>::epsilon());
    lmder(&evaluateDirectly, const_cast<NistProblem*>(&problem), static_cast<int>(m), static_cast<int>(n),
          solution.params.data(), fvec.data(), fjac.data(), static_cast<int>(m), tol, tol, 0.0,
          static_cast<int>(100 * (n + 1)), diag.data(), 1, 100.0, 0, &nfev, &solution.nbIterations, ipvt.data(),
          qtf.data(), wa1.data(), wa2.data(), wa3.data(), wa4.data());
    return solution;
}

/// Three cells of the guide's table: how it ends, and the digits of the parameters and of the sum of squares.
std::string makeCells(const Reached& reached)
{
    if (reached.status == eOS_Failed)
        return "failed, 14 | | |";
    if (reached.paramDigits == 0.0)
        return "elsewhere | | |";
    std::ostringstream cells;
    cells << "converged | " << reached.paramDigits << " | " << reached.sumOfSquaresDigits << " |";
    return cells.str();
}

/// The rows of the guide's table.
std::string makeTable()
{
    std::string table;
    for (const Case& theCase : g_cases)
    {
        table += std::string("| ") + theCase.problem + " | " + std::to_string(theCase.start) + " | " +
                 makeCells(theCase.withJacobian) + " " + makeCells(theCase.withDifferences) + "\n";
    }
    return table;
}

class NonLinearSolverOnNistData : public testing::TestWithParam<Case>
{
};

class NistData : public testing::TestWithParam<std::string>
{
};

std::string getProblemName(const testing::TestParamInfo<std::string>& info)
{
    return info.param;
}

std::vector<std::string> getProblemNames()
{
    std::vector<std::string> names;
    for (const NistProblem& problem : getNistProblems())
        names.push_back(problem.name);
    return names;
}

} // namespace

TEST_P(NonLinearSolverOnNistData, ReachesItsDigitsWithTheJacobian)
{
    const NistProblem& problem = getNistProblem(GetParam().problem);
    NonLinearSolver solver;
    const OptResult result = solve(solver, boost::make_shared<NistCostFunctionWithJacobian>(problem), GetParam());
    expectReached(GetParam().withJacobian, solver, result, problem);
}

TEST_P(NonLinearSolverOnNistData, ReachesItsDigitsWithForwardDifferences)
{
    const NistProblem& problem = getNistProblem(GetParam().problem);
    NonLinearSolver solver;
    const OptResult result = solve(solver, boost::make_shared<NistCostFunction>(problem), GetParam());
    expectReached(GetParam().withDifferences, solver, result, problem);
}

TEST_P(NonLinearSolverOnNistData, GivesTheBitsOfMinpackUnlessItNeedsMoreIterations)
{
    const NistProblem& problem = getNistProblem(GetParam().problem);
    const DirectSolution direct = solveDirectly(problem, getStart(GetParam()));
    NonLinearSolver solver;
    const OptResult result = solve(solver, boost::make_shared<NistCostFunctionWithJacobian>(problem), GetParam());
    if (result.status == eOS_Failed)
    {
        EXPECT_GT(direct.nbIterations, 100);
        return;
    }
    EXPECT_EQ(toStd(solver.getEstimParams()), direct.params);
    EXPECT_EQ(solver.getNbIteration(), static_cast<ovUInt32>(direct.nbIterations));
}

TEST(NonLinearSolverOnAllNistData, ReachesSixDigitsWhereverMinpackDoes)
{
    std::vector<std::string> missed;
    for (const Case& theCase : g_cases)
    {
        const NistProblem& problem = getNistProblem(theCase.problem);
        NonLinearSolver solver;
        const OptResult result = solve(solver, boost::make_shared<NistCostFunctionWithJacobian>(problem), theCase);
        const bool bReached =
            result.status != eOS_Failed && problem.computeParamDigits(solver.getEstimParams().data().begin()) >= 6.0;
        const DirectSolution direct = solveDirectly(problem, getStart(theCase));
        EXPECT_EQ(bReached, problem.computeParamDigits(direct.params.data()) >= 6.0) << theCase;
        if (!bReached)
            missed.push_back(theCase.problem + std::to_string(theCase.start));
    }
    EXPECT_THAT(missed, ElementsAre("BoxBOD1", "BoxBOD2", "Chwirut11", "Chwirut12", "Hahn11", "Hahn12", "Kirby22",
                                    "MGH091", "MGH092", "MGH171", "Roszman11", "Roszman12", "Thurber1", "Thurber2"));
}

TEST(NonLinearSolverOnAllNistData, ReachesWhatTheGuideTells)
{
    EXPECT_THAT(test::readCode("docs/guides/least_squares.md"), HasSubstr(makeTable()));
}

TEST_P(NistData, TheCertifiedParametersGiveTheCertifiedSumOfSquares)
{
    const NistProblem& problem = getNistProblem(GetParam());
    // No residual is left in Lanczos1 but the rounding of the eleven digits of its parameters.
    const double sumOfSquares = problem.computeSumOfSquares(problem.certifiedParams.data());
    EXPECT_NEAR(sumOfSquares, problem.certifiedSumOfSquares, 1e-10 * problem.certifiedSumOfSquares + 1e-20);
}

TEST_P(NistData, TheDerivativesAgreeWithCentralDifferences)
{
    const NistProblem& problem = getNistProblem(GetParam());
    const std::size_t n = problem.getNbParameters();
    const std::size_t m = problem.getNbObservations();
    std::vector<double> jacobian(n * m);
    problem.computeJacobian(problem.certifiedParams.data(), jacobian.data());
    for (std::size_t j = 0; j < n; ++j)
    {
        const double h = 1e-5 * problem.certifiedParams[j];
        std::vector<double> b = problem.certifiedParams;
        std::vector<double> above(m);
        std::vector<double> below(m);
        b[j] = problem.certifiedParams[j] + h;
        problem.computeResiduals(b.data(), above.data());
        b[j] = problem.certifiedParams[j] - h;
        problem.computeResiduals(b.data(), below.data());

        double largest = 0.0;
        double largestError = 0.0;
        for (std::size_t i = 0; i < m; ++i)
        {
            const double exact = jacobian[j * m + i];
            largest = std::max(largest, std::fabs(exact));
            largestError = std::max(largestError, std::fabs(exact - (above[i] - below[i]) / (2.0 * h)));
        }
        // The differences are off by the square of the relative step.
        EXPECT_LE(largestError, 1e-7 * largest) << "with respect to b" << j + 1;
    }
}

INSTANTIATE_TEST_SUITE_P(Nist, NonLinearSolverOnNistData, testing::ValuesIn(g_cases), getName);
INSTANTIATE_TEST_SUITE_P(Nist, NistData, testing::ValuesIn(getProblemNames()), getProblemName);

} // namespace math
} // namespace ovrix
