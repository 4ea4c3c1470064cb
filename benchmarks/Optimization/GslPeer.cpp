#include "NistComparison.h"

#include <gsl/gsl_errno.h>
#include <gsl/gsl_multifit_nlinear.h>

namespace ovrix
{
namespace bench
{

namespace
{

class GslSolver : public NistSolver
{
public:
    GslSolver(const test::NistProblem& problem, const std::vector<double>& start) : _problem(problem), _start(start)
    {
        gsl_set_error_handler_off();
        _function.f = &computeResiduals;
        _function.df = &computeJacobian;
        _function.fvv = nullptr;
        _function.n = problem.getNbObservations();
        _function.p = problem.getNbParameters();
        _function.params = this;
        const gsl_multifit_nlinear_parameters parameters = gsl_multifit_nlinear_default_parameters();
        _pWorkspace.reset(
            gsl_multifit_nlinear_alloc(gsl_multifit_nlinear_trust, &parameters, _function.n, _function.p));
    }

    void solve() override
    {
        const gsl_vector_const_view start = gsl_vector_const_view_array(_start.data(), _start.size());
        int info = 0;
        gsl_multifit_nlinear_init(&start.vector, &_function, _pWorkspace.get());
        gsl_multifit_nlinear_driver(100 * (_start.size() + 1), g_nistTolerance, g_nistTolerance, g_nistTolerance,
                                    nullptr, nullptr, &info, _pWorkspace.get());
    }

    std::vector<double> getParams() const override
    {
        const gsl_vector* const x = gsl_multifit_nlinear_position(_pWorkspace.get());
        return std::vector<double>(x->data, x->data + x->size);
    }

    std::size_t getNbEvaluations() const override
    {
        return _function.nevalf;
    }

private:
    struct Free
    {
        void operator()(gsl_multifit_nlinear_workspace* pWorkspace) const
        {
            gsl_multifit_nlinear_free(pWorkspace);
        }
    };

    static int computeResiduals(const gsl_vector* x, void* p, gsl_vector* f)
    {
        static_cast<const GslSolver*>(p)->_problem.computeResiduals(x->data, f->data);
        return GSL_SUCCESS;
    }

    static int computeJacobian(const gsl_vector* x, void* p, gsl_matrix* jacobian)
    {
        static_cast<const GslSolver*>(p)->_problem.computeJacobian(x->data, jacobian->data, 1, jacobian->tda);
        return GSL_SUCCESS;
    }

    const test::NistProblem& _problem;
    std::vector<double> _start;
    gsl_multifit_nlinear_fdf _function{};
    std::unique_ptr<gsl_multifit_nlinear_workspace, Free> _pWorkspace;
};

const bool g_bRegistered = registerNistComparison("gsl", makeNistSolver<GslSolver>);

} // namespace

} // namespace bench
} // namespace ovrix
