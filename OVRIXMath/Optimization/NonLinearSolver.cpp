#include <OVRIXMath/LinearAlgebra/WorkBuffer.h>
#include <OVRIXMath/OVRIXMathFailure.h>
#include <OVRIXMath/Optimization/NonLinearSolver.h>
#include <OVRIXMath/Optimization/OptimizationLogMessages.h>

#include <cminpack.h>

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace ovrix
{
namespace math
{

namespace
{

/// What the callback returns to make lmder stop; lmder hands it back as its own return code.
enum eStopCode : int
{
    eSC_TooManyIterations = -1,
    eSC_EquationsFailed = -2,
    eSC_JacobianFailed = -3,
    eSC_UnknownArray = -4
};

struct Outcome
{
    eOptStatus status;
    int messageId;
};

template <class... Containers>
void setToZero(Containers&... containers)
{
    (std::fill(containers.data().begin(), containers.data().end(), 0.0), ...);
}

/// The vector whose storage the array is; `preferred` wins when both are. Null when neither is.
Vector* findByStorage(const double* array, Vector& preferred, Vector& other)
{
    if (array == preferred.data().begin())
        return &preferred;
    return array == other.data().begin() ? &other : nullptr;
}

double computeNorm(const Vector& vector)
{
    double sum = 0.0;
    for (const double value : vector.data())
        sum += value * value;
    return std::sqrt(sum);
}

Outcome interpret(int info, const Vector& equations)
{
    switch (info)
    {
    case eSC_UnknownArray:
        return {eOS_Failed, 19};
    case eSC_JacobianFailed:
        return {eOS_Failed, 18};
    case eSC_EquationsFailed:
        return {eOS_Failed, 17};
    case eSC_TooManyIterations:
        return {eOS_Failed, 14};
    case 0:
        return {eOS_Failed, 8};
    case 1:
        return {eOS_Converged, 9};
    case 2:
        return {eOS_Converged, 10};
    case 3:
        return {eOS_Converged, 11};
    case 4:
        // The tolerance of the gradient test is zero, so this is a gradient of exactly zero.
        return computeNorm(equations) == 0.0 ? Outcome{eOS_Converged, 12} : Outcome{eOS_Failed, 13};
    case 5:
        return {eOS_Stopped, 14};
    case 6:
        return {eOS_Stopped, 15};
    case 7:
        return {eOS_Stopped, 16};
    default:
        return {eOS_Failed, 20};
    }
}

/// minPackProxy() with the signature that lmder calls: x comes as constant, though it is always storage of the solver.
///
/// What a cost function throws unwinds lmder, which holds nothing that would have to be released; code for x86-64
/// carries the tables for that in any language.
int callMinPackProxy(void* p, int m, int n, const double* x, double* fvec, double* fjac, int ldfjac, int iflag)
{
    return NonLinearSolver::minPackProxy(p, m, n, const_cast<double*>(x), fvec, fjac, ldfjac, iflag);
}

} // namespace

OptResult NonLinearSolver::solve(const CostFunctionConstPtr& pCostFunction, const Vector& initParams)
{
    clearResults();
    OVRIXMATH_RAISE_UNLESS(pCostFunction != nullptr, eOptimizationMessage, 5);
    _pCostFunction = pCostFunction;
    const ovUInt32 n = _pCostFunction->getNbParameters();
    const ovUInt32 m = _pCostFunction->getNbEquations();

    _estimParams = initParams;
    _equations.resize(m, false);
    _trialParams.resize(n, false);
    _trialEquations.resize(m, false);
    _jacobian.resize(n, m, false);
    // An evaluation that leaves elements unwritten finds the same in them at every solve.
    setToZero(_equations, _trialParams, _trialEquations, _jacobian);

    details::IndexBuffer<int> ipvt(n, details::uninitialised);
    details::VectorBuffer diag(n, details::uninitialised);
    details::VectorBuffer qtf(n, details::uninitialised);
    details::VectorBuffer wa1(n, details::uninitialised);
    details::VectorBuffer wa3(n, details::uninitialised);
    constexpr double tol = NumericLimits<double>::s_sqrt_eps;
    const int maxfev = static_cast<int>((n + 1) * _nbMaxIterations);
    int nfev = 0;
    int njev = 0;
    const int info =
        lmder(&callMinPackProxy, this, static_cast<int>(m), static_cast<int>(n), _estimParams.data().begin(),
              _equations.data().begin(), _jacobian.data().begin(), static_cast<int>(m), tol, tol, 0.0, maxfev,
              diag.data(), 1, 100.0, 0, &nfev, &njev, ipvt.data(), qtf.data(), wa1.data(), _trialParams.data().begin(),
              wa3.data(), _trialEquations.data().begin());

    const Outcome outcome = interpret(info, _equations);
    setToZero(_equations, _trialParams, _trialEquations, _jacobian);

    // The placeholder of texts 17 and 18 stays unfed: the reason in _errorMsg is kept out of them on purpose.
    OptResult result = {outcome.status, ovrix::details::formatMessage<eOptimizationMessage::domain>(
                                            getOVRIXMathLogMessageManager(), outcome.messageId)};
    // Only now, as a solve that finds no memory for the text has no result.
    _status = outcome.status;
    return result;
}

ovUInt32 NonLinearSolver::getNbIteration() const
{
    OVRIXMATH_RAISE_UNLESS(_status != eOS_Failed, eOptimizationMessage, 4);
    return _nbIterations;
}

const Vector& NonLinearSolver::getEstimParams() const
{
    OVRIXMATH_RAISE_UNLESS(_status != eOS_Failed, eOptimizationMessage, 4);
    return _estimParams;
}

void NonLinearSolver::clearResults()
{
    _status = eOS_Failed;
    _pCostFunction.reset();
    setToZero(_estimParams);
    _errorMsg.clear();
    _nbIterations = 0;
}

int NonLinearSolver::minPackProxy(void* p, int /*m*/, int /*n*/, double* x, double* fvec, double* fjac, int /*ldfjac*/,
                                  int iflag)
{
    NonLinearSolver& solver = *static_cast<NonLinearSolver*>(p);
    if (solver._nbIterations > solver._nbMaxIterations)
        return eSC_TooManyIterations;
    if (iflag != 1 && iflag != 2)
        return 0;
    const Vector* const pParams = findByStorage(x, solver._trialParams, solver._estimParams);
    if (pParams == nullptr)
        return eSC_UnknownArray;
    return iflag == 1 ? solver.evaluateEquations(*pParams, fvec) : solver.evaluateJacobian(*pParams, fjac);
}

int NonLinearSolver::evaluateEquations(const Vector& params, const double* fvec)
{
    Vector* const pEquations = findByStorage(fvec, _trialEquations, _equations);
    if (pEquations == nullptr || !_pCostFunction)
        return eSC_UnknownArray;
    const std::size_t nbEquations = pEquations->size();
    const BoolResult result = _pCostFunction->computeEquations(params, *pEquations);
    if (!result)
    {
        _errorMsg = result.getMessage();
        return eSC_EquationsFailed;
    }
    // An evaluation that exchanged the storage has freed the array: lmder must stop before it reads there. Memory that
    // was freed may have come back at the same address for fewer elements.
    const bool bInPlace = pEquations->data().begin() == fvec && pEquations->size() == nbEquations;
    return bInPlace ? 0 : eSC_UnknownArray;
}

int NonLinearSolver::evaluateJacobian(const Vector& params, const double* fjac)
{
    if (fjac != _jacobian.data().begin() || !_pCostFunction)
        return eSC_UnknownArray;
    const std::size_t nbRows = _jacobian.size1();
    const std::size_t nbColumns = _jacobian.size2();
    const BoolResult result = _pCostFunction->computeJacobian(params, _jacobian);
    if (!result)
    {
        _errorMsg = result.getMessage();
        return eSC_JacobianFailed;
    }
    ++_nbIterations;
    const bool bInPlace =
        _jacobian.data().begin() == fjac && _jacobian.size1() == nbRows && _jacobian.size2() == nbColumns;
    return bInPlace ? 0 : eSC_UnknownArray;
}

} // namespace math
} // namespace ovrix
