#include "NistComparison.h"

#include <dlib/optimization.h>

namespace ovrix
{
namespace bench
{

namespace
{

using DlibVector = dlib::matrix<double, 0, 1>;

class DlibSolver : public NistSolver
{
public:
    DlibSolver(const test::NistProblem& problem, const std::vector<double>& start) : _problem(problem), _start(start)
    {
        for (std::size_t i = 0; i < problem.getNbObservations(); ++i)
            _observations.push_back(i);
    }

    void solve() override
    {
        std::size_t nbResiduals = 0;
        const auto computeResidual = [&](std::size_t i, const DlibVector& b)
        {
            ++nbResiduals;
            return _problem.pModel->computeValue(_problem.x[i], b.begin()) - _problem.y[i];
        };
        const auto computeGradient = [&](std::size_t i, const DlibVector& b)
        {
            DlibVector gradient(b.size());
            _problem.pModel->computeGradient(_problem.x[i], b.begin(), gradient.begin());
            return gradient;
        };
        _x = dlib::mat(_start);
        // The tolerance is absolute, and the objective half the sum of squares; it is given the size of the solution.
        dlib::solve_least_squares_lm(
            dlib::objective_delta_stop_strategy(g_nistTolerance * _problem.certifiedSumOfSquares / 2.0,
                                                100 * (_start.size() + 1)),
            computeResidual, computeGradient, _observations, _x);
        _nbEvaluations = nbResiduals / _problem.getNbObservations();
    }

    std::vector<double> getParams() const override
    {
        return std::vector<double>(_x.begin(), _x.end());
    }

    std::size_t getNbEvaluations() const override
    {
        return _nbEvaluations;
    }

private:
    const test::NistProblem& _problem;
    std::vector<double> _start;
    std::vector<std::size_t> _observations;
    DlibVector _x;
    std::size_t _nbEvaluations = 0;
};

const bool g_bRegistered = registerNistComparison("dlib", makeNistSolver<DlibSolver>);

} // namespace

} // namespace bench
} // namespace ovrix
