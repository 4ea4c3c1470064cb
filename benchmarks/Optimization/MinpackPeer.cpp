// lmder itself on plain arrays: the difference is the solver's own cost.

#include "NistComparison.h"

#include <cminpack.h>

namespace ovrix
{
namespace bench
{

namespace
{

class MinpackSolver : public NistSolver
{
public:
    MinpackSolver(const test::NistProblem& problem, const std::vector<double>& start)
        : _problem(problem), _start(start), _x(start), _ipvt(start.size()), _fvec(problem.getNbObservations()),
          _fjac(problem.getNbObservations() * start.size()), _diag(start.size()), _qtf(start.size()),
          _wa1(start.size()), _wa2(start.size()), _wa3(start.size()), _wa4(problem.getNbObservations())
    {
    }

    void solve() override
    {
        const int m = static_cast<int>(_fvec.size());
        const int n = static_cast<int>(_x.size());
        int njev = 0;
        _x = _start;
        lmder(&evaluate, this, m, n, _x.data(), _fvec.data(), _fjac.data(), m, g_nistTolerance, g_nistTolerance, 0.0,
              100 * (n + 1), _diag.data(), 1, 100.0, 0, &_nbEvaluations, &njev, _ipvt.data(), _qtf.data(), _wa1.data(),
              _wa2.data(), _wa3.data(), _wa4.data());
    }

    std::vector<double> getParams() const override
    {
        return _x;
    }

    std::size_t getNbEvaluations() const override
    {
        return static_cast<std::size_t>(_nbEvaluations);
    }

private:
    static int evaluate(void* p, int, int, const double* x, double* fvec, double* fjac, int, int iflag)
    {
        const test::NistProblem& problem = static_cast<const MinpackSolver*>(p)->_problem;
        if (iflag == 1)
            problem.computeResiduals(x, fvec);
        else
            problem.computeJacobian(x, fjac);
        return 0;
    }

    const test::NistProblem& _problem;
    std::vector<double> _start;
    std::vector<double> _x;
    std::vector<int> _ipvt;
    std::vector<double> _fvec, _fjac, _diag, _qtf, _wa1, _wa2, _wa3, _wa4;
    int _nbEvaluations = 0;
};

const bool g_bRegistered = registerNistComparison("minpack", makeNistSolver<MinpackSolver>);

} // namespace

} // namespace bench
} // namespace ovrix
