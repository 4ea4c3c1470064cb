#include "NistComparison.h"

#include <ceres/ceres.h>
#include <ceres/tiny_solver.h>
#include <glog/logging.h>

namespace ovrix
{
namespace bench
{

namespace
{

class CeresProblem : public ceres::CostFunction
{
public:
    explicit CeresProblem(const test::NistProblem& problem) : _problem(problem)
    {
        set_num_residuals(static_cast<int>(problem.getNbObservations()));
        mutable_parameter_block_sizes()->push_back(static_cast<int>(problem.getNbParameters()));
    }

    bool Evaluate(const double* const* parameters, double* residuals, double** jacobians) const override
    {
        _problem.computeResiduals(parameters[0], residuals);
        if (jacobians != nullptr && jacobians[0] != nullptr)
            _problem.computeJacobian(parameters[0], jacobians[0], 1, _problem.getNbParameters());
        return true;
    }

private:
    const test::NistProblem& _problem;
};

class CeresSolver : public NistSolver
{
public:
    CeresSolver(const test::NistProblem& problem, const std::vector<double>& start) : _start(start), _x(start)
    {
        _problem.AddResidualBlock(new CeresProblem(problem), nullptr, _x.data());
        _options.linear_solver_type = ceres::DENSE_QR;
        _options.function_tolerance = g_nistTolerance;
        _options.parameter_tolerance = g_nistTolerance;
        _options.gradient_tolerance = 0.0;
        _options.max_num_iterations = 100 * static_cast<int>(start.size() + 1);
        _options.num_threads = 1;
        _options.logging_type = ceres::SILENT;
        FLAGS_minloglevel = google::GLOG_ERROR; // it warns of every step to where a model overflows
    }

    void solve() override
    {
        std::copy(_start.begin(), _start.end(), _x.begin());
        ceres::Solve(_options, &_problem, &_summary);
    }

    std::vector<double> getParams() const override
    {
        return _x;
    }

    std::size_t getNbEvaluations() const override
    {
        return static_cast<std::size_t>(_summary.num_residual_evaluations);
    }

private:
    std::vector<double> _start;
    std::vector<double> _x;
    ceres::Problem _problem;
    ceres::Solver::Options _options;
    ceres::Solver::Summary _summary;
};

struct TinyProblem
{
    using Scalar = double;
    enum
    {
        NUM_RESIDUALS = Eigen::Dynamic,
        NUM_PARAMETERS = Eigen::Dynamic
    };

    const test::NistProblem& problem;
    mutable std::size_t nbEvaluations = 0;

    bool operator()(const double* parameters, double* residuals, double* jacobian) const
    {
        ++nbEvaluations;
        problem.computeResiduals(parameters, residuals);
        if (jacobian != nullptr)
            problem.computeJacobian(parameters, jacobian);
        return true;
    }

    int NumResiduals() const
    {
        return static_cast<int>(problem.getNbObservations());
    }

    int NumParameters() const
    {
        return static_cast<int>(problem.getNbParameters());
    }
};

class TinySolver : public NistSolver
{
public:
    TinySolver(const test::NistProblem& problem, const std::vector<double>& start) : _start(start), _problem{problem}
    {
        _solver.options.max_num_iterations = 100 * static_cast<int>(start.size() + 1);
        _solver.options.parameter_tolerance = g_nistTolerance;
        // This tolerance is absolute; it is given the size of the solution.
        _solver.options.function_tolerance = g_nistTolerance * problem.certifiedSumOfSquares;
        _solver.options.gradient_tolerance = 0.0;
        _solver.options.cost_threshold = 0.0;
    }

    void solve() override
    {
        _problem.nbEvaluations = 0;
        _x = Eigen::Map<const Eigen::VectorXd>(_start.data(), static_cast<Eigen::Index>(_start.size()));
        _solver.Solve(_problem, &_x);
    }

    std::vector<double> getParams() const override
    {
        return std::vector<double>(_x.data(), _x.data() + _x.size());
    }

    std::size_t getNbEvaluations() const override
    {
        return _problem.nbEvaluations;
    }

private:
    std::vector<double> _start;
    TinyProblem _problem;
    ceres::TinySolver<TinyProblem> _solver;
    Eigen::VectorXd _x;
};

const bool g_bRegistered = registerNistComparison("ceres", makeNistSolver<CeresSolver>);
const bool g_bTinyRegistered = registerNistComparison("ceresTiny", makeNistSolver<TinySolver>);

} // namespace

} // namespace bench
} // namespace ovrix
