#include "NistComparison.h"

#include <unsupported/Eigen/LevenbergMarquardt>

namespace ovrix
{
namespace bench
{

namespace
{

struct EigenProblem : Eigen::DenseFunctor<double>
{
    explicit EigenProblem(const test::NistProblem& theProblem)
        : DenseFunctor(static_cast<int>(theProblem.getNbParameters()),
                       static_cast<int>(theProblem.getNbObservations())),
          problem(theProblem)
    {
    }

    int operator()(const InputType& x, ValueType& residuals) const
    {
        problem.computeResiduals(x.data(), residuals.data());
        return 0;
    }

    int df(const InputType& x, JacobianType& jacobian) const
    {
        problem.computeJacobian(x.data(), jacobian.data());
        return 0;
    }

    const test::NistProblem& problem;
};

class EigenSolver : public NistSolver
{
public:
    EigenSolver(const test::NistProblem& problem, const std::vector<double>& start)
        : _start(start), _problem(problem), _solver(_problem)
    {
        _solver.setFtol(g_nistTolerance);
        _solver.setXtol(g_nistTolerance);
        _solver.setMaxfev(static_cast<Eigen::Index>(100 * (start.size() + 1)));
    }

    void solve() override
    {
        _x = Eigen::Map<const Eigen::VectorXd>(_start.data(), static_cast<Eigen::Index>(_start.size()));
        _solver.minimize(_x);
    }

    std::vector<double> getParams() const override
    {
        return std::vector<double>(_x.data(), _x.data() + _x.size());
    }

    std::size_t getNbEvaluations() const override
    {
        return static_cast<std::size_t>(_solver.nfev());
    }

private:
    std::vector<double> _start;
    EigenProblem _problem;
    mutable Eigen::LevenbergMarquardt<EigenProblem> _solver; // its counts are not const
    Eigen::VectorXd _x;
};

const bool g_bRegistered = registerNistComparison("eigen", makeNistSolver<EigenSolver>);

} // namespace

} // namespace bench
} // namespace ovrix
