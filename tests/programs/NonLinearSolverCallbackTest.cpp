// The solver with a stand-in for lmder: how it is called, what its callback answers, and what becomes of each of its
// return codes, those included that the real one cannot give with the solver's tolerances.

#include <OVRIXMath/Optimization/NonLinearSolver.h>

#include <boost/make_shared.hpp>
#include <cminpack.h>
#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <ostream>
#include <set>
#include <support/AllocationCount.h>
#include <support/Builders.h>
#include <support/ExpectFailure.h>
#include <vector>

namespace
{

/// What lmder was called with.
struct LmderCall
{
    cminpack_funcder_mn fcn;
    void* p;
    int m;
    int n;
    double* x;
    double* fvec;
    double* fjac;
    int ldfjac;
    double ftol;
    double xtol;
    double gtol;
    int maxfev;
    double* diag;
    int mode;
    double factor;
    int nprint;
    int* ipvt;
    double* qtf;
    double* wa1;
    double* wa2;
    double* wa3;
    double* wa4;

    int evaluateEquations(double* params, double* equations) const
    {
        return fcn(p, m, n, params, equations, fjac, ldfjac, 1);
    }

    int evaluateJacobian(double* params, double* jacobian) const
    {
        return fcn(p, m, n, params, fvec, jacobian, ldfjac, 2);
    }
};

/// Stands for the next runs of lmder.
std::function<int(const LmderCall&)> g_lmder;

} // namespace

extern "C" int lmder(cminpack_funcder_mn fcn, void* p, int m, int n, double* x, double* fvec, double* fjac, int ldfjac,
                     double ftol, double xtol, double gtol, int maxfev, double* diag, int mode, double factor,
                     int nprint, int* /*nfev*/, int* /*njev*/, int* ipvt, double* qtf, double* wa1, double* wa2,
                     double* wa3, double* wa4)
{
    return g_lmder({fcn,    p,    m,    n,      x,      fvec, fjac, ldfjac, ftol, xtol, gtol,
                    maxfev, diag, mode, factor, nprint, ipvt, qtf,  wa1,    wa2,  wa3,  wa4});
}

namespace ovrix
{
namespace math
{

namespace
{

using test::expectMathRaises;
using test::getNbAllocations;
using test::makeVector;
using test::toStd;
using testing::Each;
using testing::ElementsAre;

/// Two parameters a, b and three equations a + b, a - b, 2 a.
class Problem : public BaseCostFunction
{
public:
    Problem()
    {
        initBase(2, 3);
    }

    bool bEvaluates = true;

protected:
    BoolResult processEquations(const Vector& params, Vector& equations) const override
    {
        if (!bEvaluates)
            return BoolResult(false, "Out of range");
        equations[0] = params[0] + params[1];
        equations[1] = params[0] - params[1];
        equations[2] = 2.0 * params[0];
        return true;
    }

    BoolResult processJacobian(const Vector&, Matrix& jacobian) const override
    {
        if (!bEvaluates)
            return BoolResult(false, "Out of range");
        const double values[] = {1.0, 1.0, 2.0, 1.0, -1.0, 0.0};
        std::copy(std::begin(values), std::end(values), jacobian.data().begin());
        return true;
    }
};

class NonLinearSolverCallback : public testing::Test
{
protected:
    /// Solves the problem with a function in the place of lmder.
    OptResult solveWith(std::function<int(const LmderCall&)> replacement)
    {
        g_lmder = std::move(replacement);
        return _solver.solve(_pProblem, makeVector({7.0, 9.0}));
    }

    boost::shared_ptr<Problem> _pProblem = boost::make_shared<Problem>();
    NonLinearSolver _solver;
};

struct ReturnCode
{
    int info;
    eOptStatus status;
    const char* msg;
};

std::ostream& operator<<(std::ostream& stream, const ReturnCode& code)
{
    return stream << code.info;
}

class NonLinearSolverReturnCode : public testing::TestWithParam<ReturnCode>
{
};

} // namespace

TEST_F(NonLinearSolverCallback, LmderIsToldSizesTolerancesAndLimits)
{
    solveWith(
        [this](const LmderCall& call)
        {
            EXPECT_EQ(call.p, &_solver);
            EXPECT_EQ(call.m, 3);
            EXPECT_EQ(call.n, 2);
            EXPECT_EQ(call.ldfjac, 3);
            EXPECT_EQ(call.ftol, 0x1p-26);
            EXPECT_EQ(call.xtol, 0x1p-26);
            EXPECT_EQ(call.gtol, 0.0);
            EXPECT_EQ(call.maxfev, 300);
            EXPECT_EQ(call.mode, 1);
            EXPECT_EQ(call.factor, 100.0);
            EXPECT_EQ(call.nprint, 0);
            return 1;
        });
}

TEST_F(NonLinearSolverCallback, LmderHasWritableArraysOfItsOwn)
{
    solveWith(
        [](const LmderCall& call)
        {
            std::set<void*> arrays = {call.x,    call.fvec, call.fjac, call.diag, call.qtf,
                                      call.ipvt, call.wa1,  call.wa2,  call.wa3,  call.wa4};
            EXPECT_EQ(arrays.size(), 10u);
            for (double* const array : {call.x, call.diag, call.qtf, call.wa1, call.wa2, call.wa3})
                std::fill_n(array, call.n, 5.0);
            for (double* const array : {call.fvec, call.wa4})
                std::fill_n(array, call.m, 5.0);
            std::fill_n(call.fjac, call.n * call.ldfjac, 5.0);
            std::fill_n(call.ipvt, call.n, 5);
            return 1;
        });
}

TEST_F(NonLinearSolverCallback, TheArrayOfTheParametersIsTheEstimate)
{
    solveWith(
        [](const LmderCall& call)
        {
            EXPECT_EQ(call.x[0], 7.0);
            EXPECT_EQ(call.x[1], 9.0);
            call.x[0] = 5.0;
            return 1;
        });
    EXPECT_THAT(toStd(_solver.getEstimParams()), ElementsAre(5.0, 9.0));
}

TEST_F(NonLinearSolverCallback, EvaluatesTheEquationsInEitherPairOfArrays)
{
    solveWith(
        [](const LmderCall& call)
        {
            call.wa2[0] = 1.0;
            call.wa2[1] = 2.0;
            EXPECT_EQ(call.evaluateEquations(call.x, call.fvec), 0);
            EXPECT_EQ(call.evaluateEquations(call.wa2, call.wa4), 0);
            EXPECT_THAT(std::vector<double>(call.fvec, call.fvec + 3), ElementsAre(16.0, -2.0, 14.0));
            EXPECT_THAT(std::vector<double>(call.wa4, call.wa4 + 3), ElementsAre(3.0, -1.0, 2.0));
            EXPECT_EQ(call.evaluateEquations(call.wa2, call.fvec), 0);
            EXPECT_EQ(call.evaluateEquations(call.x, call.wa4), 0);
            EXPECT_THAT(std::vector<double>(call.fvec, call.fvec + 3), ElementsAre(3.0, -1.0, 2.0));
            EXPECT_THAT(std::vector<double>(call.wa4, call.wa4 + 3), ElementsAre(16.0, -2.0, 14.0));
            return 1;
        });
}

TEST_F(NonLinearSolverCallback, EvaluatesTheJacobianWithARowForEachParameter)
{
    solveWith(
        [](const LmderCall& call)
        {
            EXPECT_EQ(call.evaluateJacobian(call.x, call.fjac), 0);
            EXPECT_THAT(std::vector<double>(call.fjac, call.fjac + 6), ElementsAre(1.0, 1.0, 2.0, 1.0, -1.0, 0.0));
            return 1;
        });
}

TEST_F(NonLinearSolverCallback, AllocatesNothingForAnEvaluation)
{
    solveWith(
        [](const LmderCall& call)
        {
            const std::size_t nbAllocations = getNbAllocations();
            call.evaluateEquations(call.x, call.fvec);
            call.evaluateEquations(call.wa2, call.wa4);
            call.evaluateJacobian(call.x, call.fjac);
            EXPECT_EQ(getNbAllocations(), nbAllocations);
            return 1;
        });
}

TEST_F(NonLinearSolverCallback, RefusesArraysThatItDoesNotKnow)
{
    solveWith(
        [](const LmderCall& call)
        {
            double foreign[6] = {};
            EXPECT_EQ(call.evaluateEquations(foreign, call.fvec), -4);
            EXPECT_EQ(call.evaluateEquations(call.x, foreign), -4);
            EXPECT_EQ(call.evaluateJacobian(foreign, call.fjac), -4);
            EXPECT_EQ(call.evaluateJacobian(call.x, foreign), -4);
            EXPECT_THAT(foreign, Each(0.0));
            return 1;
        });
    EXPECT_EQ(_solver.getNbIteration(), 0u);
}

TEST_F(NonLinearSolverCallback, RefusesAnArrayInAnothersPlace)
{
    solveWith(
        [](const LmderCall& call)
        {
            EXPECT_EQ(call.evaluateEquations(call.fvec, call.fvec), -4);
            EXPECT_EQ(call.evaluateEquations(call.x, call.x), -4);
            EXPECT_EQ(call.evaluateEquations(call.x, call.x + 1), -4);
            EXPECT_EQ(call.evaluateJacobian(call.x, call.fvec), -4);
            return 1;
        });
}

TEST_F(NonLinearSolverCallback, EvaluatesNothingForOtherPurposes)
{
    solveWith(
        [](const LmderCall& call)
        {
            call.fvec[0] = 11.0;
            for (const int iflag : {0, 3, -1})
                EXPECT_EQ(call.fcn(call.p, call.m, call.n, nullptr, call.fvec, call.fjac, call.ldfjac, iflag), 0);
            EXPECT_EQ(call.fvec[0], 11.0);
            return 1;
        });
    EXPECT_EQ(_solver.getNbIteration(), 0u);
}

TEST_F(NonLinearSolverCallback, DoesNotLookAtTheSizes)
{
    solveWith(
        [](const LmderCall& call)
        {
            EXPECT_EQ(call.fcn(call.p, -1, -1, call.x, call.fvec, nullptr, -1, 1), 0);
            EXPECT_EQ(call.fcn(call.p, -1, -1, call.x, nullptr, call.fjac, -1, 2), 0);
            return 1;
        });
}

TEST_F(NonLinearSolverCallback, TellsAFailureOfTheEquationsFromOneOfTheJacobian)
{
    solveWith(
        [this](const LmderCall& call)
        {
            _pProblem->bEvaluates = false;
            EXPECT_EQ(call.evaluateEquations(call.x, call.fvec), -2);
            EXPECT_EQ(call.evaluateJacobian(call.x, call.fjac), -3);
            return 1;
        });
    EXPECT_EQ(_solver.getNbIteration(), 0u);
}

TEST_F(NonLinearSolverCallback, CountsSuccessfulJacobiansOnly)
{
    solveWith(
        [](const LmderCall& call)
        {
            call.evaluateEquations(call.x, call.fvec);
            call.evaluateJacobian(call.x, call.fjac);
            call.evaluateJacobian(call.wa2, call.fjac);
            return 1;
        });
    EXPECT_EQ(_solver.getNbIteration(), 2u);
}

TEST_F(NonLinearSolverCallback, RefusesEveryCallOnceThereWereMoreThanAHundredJacobians)
{
    solveWith(
        [](const LmderCall& call)
        {
            for (int i = 0; i < 101; ++i)
                EXPECT_EQ(call.evaluateJacobian(call.x, call.fjac), 0);
            EXPECT_EQ(call.evaluateJacobian(call.x, call.fjac), -1);
            EXPECT_EQ(call.evaluateEquations(call.x, call.fvec), -1);
            EXPECT_EQ(call.evaluateEquations(nullptr, nullptr), -1);
            EXPECT_EQ(call.fcn(call.p, call.m, call.n, call.x, call.fvec, call.fjac, call.ldfjac, 0), -1);
            return 1;
        });
    EXPECT_EQ(_solver.getNbIteration(), 101u);
}

TEST_F(NonLinearSolverCallback, GoesOnAfterAHundredJacobians)
{
    solveWith(
        [](const LmderCall& call)
        {
            for (int i = 0; i < 100; ++i)
                call.evaluateJacobian(call.x, call.fjac);
            EXPECT_EQ(call.evaluateEquations(call.x, call.fvec), 0);
            return 1;
        });
}

TEST_F(NonLinearSolverCallback, AnswersAfterTheSolveUntilTheResultsAreCleared)
{
    LmderCall kept{};
    solveWith(
        [&kept](const LmderCall& call)
        {
            kept = call;
            return 1;
        });
    EXPECT_EQ(kept.evaluateEquations(kept.x, kept.fvec), 0);
    _solver.clearResults();
    EXPECT_EQ(kept.evaluateEquations(kept.x, kept.fvec), -4);
    EXPECT_EQ(kept.evaluateJacobian(kept.x, kept.fjac), -4);
}

TEST_F(NonLinearSolverCallback, RefusesNullArraysBeforeTheFirstSolve)
{
    EXPECT_EQ(NonLinearSolver::minPackProxy(&_solver, 0, 0, nullptr, nullptr, nullptr, 0, 1), -4);
    EXPECT_EQ(NonLinearSolver::minPackProxy(&_solver, 0, 0, nullptr, nullptr, nullptr, 0, 2), -4);
}

TEST_F(NonLinearSolverCallback, ReadsTheEquationsOfTheEstimateForTheGradientTest)
{
    const OptResult result = solveWith(
        [](const LmderCall& call)
        {
            std::fill_n(call.fvec, 3, 0.0);
            std::fill_n(call.wa4, 3, 1.0);
            return 4;
        });
    EXPECT_EQ(result.status, eOS_Converged);
    EXPECT_EQ(result.msg, "Null residuals on last iteration");
}

TEST_F(NonLinearSolverCallback, FailsTheGradientTestOnASingleEquationLeft)
{
    const OptResult result = solveWith(
        [](const LmderCall& call)
        {
            std::fill_n(call.fvec, 3, 0.0);
            call.fvec[2] = -1e-150;
            return 4;
        });
    EXPECT_EQ(result.status, eOS_Failed);
    EXPECT_EQ(result.msg, "Fvec is orthogonal to the columns of the jacobian to machine precision");
}

TEST_P(NonLinearSolverReturnCode, BecomesAStatusAndAText)
{
    g_lmder = [](const LmderCall&) { return GetParam().info; };
    NonLinearSolver solver;
    const OptResult result = solver.solve(boost::make_shared<Problem>(), makeVector({7.0, 9.0}));
    EXPECT_EQ(result.status, GetParam().status);
    EXPECT_EQ(result.msg, GetParam().msg);
    if (result.status == eOS_Failed)
        expectMathRaises("Non linear solver has not been successfully executed", [&] { solver.getEstimParams(); });
    else
        EXPECT_THAT(toStd(solver.getEstimParams()), ElementsAre(7.0, 9.0));
}

INSTANTIATE_TEST_SUITE_P(
    All, NonLinearSolverReturnCode,
    testing::Values(
        ReturnCode{-5, eOS_Failed, "Algorithm ended for an unknown reason"},
        ReturnCode{-4, eOS_Failed, "Unexpected input parameters for minpack function wrapper"},
        ReturnCode{-3, eOS_Failed, "Jacobian evaluation failed with following reason\n"},
        ReturnCode{-2, eOS_Failed, "Function evaluation failed with following reason\n"},
        ReturnCode{-1, eOS_Failed, "Number of calls to fcn has reached or exceeded max number of iterations"},
        ReturnCode{0, eOS_Failed, "Improper input parameters"},
        ReturnCode{1, eOS_Converged,
                   "Algorithm estimates that the relative error in the sum of squares is at most tol"},
        ReturnCode{2, eOS_Converged,
                   "Algorithm estimates that the relative error between x and the solution is at most tol"},
        ReturnCode{3, eOS_Converged,
                   "Algorithm estimates that the relative error in the sum of squares and between x and the solution "
                   "is at most tol"},
        ReturnCode{5, eOS_Stopped, "Number of calls to fcn has reached or exceeded max number of iterations"},
        ReturnCode{6, eOS_Stopped, "Tol is too small. no further reduction in the sum of squares is possible"},
        ReturnCode{7, eOS_Stopped,
                   "Tol is too small. no further improvement in the approximate solution x is possible"},
        ReturnCode{8, eOS_Failed, "Algorithm ended for an unknown reason"},
        ReturnCode{9, eOS_Failed, "Algorithm ended for an unknown reason"}));

} // namespace math
} // namespace ovrix
